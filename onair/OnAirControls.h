#pragma once
#include <QString>
#include <functional>

class QWidget;

// The controls of this folder that screens create by class name
// ("Korvane_Interface.IFCartPlayer"). Each is handed to `add` with its factory; the
// application passes its registry's Register, so this folder needs nothing from the registry.
namespace OnAir {
using ControlFactory = std::function<QWidget*(QWidget* parent)>;
void RegisterControls(const std::function<void(const QString& name, ControlFactory factory)>& add);
}
