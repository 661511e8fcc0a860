#pragma once
#include <QObject>
#include <QString>

// The log channel. Every operation takes the program tag, the object name, the procedure
// name and a free text; the logger decides how the record is stored. A logger never throws.
class CLogger : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~CLogger() override = default;

    virtual void Dump(const QString& tag, const QString& object, const QString& procedure, const QString& text) = 0;
    virtual void Ok(const QString& tag, const QString& object, const QString& procedure, const QString& text) = 0;
    virtual void Error(const QString& tag, const QString& object, const QString& procedure, const QString& text) = 0;
    virtual void Warn(const QString& tag, const QString& object, const QString& procedure, const QString& text) = 0;
};
