#include "browse/DragOutOfProgram.h"
#include "browse/drag/CDrag.h"
#include "browse/drag/CMouseController.h"
#include "shell/CInterface.h"
#include "shell/modInterface.h"
#include <QApplication>
#include <QMouseEvent>

DragOutOfProgram::DragOutOfProgram(std::shared_ptr<CComponent> source, std::function<void()> left, QObject* parent)
    : QObject(parent), m_source(std::move(source)), m_left(std::move(left))
{
}

void DragOutOfProgram::Watch()
{
    if (m_watching || !Dragging())
        return;
    // The application's filters run the latest installed first, before the drag's own.
    qApp->installEventFilter(this);
    m_watching = true;
}

bool DragOutOfProgram::Dragging() const
{
    const CInterface* ui = modInterface::Interface();
    return ui && ui->Drag().Status() == CDrag::Dragging && ui->Drag().Source() == m_source;
}

void DragOutOfProgram::StopWatching()
{
    qApp->removeEventFilter(this);
    m_watching = false;
}

bool DragOutOfProgram::eventFilter(QObject*, QEvent* event)
{
    if (event->type() != QEvent::MouseMove)
        return false;
    if (!Dragging()) {
        StopWatching();
        return false;
    }
    const auto* move = static_cast<QMouseEvent*>(event);
    if (CMouseController::WidgetAt(move->globalPosition().toPoint()))
        return false;
    StopWatching();
    modInterface::NotifyDrag(m_source, CDrag::MouseMove, move);
    modInterface::NotifyDrag(m_source, CDrag::MouseUp, move);
    m_left();
    return true;
}
