#include "onair/OnAirControls.h"
#include "onair/Directe.h"
#include "onair/FrmPautador.h"
#include "onair/IFCartPlayer.h"
#include "onair/IFColorPicker.h"
#include "onair/IFFastCart.h"
#include "onair/IFFastCartColorEditor.h"
#include "onair/IFFastCarts.h"
#include "onair/UCChannelStreamSelector.h"
#include "onair/UCFastCartsContents.h"
#include "onair/IFPlayList.h"
#include "onair/IFPlayLists.h"
#include "onair/IFShortCuts.h"
#include "onair/NewDirecte.h"
#include "onair/TestDirecte.h"
#include "onair/UCPlayListContents.h"
#include "onair/UCPlayListDiskOperation.h"
#include "onair/UCPlayListStatus.h"

namespace OnAir {
void RegisterControls(const std::function<void(const QString&, ControlFactory)>& add)
{
    add(QStringLiteral("Korvane_Interface.IFCartPlayer"), [](QWidget* parent) -> QWidget* { return new IFCartPlayer(parent); });
    // Fast carts and their colours.
    add(QStringLiteral("Korvane_Interface.IFFastCarts"), [](QWidget* parent) -> QWidget* { return new IFFastCarts(parent); });
    add(QStringLiteral("Korvane_Interface.UCFastCartsContents"), [](QWidget* parent) -> QWidget* { return new UCFastCartsContents(parent); });
    add(QStringLiteral("Korvane_Interface.IFFastCart"), [](QWidget* parent) -> QWidget* { return new IFFastCart(parent); });
    add(QStringLiteral("Korvane_Interface.IFFastCartColorEditor"), [](QWidget* parent) -> QWidget* { return new IFFastCartColorEditor(parent); });
    add(QStringLiteral("Korvane_Interface.IFColorPicker"), [](QWidget* parent) -> QWidget* { return new IFColorPicker(parent); });
    add(QStringLiteral("Korvane_Interface.UCChannelStreamSelector"), [](QWidget* parent) -> QWidget* { return new UCChannelStreamSelector(parent); });
    // The playlist controls.
    add(QStringLiteral("Korvane_Interface.IFPlayList"), [](QWidget* parent) -> QWidget* { return new IFPlayList(parent); });
    add(QStringLiteral("Korvane_Interface.IFPlayLists"), [](QWidget* parent) -> QWidget* { return new IFPlayLists(parent); });
    add(QStringLiteral("Korvane_Interface.UCPlayListContents"), [](QWidget* parent) -> QWidget* { return new UCPlayListContents(parent); });
    add(QStringLiteral("Korvane_Interface.UCPlayListStatus"), [](QWidget* parent) -> QWidget* { return new UCPlayListStatus(parent); });
    add(QStringLiteral("Korvane_Interface.UCPlayListDiskOperation"), [](QWidget* parent) -> QWidget* { return new UCPlayListDiskOperation(parent); });
    // The shortcut container.
    add(QStringLiteral("Korvane_Interface.IFShortCuts"), [](QWidget* parent) -> QWidget* { return new IFShortCuts(parent); });
    // The screens, by their form names.
    add(QStringLiteral("Directe"), [](QWidget*) -> QWidget* { return new Directe; });
    add(QStringLiteral("FrmPautador"), [](QWidget*) -> QWidget* { return new FrmPautador; });
    add(QStringLiteral("NewDirecte"), [](QWidget*) -> QWidget* { return new NewDirecte; });
    add(QStringLiteral("TestDirecte"), [](QWidget*) -> QWidget* { return new TestDirecte; });
}
}
