#pragma once
#include <QtGlobal>

class BrowserRowModel;
class iCart;
struct BrowserRow;

// The rows of a macro under edit, without widgets. A macro's list ends with a ghost, an empty
// row (icon "Ghost") where the next cart is dropped, which exists only for display: blank
// entries ("Blank") before a cart are real empty entries of the macro, blank rows at the end
// are ghosts. The rows around a separator are neither. addGhost is false where no ghost may be
// added (a family).
namespace MacroRows {
// A row that is an entry of the macro: it has a key and is no ghost.
bool Useful(const BrowserRow& row);
int UsefulCount(const BrowserRowModel& rows);
// A row that names a cart of the macro (a missing one too): what a save writes. Blank entries,
// the ghost and the rows around a separator name none.
bool NamesCart(const BrowserRow& row);
// Earlier ghosts become blanks again, the blank rows at the end ghosts, and a ghost is added
// when the list does not end in one. Gives the first ghost's row, -1 without one.
int ParseGhost(BrowserRowModel& rows, bool addGhost);
// Removes the blank and ghost rows at the end, before rows are added after the last entry.
void ParseUnGhost(BrowserRowModel& rows);
// Adds the rows of a cart (a blank entry for none) before a row, after the last entry when
// the row lies past it, and puts the ghost back.
void Insert(BrowserRowModel& rows, int before, const iCart* cart, bool addGhost);
// Adds a blank entry before a row, at the end for -1.
void InsertBlank(BrowserRowModel& rows, int before, bool addGhost);
void Delete(BrowserRowModel& rows, int row, bool addGhost);
// The milliseconds of the rows above a row.
qint64 MsBefore(const BrowserRowModel& rows, int row);
}
