#include "foundation/db/PostgresDriver.h"
#include "foundation/db/CatalogueSchema.h"
#include "foundation/Log.h"
#include "kernelapi/KernelError.h"
#include <QSqlQuery>
#include <map>

namespace {
QString Quoted(const QString& name)
{
    QString quoted = name;
    quoted.replace(u'"', QStringLiteral("\"\""));
    return u'"' + quoted + u'"';
}

// SQLSTATE of a statement that failed because the connection went: none (the client library
// noticed), connection exceptions (08...), and the server's own shutdown or termination.
bool MayBeLostConnection(const QSqlError& error)
{
    const QString state = error.nativeErrorCode();
    return state.isEmpty() || state.startsWith(QLatin1String("08")) || state.startsWith(QLatin1String("57P"));
}

const QString InsufficientPrivilege = QStringLiteral("42501");

QString ConnectOptions(const QStringList& options)
{
    QStringList all = options;
    if (!options.filter(QStringLiteral("connect_timeout=")).isEmpty())
        return all.join(u';');
    all << QStringLiteral("connect_timeout='10'");
    return all.join(u';');
}
}

PostgresDriver::PostgresDriver(PostgresLocation location)
    : m_location(std::move(location)), m_searchPath{m_location.schema}
{
}

void PostgresDriver::Open(const QString& connectionName, Database::OpenMode)
{
    if (!QSqlDatabase::isDriverAvailable(QStringLiteral("QPSQL")))
        throw KernelError(QStringLiteral("Cannot open '%1': the PostgreSQL driver QPSQL is not installed").arg(Location()));
    QSqlDatabase connection = QSqlDatabase::addDatabase(QStringLiteral("QPSQL"), connectionName);
    connection.setHostName(m_location.host);
    connection.setPort(m_location.port);
    connection.setDatabaseName(m_location.database);
    connection.setUserName(m_location.user);
    connection.setPassword(m_location.password);
    connection.setConnectOptions(ConnectOptions(m_location.options));
    Connect(connection);
}

void PostgresDriver::Connect(QSqlDatabase& connection) const
{
    if (!connection.open())
        throw KernelError(QStringLiteral("Cannot open '%1': the server cannot be reached or refused the login: %2")
                              .arg(Location(), connection.lastError().text().trimmed()));
}

void PostgresDriver::Configure(Database& db, Database::OpenMode mode)
{
    db.ExecuteNative(QStringLiteral("SET client_min_messages = warning"));
    if (mode == Database::OpenMode::Create)
        db.ExecuteNative(QStringLiteral("CREATE SCHEMA IF NOT EXISTS %1").arg(Quoted(m_location.schema)));
    RequireSchema(db, m_location.schema);
    SetSearchPath(db);
    QSqlQuery wal = db.QueryNative(QStringLiteral(
        "SELECT has_function_privilege('pg_current_wal_insert_lsn()', 'execute') AND NOT pg_is_in_recovery()"));
    m_walStamp = wal.next() && wal.value(0).toBool();
}

void PostgresDriver::RequireSchema(Database& db, const QString& schema) const
{
    QSqlQuery query = db.QueryNative(
        QStringLiteral("SELECT has_schema_privilege(oid, 'USAGE'), current_user FROM pg_namespace WHERE nspname = ?"), {schema});
    if (!query.next())
        throw KernelError(QStringLiteral("'%1' does not exist: no schema %2").arg(Location(), schema));
    if (!query.value(0).toBool())
        throw KernelError(QStringLiteral("The role %1 has no rights on the schema %2 of '%3': the station tool grants them "
                                         "(korvane-station create or migrate with --workstation)")
                              .arg(query.value(1).toString(), schema, Location()));
}

void PostgresDriver::SetSearchPath(Database& db) const
{
    QStringList names;
    for (const QString& schema : m_searchPath + QStringList{QStringLiteral("public")})
        names << Quoted(schema);
    names.removeDuplicates();
    db.ExecuteNative(QStringLiteral("SET search_path TO ") + names.join(QStringLiteral(", ")));
}

TableInfo PostgresDriver::ReadTable(Database& db, const QString& name)
{
    TableInfo info;
    info.name = name;
    QSqlQuery query = db.QueryNative(
        QStringLiteral("SELECT a.attname, format_type(a.atttypid, a.atttypmod), c.relkind IN ('v', 'm'), "
                       "COALESCE(array_position(i.indkey::int2[], a.attnum) + 1, 0) "
                       "FROM pg_attribute a JOIN pg_class c ON c.oid = a.attrelid "
                       "LEFT JOIN pg_index i ON i.indrelid = c.oid AND i.indisprimary "
                       "WHERE c.oid = to_regclass(?) AND a.attnum > 0 AND NOT a.attisdropped ORDER BY a.attnum"),
        {db.Dialect().QuoteIdentifier(name)});
    std::map<int, QString> key;
    while (query.next()) {
        const QString field = CatalogueSchema::DeclaredName(name, query.value(0).toString());
        info.fields << FieldInfo::FromDeclaredType(field, query.value(1).toString());
        info.view = query.value(2).toBool();
        if (const int position = query.value(3).toInt(); position > 0)
            key.emplace(position, field);
    }
    for (const auto& [position, field] : key)
        info.primaryKey << field;
    return info;
}

void PostgresDriver::Attach(Database& db, const QString& location, const QString&)
{
    if (!PostgresLocation::Names(location))
        throw KernelError(QStringLiteral("Cannot attach '%1' to '%2': not a PostgreSQL location").arg(location, Location()));
    const PostgresLocation other = PostgresLocation::Parse(location);
    if (!other.SameDatabase(m_location))
        throw KernelError(QStringLiteral("Cannot attach '%1' to '%2': not the same server and database")
                              .arg(other.Display(), Location()));
    RequireSchema(db, other.schema);
    m_searchPath << other.schema;
    SetSearchPath(db);
}

QString PostgresDriver::ChangeStamp(Database& db)
{
    if (!m_walStamp)
        return {};
    QSqlQuery query = db.QueryNative(QStringLiteral("SELECT pg_current_wal_insert_lsn()::text"));
    return query.next() ? query.value(0).toString() : QString();
}

QString PostgresDriver::Describe(const QSqlError& error) const
{
    const QString text = error.text().trimmed();
    if (error.nativeErrorCode() != InsufficientPrivilege)
        return text;
    return QStringLiteral("the role %1 lacks a right on '%2' (%3)")
        .arg(m_location.user.isEmpty() ? QStringLiteral("of this session") : m_location.user, Location(), text);
}

bool PostgresDriver::Reconnect(Database& db, const QSqlError& error)
{
    if (m_reconnecting || !MayBeLostConnection(error))
        return false;
    if (!m_nextAttempt.hasExpired())
        throw KernelError(QStringLiteral("The server of '%1' is away; the next attempt to reach it is in %2 s")
                              .arg(Location())
                              .arg((m_nextAttempt.remainingTime() + 999) / 1000));
    if (ConnectionAnswers(db))
        return false;
    m_reconnecting = true;
    try {
        QSqlDatabase connection = db.Connection();
        connection.close();
        Connect(connection);
        Configure(db, Database::OpenMode::Existing);
    } catch (...) {
        m_reconnecting = false;
        m_nextAttempt.setRemainingTime(RetryAfterMs);
        throw;
    }
    m_reconnecting = false;
    LogOk(QStringLiteral("Database"), QStringLiteral("Reconnect"), QStringLiteral("The session with '%1' is open again").arg(Location()));
    return true;
}

bool PostgresDriver::ConnectionAnswers(Database& db) const
{
    QSqlQuery probe(db.Connection());
    // A transaction that failed still answers, with "current transaction is aborted".
    return probe.exec(QStringLiteral("SELECT 1")) || !MayBeLostConnection(probe.lastError());
}

bool PostgresDriver::Retryable(const QSqlError& error) const
{
    const QString state = error.nativeErrorCode();
    return state == QLatin1String("40001") || state == QLatin1String("40P01");
}
