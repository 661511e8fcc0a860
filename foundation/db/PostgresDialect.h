#pragma once
#include "foundation/db/SqlDialect.h"

// PostgreSQL: tables and columns are created with unquoted (lower-case) names, so [Name]
// becomes "name"; true/false booleans; ILIKE; row identity is ctid.
// Text "=" must ignore case as on the catalogue's original store: every text column is of
// the citext type (extension citext, installed in schema public), through domains
// korvane_text_<size> that keep the declared size readable. A text column declared plain
// varchar/text by someone else compares with case; compare lower() on both sides there.
class PostgresDialect : public SqlDialect
{
public:
    Engine Kind() const override { return Engine::PostgreSQL; }
    QString RowIdentity() const override;
    QString IdentityMatch() const override;
    QString QuoteIdentifier(const QString& name) const override;
    QString ColumnType(iRecordset::FieldType kind, int size, bool autoNumber) const override;
    QStringList SchemaPreamble(const QVector<int>& textSizes) const override;

    // The domain that carries a text column of a declared size.
    static QString TextDomain(int size);

protected:
    QString BooleanLiteral(bool value) const override;
    QString LikeOperator() const override;
    QString LikePattern(const QString& pattern) const override;
    QString FunctionName(const QString& name) const override;
    QString DateLiteral(const QDateTime& value) const override;
};
