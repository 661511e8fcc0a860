#pragma once
#include <QObject>
#include <QString>

// One user as the kernel knows it.
class iUser : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~iUser() override = default;

    struct PasswordChange
    {
        bool accepted = false;
        QString message; // why a change was refused; empty when accepted
    };

    virtual QString Name() const = 0;
    // 1 is administrator.
    virtual int Privilege() const = 0;
    virtual QString LastLogin() const = 0;
    virtual QString Fails() const = 0;
    virtual QString PrivilegeDescription() const = 0;
    // Changes the password when the old one matches; the refusal reason comes back in message.
    virtual PasswordChange ChangePassword(const QString& oldPassword, const QString& newPassword) = 0;
};
