#include "kernel/Families.h"
#include "foundation/db/Database.h"
#include "kernel/CartID.h"
#include "kernel/CartWorld.h"
#include "kernel/Family.h"
#include "kernelapi/KernelError.h"
#include <algorithm>

namespace {
const QString Object = QStringLiteral("iFamilies");
}

Families::Families(std::shared_ptr<CartWorld> world, QObject* parent) : iFamilies(parent), m_world(std::move(world))
{
    connect(m_world.get(), &CartWorld::ContentsChanged, this, &Families::ContentsChanged);
    connect(m_world.get(), &CartWorld::CartChanged, this, &Families::CartChanged);
}

Families::~Families() = default;

int Families::Count() const
{
    return int(List().size());
}

std::shared_ptr<iFamily> Families::Item(int index) const
{
    if (index < 1 || index > Count())
        throw KernelError(QStringLiteral("There is no family %1 (there are %2)").arg(index).arg(Count()));
    return List()[size_t(index - 1)];
}

std::shared_ptr<iFamily> Families::Item(const QString& familyID) const
{
    return Require(familyID);
}

std::shared_ptr<Family> Families::Require(const QString& familyID) const
{
    const QString id = CartID::RequireFamily(familyID);
    std::shared_ptr<Family> family = Find(id);
    if (!family)
        throw KernelError(QStringLiteral("This family ID not exists.") + QStringLiteral(" (%1)").arg(id));
    return family;
}

bool Families::Exists(const QString& familyID) const
{
    return CartID::IsValidFamily(familyID) && m_world->FamilyRows().Read(CartID::Normalized(familyID)).has_value();
}

// A family that another workstation added since the list was read is taken in.
std::shared_ptr<Family> Families::Find(const QString& familyID) const
{
    if (!CartID::IsValidFamily(familyID))
        return nullptr;
    const QString id = CartID::Normalized(familyID);
    List();
    if (std::shared_ptr<Family> family = Loaded(id))
        return family;
    const std::optional<FamilyStore::Row> row = m_world->FamilyRows().Read(id);
    if (!row)
        return nullptr;
    std::shared_ptr<Family> family = Make(*row);
    Insert(family);
    return family;
}

void Families::Add(const QString& name, const QString& description)
{
    const QString id = CartID::RequireFamily(name);
    if (Exists(id))
        throw KernelError(QStringLiteral("This family ID already exists.") + QStringLiteral(" (%1)").arg(id));
    const QString user = m_world->CurrentUserID();
    FamilyStore& store = m_world->FamilyRows();
    m_world->Db()->Transaction([&] {
        store.Add({id, description, false}, !user.isEmpty() && store.GroupExists(user) ? user : QString());
    });
    if (const std::optional<FamilyStore::Row> row = store.Read(id))
        Insert(Make(*row));
    m_world->Log().Ok(Object, QStringLiteral("Add"), QStringLiteral("Family %1 added").arg(id));
    Q_EMIT Changed();
}

void Families::Remove(const QString& familyID)
{
    const std::shared_ptr<Family> family = Require(familyID);
    const QString id = family->ID();
    family->Clear();
    m_world->Db()->Transaction([&] { m_world->FamilyRows().Remove(id); });
    std::erase_if(List(), [&](const auto& item) { return item->ID() == id; });
    m_world->Log().Ok(Object, QStringLiteral("Remove"), QStringLiteral("Family %1 removed; its carts stay").arg(id));
    Q_EMIT Changed();
}

void Families::Refresh()
{
    std::vector<std::shared_ptr<Family>> families;
    for (const FamilyStore::Row& row : m_world->FamilyRows().ReadAll()) {
        std::shared_ptr<Family> family = Loaded(row.id);
        if (family)
            family->SetRow(row);
        families.push_back(family ? family : Make(row));
    }
    for (const auto& old : List()) {
        if (std::none_of(families.begin(), families.end(), [&](const auto& family) { return family == old; }))
            old->Clear();
    }
    m_families = std::move(families);
    Q_EMIT Changed();
}

void Families::RefreshAll()
{
    Refresh();
    const std::vector<std::shared_ptr<Family>> families = List();
    for (const std::shared_ptr<Family>& family : families)
        family->Refresh();
}

void Families::Recheck()
{
    if (m_families) {
        const std::vector<FamilyStore::Row> stored = m_world->FamilyRows().ReadAll();
        const bool same = std::equal(stored.begin(), stored.end(), m_families->begin(), m_families->end(),
                                     [](const FamilyStore::Row& row, const std::shared_ptr<Family>& family) { return row == family->Row(); });
        if (!same)
            Refresh();
    }
    for (const std::shared_ptr<Family>& family : List()) {
        if (!m_world->RechecksHeld(family->ID()))
            family->Recheck();
    }
}

std::vector<std::shared_ptr<Family>>& Families::List() const
{
    if (!m_families) {
        std::vector<std::shared_ptr<Family>> families;
        for (const FamilyStore::Row& row : m_world->FamilyRows().ReadAll())
            families.push_back(Make(row));
        m_families = std::move(families);
    }
    return *m_families;
}

std::shared_ptr<Family> Families::Make(const FamilyStore::Row& row) const
{
    return std::make_shared<Family>(m_world, row);
}

void Families::Insert(const std::shared_ptr<Family>& family) const
{
    std::vector<std::shared_ptr<Family>>& list = List();
    const auto at = std::lower_bound(list.begin(), list.end(), family->ID(),
                                     [](const auto& item, const QString& id) { return item->ID() < id; });
    if (at == list.end() || (*at)->ID() != family->ID())
        list.insert(at, family);
}

std::shared_ptr<Family> Families::Loaded(const QString& familyID) const
{
    if (!m_families)
        return nullptr;
    const auto found = std::find_if(m_families->begin(), m_families->end(),
                                    [&](const auto& family) { return family->ID() == familyID; });
    return found == m_families->end() ? nullptr : *found;
}

void Families::ContentsChanged(const QString& familyID)
{
    if (const std::shared_ptr<Family> family = Loaded(familyID))
        family->ContentsChanged();
}

void Families::CartChanged(const QString& cartID)
{
    if (const std::shared_ptr<Family> family = Loaded(CartID::FamilyOf(cartID)))
        family->CartChanged(cartID);
}
