#pragma once
#include <QString>
#include <functional>

class QWidget;

// The controls of this folder that screens create by class name ("Korvane_Interface.IFVumeters",
// "Korvane_Interface.IFVumeter", "Korvane_Interface.IFChannelMonitor", "Korvane_Interface.IFClock"). Each is handed to
// `add` with its factory; the application passes its registry's Register, so this folder
// needs nothing from the shell.
namespace Metering {
using ControlFactory = std::function<QWidget*(QWidget* parent)>;
void RegisterControls(const std::function<void(const QString& name, ControlFactory factory)>& add);
}
