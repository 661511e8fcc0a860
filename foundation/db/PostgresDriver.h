#pragma once
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
    QString BeginStatement() const override { return QStringLiteral("BEGIN"); }

private:
    void RequireSchema(Database& db, const QString& schema) const;
    void SetSearchPath(Database& db) const;

    PostgresLocation m_location;
    QStringList m_searchPath;
    bool m_walStamp = false;
};
