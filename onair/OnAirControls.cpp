#include "onair/OnAirControls.h"
#include "onair/FrmOnAir.h"
#include "onair/IFCartPlayer.h"

namespace OnAir {
void RegisterControls(const std::function<void(const QString&, ControlFactory)>& add)
{
    add(QStringLiteral("Korvane_Interface.IFCartPlayer"), [](QWidget* parent) -> QWidget* { return new IFCartPlayer(parent); });
    add(QStringLiteral("FrmOnAir"), [](QWidget*) -> QWidget* { return new FrmOnAir; });
}
}
