#pragma once
#include "kernelapi/iMacro.h"
#include <QStringList>
#include <vector>

class Cart;
class CartWorld;
class MacroItem;

// A macro: its own cart (type Macro) and its steps, stored as the rows of RMacro in Index
// order; a blank step is a row with no cart ID. Entries loaded from the catalogue carry
// their 0-based place as the property "Index". Save writes the cart and its steps in one
// transaction, and refuses to overwrite a cart of another type.
class Macro : public iMacro
{
    Q_OBJECT
public:
    // A new macro in memory, with a new cart of type Macro and no ID.
    explicit Macro(std::shared_ptr<CartWorld> world, QObject* parent = nullptr);
    ~Macro() override;

    void Clear() override { m_items.clear(); }
    std::shared_ptr<iCart> Cart() const override;
    std::shared_ptr<iMacroItem> Item(int index) const override;
    int Count() const override { return int(m_items.size()); }
    void RemoveAll() override { m_items.clear(); }
    void Add(const std::shared_ptr<iCart>& cart, const std::shared_ptr<iObjectWithProperties>& properties) override;
    void LoadByID(const QString& cartID) override;
    void Save(const QString& description) override;

    // The playing length: the sum of the steps' lengths.
    qint32 Length() const;

private:
    // The cart IDs of the steps, checked.
    QStringList StepIDs() const;
    void RequireMacroAt(const QString& id) const;

    std::shared_ptr<CartWorld> m_world;
    std::shared_ptr<::Cart> m_cart;
    std::vector<std::shared_ptr<MacroItem>> m_items;
};
