#pragma once
#include <QString>
#include <functional>

class QWidget;

// The controls of this folder that screens create by class name
// ("Korvane_Interface.IFCartRecorder", "Korvane_Interface.IFCartEraser",
// "Korvane_Interface.IFCartIDSelector"). Each is handed to `add` with its factory; the
// application passes its registry's Register. The cart ID dialog also becomes the browsers'
// answer to their cart ID questions.
namespace Editing {
using ControlFactory = std::function<QWidget*(QWidget* parent)>;
void RegisterControls(const std::function<void(const QString& name, ControlFactory factory)>& add);
}
