#include "browse/MacroRows.h"
#include "browse/BrowserRowModel.h"
#include "browse/CartRows.h"
#include <algorithm>

namespace MacroRows {
bool Useful(const BrowserRow& row)
{
    return !row.key.isEmpty() && row.icon != CartRows::GhostKey;
}

int UsefulCount(const BrowserRowModel& rows)
{
    return int(std::count_if(rows.Rows().begin(), rows.Rows().end(), Useful));
}

bool NamesCart(const BrowserRow& row)
{
    return Useful(row) && row.key != CartRows::BlankKey && !row.key.endsWith(CartRows::AroundSeparatorKey);
}

int ParseGhost(BrowserRowModel& rows, bool addGhost)
{
    const int count = rows.Count();
    for (int row = 0; row < count; ++row)
        if (rows.Row(row).icon == CartRows::GhostKey)
            rows.SetIcon(row, CartRows::BlankKey);
    int firstGhost = -1;
    int row = count - 1;
    for (; row >= 0 && rows.Row(row).icon == CartRows::BlankKey; --row) {
        rows.SetIcon(row, CartRows::GhostKey);
        firstGhost = row;
    }
    // An empty list, or one whose last row is no blank, needs a ghost.
    if (row == count - 1 && addGhost) {
        rows.Append({CartRows::Ghost()});
        firstGhost = count;
    }
    return firstGhost;
}

void ParseUnGhost(BrowserRowModel& rows)
{
    while (rows.Count() > 0) {
        const QString& icon = rows.Row(rows.Count() - 1).icon;
        if (icon != CartRows::BlankKey && icon != CartRows::GhostKey)
            break;
        rows.Remove(rows.Count() - 1);
    }
}

void Insert(BrowserRowModel& rows, int before, const iCart* cart, bool addGhost)
{
    ParseUnGhost(rows);
    std::vector<BrowserRow> entry;
    CartRows::Append(entry, cart);
    int at = std::min(before, rows.Count());
    for (BrowserRow& row : entry)
        rows.Insert(at++, std::move(row));
    ParseGhost(rows, addGhost);
}

void InsertBlank(BrowserRowModel& rows, int before, bool addGhost)
{
    rows.Insert(before < 0 ? rows.Count() : before, CartRows::Blank());
    ParseGhost(rows, addGhost);
}

void Delete(BrowserRowModel& rows, int row, bool addGhost)
{
    rows.Remove(row);
    ParseGhost(rows, addGhost);
}

qint64 MsBefore(const BrowserRowModel& rows, int row)
{
    qint64 ms = 0;
    for (int above = 0; above < row; ++above)
        ms += rows.Row(above).ms;
    return ms;
}
}
