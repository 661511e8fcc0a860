#pragma once
#include "browse/BrowserRow.h"
#include <vector>

class iCart;

// The rows a cart makes in the cart browser, keyed by kind: a blank entry, an unknown cart,
// a cart row (icon the type number), and a separator's three rows (a row of points, the
// separator's own row, an empty row; the two around it keyed with the ID and "_Blank").
// The icon key tells the kind: the rows around a separator are not blank entries, so their
// icon key is "_Blank" (drawn empty, as a blank's), never "Blank", which the ghost rule of a
// macro takes for a ghost at the end of the list.
namespace CartRows {
inline const QString BlankKey = QStringLiteral("Blank");
inline const QString GhostKey = QStringLiteral("Ghost");
inline const QString AroundSeparatorKey = QStringLiteral("_Blank");

BrowserRow Blank();
BrowserRow Ghost();
// Time (first eight characters of the human time, empty for a control), title and ms.
void SetCartInfo(BrowserRow& row, const iCart& cart);
// Appends the rows of a cart, or of a blank entry when cart is null.
void Append(std::vector<BrowserRow>& rows, const iCart* cart);
}
