#include "onair/OnAirControls.h"
#include "onair/FrmOnAir.h"
#include "onair/IFCartPlayer.h"
#include "onair/IFPlayList.h"
#include "onair/IFPlayLists.h"
#include "onair/UCPlayListContents.h"
#include "onair/UCPlayListDiskOperation.h"
#include "onair/UCPlayListStatus.h"

namespace OnAir {
void RegisterControls(const std::function<void(const QString&, ControlFactory)>& add)
{
    add(QStringLiteral("Korvane_Interface.IFCartPlayer"), [](QWidget* parent) -> QWidget* { return new IFCartPlayer(parent); });
    // The playlist controls.
    add(QStringLiteral("Korvane_Interface.IFPlayList"), [](QWidget* parent) -> QWidget* { return new IFPlayList(parent); });
    add(QStringLiteral("Korvane_Interface.IFPlayLists"), [](QWidget* parent) -> QWidget* { return new IFPlayLists(parent); });
    add(QStringLiteral("Korvane_Interface.UCPlayListContents"), [](QWidget* parent) -> QWidget* { return new UCPlayListContents(parent); });
    add(QStringLiteral("Korvane_Interface.UCPlayListStatus"), [](QWidget* parent) -> QWidget* { return new UCPlayListStatus(parent); });
    add(QStringLiteral("Korvane_Interface.UCPlayListDiskOperation"), [](QWidget* parent) -> QWidget* { return new UCPlayListDiskOperation(parent); });
    add(QStringLiteral("FrmOnAir"), [](QWidget*) -> QWidget* { return new FrmOnAir; });
}
}
