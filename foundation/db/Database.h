#pragma once
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariant>
#include <functional>
#include <memory>

class SqlDialect;
class Recordset;
struct TableInfo;

// One open catalogue database: a SQLite file (WAL mode) or a schema on a PostgreSQL server
// named by a postgresql:// URI. SQL handed to it is written in the catalogue dialect and
// translated by its SqlDialect. Every failure throws KernelError with a readable text.
class Database
{
public:
    enum class OpenMode { Existing, Create };

    // Opens a database. A SQLite path that does not exist, or a file that is not a database,
    // is refused unless mode is Create (which makes an empty file).
    static std::unique_ptr<Database> Open(const QString& location, OpenMode mode = OpenMode::Existing);
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    QString Location() const;
    const SqlDialect& Dialect() const;
    QSqlDatabase Connection() const;

    // Runs a statement in catalogue dialect.
    void Execute(const QString& sql);
    // Runs a query in catalogue dialect with positional binds (?); the query is active.
    QSqlQuery Query(const QString& sql, const QVariantList& binds = {});
    // Opens a table name or an SQL text as a dynaset.
    std::unique_ptr<Recordset> OpenRecordset(const QString& tableOrSql);
    // Field names, declared sizes and kinds of a table, read from the store once and cached.
    const TableInfo& Table(const QString& name);
    bool HasTable(const QString& name);

    // Runs body in one transaction: commit on return, roll back and rethrow on a throw.
    // Serialization failures and deadlocks of a server are retried a few times.
    void Transaction(const std::function<void()>& body);

private:
    struct Impl;
    explicit Database(std::unique_ptr<Impl> impl);
    std::unique_ptr<Impl> d;
};
