#pragma once
#include <QObject>
#include <QString>

// The application record shown beside the menu when T_Application is "yes".
class iApplication : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~iApplication() override = default;

    virtual QString Name() const = 0;
    virtual QString Version() const = 0;
    virtual QString OpenText() const = 0;
    virtual QString ClosedText() const = 0;
};
