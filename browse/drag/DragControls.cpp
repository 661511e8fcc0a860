#include "browse/drag/DragControls.h"
#include "browse/drag/IFDragMonitor.h"

namespace DragControls {
void RegisterControls(const std::function<void(const QString&, ControlFactory)>& add, const std::function<CDrag*()>& drag)
{
    add(QStringLiteral("Korvane_Interface.IFDragMonitor"), [drag](QWidget* parent) -> QWidget* {
        auto* monitor = new IFDragMonitor(parent);
        monitor->Attach(drag());
        return monitor;
    });
}
}
