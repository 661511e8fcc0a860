#include "editing/EditingControls.h"
#include "browse/CartIDQuestion.h"
#include "editing/IFCartEraser.h"
#include "editing/IFCartIDSelector.h"
#include "editing/IFCartRecorder.h"
#include "editing/KorvaneCommonDialog.h"

namespace Editing {
namespace {
// The cart ID dialog over the asking form: open a cart, or name one to write.
std::optional<QString> AskWithDialog(const CartIDQuestion::Request& request)
{
    KorvaneCommonDialog dialog(request.parent);
    dialog.SetCartFilter(request.cartFilter);
    dialog.SetCartId(request.cartID);
    if (request.kind == CartIDQuestion::Kind::Open)
        dialog.ShowOpenCart();
    else
        dialog.ShowSaveCart(true);
    return dialog.CartId();
}
}

void RegisterControls(const std::function<void(const QString&, ControlFactory)>& add)
{
    add(QStringLiteral("Korvane_Interface.IFCartRecorder"), [](QWidget* parent) -> QWidget* { return new IFCartRecorder(parent); });
    add(QStringLiteral("Korvane_Interface.IFCartEraser"), [](QWidget* parent) -> QWidget* { return new IFCartEraser(parent); });
    add(QStringLiteral("Korvane_Interface.IFCartIDSelector"), [](QWidget* parent) -> QWidget* { return new IFCartIDSelector(parent); });
    CartIDQuestion::Install(AskWithDialog);
}
}
