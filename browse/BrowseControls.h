#pragma once
#include <QString>
#include <functional>

class QWidget;

// The controls of this folder that screens create by class name
// ("Korvane_Interface.IFBrowserFamily", "Korvane_Interface.IFBrowserCart",
// "Korvane_Interface.IFDataViewer"). Each is handed to
// `add` with its factory; the application passes its registry's Register.
namespace Browse {
using ControlFactory = std::function<QWidget*(QWidget* parent)>;
void RegisterControls(const std::function<void(const QString& name, ControlFactory factory)>& add);
}
