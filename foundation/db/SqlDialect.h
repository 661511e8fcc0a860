#pragma once
#include "foundation/db/SqlToken.h"
#include "kernelapi/iRecordset.h"
#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <memory>
#include <vector>

// Turns SQL and criteria texts written in the catalogue's original dialect into the
// engine's own, without changing their meaning:
// - 'a' & chr(39) & 'b' (the quoting of user text) folds into the one literal 'a''b';
//   any other & becomes ||;
// - `*` and `?` inside the literal operands of LIKE become `%` and `_` (`%` and `_` stay
//   wildcards); LIKE ignores case on both engines;
// - [Name] becomes a quoted identifier; "text" is a literal, as 'text' is;
// - True/False become the engine's booleans; #date# becomes a timestamp literal;
// - chr, ucase, lcase, len and mid become the engine's functions.
// A literal, name or date left open throws KernelError; nothing else is refused here.
class SqlDialect
{
public:
    enum class Engine { SQLite, PostgreSQL };
    virtual ~SqlDialect() = default;

    static std::unique_ptr<SqlDialect> For(Engine engine);

    virtual Engine Kind() const = 0;
    // A whole statement.
    virtual QString Translate(const QString& sql) const;
    // A criteria text (the part after WHERE), as used by FindFirst and filters.
    virtual QString TranslateCriteria(const QString& criteria) const;
    // The expression that names a row's identity in a single-table select.
    virtual QString RowIdentity() const = 0;
    // A condition on the row identity with one positional bind for its value.
    virtual QString IdentityMatch() const = 0;
    // A quoted identifier as the engine wants it.
    virtual QString QuoteIdentifier(const QString& name) const = 0;

    // Column type of the schema for a field kind; size is the declared size of a text (0: long
    // text); autoNumber makes an integer key the engine numbers itself.
    virtual QString ColumnType(iRecordset::FieldType kind, int size, bool autoNumber) const = 0;
    // Statements that must run once before a schema uses ColumnType (engine extensions, types).
    virtual QStringList SchemaPreamble(const QVector<int>& textSizes) const = 0;
    // A value as the engine stores it: dates and times become the canonical text on SQLite.
    virtual QVariant BindValue(const QVariant& value) const;

    // A text literal with its quotes doubled.
    static QString StringLiteral(const QString& value);

protected:
    virtual QString BooleanLiteral(bool value) const = 0;
    virtual QString LikeOperator() const = 0;
    // A LIKE pattern of the catalogue dialect as the engine's pattern.
    virtual QString LikePattern(const QString& pattern) const;
    // The engine's name for a catalogue function (lower-case name given).
    virtual QString FunctionName(const QString& name) const = 0;
    virtual QString DateLiteral(const QDateTime& value) const = 0;

private:
    QString Render(const std::vector<SqlToken>& tokens, const QString& sql) const;
    QString RenderWord(const std::vector<SqlToken>& tokens, size_t index) const;
    QString RenderDate(const SqlToken& token, const QString& sql) const;
};
