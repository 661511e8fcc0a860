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
// Adds a control's component to the program's registry (CComponents::Add with the add type)
// so that others find it by name; the component's Name then says the name it got. Outside the
// running program, where there is no registry, the component is only given the name.
bool AddComponent(const QString& name, std::shared_ptr<CComponent>& component, qint32 addType);
// Called by a control at its end: CComponents::Remove, which keeps the component, whose
// Control is then null.
void RemoveComponent(const QString& name);
}
