#include "browse/SignalArrows.h"
#include "browse/BrowserRowModel.h"

void SignalArrows::Add(const BrowserRowModel& rows, const QString& cartID, qint32 color)
{
    const int row = rows.Find(cartID);
    m_arrows.insert(cartID, CSignalArrow(cartID, color, row < 0 ? QString() : rows.Row(row).icon));
}

void SignalArrows::Tick(BrowserRowModel& rows, bool visible)
{
    m_count = (m_count + 1) % 10;
    if (visible && (m_count == 1 || m_count == 2))
        Refresh(rows, m_count == 2);
}

void SignalArrows::Refresh(BrowserRowModel& rows, bool show) const
{
    for (const CSignalArrow& arrow : m_arrows) {
        const int row = rows.Find(arrow.CartID());
        if (row >= 0)
            rows.SetIcon(row, show ? arrow.ArrowIcon() : arrow.SavedIcon());
    }
}
