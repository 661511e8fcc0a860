#pragma once
#include <QString>
#include <functional>

class CDrag;
class QWidget;

// The controls of this folder that screens create by class name
// ("Korvane_Interface.IFDragMonitor"). Each is handed to `add` with its factory; the shell
// passes its registry's Register and the way to the interface's drag, so this folder needs
// nothing from the shell.
namespace DragControls {
using ControlFactory = std::function<QWidget*(QWidget* parent)>;
// `drag` gives the program's one drag, or null when there is no interface yet.
void RegisterControls(const std::function<void(const QString& name, ControlFactory factory)>& add,
                      const std::function<CDrag*()>& drag);
}
