// The mouse and the keys on the cart browser: reports to the drag, the hover arrow, the
// old-style drag and the list's keys.
#include "browse/IFBrowserCart.h"
#include "browse/BrowserRowModel.h"
#include "browse/BrowserView.h"
#include "browse/drag/CDrag.h"
#include "foundation/ErrorGuard.h"
#include "kernelapi/iFamily.h"
#include "shell/components/CComponent.h"
#include "shell/modInterface.h"
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>

bool IFBrowserCart::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        if (DragReporters().contains(watched))
            OnMouse(static_cast<QMouseEvent*>(event), CDrag::MouseDown);
        break;
    case QEvent::MouseButtonRelease:
        if (DragReporters().contains(watched))
            OnMouse(static_cast<QMouseEvent*>(event), CDrag::MouseUp);
        if (watched == ListView1->viewport() && static_cast<QMouseEvent*>(event)->button() == Qt::RightButton)
            ShowMenu(static_cast<QMouseEvent*>(event)->globalPosition().toPoint());
        break;
    case QEvent::MouseMove:
        if (watched == ListView1->viewport()) {
            SimulateMouseMove(static_cast<QMouseEvent*>(event));
            // A held button drags the cart: the list must not move its selection meanwhile.
            return static_cast<QMouseEvent*>(event)->buttons() != Qt::NoButton;
        }
        break;
    case QEvent::KeyPress:
        if (watched == ListView1)
            return OnKey(static_cast<QKeyEvent*>(event)->key());
        break;
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        if (watched == TxtSearch)
            Q_EMIT IWantTheKeys(event->type() == QEvent::FocusIn);
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

// The parts whose presses and releases the drag hears: the list, the title and the times.
QList<QObject*> IFBrowserCart::DragReporters() const
{
    return {ListView1->viewport(), LblTitle, LblTotalTime, LblCursorTime};
}

void IFBrowserCart::OnMouse(QMouseEvent* event, int notification)
{
    if (m_oldDragDrop)
        return;
    if (notification == CDrag::MouseDown)
        m_component->SetControl(this);
    modInterface::NotifyDrag(m_component, notification, event);
}

void IFBrowserCart::SimulateMouseMove(QMouseEvent* event)
{
    const int row = ListView1->indexAt(event->position().toPoint()).row();
    if (row >= 0)
        ArrowPush(row);
    if (!m_oldDragDrop) {
        OnMouse(event, CDrag::MouseMove);
        return;
    }
    if (row < 0 || !(event->buttons() & Qt::LeftButton))
        return;
    const QStringList keys = SelectedKeys();
    if (keys.size() <= 1)
        Q_EMIT OldStyleTryToDrag(SelectedCartID());
    else
        Q_EMIT OldStyleTryToDragMany(keys, SelectedCartID());
}

bool IFBrowserCart::OnKey(int key)
{
    switch (key) {
    case Qt::Key_Delete:
        if (m_mode == MacroMode)
            DeleteSelectedItem();
        else if (m_mode == FamilyMode && m_fastDeletion)
            FastDelete();
        return m_mode == MacroMode || (m_mode == FamilyMode && m_fastDeletion);
    case Qt::Key_Insert:
        if (m_mode == MacroMode)
            InsertDummyItem();
        return m_mode == MacroMode;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Q_EMIT ItemEntered(SelectedCartID());
        return true;
    case Qt::Key_F5:
        if (m_mode == FamilyMode && m_family)
            Guarded(Object, QStringLiteral("ListView1_KeyDown"), [this] { m_family->Refresh(); });
        return true;
    case Qt::Key_Escape:
        ArrowPop();
        return true;
    default:
        return false;
    }
}
