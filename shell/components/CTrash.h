#pragma once
#include <QObject>
#include <QString>

// A sink that accepts the calls some hosts make on a cart source and does nothing with them:
// it stands where no real preloader or cart owner is present.
class CTrash : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    Q_INVOKABLE void DoCartPreload(const QString& cartID) {}
    Q_INVOKABLE void DoCartUnload(const QString& cartID) {}
    Q_INVOKABLE void Refresh() {}
    Q_INVOKABLE void Init() {}
};
