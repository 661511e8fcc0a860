#pragma once
#include "foundation/db/DbDriver.h"
#include <QStringList>

// A SQLite file through QSQLITE: WAL journal, synchronous NORMAL (a killed process loses no
// committed row), foreign keys off, 5 s busy timeout. Further files attach by alias.
class SqliteDriver : public DbDriver
{
public:
    explicit SqliteDriver(const QString& path) : m_path(path) {}

    SqlDialect::Engine Engine() const override { return SqlDialect::Engine::SQLite; }
    QString Location() const override { return m_path; }
    void Open(const QString& connectionName, Database::OpenMode mode) override;
    void Configure(Database& db, Database::OpenMode mode) override;
    TableInfo ReadTable(Database& db, const QString& name) override;
    void Attach(Database& db, const QString& location, const QString& alias) override;
    QString ChangeStamp(Database& db) override;
    bool Retryable(const QSqlError& error) const override;
    QString BeginStatement() const override { return QStringLiteral("BEGIN IMMEDIATE"); }

private:
    // Refuses a path that is missing (unless it may be created) or not a SQLite file.
    static void RequireDatabaseFile(const QString& path, bool mayCreate);
    // The schema that holds a table as SQLite resolves an unqualified name; empty when none.
    QString SchemaOf(Database& db, const QString& name, bool* view);
    QStringList SchemasInOrder() const;

    QString m_path;
    QStringList m_aliases;
};
