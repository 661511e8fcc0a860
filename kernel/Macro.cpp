#include "kernel/Macro.h"
#include "foundation/db/Database.h"
#include "kernel/Cart.h"
#include "kernel/CartID.h"
#include "kernel/CartWorld.h"
#include "kernel/MacroItem.h"
#include "kernel/PropertyBag.h"
#include "kernelapi/KernelError.h"

namespace {
const QString Object = QStringLiteral("iMacro");
}

Macro::Macro(std::shared_ptr<CartWorld> world, QObject* parent)
    : iMacro(parent), m_world(std::move(world)), m_cart(m_world->NewCart())
{
    m_cart->SetType(CartType::Macro);
}

Macro::~Macro() = default;

std::shared_ptr<iCart> Macro::Cart() const
{
    return m_cart;
}

std::shared_ptr<iMacroItem> Macro::Item(int index) const
{
    if (index < 1 || index > Count())
        throw KernelError(QStringLiteral("Macro %1 has no entry %2 (it has %3)").arg(m_cart->ID()).arg(index).arg(Count()));
    return m_items[size_t(index - 1)];
}

// An entry named by a cart ID holds the catalogue's cart of that ID, as the entries of a loaded
// macro do: a client that names its entries with bare new carts still reads their types,
// titles and lengths from the macro, and the saved length counts them.
void Macro::Add(const std::shared_ptr<iCart>& cart, const std::shared_ptr<iObjectWithProperties>& properties)
{
    std::shared_ptr<iCart> entry = cart;
    if (cart && CartID::IsValid(cart->ID()))
        entry = m_world->LiveCart(CartID::Normalized(cart->ID()));
    m_items.push_back(std::make_shared<MacroItem>(entry, PropertyBag::CopyOf(properties)));
}

void Macro::LoadByID(const QString& cartID)
{
    const std::shared_ptr<::Cart> cart = m_world->LiveCart(CartID::Require(cartID));
    if (cart->Type() != CartType::Macro)
        throw KernelError(QStringLiteral("Cart %1 is not a macro").arg(cart->ID()));
    std::vector<std::shared_ptr<MacroItem>> items;
    const QStringList steps = m_world->Store().Steps(cart->ID());
    for (int i = 0; i < steps.size(); ++i) {
        auto properties = std::make_shared<PropertyBag>();
        properties->SetProperty(QStringLiteral("Index"), i);
        items.push_back(std::make_shared<MacroItem>(m_world->EntryCart(steps[i]), properties));
    }
    m_cart = cart;
    m_items = std::move(items);
}

void Macro::Save(const QString& description)
{
    QString id = m_cart->ID();
    if (id.isEmpty())
        Q_EMIT RequestNameToSave(&id);
    QString text = description.trimmed().isEmpty() ? m_cart->Description() : description;
    if (!id.trimmed().isEmpty() && text.trimmed().isEmpty())
        Q_EMIT RequestDescriptionToSave(&text);
    if (id.trimmed().isEmpty() || text.trimmed().isEmpty()) {
        m_world->Log().Warn(Object, QStringLiteral("Save"), QStringLiteral("Saving of macro '%1' cancelled: no name or no description").arg(id));
        return;
    }
    id = CartID::Require(id);
    const QStringList steps = StepIDs();
    RequireMacroAt(id);
    m_cart->SetID(id);
    m_cart->SetDescription(text);
    m_cart->SetType(CartType::Macro);
    m_cart->SetTime(Length());
    bool inserted = false;
    m_world->Db()->Transaction([&] {
        inserted = m_cart->WriteRows();
        m_world->Store().WriteSteps(id, steps);
    });
    m_cart->Announce(inserted);
    m_world->Log().Ok(Object, QStringLiteral("Save"), QStringLiteral("Macro %1 saved with %2 entries").arg(id).arg(steps.size()));
}

qint32 Macro::Length() const
{
    qint32 ms = 0;
    for (const auto& item : m_items) {
        const std::shared_ptr<iCart> cart = item->Cart();
        if (cart && (cart->Type() == CartType::Sound || cart->Type() == CartType::Macro))
            ms += cart->Time();
    }
    return ms;
}

QStringList Macro::StepIDs() const
{
    QStringList ids;
    for (const auto& item : m_items) {
        const std::shared_ptr<iCart> cart = item->Cart();
        ids << (cart && !cart->ID().trimmed().isEmpty() ? CartID::Require(cart->ID()) : QString());
    }
    return ids;
}

void Macro::RequireMacroAt(const QString& id) const
{
    const std::optional<CartRecord> existing = m_world->Store().Read(id);
    if (existing && existing->type != CartType::Macro)
        throw KernelError(QStringLiteral("Cart %1 exists and is not a macro: it is not overwritten").arg(id));
}
