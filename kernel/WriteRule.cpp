#include "kernel/WriteRule.h"
#include "foundation/db/Database.h"
#include "foundation/db/TableInfo.h"

QString WriteRule::Fit(Database& db, const QString& table, const QString& field, const QString& text)
{
    const TableInfo& info = db.Table(table);
    const int index = info.IndexOf(field);
    const int size = index >= 0 ? info.fields[index].size : 0;
    const QString trimmed = text.trimmed();
    return size > 0 ? trimmed.left(size) : trimmed;
}
