#include "kernel/User.h"
#include "foundation/Strings.h"
#include "foundation/Windows1252.h"
#include "foundation/db/Database.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/iTranslator.h"
#include <QSqlQuery>

User::User(const QString& name, int privilege, const QString& lastLogin, int fails, std::shared_ptr<Database> db,
           std::shared_ptr<const iTranslator> translator, QObject* parent)
    : iUser(parent), m_name(name), m_privilege(privilege), m_lastLogin(lastLogin), m_fails(fails),
      m_db(std::move(db)), m_translator(std::move(translator))
{
}

QString User::PrivilegeDescription() const
{
    switch (m_privilege) {
    case 0: return QStringLiteral("Usuari Normal");
    case 1: return QStringLiteral("Super Usuari");
    case 2: return QStringLiteral("Privilegis Remots");
    default: return QStringLiteral("Unknown");
    }
}

iUser::PasswordChange User::ChangePassword(const QString& oldPassword, const QString& newPassword)
{
    if (!PasswordMatches(StoredPassword(), oldPassword))
        return Refused("The original password is not correct.");
    if (newPassword.isEmpty())
        return Refused("The new password can't be empty.");
    m_db->Transaction([&] {
        m_db->Query(QStringLiteral("UPDATE Usuari SET Password = ? WHERE ID = ?"), {ScramblePassword(newPassword), m_name});
    });
    return {true, QString()};
}

bool User::PasswordMatches(const QString& stored, const QString& typed)
{
    const QByteArray storedBytes = FormBytes(stored);
    const QByteArray scrambled = FormBytes(ScramblePassword(typed));
    if (storedBytes == scrambled)
        return true;
    qsizetype end = scrambled.size();
    while (end > 0 && scrambled.at(end - 1) == ' ')
        --end;
    return end < scrambled.size() && storedBytes == scrambled.left(end);
}

QByteArray User::FormBytes(const QString& form)
{
    QByteArray bytes;
    bytes.reserve(form.size());
    for (QChar c : form) {
        const int byte = Windows1252::ByteOf(c);
        // Earlier forms held the bytes 0x80..0x9F as the control characters of those codes.
        bytes += static_cast<char>(byte >= 0 ? byte : (c.unicode() <= 0xFF ? c.unicode() : '?'));
    }
    return bytes;
}

iUser::PasswordChange User::Refused(const char* reason) const
{
    return {false, m_translator->Translate(QString::fromLatin1(reason))};
}

QString User::StoredPassword() const
{
    QSqlQuery query = m_db->Query(QStringLiteral("SELECT Password FROM Usuari WHERE ID = ?"), {m_name});
    if (!query.next())
        throw KernelError(QStringLiteral("The user '%1' is no longer in table Usuari").arg(m_name));
    return query.value(0).toString();
}
