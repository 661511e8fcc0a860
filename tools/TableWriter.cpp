#include "tools/TableWriter.h"
#include "foundation/db/Database.h"
#include "foundation/db/SqlDialect.h"
#include "kernelapi/KernelError.h"
#include <QSqlError>

namespace {
QString InsertStatement(const SqlDialect& dialect, const QString& table, const QStringList& fields)
{
    QStringList names, marks;
    for (const QString& field : fields) {
        names << dialect.QuoteIdentifier(field);
        marks << QStringLiteral("?");
    }
    return QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
        .arg(dialect.QuoteIdentifier(table), names.join(QStringLiteral(", ")), marks.join(QStringLiteral(", ")));
}
}

TableWriter::TableWriter(Database& db, const QString& table, const QStringList& fields)
    : m_table(table), m_fieldCount(int(fields.size())), m_query(db.Connection())
{
    if (!m_query.prepare(InsertStatement(db.Dialect(), table, fields)))
        throw KernelError(QStringLiteral("Cannot prepare the rows of table %1: %2").arg(table, m_query.lastError().text()));
}

void TableWriter::Add(const QVariantList& values)
{
    if (values.size() != m_fieldCount)
        throw KernelError(QStringLiteral("Table %1: %2 values given for %3 fields").arg(m_table).arg(values.size()).arg(m_fieldCount));
    for (int i = 0; i < m_fieldCount; ++i)
        m_query.bindValue(i, values[i]);
    if (!m_query.exec())
        throw KernelError(QStringLiteral("Cannot add a row to table %1: %2").arg(m_table, m_query.lastError().text()));
}
