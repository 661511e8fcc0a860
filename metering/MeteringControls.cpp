#include "metering/MeteringControls.h"
#include "metering/IFChannelMonitor.h"
#include "metering/IFClock.h"
#include "metering/IFVumeter.h"
#include "metering/IFVumeters.h"

namespace Metering {
namespace {
template <typename T>
ControlFactory Factory()
{
    return [](QWidget* parent) -> QWidget* { return new T(parent); };
}
}

void RegisterControls(const std::function<void(const QString&, ControlFactory)>& add)
{
    add(QStringLiteral("Korvane_Interface.IFVumeters"), Factory<IFVumeters>());
    add(QStringLiteral("Korvane_Interface.IFVumeter"), Factory<IFVumeter>());
    add(QStringLiteral("Korvane_Interface.IFChannelMonitor"), Factory<IFChannelMonitor>());
    add(QStringLiteral("Korvane_Interface.IFClock"), Factory<IFClock>());
}
}
