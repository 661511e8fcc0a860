#include "browse/BrowseControls.h"
#include "browse/IFBrowserCart.h"
#include "browse/IFBrowserFamily.h"
#include "browse/IFDataViewer.h"

namespace Browse {
void RegisterControls(const std::function<void(const QString&, ControlFactory)>& add)
{
    add(QStringLiteral("Korvane_Interface.IFBrowserFamily"), [](QWidget* parent) -> QWidget* { return new IFBrowserFamily(parent); });
    add(QStringLiteral("Korvane_Interface.IFBrowserCart"), [](QWidget* parent) -> QWidget* { return new IFBrowserCart(parent); });
    add(QStringLiteral("Korvane_Interface.IFDataViewer"), [](QWidget* parent) -> QWidget* { return new IFDataViewer(parent); });
}
}
