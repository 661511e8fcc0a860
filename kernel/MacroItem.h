#pragma once
#include "kernelapi/iMacroItem.h"

class PropertyBag;

// One entry of a macro: a cart, or null for a blank entry, with its own properties.
class MacroItem : public iMacroItem
{
    Q_OBJECT
public:
    MacroItem(std::shared_ptr<iCart> cart, std::shared_ptr<PropertyBag> properties, QObject* parent = nullptr);

    std::shared_ptr<iCart> Cart() const override { return m_cart; }
    std::shared_ptr<iObjectWithProperties> Properties() const override;

private:
    std::shared_ptr<iCart> m_cart;
    std::shared_ptr<PropertyBag> m_properties;
};
