#include "onair/PlayListRows.h"
#include "foundation/Strings.h"

namespace PlayListRows {
namespace {
const QString WhiteSpace = QStringLiteral("WHITESPACE");

QString Flag(bool on, const char* key)
{
    return on ? QString::fromLatin1(key) : WhiteSpace;
}
}

QString ColumnKey(int column)
{
    static const char* const Keys[ColumnCount] = {"next", "playing", "modified", "ignored", "looped",
                                                  "type", "id",      "time",     "usefultime", "description"};
    return column >= 0 && column < ColumnCount ? QString::fromLatin1(Keys[column]) : QString();
}

QString TypeIcon(qint32 type)
{
    switch (type) {
    case 0:
        return QStringLiteral("SOUND");
    case 1:
        return QStringLiteral("MACRO");
    case 2:
        return QStringLiteral("ACTION");
    default:
        return QStringLiteral("UNKNOWN");
    }
}

QString NextIcon(bool isNext)
{
    return Flag(isNext, "PLAYING");
}

Row ItemRow(const ItemFacts& item, bool isNext)
{
    Row row;
    row.icons[Next] = NextIcon(isNext);
    row.icons[Playing] = Flag(item.hasCart && item.playing, "PLAYING");
    row.icons[Modified] = Flag(item.modified, "MODIFIED");
    row.icons[Ignored] = Flag(item.ignored, "IGNORED");
    row.icons[Looped] = Flag(item.looped, "LOOPED");
    row.icons[Type] = item.hasCart ? TypeIcon(item.type) : QStringLiteral("BLANK");
    if (item.hasCart) {
        row.texts[ID - ID] = item.id;
        row.texts[Time - ID] = MsToHuman(item.time);
        row.texts[UsefulTime - ID] = MsToHuman(item.usefulTime);
        row.texts[Description - ID] = item.title;
    }
    return row;
}

Row GhostRow(bool isNext)
{
    Row row;
    for (int column = Next; column < Type; ++column)
        row.icons[column] = WhiteSpace;
    row.icons[Next] = NextIcon(isNext);
    row.icons[Type] = QStringLiteral("GHOST");
    row.ghost = true;
    return row;
}

Covers ButtonCovers(bool hasList, int selectedRow, int rowCount)
{
    if (!hasList || selectedRow < 1 || selectedRow > rowCount)
        return {};
    if (selectedRow == rowCount) // the ghost; in an empty list nothing stands above it either
        return {rowCount == 1, true, true, false};
    if (selectedRow == 1)
        return {true, false, false, false};
    return {false, false, false, false};
}

CellAction DoubleClickAction(int column)
{
    switch (column) {
    case Next:
    case Playing:
        return CellAction::SetNextIndex;
    case Modified:
        return CellAction::ClearModified;
    case Ignored:
        return CellAction::FlipIgnored;
    case Looped:
        return CellAction::FlipLooped;
    default:
        return CellAction::None;
    }
}
}
