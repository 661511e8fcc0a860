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
#include "kernel/audio/CartPlayer.h"
#include <QRandomGenerator>
#include <QSignalBlocker>
#include <algorithm>

namespace {
const QString Object = QStringLiteral("iPlayList");

// What the engine plays of a list: rows of sound carts.
bool HoldsSound(const std::shared_ptr<iCart>& cart)
{
    return cart && cart->Type() == CartType::Sound;
}

// Why a row's cart cannot stand in a list; empty for the kinds a list holds (sound, macro,
// control).
QString Unusable(const iCart& cart)
{
    switch (cart.Type()) {
    case CartType::Sound:
    case CartType::Macro:
    case CartType::Control:
        return {};
    case CartType::Unknown:
        return QStringLiteral("does not exist or is of an unknown type");
    default:
        return QStringLiteral("is a %1 cart").arg(cart.TypeName());
    }
}
}

PlayList::PlayList(std::shared_ptr<CartWorld> world, std::shared_ptr<PlayListStore> store,
                   const PlayListStore::Header& header, QObject* parent)
    : iPlayList(parent), m_world(std::move(world)), m_store(std::move(store)), m_header(header)
{
}

// The player holds the list while it plays it, so the list outlives its part on the player.
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
    WarnUnplayable(QStringLiteral("Restore"));
}

void PlayList::WarnUnplayable(const QString& procedure) const
{
    for (qint32 row = 1; row <= Count(); ++row) {
        const std::shared_ptr<iCart> cart = m_items[size_t(row - 1)]->Cart();
        const QString reason = cart ? Unusable(*cart) : QString();
        if (!reason.isEmpty())
            m_world->Log().Warn(Object, procedure,
                                QStringLiteral("Playlist %1: row %2 names cart %3, which %4; the row is passed over when the list plays")
                                    .arg(m_header.id)
                                    .arg(row)
                                    .arg(cart->ID(), reason));
    }
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
    Persist(QStringLiteral("SetNextIndex"), [&] { m_store->WriteNextIndex(m_header); });
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
    Persist(QStringLiteral("SetName"), [&] { m_store->Write(m_header); });
    Q_EMIT Renamed();
}

void PlayList::SetChained(bool chained)
{
    if (chained == m_header.chained)
        return;
    m_header.chained = chained;
    Persist(QStringLiteral("SetChained"), [&] { m_store->Write(m_header); });
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
    Persist(QStringLiteral("Store"), [&] { m_store->Write(m_header, rows); });
}

void PlayList::Persist(const QString& procedure, const std::function<void()>& write)
{
    const std::shared_ptr<PlayList> self = shared_from_this(); // a vanished list may lose its last holder
    try {
        write();
    } catch (const PlayListStore::Conflict&) {
        const QString text = QStringLiteral("Playlist %1 was changed on another workstation since it was read here: this "
                                            "change was not stored, and the list now shows the stored one")
                                 .arg(m_header.id);
        m_world->Log().Error(Object, procedure, text);
        TakeStored();
        m_world->Log().Warn(Object, procedure, QStringLiteral("Playlist %1 now shows version %2 from the store").arg(m_header.id).arg(m_header.version));
        throw KernelError(text);
    } catch (const PlayListStore::Gone&) {
        const QString text = QStringLiteral("Playlist %1 was deleted on another workstation: this change was not stored").arg(m_header.id);
        m_world->Log().Error(Object, procedure, text);
        Detach();
        Q_EMIT Vanished();
        throw KernelError(text);
    }
}

// The list takes what the store holds now; the row its player sounds stays marked.
bool PlayList::Recheck(const PlayListStore::Header& stored)
{
    if (stored.version == m_header.version && stored.nextIndex == m_header.nextIndex)
        return false;
    TakeStored();
    return true;
}

void PlayList::TakeStored()
{
    const std::optional<PlayListStore::Header> stored = m_store->Read(m_header.id);
    if (!stored)
        return;
    m_header = *stored;
    m_macro.reset();
    Restore(m_store->ReadRows(m_header.id));
    const std::shared_ptr<CartPlayer> player = m_player.lock();
    const int row = player && m_playing && player->LoadedList() == this ? player->CurrentRow() : 0;
    m_playing = row >= 1 && row <= Count() ? m_items[size_t(row - 1)] : nullptr;
    if (m_playing)
        m_playing->SetPlaying(true);
    Q_EMIT ContentChanged();
    Q_EMIT StatusChanged();
    Q_EMIT Renamed();
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
    WarnUnplayable(QStringLiteral("Load"));
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
    Store(); // refused here, before the macro is touched, when another workstation changed the list
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
    const auto ours = std::dynamic_pointer_cast<CartPlayer>(player);
    if (player && !ours)
        throw KernelError(QStringLiteral("Playlist %1 can only play on a player of this kernel").arg(m_header.id));
    if (ours && ours == m_player.lock())
        return; // given again before each Play: what the player holds of the list stays
    Detach();
    m_player = ours;
    if (ours)
        m_playerConnection = connect(ours.get(), &CartPlayer::RowChanged, this, &PlayList::PlayerRowChanged);
}

void PlayList::Detach()
{
    if (const std::shared_ptr<CartPlayer> player = m_player.lock())
        player->LetGoOf(this);
    disconnect(m_playerConnection);
    m_player.reset();
}

std::shared_ptr<CartPlayer> PlayList::Player(const char* procedure) const
{
    std::shared_ptr<CartPlayer> player = m_player.lock();
    if (!player)
        throw KernelError(QStringLiteral("Playlist %1 has no player (%2)").arg(m_header.id, QLatin1String(procedure)));
    return player;
}

bool PlayList::Play()
{
    const std::shared_ptr<CartPlayer> player = m_player.lock();
    if (!player || NextPlayable(m_header.nextIndex) == 0) {
        m_world->Log().Warn(Object, QStringLiteral("Play"),
                            QStringLiteral("Playlist %1 cannot start: %2").arg(m_header.id, player ? QStringLiteral("nothing left to play") : QStringLiteral("no player")));
        return false;
    }
    Cue(*player);
    player->Play();
    return true;
}

void PlayList::SetWaitForStart(const QDateTime& start)
{
    if (!start.isValid()) {
        if (const std::shared_ptr<CartPlayer> player = m_player.lock(); player && player->LoadedList() == this)
            player->PlayAt(std::nullopt);
        EndWait();
        return;
    }
    const std::shared_ptr<CartPlayer> player = Player("SetWaitForStart");
    if (NextPlayable(m_header.nextIndex) == 0)
        throw KernelError(QStringLiteral("Playlist %1 has nothing left to play from row %2").arg(m_header.id).arg(m_header.nextIndex));
    Cue(*player);
    player->PlayAt(player->ClockMs() + QDateTime::currentDateTime().msecsTo(start));
    m_waitForStart = start;
    Q_EMIT StatusChanged();
}

void PlayList::EndWait()
{
    if (!m_waitForStart.isValid())
        return;
    m_waitForStart = QDateTime();
    Q_EMIT StatusChanged();
}

void PlayList::Cue(CartPlayer& player)
{
    const qint32 status = player.Status();
    const bool atRest = status == qint32(CartPlayerStatus::Ready) || status == qint32(CartPlayerStatus::Cued)
                        || status == qint32(CartPlayerStatus::Cueing);
    if (atRest && player.LoadedList() == this && player.CurrentRow() == NextPlayable(m_header.nextIndex))
        return;
    player.Load(std::static_pointer_cast<iPlayList>(shared_from_this()));
}

qint32 PlayList::NextPlayable(qint32 from) const
{
    for (qint32 row = std::max(from, 1); row <= Count(); ++row) {
        const auto& item = m_items[size_t(row - 1)];
        if (!item->Ignored() && HoldsSound(item->Cart()))
            return row;
    }
    return 0;
}

// The player moved to another row of the list, or left it. Events: the row that ended, the
// row that starts, then StatusChanged when PlayState or Waiting changed.
void PlayList::PlayerRowChanged(const iPlayList* list, int row)
{
    if (list != this)
        return;
    const std::shared_ptr<PlayListItem> item = row >= 1 && row <= Count() ? m_items[size_t(row - 1)] : nullptr;
    const bool wasPlaying = m_playing != nullptr;
    if (item != m_playing) {
        const std::shared_ptr<PlayListItem> old = std::exchange(m_playing, item);
        if (old) {
            old->SetPlaying(false);
            if (const qint32 index = IndexOf(old.get()))
                Q_EMIT ChangedPlayListItem(index);
        }
        if (item) {
            item->SetPlaying(true);
            Q_EMIT ChangedPlayListItem(row);
        }
    }
    const std::shared_ptr<CartPlayer> player = m_player.lock();
    const bool waitOver = Waiting() && (m_playing || !player || !player->WaitsToPlay());
    if (waitOver)
        m_waitForStart = QDateTime();
    if (wasPlaying && !m_playing && m_header.autoClose && NextPlayable(m_header.nextIndex) == 0)
        SetNextIndex(1);
    if (waitOver || wasPlaying != (m_playing != nullptr))
        Q_EMIT StatusChanged();
}
