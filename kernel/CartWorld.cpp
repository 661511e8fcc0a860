#include "kernel/CartWorld.h"
#include "kernel/Cart.h"
#include "kernel/CartID.h"
#include "kernel/ConfigStore.h"
#include "kernel/Families.h"
#include "kernel/Family.h"
#include "kernel/Sound.h"
#include "kernelapi/iUser.h"
#include "kernelapi/iUsers.h"

CartWorld::CartWorld(std::shared_ptr<Database> db, std::shared_ptr<ConfigStore> shared, std::shared_ptr<ConfigStore> stationStore,
                     const StationFolder& station, std::shared_ptr<iUsers> users, KernelLog log)
    : m_db(db), m_shared(std::move(shared)), m_stationStore(std::move(stationStore)), m_station(station), m_users(std::move(users)), m_log(std::move(log)),
      m_store(db), m_familyStore(db)
{
}

CartWorld::~CartWorld() = default;

QString CartWorld::SoundFolder() const
{
    return Sound::Folder(*m_shared, m_station);
}

QString CartWorld::ReportsFolder() const
{
    return m_station.Root() + QStringLiteral("reports/");
}

void CartWorld::PrintReport(const QString& object, const QString& stem, const QString& title, ReportPrinter::Lines lines)
{
    m_reports.Print(object, ReportsFolder(), m_stationStore->Value(QStringLiteral("Printer")).toString(), stem, title, std::move(lines));
}

QString CartWorld::CurrentUserID() const
{
    const std::shared_ptr<iUser> user = m_users ? m_users->CurrentUser() : nullptr;
    return user ? user->Name() : QString();
}

std::shared_ptr<Cart> CartWorld::LiveCart(const QString& id)
{
    if (std::shared_ptr<Cart> cart = Cached(id))
        return cart;
    CartRecord record = m_store.Read(id).value_or(CartRecord{});
    record.id = id;
    auto cart = std::make_shared<Cart>(shared_from_this(), record);
    Remember(cart);
    return cart;
}

std::shared_ptr<Cart> CartWorld::LiveCart(const CartRecord& record)
{
    if (std::shared_ptr<Cart> cart = Cached(record.id))
        return cart;
    auto cart = std::make_shared<Cart>(shared_from_this(), record);
    Remember(cart);
    return cart;
}

std::shared_ptr<Cart> CartWorld::UnknownCart(const QString& id)
{
    CartRecord record;
    record.id = id;
    return std::make_shared<Cart>(shared_from_this(), record);
}

std::shared_ptr<Cart> CartWorld::EntryCart(const QString& id)
{
    if (id.trimmed().isEmpty())
        return nullptr;
    if (CartID::IsValid(id))
        return LiveCart(CartID::Normalized(id));
    m_log.Warn(QStringLiteral("iCarts"), QStringLiteral("EntryCart"), QStringLiteral("'%1' is not a cart ID").arg(id));
    return UnknownCart(id);
}

std::shared_ptr<Cart> CartWorld::NewCart()
{
    CartRecord record;
    record.type = CartType::Sound;
    return std::make_shared<Cart>(shared_from_this(), record);
}

std::shared_ptr<iFamily> CartWorld::FamilyOf(const QString& cartID) const
{
    const std::shared_ptr<Families> families = m_families.lock();
    return families ? families->Find(CartID::FamilyOf(cartID)) : nullptr;
}

void CartWorld::Written(const QString& id, bool inserted, const Cart* writer)
{
    ReloadOthers(id, writer);
    if (inserted)
        Q_EMIT ContentsChanged(CartID::FamilyOf(id));
    else
        Q_EMIT CartChanged(id);
}

void CartWorld::RecheckLiveCarts()
{
    std::vector<std::shared_ptr<Cart>> live;
    for (const std::weak_ptr<Cart>& entry : std::as_const(m_live)) {
        if (std::shared_ptr<Cart> cart = entry.lock())
            live.push_back(std::move(cart));
    }
    // Held while they are told, so that a handler letting go of one cannot change the set.
    for (const std::shared_ptr<Cart>& cart : live)
        cart->Recheck();
}

void CartWorld::Deleted(const QString& id)
{
    ReloadOthers(id, nullptr);
    Q_EMIT ContentsChanged(CartID::FamilyOf(id));
}

void CartWorld::ReleaseRechecks(const QString& familyID)
{
    const auto held = m_heldRechecks.find(familyID);
    if (held != m_heldRechecks.end() && --held.value() == 0)
        m_heldRechecks.erase(held);
}

void CartWorld::Moved(const QString& fromID, const QString& toID)
{
    ReloadOthers(fromID, nullptr);
    ReloadOthers(toID, nullptr);
    Q_EMIT ContentsChanged(CartID::FamilyOf(fromID));
    if (CartID::FamilyOf(toID) != CartID::FamilyOf(fromID))
        Q_EMIT ContentsChanged(CartID::FamilyOf(toID));
    Q_EMIT CartMoved(fromID, toID);
}

// A live object whose ID was changed and saved elsewhere no longer stands for its old ID.
std::shared_ptr<Cart> CartWorld::Cached(const QString& id) const
{
    std::shared_ptr<Cart> cart = m_live.value(id).lock();
    return cart && cart->ID() == id ? cart : nullptr;
}

void CartWorld::Remember(const std::shared_ptr<Cart>& cart)
{
    if (m_live.size() >= m_pruneAt) {
        m_live.removeIf([](const auto& entry) { return entry.value().expired(); });
        m_pruneAt = std::max<int>(1024, m_live.size() * 2);
    }
    m_live.insert(cart->ID(), cart);
}

void CartWorld::ReloadOthers(const QString& id, const Cart* writer)
{
    const std::shared_ptr<Cart> cart = Cached(id);
    if (cart && cart.get() != writer)
        cart->Reload();
}
