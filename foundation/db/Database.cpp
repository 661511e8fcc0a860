#include "foundation/db/Database.h"
#include "foundation/db/DatabaseError.h"
#include "foundation/db/DatabaseRecipe.h"
#include "foundation/db/DbDriver.h"
#include "foundation/db/Recordset.h"
#include <QRegularExpression>
#include <QSqlError>
#include <QThread>
#include <atomic>
#include <map>

namespace {
constexpr int TransactionAttempts = 5;

QString NextConnectionName()
{
    static std::atomic<int> counter{0};
    return QStringLiteral("korvane.db.%1").arg(counter.fetch_add(1));
}

// Statements after which the cached table descriptions may be wrong.
bool ChangesSchema(const QString& sql)
{
    static const QRegularExpression ddl(QStringLiteral(R"(^\s*(create|alter|drop)\b)"),
                                        QRegularExpression::CaseInsensitiveOption);
    return ddl.match(sql).hasMatch();
}
}

struct Database::Impl
{
    std::unique_ptr<DbDriver> driver;
    std::unique_ptr<SqlDialect> dialect;
    QString connectionName = NextConnectionName();
    QString location;                                 // as opened, with any password
    std::vector<std::pair<QString, QString>> attached; // location, alias
    std::map<QString, TableInfo> tables; // by lower-case name; entries stay where they are
    int transactionDepth = 0;
};

Database::Database(std::unique_ptr<Impl> impl) : d(std::move(impl)) {}

Database::~Database()
{
    if (!QSqlDatabase::contains(d->connectionName))
        return;
    QSqlDatabase::database(d->connectionName, false).close();
    QSqlDatabase::removeDatabase(d->connectionName);
}

std::unique_ptr<Database> Database::Open(const QString& location, OpenMode mode)
{
    auto impl = std::make_unique<Impl>();
    impl->driver = DbDriver::For(location);
    impl->dialect = SqlDialect::For(impl->driver->Engine());
    impl->location = location;
    std::unique_ptr<Database> db(new Database(std::move(impl)));
    db->d->driver->Open(db->d->connectionName, mode);
    db->d->driver->Configure(*db, mode);
    return db;
}

QString Database::Location() const
{
    return d->driver->Location();
}

const SqlDialect& Database::Dialect() const
{
    return *d->dialect;
}

QSqlDatabase Database::Connection() const
{
    return QSqlDatabase::database(d->connectionName, false);
}

void Database::Execute(const QString& sql)
{
    ExecuteNative(d->dialect->Translate(sql));
}

QSqlQuery Database::Query(const QString& sql, const QVariantList& binds)
{
    return Run(d->dialect->Translate(sql), binds);
}

void Database::ExecuteNative(const QString& sql)
{
    Run(sql, {});
    if (ChangesSchema(sql))
        d->tables.clear();
}

QSqlQuery Database::QueryNative(const QString& sql, const QVariantList& binds)
{
    return Run(sql, binds);
}

QSqlQuery Database::Run(const QString& engineSql, const QVariantList& binds)
{
    QSqlQuery query(Connection());
    query.setForwardOnly(true);
    // A statement without binds runs directly: a server cannot prepare every kind of statement.
    bool ok = binds.isEmpty() ? query.exec(engineSql) : query.prepare(engineSql);
    for (int i = 0; ok && i < binds.size(); ++i)
        query.bindValue(i, d->dialect->BindValue(binds[i]));
    ok = ok && (binds.isEmpty() || query.exec());
    if (ok)
        return query;
    const QSqlError error = query.lastError();
    const bool reconnected = d->driver->Reconnect(*this, error);
    // Outside a transaction the statement that the lost connection never ran is sent again;
    // inside one the whole transaction is, by Transaction.
    if (reconnected && d->transactionDepth == 0)
        return Run(engineSql, binds);
    throw DatabaseError(QStringLiteral("%1 (SQL: %2)").arg(d->driver->Describe(error), engineSql),
                        reconnected || d->driver->Retryable(error));
}

std::unique_ptr<Recordset> Database::OpenRecordset(const QString& tableOrSql)
{
    return std::make_unique<Recordset>(*this, tableOrSql);
}

const TableInfo& Database::Table(const QString& name)
{
    const QString key = name.toLower();
    auto found = d->tables.find(key);
    if (found != d->tables.end())
        return found->second;
    TableInfo info = d->driver->ReadTable(*this, name);
    if (info.fields.isEmpty())
        throw KernelError(QStringLiteral("Table '%1' does not exist in '%2'").arg(name, Location()));
    return d->tables.emplace(key, std::move(info)).first->second;
}

bool Database::HasTable(const QString& name)
{
    return d->tables.count(name.toLower()) > 0 || !d->driver->ReadTable(*this, name).fields.isEmpty();
}

void Database::Attach(const QString& location, const QString& alias)
{
    d->driver->Attach(*this, location, alias);
    d->attached.emplace_back(location, alias);
    d->tables.clear();
}

DatabaseRecipe Database::Recipe() const
{
    return DatabaseRecipe(d->location, d->attached);
}

void Database::Transaction(const std::function<void()>& body)
{
    if (d->transactionDepth > 0) {
        body();
        return;
    }
    for (int attempt = 1;; ++attempt) {
        try {
            RunTransaction(body);
            return;
        } catch (const DatabaseError& error) {
            if (!error.Retryable() || attempt == TransactionAttempts)
                throw;
        }
        QThread::msleep(20 * attempt);
    }
}

void Database::RunTransaction(const std::function<void()>& body)
{
    ExecuteNative(d->driver->BeginStatement());
    ++d->transactionDepth;
    try {
        body();
        --d->transactionDepth;
        ExecuteNative(QStringLiteral("COMMIT"));
    } catch (...) {
        d->transactionDepth = 0;
        try {
            ExecuteNative(QStringLiteral("ROLLBACK"));
        } catch (const KernelError&) {
            // The engine already ended the transaction (a failed commit rolls back by itself).
        }
        throw;
    }
}

QString Database::ChangeStamp()
{
    return d->driver->ChangeStamp(*this);
}
