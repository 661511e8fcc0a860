// Fast deletion: for five minutes, in family mode, Delete removes the selected cart with no
// question. The list is red meanwhile, and a timer looking every five seconds ends it.
#include "browse/BrowserRowModel.h"
#include "browse/BrowserView.h"
#include "browse/IFBrowserCart.h"
#include "foundation/ErrorGuard.h"
#include <QTimer>

void IFBrowserCart::BuildFastDeletion()
{
    TmrAllowFastDeletion = new QTimer(this);
    TmrAllowFastDeletion->setObjectName(QStringLiteral("TmrAllowFastDeletion"));
    TmrAllowFastDeletion->setInterval(5000);
    connect(TmrAllowFastDeletion, &QTimer::timeout, this, &IFBrowserCart::TmrAllowFastDeletion_Timer);
}

QDateTime IFBrowserCart::Now() const
{
    return m_clock ? m_clock() : QDateTime::currentDateTime();
}

void IFBrowserCart::StartFastDeletion()
{
    m_fastDeletion = true;
    m_fastDeletionDeadline = Now().addSecs(FastDeletionSeconds);
    RestoreListColor();
    TmrAllowFastDeletion->start();
}

void IFBrowserCart::StopFastDeletion()
{
    m_fastDeletion = false;
    m_fastDeletionDeadline = QDateTime();
    RestoreListColor();
    TmrAllowFastDeletion->stop();
}

// Ends when the deadline has passed, and when the browser no longer shows a family.
void IFBrowserCart::TmrAllowFastDeletion_Timer()
{
    if (!m_fastDeletion || m_mode != FamilyMode || Now() > m_fastDeletionDeadline)
        StopFastDeletion();
}

void IFBrowserCart::FastDelete()
{
    Guarded(Object, QStringLiteral("ListView1_KeyDown"), [this] {
        const int row = SelectedRow();
        if (row < 0)
            return;
        DeleteCart(false);
        // The family reloaded without the cart: the next one is ready for the next Delete.
        if (SelectedRow() < 0 && m_rows->Count() > 0)
            ListView1->SelectRow(std::min(row, m_rows->Count() - 1));
    });
}
