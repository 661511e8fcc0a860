#pragma once
#include <QString>
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
// Adds a control's component to the program's registry under the first free of name, name2,
// name3..., which the component takes; outside the running program it only takes the name.
void AddComponent(const QString& name, std::shared_ptr<CComponent>& component);
// The control of a component goes away. The registry keeps its components until the program
// ends, so the component lets go of the control, of the object it offered and of every
// receiver of its DragDrop: a drag or a finder that still holds it reaches nothing.
void RemoveComponent(const std::shared_ptr<CComponent>& component);
}
