#include "onair/CartSearch.h"
#include "foundation/Strings.h"
#include "foundation/db/Database.h"
#include "foundation/db/Recordset.h"

namespace {
// A character that would act as a wildcard or an escape in a LIKE pattern of either engine.
bool IsPatternCharacter(QChar c)
{
    return c == QLatin1Char('%') || c == QLatin1Char('*') || c == QLatin1Char('?') || c == QLatin1Char('_')
        || c == QLatin1Char('[') || c == QLatin1Char(']') || c == QLatin1Char('#') || c == QLatin1Char('\\');
}

QString Pattern(const QString& text)
{
    QString pattern = text;
    for (QChar& c : pattern)
        if (IsPatternCharacter(c))
            c = QLatin1Char('?');
    return SqlQuote(QLatin1Char('*') + pattern + QLatin1Char('*'));
}
}

namespace CartSearch {
QString Sql(const QString& text)
{
    const QString pattern = Pattern(text);
    return QStringLiteral("SELECT * FROM Cart WHERE ID like %1  OR Descripcio like %1 OR Comentari like %1 ORDER BY ID").arg(pattern);
}

bool Holds(const Row& row, const QString& text)
{
    return row.ID.contains(text, Qt::CaseInsensitive) || row.Descripcio.contains(text, Qt::CaseInsensitive)
        || row.Comentari.contains(text, Qt::CaseInsensitive);
}

QList<Row> Find(Database& database, const QString& text)
{
    QList<Row> rows;
    const std::unique_ptr<Recordset> found = database.OpenRecordset(Sql(text));
    for (; !found->IsEOF(); found->MoveNext()) {
        Row row{found->Text(QStringLiteral("ID")), found->Text(QStringLiteral("Descripcio")), found->Text(QStringLiteral("Comentari"))};
        if (Holds(row, text))
            rows << row;
    }
    return rows;
}
}
