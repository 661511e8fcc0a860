#include "browse/drag/CMouseController.h"
#include "foundation/Yield.h"
#include <QApplication>
#include <QCursor>
#include <QMouseEvent>
#include <QWidget>

CMouseController::CMouseController()
{
    if (qApp)
        qApp->installEventFilter(this);
}

CMouseController::~CMouseController()
{
    if (qApp)
        qApp->removeEventFilter(this);
}

bool CMouseController::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
        if (watched->isWidgetType()) {
            m_pointer = static_cast<QMouseEvent*>(event)->globalPosition().toPoint();
            m_seen = true;
        }
        break;
    default:
        break;
    }
    return false;
}

QPoint CMouseController::Pointer() const
{
    return m_seen ? m_pointer : QCursor::pos();
}

QPoint CMouseController::GetCursorCoordinatesOverControl(const QWidget* control) const
{
    return control ? control->mapFromGlobal(Pointer()) : Pointer();
}

bool CMouseController::CursorOverControl(const QWidget* control) const
{
    if (!control || !control->isVisible())
        return false;
    return control->rect().contains(control->mapFromGlobal(Pointer()));
}

void CMouseController::ReTickMouse()
{
    const QPoint at = Pointer();
    QCursor::setPos(at + QPoint(1, 0));
    Yield();
    QCursor::setPos(at);
    m_pointer = at;
}

QWidget* CMouseController::WidgetAt(const QPoint& global)
{
    // A popup lies above everything, then the active window, then the other windows.
    QList<QWidget*> windows;
    if (QWidget* popup = QApplication::activePopupWidget())
        windows << popup;
    if (QWidget* active = QApplication::activeWindow())
        windows << active;
    const auto all = QApplication::topLevelWidgets();
    for (auto it = all.crbegin(); it != all.crend(); ++it)
        windows << *it;
    for (QWidget* window : windows) {
        if (!window->isVisible() || !window->geometry().contains(global))
            continue;
        const QPoint local = window->mapFromGlobal(global);
        QWidget* child = window->childAt(local);
        return child ? child : window;
    }
    return nullptr;
}
