#pragma once
#include <QString>
#include <QtGlobal>

// What the rows of a playlist's grid show, without widgets: the picture keys of the six icon
// columns and the four texts, for an item, a blank item and the ghost row after the last item;
// which cover stands over which edit button for a selected row; and what a double click does
// in each column. Rows count from 1, as the list's.
namespace PlayListRows {
// The grid's columns, in order.
enum Column : int { Next, Playing, Modified, Ignored, Looped, Type, ID, Time, UsefulTime, Description, ColumnCount };

// The column keys: "next", "playing", ..., "description".
QString ColumnKey(int column);

// What the grid needs of one item; a blank item has no cart.
struct ItemFacts
{
    bool hasCart = false;
    qint32 type = -1;
    QString id;
    qint32 time = 0;
    qint32 usefulTime = 0;
    QString title;
    bool playing = false;
    bool ignored = false;
    bool looped = false;
    bool modified = false;
};

struct Row
{
    QString icons[Type + 1];
    QString texts[ColumnCount - ID];
    bool ghost = false;

    const QString& Icon(int column) const { return icons[column]; }
    const QString& Text(int column) const { return texts[column - ID]; }
};

// The picture key of a cart type: -1 "UNKNOWN", 0 "SOUND", 1 "MACRO", 2 "ACTION", any other "UNKNOWN".
QString TypeIcon(qint32 type);
Row ItemRow(const ItemFacts& item, bool isNext);
// The row after the last item, where a cart is dropped to go to the end.
Row GhostRow(bool isNext);
// The arrow of the next row: "PLAYING" where the list plays next, else "WHITESPACE".
QString NextIcon(bool isNext);

// The covers that disable the four edit buttons; a shown cover disables its button.
struct Covers
{
    bool up = true;
    bool down = true;
    bool remove = true;
    bool insert = true;
};
// selectedRow 0 is no selection; rowCount counts the ghost.
Covers ButtonCovers(bool hasList, int selectedRow, int rowCount);

// What a double click does in a column.
enum class CellAction { None, SetNextIndex, ClearModified, FlipIgnored, FlipLooped };
CellAction DoubleClickAction(int column);
}
