#pragma once
#include "kernel/KernelLog.h"
#include "kernelapi/iUsers.h"
#include <optional>

class Database;
class iTranslator;

// Login state of the workstation against table Usuari of User.MDB. A refused password counts
// a failure in the user's row; a login stamps the row's LastDate with today as "dd/mm/yyyy".
class Users : public iUsers
{
    Q_OBJECT
public:
    Users(std::shared_ptr<Database> db, std::shared_ptr<const iTranslator> translator, KernelLog log,
          QObject* parent = nullptr);

    bool Login(const QString& user, const QString& password) override;
    void Logout() override;
    std::shared_ptr<iUser> CurrentUser() const override { return m_current; }

    // Logs a known user in with no password (the station's automatic login).
    bool LoginWithoutPassword(const QString& user);

private:
    struct Account
    {
        QString name;
        QString password;
        int privilege = 0;
        QString lastDate;
        int fails = 0;
    };

    // Logs the user in when known and, unless password is absent, when it matches.
    bool Admit(const QString& user, const std::optional<QString>& password);
    std::optional<Account> Find(const QString& name) const;
    void CountFailure(const QString& name);
    void Connect(const Account& account);
    void Refuse(const QString& name, const QString& reason) const;

    std::shared_ptr<Database> m_db;
    std::shared_ptr<const iTranslator> m_translator;
    KernelLog m_log;
    std::shared_ptr<iUser> m_current;
};
