#pragma once
#include <QString>
#include <memory>

// Turns SQL and criteria texts written in the catalogue's original dialect into the
// engine's own: `*` and `?` wildcards of LIKE patterns, [Name] brackets, `&` concatenation and
// chr(n) inside quoted text, True/False, and case-insensitive LIKE. The meaning never changes.
class SqlDialect
{
public:
    enum class Engine { SQLite, PostgreSQL };
    virtual ~SqlDialect() = default;

    static std::unique_ptr<SqlDialect> For(Engine engine);

    virtual Engine Kind() const = 0;
    // A whole statement.
    virtual QString Translate(const QString& sql) const = 0;
    // A criteria text (the part after WHERE), as used by FindFirst and filters.
    virtual QString TranslateCriteria(const QString& criteria) const = 0;
    // The expression that names a row's identity in a single-table select.
    virtual QString RowIdentity() const = 0;
    // A quoted identifier as the engine wants it.
    virtual QString QuoteIdentifier(const QString& name) const = 0;
};
