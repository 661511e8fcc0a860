// The arrows of the cart browser: the hover arrow on the row under the pointer and the
// signal arrows that flash on the rows of carts about to play.
#include "browse/IFBrowserCart.h"
#include "browse/BrowserRowModel.h"
#include "foundation/Log.h"
#include "foundation/Yield.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCarts.h"
#include "shell/components/CComponent.h"
#include <QTimer>

void IFBrowserCart::ArrowPush(int row)
{
    PushArrow(row, QStringLiteral("BlueArrow"));
}

void IFBrowserCart::ArrowRedPush(int row)
{
    PushArrow(row, QStringLiteral("RedArrow"));
}

void IFBrowserCart::PushArrow(int row, const QString& icon)
{
    TmrArrow->stop();
    if (row < 0 || row >= m_rows->Count())
        return;
    if (!m_arrow || m_arrow->row != row) {
        ArrowPop();
        m_arrow = Arrow{row, m_rows->Row(row).icon};
        m_hover->SetControl(ListView1);
        if (std::shared_ptr<iCarts> carts = KernelCarts()) {
            std::shared_ptr<iCart> pointed = carts->NewCart();
            pointed->SetID(m_rows->Row(row).key);
            m_hover->SetSharedObject(pointed);
        }
        Q_EMIT Hover(m_hover);
    }
    m_rows->SetIcon(row, icon);
    TmrArrow->start();
}

void IFBrowserCart::ArrowPop()
{
    TmrArrow->stop();
    if (m_arrow && m_arrow->row < m_rows->Count())
        m_rows->SetIcon(m_arrow->row, m_arrow->savedIcon);
    m_arrow.reset();
}

void IFBrowserCart::TmrArrow_Timer()
{
    ArrowPop();
}

void IFBrowserCart::SetSignalArrowsEnabled(bool enabled)
{
    if (enabled == SignalArrowsEnabled())
        return;
    if (enabled) {
        m_signalArrows.emplace();
        TmrSignalArrows->start();
        return;
    }
    if (m_signalArrowsVisible)
        m_signalArrows->Refresh(*m_rows, false);
    m_signalArrows.reset();
    TmrSignalArrows->stop();
}

void IFBrowserCart::AddSignalArrow(const QString& cartID, qint32 color)
{
    if (!m_signalArrows) {
        LogWarn(Object, QStringLiteral("AddSignalArrow"), QStringLiteral("I was called but mode was not active"));
        return;
    }
    m_signalArrows->Add(*m_rows, cartID, color);
}

void IFBrowserCart::ClearSignalArrows()
{
    SetSignalArrowsEnabled(false);
    Yield();
    SetSignalArrowsEnabled(true);
}

void IFBrowserCart::TmrSignalArrows_Timer()
{
    if (m_signalArrows)
        m_signalArrows->Tick(*m_rows, m_signalArrowsVisible);
}
