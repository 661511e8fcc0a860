#include "kernel/MacroItem.h"
#include "kernel/PropertyBag.h"

MacroItem::MacroItem(std::shared_ptr<iCart> cart, std::shared_ptr<PropertyBag> properties, QObject* parent)
    : iMacroItem(parent), m_cart(std::move(cart)), m_properties(std::move(properties))
{
}

std::shared_ptr<iObjectWithProperties> MacroItem::Properties() const
{
    return m_properties;
}
