#pragma once
#include <QtGlobal>
#include <memory>

class CComponent;
class CInterface;
class QMouseEvent;

// The interface root: created once by StartInterface, cleared by StopInterface.
namespace modInterface {
bool StartInterface();
void StopInterface();
// The interface root, or null before StartInterface finished and after StopInterface.
CInterface* Interface();
// 1 from the end of StartInterface, 0 from the first statement of StopInterface.
int InterfaceStarted();
// Reports a control's mouse event to the program's drag (CDrag::MouseDown, MouseMove or
// MouseUp); outside the running program, where there is no drag, it does nothing.
void NotifyDrag(const std::shared_ptr<CComponent>& component, qint32 notificationType, const QMouseEvent* event);
}
