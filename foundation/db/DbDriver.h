#pragma once
#include "foundation/db/Database.h"
#include "foundation/db/SqlDialect.h"
#include "foundation/db/TableInfo.h"
#include <QSqlError>
#include <QString>
#include <memory>

// What differs between the engines below the SQL text: how a location opens, how the store
// describes a table, how a second database joins the connection, how a change is noticed.
class DbDriver
{
public:
    virtual ~DbDriver() = default;

    // The driver for a location: a postgresql:// (or postgres://) URI, else a SQLite file.
    static std::unique_ptr<DbDriver> For(const QString& location);

    virtual SqlDialect::Engine Engine() const = 0;
    // The location as shown in messages (never with a password).
    virtual QString Location() const = 0;
    // Adds and opens the Qt connection of that name. Throws KernelError.
    virtual void Open(const QString& connectionName, Database::OpenMode mode) = 0;
    // Session settings, run once after Open.
    virtual void Configure(Database& db, Database::OpenMode mode) = 0;
    // The columns of a table or view reachable unqualified; no fields when there is none.
    virtual TableInfo ReadTable(Database& db, const QString& name) = 0;
    virtual void Attach(Database& db, const QString& location, const QString& alias) = 0;
    // A text that changes whenever committed data may have changed; empty when the engine
    // cannot tell.
    virtual QString ChangeStamp(Database& db) = 0;
    virtual bool Retryable(const QSqlError& error) const = 0;
    // The text of a failed statement for messages.
    virtual QString Describe(const QSqlError& error) const { return error.text().trimmed(); }
    // Called after a statement failed: true when the connection had been lost and is open
    // again (the statement did not run and may be sent again). Throws KernelError when the
    // connection is lost and cannot be opened again.
    virtual bool Reconnect(Database& /*db*/, const QSqlError& /*error*/) { return false; }
    virtual QString BeginStatement() const = 0;
};
