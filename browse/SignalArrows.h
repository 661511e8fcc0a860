#pragma once
#include "browse/CSignalArrow.h"
#include <QMap>

class BrowserRowModel;

// The signal arrows of a cart list, without widgets: the rows of carts about to play, marked
// by colour. Ticked every 100 ms, ten ticks to a cycle: at the first the rows get their own
// icons back, at the second their arrows, so each row shows its colour nine tenths of every
// second.
class SignalArrows
{
public:
    // Marks the row of the cart (its first row), keeping the row's icon; a second arrow for
    // the same cart takes the place of the first.
    void Add(const BrowserRowModel& rows, const QString& cartID, qint32 color);
    // One tick; a list that is not visible (a fill runs) is left alone.
    void Tick(BrowserRowModel& rows, bool visible);
    // Writes each arrow's icon on its row, or the row's own icon.
    void Refresh(BrowserRowModel& rows, bool show) const;

private:
    QMap<QString, CSignalArrow> m_arrows;
    int m_count = 0;
};
