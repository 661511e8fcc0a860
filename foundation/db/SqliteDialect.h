#pragma once
#include "foundation/db/SqlDialect.h"

// SQLite: "Name" identifiers, 1/0 booleans, LIKE (which ignores ASCII case), char() for chr(),
// dates stored as 'yyyy-MM-ddTHH:mm:ss.zzz' text (local time). Text "=" ignores case because the schema
// declares every text column COLLATE NOCASE.
class SqliteDialect : public SqlDialect
{
public:
    Engine Kind() const override { return Engine::SQLite; }
    QString RowIdentity() const override;
    QString IdentityMatch() const override;
    QString QuoteIdentifier(const QString& name) const override;
    QString ColumnType(iRecordset::FieldType kind, int size, bool autoNumber) const override;
    QStringList SchemaPreamble(const QVector<int>& textSizes) const override;
    QVariant BindValue(const QVariant& value) const override;

    // The text form of a date and time in the store.
    static QString DateTimeText(const QDateTime& value);

protected:
    QString BooleanLiteral(bool value) const override;
    QString LikeOperator() const override;
    QString FunctionName(const QString& name) const override;
    QString DateLiteral(const QDateTime& value) const override;
};
