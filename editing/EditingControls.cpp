#include "editing/EditingControls.h"
#include "editing/IFCartEraser.h"
#include "editing/IFCartIDSelector.h"
#include "editing/IFCartRecorder.h"

namespace Editing {
void RegisterControls(const std::function<void(const QString&, ControlFactory)>& add)
{
    add(QStringLiteral("Korvane_Interface.IFCartRecorder"), [](QWidget* parent) -> QWidget* { return new IFCartRecorder(parent); });
    add(QStringLiteral("Korvane_Interface.IFCartEraser"), [](QWidget* parent) -> QWidget* { return new IFCartEraser(parent); });
    add(QStringLiteral("Korvane_Interface.IFCartIDSelector"), [](QWidget* parent) -> QWidget* { return new IFCartIDSelector(parent); });
}
}
