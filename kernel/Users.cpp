#include "kernel/Users.h"
#include "foundation/db/Database.h"
#include "kernel/User.h"
#include <QDate>
#include <QSqlQuery>

namespace {
const QString DateFormat = QStringLiteral("dd/MM/yyyy");

// LastDate as text: a stored date in the form of the save routine, any other value as stored.
QString DateText(const QVariant& value)
{
    if (value.typeId() == QMetaType::QDate)
        return value.toDate().toString(DateFormat);
    if (value.typeId() == QMetaType::QDateTime)
        return value.toDateTime().date().toString(DateFormat);
    return value.toString();
}
}

Users::Users(std::shared_ptr<Database> db, std::shared_ptr<const iTranslator> translator, KernelLog log,
             QObject* parent)
    : iUsers(parent), m_db(std::move(db)), m_translator(std::move(translator)), m_log(std::move(log))
{
}

bool Users::Login(const QString& user, const QString& password)
{
    return Admit(user, password);
}

bool Users::LoginWithoutPassword(const QString& user)
{
    return Admit(user, std::nullopt);
}

bool Users::Admit(const QString& user, const std::optional<QString>& password)
{
    const std::optional<Account> account = Find(user);
    if (!account) {
        Refuse(user, QStringLiteral("unknown user"));
        return false;
    }
    if (password && !User::PasswordMatches(account->password, *password)) {
        CountFailure(account->name);
        Refuse(user, QStringLiteral("wrong password"));
        return false;
    }
    Connect(*account);
    return true;
}

void Users::Logout()
{
    if (!m_current)
        return;
    m_log.Ok(QStringLiteral("Users"), QStringLiteral("Logout"), QStringLiteral("'%1' logged out").arg(m_current->Name()));
    m_current.reset();
    Q_EMIT CurrentUserChanged();
}

std::optional<Users::Account> Users::Find(const QString& name) const
{
    // A login name matches the stored ID without regard to case: the login form turns what
    // is typed to upper case, and IDs may be stored in any case. The comparison is made here,
    // as the stores' case rules for letters beyond ASCII differ.
    QSqlQuery query = m_db->Query(QStringLiteral("SELECT ID, Password, Privilege, LastDate, Fails FROM Usuari"));
    while (query.next()) {
        const QString id = query.value(0).toString();
        if (id.compare(name, Qt::CaseInsensitive) == 0)
            return Account{id, query.value(1).toString(), query.value(2).toInt(), DateText(query.value(3)),
                           query.value(4).toInt()};
    }
    return std::nullopt;
}

void Users::CountFailure(const QString& name)
{
    m_db->Transaction([&] {
        m_db->Query(QStringLiteral("UPDATE Usuari SET Fails = COALESCE(Fails, 0) + 1 WHERE ID = ?"), {name});
    });
}

void Users::Connect(const Account& account)
{
    const QString today = QDate::currentDate().toString(DateFormat);
    m_db->Transaction([&] {
        m_db->Query(QStringLiteral("UPDATE Usuari SET LastDate = ? WHERE ID = ?"), {today, account.name});
    });
    m_current = std::make_shared<User>(account.name, account.privilege, account.lastDate, account.fails, m_db,
                                       m_translator);
    m_log.Ok(QStringLiteral("Users"), QStringLiteral("Login"), QStringLiteral("'%1' logged in").arg(account.name));
    Q_EMIT CurrentUserChanged();
}

void Users::Refuse(const QString& name, const QString& reason) const
{
    m_log.Warn(QStringLiteral("Users"), QStringLiteral("Login"), QStringLiteral("'%1' refused: %2").arg(name, reason));
}
