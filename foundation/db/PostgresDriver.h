#pragma once
#include <QDeadlineTimer>
#include "foundation/db/DbDriver.h"
#include "foundation/db/PostgresLocation.h"
#include <QStringList>

// A schema on a PostgreSQL server through QPSQL. The session's search path is the schema of
// the location, then the schemas attached after it, then public (where citext lives).
class PostgresDriver : public DbDriver
{
public:
    explicit PostgresDriver(PostgresLocation location);

    SqlDialect::Engine Engine() const override { return SqlDialect::Engine::PostgreSQL; }
    QString Location() const override { return m_location.Display(); }
    void Open(const QString& connectionName, Database::OpenMode mode) override;
    void Configure(Database& db, Database::OpenMode mode) override;
    TableInfo ReadTable(Database& db, const QString& name) override;
    void Attach(Database& db, const QString& location, const QString& alias) override;
    QString ChangeStamp(Database& db) override;
    bool Retryable(const QSqlError& error) const override;
    // A missing right names the role and what it lacks.
    QString Describe(const QSqlError& error) const override;
    // A connection that the server closed (restart, shutdown, a terminated session, a network
    // failure) opens again with the same session settings.
    bool Reconnect(Database& db, const QSqlError& error) override;
    // Serializable, as a SQLite transaction is: two workstations that read and write the same
    // rows at once get a serialization failure, and Database::Transaction runs the body again.
    QString BeginStatement() const override { return QStringLiteral("BEGIN ISOLATION LEVEL SERIALIZABLE"); }

    // How long accesses fail at once after a failed attempt to open a lost session again.
    static constexpr int RetryAfterMs = 5000;

private:
    void Connect(QSqlDatabase& connection) const;
    void RequireSchema(Database& db, const QString& schema) const;
    void SetSearchPath(Database& db) const;
    bool ConnectionAnswers(Database& db) const;

    PostgresLocation m_location;
    QStringList m_searchPath;
    bool m_walStamp = false;
    bool m_reconnecting = false;
    // After a failed attempt to open the session again, accesses fail at once until this
    // deadline instead of each waiting out the connect timeout on an unreachable host.
    QDeadlineTimer m_nextAttempt;
};
