#include "foundation/db/SqliteDriver.h"
#include "foundation/db/DatabaseError.h"
#include <QFile>
#include <QFileInfo>
#include <QSqlQuery>
#include <map>

namespace {
constexpr int SqliteBusy = 5;
constexpr int SqliteLocked = 6;

QString NotADatabase(const QString& path)
{
    return QStringLiteral("'%1' is not a database").arg(path);
}

bool HasSqliteHeader(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    if (file.size() == 0)
        return true; // an empty file is an empty database to SQLite
    return file.read(16) == QByteArray("SQLite format 3\0", 16);
}

int PrimaryErrorCode(const QSqlError& error)
{
    return error.nativeErrorCode().toInt() & 0xFF;
}

QString Quoted(const QString& name)
{
    QString quoted = name;
    quoted.replace(u'"', QStringLiteral("\"\""));
    return u'"' + quoted + u'"';
}
}

void SqliteDriver::RequireDatabaseFile(const QString& path, bool mayCreate)
{
    const QFileInfo info(path);
    if (!info.exists()) {
        if (mayCreate)
            return;
        throw KernelError(QStringLiteral("'%1' does not exist").arg(path));
    }
    if (!info.isFile() || !HasSqliteHeader(path))
        throw KernelError(NotADatabase(path));
}

void SqliteDriver::Open(const QString& connectionName, Database::OpenMode mode)
{
    RequireDatabaseFile(m_path, mode == Database::OpenMode::Create);
    QSqlDatabase connection = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connectionName);
    connection.setDatabaseName(m_path);
    connection.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=5000"));
    if (!connection.open())
        throw KernelError(QStringLiteral("Cannot open '%1': %2").arg(m_path, connection.lastError().text()));
}

void SqliteDriver::Configure(Database& db, Database::OpenMode)
{
    try {
        db.ExecuteNative(QStringLiteral("PRAGMA journal_mode=WAL"));
    } catch (const DatabaseError& error) {
        // SQLite reads the header first: a damaged one fails here with "file is not a database".
        if (error.Description().contains(QLatin1String("not a database")))
            throw KernelError(NotADatabase(m_path));
        throw;
    }
    db.ExecuteNative(QStringLiteral("PRAGMA synchronous=NORMAL"));
    db.ExecuteNative(QStringLiteral("PRAGMA foreign_keys=OFF"));
}

QStringList SqliteDriver::SchemasInOrder() const
{
    QStringList order{QStringLiteral("temp"), QStringLiteral("main")};
    for (const QString& alias : m_aliases)
        order << alias.toLower();
    return order;
}

QString SqliteDriver::SchemaOf(Database& db, const QString& name, bool* view)
{
    QSqlQuery query = db.QueryNative(
        QStringLiteral("SELECT schema, type FROM pragma_table_list WHERE name = ? COLLATE NOCASE"), {name});
    const QStringList order = SchemasInOrder();
    std::map<qsizetype, std::pair<QString, bool>> found;
    while (query.next()) {
        const QString schema = query.value(0).toString();
        qsizetype rank = order.indexOf(schema.toLower());
        found.emplace(rank < 0 ? order.size() : rank,
                      std::make_pair(schema, query.value(1).toString() == QLatin1String("view")));
    }
    if (found.empty())
        return {};
    *view = found.begin()->second.second;
    return found.begin()->second.first;
}

TableInfo SqliteDriver::ReadTable(Database& db, const QString& name)
{
    TableInfo info;
    info.name = name;
    const QString schema = SchemaOf(db, name, &info.view);
    if (schema.isEmpty())
        return info;
    QSqlQuery query = db.QueryNative(QStringLiteral("PRAGMA %1.table_info(%2)").arg(Quoted(schema), Quoted(name)));
    std::map<int, QString> key;
    while (query.next()) {
        const QString field = query.value(1).toString();
        info.fields << FieldInfo::FromDeclaredType(field, query.value(2).toString());
        if (const int position = query.value(5).toInt(); position > 0)
            key.emplace(position, field);
    }
    for (const auto& [position, field] : key)
        info.primaryKey << field;
    return info;
}

void SqliteDriver::Attach(Database& db, const QString& location, const QString& alias)
{
    RequireDatabaseFile(location, false);
    db.QueryNative(QStringLiteral("ATTACH DATABASE ? AS %1").arg(Quoted(alias)), {location});
    m_aliases << alias;
    db.ExecuteNative(QStringLiteral("PRAGMA %1.journal_mode=WAL").arg(Quoted(alias)));
}

QString SqliteDriver::ChangeStamp(Database& db)
{
    QStringList parts;
    QSqlQuery changes = db.QueryNative(QStringLiteral("SELECT total_changes()"));
    parts << (changes.next() ? changes.value(0).toString() : QString());
    for (const QString& schema : QStringList{QStringLiteral("main")} + m_aliases) {
        QSqlQuery version = db.QueryNative(QStringLiteral("PRAGMA %1.data_version").arg(Quoted(schema)));
        parts << (version.next() ? version.value(0).toString() : QString());
    }
    return parts.join(u':');
}

bool SqliteDriver::Retryable(const QSqlError& error) const
{
    const int code = PrimaryErrorCode(error);
    return code == SqliteBusy || code == SqliteLocked;
}
