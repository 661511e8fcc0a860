#pragma once
#include "kernelapi/iUser.h"
#include <memory>

class Database;
class iTranslator;

// A user of table Usuari as it stood at login.
class User : public iUser
{
    Q_OBJECT
public:
    User(const QString& name, int privilege, const QString& lastLogin, int fails, std::shared_ptr<Database> db,
         std::shared_ptr<const iTranslator> translator, QObject* parent = nullptr);

    QString Name() const override { return m_name; }
    int Privilege() const override { return m_privilege; }
    QString LastLogin() const override { return m_lastLogin; }
    QString Fails() const override { return QString::number(m_fails); }
    QString PrivilegeDescription() const override;
    PasswordChange ChangePassword(const QString& oldPassword, const QString& newPassword) override;

    // Whether a typed password matches the stored, scrambled one. Forms are compared on their
    // single-byte codes. Text stores trim trailing blanks, so a scrambled form that ends in
    // blanks (the empty password's does) matches its trimmed copy too.
    static bool PasswordMatches(const QString& stored, const QString& typed);

private:
    // The single-byte codes of a scrambled form as stored.
    static QByteArray FormBytes(const QString& form);
    PasswordChange Refused(const char* reason) const;
    QString StoredPassword() const;

    QString m_name;
    int m_privilege = 0;
    QString m_lastLogin;
    int m_fails = 0;
    std::shared_ptr<Database> m_db;
    std::shared_ptr<const iTranslator> m_translator;
};
