#include "browse/drag/CDrag.h"
#include "browse/drag/CMouseController.h"
#include "browse/drag/DragPointer.h"
#include "foundation/ui/Twips.h"
#include "shell/components/CComponent.h"
#include <QApplication>
#include <QMouseEvent>
#include <QStringList>
#include <QWidget>
#include <cmath>

namespace {
QString WordOf(int value, const QStringList& words)
{
    return value >= 0 && value < words.size() ? words.at(value) : QString::number(value);
}

qint16 ButtonsOf(Qt::MouseButtons buttons)
{
    qint16 result = 0;
    if (buttons & Qt::LeftButton)
        result |= CDrag::LeftButton;
    if (buttons & Qt::RightButton)
        result |= CDrag::RightButton;
    if (buttons & Qt::MiddleButton)
        result |= CDrag::MiddleButton;
    return result;
}

qint16 ShiftMaskOf(Qt::KeyboardModifiers modifiers)
{
    qint16 result = 0;
    if (modifiers & Qt::ShiftModifier)
        result |= CDrag::ShiftMask;
    if (modifiers & Qt::ControlModifier)
        result |= CDrag::CtrlMask;
    if (modifiers & Qt::AltModifier)
        result |= CDrag::AltMask;
    return result;
}
}

CDrag::CDrag()
{
    if (qApp)
        qApp->installEventFilter(this);
}

CDrag::~CDrag()
{
    if (qApp)
        qApp->removeEventFilter(this);
    if (m_status == Dragging)
        QApplication::restoreOverrideCursor();
}

void CDrag::Notify(const std::shared_ptr<CComponent>& component, qint32 notificationType, qint16 button,
                   qint16 shift, float x, float y)
{
    m_lastNotifier = component;
    m_notificationType = notificationType;
    m_button = button;
    m_shift = shift;
    m_currentX = x;
    m_currentY = y;
    RecalculateAll();
    Q_EMIT Changed();
}

void CDrag::NotifyMouse(const std::shared_ptr<CComponent>& component, qint32 notificationType, const QMouseEvent* event)
{
    // A press or release names the button that changed, a move the buttons held.
    const qint16 button = ButtonsOf(notificationType == MouseMove ? event->buttons() : event->button());
    const QPointF at = event->position();
    Notify(component, notificationType, button, ShiftMaskOf(event->modifiers()),
           static_cast<float>(at.x() * Twips::PerPixel), static_cast<float>(at.y() * Twips::PerPixel));
}

void CDrag::RecalculateAll()
{
    if (m_notificationType != MouseUp && m_button != 0) {
        if (m_notificationType == MouseDown) {
            // A new press always wins: it starts a new drag with nothing dropped on yet.
            if (m_status == Dragging)
                QApplication::restoreOverrideCursor();
            m_clickX = m_currentX;
            m_clickY = m_currentY;
            m_source = m_lastNotifier;
            m_destination.reset();
            m_status = Escaping;
        }
        if (m_status == Escaping) {
            m_distance = std::max(std::fabs(m_currentX - m_clickX), std::fabs(m_currentY - m_clickY));
            if (m_distance >= Threshold)
                BeginDragging();
        } else {
            m_destination = m_lastNotifier;
            if (m_status == Dragging)
                Q_EMIT Roll();
        }
        return;
    }
    FinishDrag();
}

void CDrag::BeginDragging()
{
    m_exceeded = true;
    m_status = Dragging;
    QApplication::setOverrideCursor(DragPointer());
    Q_EMIT StartDrag();
    m_exceeded = false;
}

void CDrag::FinishDrag()
{
    if (m_status == Dragging) {
        QApplication::restoreOverrideCursor();
        m_status = Waiting;
        Q_EMIT EndDrag();
        if (m_destination)
            m_destination->RaiseEventDragDrop(m_source);
    }
    m_status = Waiting;
}

bool CDrag::eventFilter(QObject* watched, QEvent* event)
{
    if (m_status != Dragging || m_redirecting || !watched->isWidgetType())
        return false;
    if (event->type() != QEvent::MouseMove && event->type() != QEvent::MouseButtonRelease)
        return false;
    return Redirect(static_cast<QMouseEvent*>(event));
}

bool CDrag::Redirect(QMouseEvent* event)
{
    const QPoint global = event->globalPosition().toPoint();
    QWidget* target = CMouseController::WidgetAt(global);
    if (target) {
        QMouseEvent copy(event->type(), target->mapFromGlobal(event->globalPosition()), event->globalPosition(),
                         event->button(), event->buttons(), event->modifiers(), event->pointingDevice());
        m_redirecting = true;
        QApplication::sendEvent(target, &copy);
        m_redirecting = false;
    }
    // Released over something that reports nothing (a gap between controls, a border, or
    // outside the program): the drag still ends on the component that last reported a move.
    if (event->type() == QEvent::MouseButtonRelease && m_status == Dragging) {
        FinishDrag();
        Q_EMIT Changed();
    }
    return true;
}

QString CDrag::StatusWord(qint16 status)
{
    return WordOf(status, {QStringLiteral("Waiting"), QStringLiteral("Escaping"), QStringLiteral("Dragging")});
}

QString CDrag::NotificationWord(qint32 type)
{
    return WordOf(type, {QStringLiteral("Mou Down"), QStringLiteral("Mou Move"), QStringLiteral("Mou Up")});
}

QString CDrag::ButtonWord(qint16 button)
{
    return WordOf(button, {QStringLiteral("None"), QStringLiteral("Left"), QStringLiteral("Right"), QStringLiteral("L + R"),
                           QStringLiteral("Special"), QStringLiteral("L + S"), QStringLiteral("R + S"), QStringLiteral("L+R+S")});
}

QString CDrag::ShiftWord(qint16 shift)
{
    return WordOf(shift, {QStringLiteral("None"), QStringLiteral("Shift"), QStringLiteral("Ctrl"), QStringLiteral("S + C"),
                          QStringLiteral("Alt"), QStringLiteral("S + A"), QStringLiteral("C + A"), QStringLiteral("S+C+A")});
}
