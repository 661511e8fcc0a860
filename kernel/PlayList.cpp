#include "kernel/PlayList.h"
#include "kernel/Cart.h"
#include "kernel/CartID.h"
#include "kernel/CartWorld.h"
#include "kernel/Macro.h"
#include "kernel/PlayListItem.h"
#include "kernel/PropertyBag.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/iCartPlayer.h"
#include "kernelapi/iMacroItem.h"
#include <QRandomGenerator>
#include <QSignalBlocker>
#include <algorithm>

namespace {
const QString Object = QStringLiteral("iPlayList");

bool Playable(const std::shared_ptr<iCart>& cart)
{
    if (!cart)
        return false;
    const CartType type = cart->Type();
    return type == CartType::Sound || type == CartType::Macro || type == CartType::Control;
}
}

PlayList::PlayList(std::shared_ptr<CartWorld> world, std::shared_ptr<PlayListStore> store,
                   const PlayListStore::Header& header, QObject* parent)
    : iPlayList(parent), m_world(std::move(world)), m_store(std::move(store)), m_header(header)
{
}

PlayList::~PlayList()
{
    disconnect(m_playerConnection);
}

std::shared_ptr<iMacro> PlayList::LoadedMacro() const
{
    return m_macro;
}

std::shared_ptr<iPlayListItem> PlayList::Item(qint32 index) const
{
    RequireRow(index, Count());
    return m_items[size_t(index - 1)];
}

void PlayList::RequireRow(qint32 row, qint32 last) const
{
    if (row < 1 || row > last)
        throw KernelError(QStringLiteral("Playlist %1 has no row %2 here (rows 1 to %3)").arg(m_header.id).arg(row).arg(last));
}

void PlayList::Restore(const std::vector<PlayListStore::Row>& rows)
{
    if (!m_header.macroID.isEmpty()) {
        try {
            auto macro = std::make_shared<Macro>(m_world);
            macro->LoadByID(m_header.macroID);
            m_macro = macro;
        } catch (const KernelError& e) {
            m_world->Log().Warn(Object, QStringLiteral("Restore"), QStringLiteral("%1: %2").arg(m_header.id, e.Description()));
        }
    }
    Items items;
    for (const PlayListStore::Row& row : rows) {
        std::shared_ptr<PropertyBag> properties;
        try {
            properties = PropertyBag::FromText(row.properties);
        } catch (const KernelError& e) {
            m_world->Log().Error(Object, QStringLiteral("Restore"), QStringLiteral("%1: %2").arg(m_header.id, e.Description()));
        }
        std::shared_ptr<PlayListItem> item = MakeItem(m_world->EntryCart(row.cartID), properties);
        item->SetIgnored(row.ignored);
        item->SetLooped(row.looped);
        item->SetModified(row.modified);
        items.push_back(item);
    }
    SetItems(std::move(items));
}

std::shared_ptr<PlayListItem> PlayList::MakeItem(const std::shared_ptr<iCart>& cart,
                                                 const std::shared_ptr<iObjectWithProperties>& properties)
{
    auto bag = PropertyBag::CopyOf(properties);
    bag->RemoveProperty(QStringLiteral("Index")); // a macro entry's place means nothing in a list
    return std::make_shared<PlayListItem>(cart, bag);
}

// Items are connected only once they belong to the list, so that building them is silent.
void PlayList::SetItems(Items items)
{
    for (const auto& item : m_items)
        item->disconnect(this);
    m_items = std::move(items);
    for (const auto& item : m_items)
        connect(item.get(), &PlayListItem::Changed, this, [this, raw = item.get()] { ItemChanged(raw); });
}

void PlayList::ItemChanged(const PlayListItem* item)
{
    if (item->Modified())
        SetModified(true);
    Store();
    Q_EMIT ChangedPlayListItem(IndexOf(item));
}

qint32 PlayList::IndexOf(const PlayListItem* item) const
{
    const auto found = std::find_if(m_items.begin(), m_items.end(), [&](const auto& entry) { return entry.get() == item; });
    return found == m_items.end() ? 0 : qint32(found - m_items.begin()) + 1;
}

void PlayList::SetNextIndex(qint32 index)
{
    RequireRow(index, Count() + 1);
    MoveNextIndex(index);
    StoreHeader();
}

void PlayList::MoveNextIndex(qint32 index)
{
    const qint32 old = m_header.nextIndex;
    m_header.nextIndex = index;
    if (old != index)
        Q_EMIT ChangedNextIndex(old, index);
}

void PlayList::SetName(const QString& name)
{
    if (name == m_header.name)
        return;
    m_header.name = name;
    StoreHeader();
    Q_EMIT Renamed();
}

void PlayList::SetChained(bool chained)
{
    if (chained == m_header.chained)
        return;
    m_header.chained = chained;
    StoreHeader();
    Q_EMIT StatusChanged();
}

void PlayList::SetModified(bool modified)
{
    if (modified == m_header.modified)
        return;
    m_header.modified = modified;
    Q_EMIT StatusChanged();
}

void PlayList::Store()
{
    std::vector<PlayListStore::Row> rows;
    for (const auto& item : m_items) {
        const std::shared_ptr<iCart> cart = item->Cart();
        rows.push_back({cart ? cart->ID() : QString(), item->Ignored(), item->Looped(), item->Modified(), item->Bag().ToText()});
    }
    m_store->Write(m_header, rows);
}

void PlayList::StoreHeader()
{
    m_store->Write(m_header);
}

void PlayList::Edited()
{
    SetModified(true);
    Store();
    Q_EMIT ContentChanged();
}

void PlayList::Load(const QString& cartID)
{
    auto macro = std::make_shared<Macro>(m_world);
    macro->LoadByID(cartID);
    Items items;
    for (int i = 1; i <= macro->Count(); ++i)
        items.push_back(MakeItem(macro->Item(i)->Cart(), macro->Item(i)->Properties()));
    SetItems(std::move(items));
    m_macro = macro;
    m_header.macroID = macro->Cart()->ID();
    m_header.description = macro->Cart()->Description();
    if (m_header.name.trimmed().isEmpty())
        m_header.name = m_header.macroID;
    m_header.modified = false;
    MoveNextIndex(1);
    Store();
    Q_EMIT ContentChanged();
    Q_EMIT StatusChanged();
    Q_EMIT Renamed();
}

void PlayList::Reload()
{
    if (m_header.macroID.isEmpty()) {
        m_world->Log().Warn(Object, QStringLiteral("Reload"), QStringLiteral("Playlist %1 has no macro to reload from").arg(m_header.id));
        return;
    }
    Load(m_header.macroID);
}

void PlayList::Save()
{
    QString id = m_header.macroID;
    if (id.isEmpty())
        Q_EMIT RequestNameToSave(&id);
    QString description = m_header.description;
    if (!id.trimmed().isEmpty() && description.trimmed().isEmpty())
        Q_EMIT RequestDescriptionToSave(&description);
    if (id.trimmed().isEmpty() || description.trimmed().isEmpty()) {
        m_world->Log().Warn(Object, QStringLiteral("Save"), QStringLiteral("Saving of playlist %1 cancelled: no name or no description").arg(m_header.id));
        return;
    }
    id = CartID::Require(id);
    auto macro = std::make_shared<Macro>(m_world);
    if (m_world->Store().Exists(id))
        macro->LoadByID(id);
    else
        macro->Cart()->SetID(id);
    macro->RemoveAll();
    for (const auto& item : m_items)
        macro->Add(item->Cart(), item->Properties());
    macro->Save(description);
    m_macro = macro;
    m_header.macroID = id;
    m_header.description = macro->Cart()->Description();
    for (const auto& item : m_items) {
        const QSignalBlocker quiet(item.get());
        item->SetModified(false);
    }
    SetModified(false);
    Store();
    Q_EMIT ContentChanged();
    Q_EMIT Renamed();
}

void PlayList::Delete(qint32 row)
{
    RequireRow(row, Count());
    m_items[size_t(row - 1)]->disconnect(this);
    m_items.erase(m_items.begin() + (row - 1));
    if (row < m_header.nextIndex)
        MoveNextIndex(m_header.nextIndex - 1);
    Edited();
}

void PlayList::Insert(qint32 row, const std::shared_ptr<iCart>& cart)
{
    RequireRow(row, Count() + 1);
    const qint32 next = m_header.nextIndex;
    const bool follows = row < next || (row == next && next <= Count());
    Items items = m_items;
    items.insert(items.begin() + (row - 1), MakeItem(cart, nullptr));
    items[size_t(row - 1)]->SetModified(true);
    SetItems(std::move(items));
    if (follows)
        MoveNextIndex(next + 1);
    Edited();
}

void PlayList::Put(qint32 row, const std::shared_ptr<iCart>& cart)
{
    RequireRow(row, std::max(row, 1));
    if (row <= Count()) {
        m_items[size_t(row - 1)]->SetCart(cart, true);
        return;
    }
    Items items = m_items;
    while (qint32(items.size()) < row)
        items.push_back(MakeItem(nullptr, nullptr));
    items.back()->SetCart(cart, true);
    SetItems(std::move(items));
    Edited();
}

void PlayList::LiftUp(qint32 row)
{
    RequireRow(row, Count());
    if (row == 1)
        throw KernelError(QStringLiteral("Row 1 of playlist %1 cannot go up").arg(m_header.id));
    Swap(row - 1);
}

void PlayList::LiftDown(qint32 row)
{
    RequireRow(row, Count());
    if (row == Count())
        throw KernelError(QStringLiteral("The last row of playlist %1 cannot go down").arg(m_header.id));
    Swap(row);
}

// Swaps a row with the one below it; the next row mark goes with its row.
void PlayList::Swap(qint32 upper)
{
    std::swap(m_items[size_t(upper - 1)], m_items[size_t(upper)]);
    if (m_header.nextIndex == upper)
        MoveNextIndex(upper + 1);
    else if (m_header.nextIndex == upper + 1)
        MoveNextIndex(upper);
    Edited();
}

void PlayList::Shuffle()
{
    const qint32 first = std::min(m_header.nextIndex, Count() + 1);
    std::shuffle(m_items.begin() + (first - 1), m_items.end(), *QRandomGenerator::global());
    Edited();
}

void PlayList::CartMoved(const QString& fromID, const QString& toID)
{
    for (const auto& item : m_items) {
        if (item->Cart() && item->Cart()->ID() == fromID)
            item->SetCart(m_world->LiveCart(toID), false);
    }
}

void PlayList::SetPlayer(const std::shared_ptr<iCartPlayer>& player)
{
    Detach();
    m_player = player;
    if (player)
        m_playerConnection = connect(player.get(), &iCartPlayer::StatusChanged, this, &PlayList::PlayerStatusChanged);
}

void PlayList::Detach()
{
    disconnect(m_playerConnection);
    if (m_playing)
        Finish();
}

bool PlayList::Play()
{
    const std::shared_ptr<iCartPlayer> player = m_player.lock();
    const qint32 row = NextPlayable(m_header.nextIndex);
    if (!player || row == 0) {
        m_world->Log().Warn(Object, QStringLiteral("Play"),
                            QStringLiteral("Playlist %1 cannot start: %2").arg(m_header.id, player ? QStringLiteral("nothing left to play") : QStringLiteral("no player")));
        return false;
    }
    return Start(row);
}

qint32 PlayList::NextPlayable(qint32 from) const
{
    for (qint32 row = std::max(from, 1); row <= Count(); ++row) {
        const auto& item = m_items[size_t(row - 1)];
        if (!item->Ignored() && Playable(item->Cart()))
            return row;
    }
    return 0;
}

bool PlayList::Start(qint32 row)
{
    const std::shared_ptr<iCartPlayer> player = m_player.lock();
    const std::shared_ptr<PlayListItem> item = m_items[size_t(row - 1)];
    if (m_playing)
        Finish();
    player->SetLoop(item->Looped());
    player->Load(item->Cart());
    if (!player->Loaded()) {
        m_world->Log().Error(Object, QStringLiteral("Play"), QStringLiteral("Playlist %1: the player refused row %2 (%3)").arg(m_header.id).arg(row).arg(item->Cart()->ID()));
        return false;
    }
    m_playing = item;
    m_sounding = false;
    item->SetPlaying(true);
    MoveNextIndex(row + 1);
    StoreHeader();
    Q_EMIT ChangedPlayListItem(row);
    Q_EMIT StatusChanged();
    player->Play();
    return true;
}

void PlayList::PlayerStatusChanged(qint32 status)
{
    const std::shared_ptr<iCartPlayer> player = m_player.lock();
    if (!m_playing || !player)
        return;
    if (status == qint32(CartPlayerStatus::Playing)) {
        m_sounding = true;
        return;
    }
    const bool takenOver = player->Cart() && player->Cart() != m_playing->Cart();
    if (!takenOver && (status != qint32(CartPlayerStatus::Ready) || !m_sounding))
        return;
    Finish();
    const qint32 next = NextPlayable(m_header.nextIndex);
    if (!takenOver && m_header.chained && next > 0 && Start(next))
        return;
    if (next == 0 && m_header.autoClose)
        SetNextIndex(1);
}

// The row the list played is over.
void PlayList::Finish()
{
    const std::shared_ptr<PlayListItem> item = std::exchange(m_playing, nullptr);
    item->SetPlaying(false);
    m_sounding = false;
    if (const qint32 row = IndexOf(item.get()))
        Q_EMIT ChangedPlayListItem(row);
    Q_EMIT StatusChanged();
}
