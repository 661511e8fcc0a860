#pragma once
#include <QObject>
#include <QString>
#include <memory>

class iUser;

// Login state of the workstation.
class iUsers : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~iUsers() override = default;

    // True and the user becomes current; false counts a failure on a known user.
    virtual bool Login(const QString& user, const QString& password) = 0;
    virtual void Logout() = 0;
    // The logged-in user, or null.
    virtual std::shared_ptr<iUser> CurrentUser() const = 0;

Q_SIGNALS:
    void CurrentUserChanged();
};
