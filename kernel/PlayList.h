#pragma once
#include "kernel/PlayListStore.h"
#include "kernelapi/iPlayList.h"
#include <functional>
#include <vector>

class CartPlayer;
class CartWorld;
class Macro;
class PlayListItem;
class iObjectWithProperties;

// A playlist of the station: its rows live in the kernel's tables and every change is stored
// at once, so lists outlast the session; Save writes the rows into the list's macro (the
// catalogue's copy) and clears Modified, Reload reads the macro back. An edit is stored only
// over the version it was made on: when another workstation stored a newer one, the edit is
// refused with an ERROR line and a KernelError and the list takes the stored rows; when
// another workstation deleted the list, it says so and leaves the collection (Vanished).
//
// Playing: the list's player (a player of this kernel) is loaded with the list itself, so the
// engine plays it row by row (PlayQueue): a chained list's next row is prepared while a row
// plays and starts on the frame it ends; an unchained one cues its next row and waits for
// Play. The player tells which row sounds (RowChanged), and the list sets Playing, PlayState
// and raises its events from that. At the end of the rows a list with AutoClose goes back to
// its first row. NextIndex follows the row it points at through inserts, deletes and lifts,
// and may stand one past the last row. Shuffle mixes the rows not yet played (from NextIndex
// on). A row naming a cart that does not exist, or one of a type that holds no sound, is
// passed over with a WARN line when the list is read.
class PlayList : public iPlayList, public std::enable_shared_from_this<PlayList>
{
    Q_OBJECT
public:
    PlayList(std::shared_ptr<CartWorld> world, std::shared_ptr<PlayListStore> store, const PlayListStore::Header& header,
             QObject* parent = nullptr);
    ~PlayList() override;

    QDateTime WaitForStart() const override { return m_waitForStart; }
    bool Waiting() const override { return m_waitForStart.isValid(); }
    void SetWaitForStart(const QDateTime& start) override;
    qint32 LoadState() const override { return m_macro ? 1 : 0; }
    qint32 PlayState() const override { return m_playing ? 1 : 0; }
    qint32 NextIndex() const override { return m_header.nextIndex; }
    void SetNextIndex(qint32 index) override;
    QString Name() const override { return m_header.name; }
    void SetName(const QString& name) override;
    QString Description() const override { return m_header.description; }
    QString ID() const override { return m_header.id; }
    std::shared_ptr<iMacro> LoadedMacro() const override;
    void SetPlayer(const std::shared_ptr<iCartPlayer>& player) override;
    bool Chained() const override { return m_header.chained; }
    void SetChained(bool chained) override;
    bool AutoClose() const override { return m_header.autoClose; }
    bool Modified() const override { return m_header.modified; }
    qint32 Count() const override { return qint32(m_items.size()); }
    std::shared_ptr<iPlayListItem> Item(qint32 index) const override;
    void Load(const QString& cartID) override;
    void Save() override;
    void Delete(qint32 row) override;
    void Insert(qint32 row, const std::shared_ptr<iCart>& cart) override;
    void Shuffle() override;
    void Put(qint32 row, const std::shared_ptr<iCart>& cart) override;
    void LiftUp(qint32 row) override;
    void LiftDown(qint32 row) override;
    void Reload() override;
    bool Play() override;

    // Takes the rows and the macro that the store kept for the list.
    void Restore(const std::vector<PlayListStore::Row>& rows);
    // Takes what the store holds when it is another version than the list shows, raising
    // ContentChanged and StatusChanged; true when it did.
    bool Recheck(const PlayListStore::Header& stored);
    // Rows holding a cart that was renumbered take the cart of its new ID.
    void CartMoved(const QString& fromID, const QString& toID);
    // Lets go of the player, before the list goes away: what it sounds plays on, nothing
    // follows.
    void Detach();

Q_SIGNALS:
    // The list's name changed.
    void Renamed();
    // Another workstation deleted the list.
    void Vanished();

private:
    using Items = std::vector<std::shared_ptr<PlayListItem>>;

    std::shared_ptr<PlayListItem> MakeItem(const std::shared_ptr<iCart>& cart, const std::shared_ptr<iObjectWithProperties>& properties);
    void SetItems(Items items);
    void RequireRow(qint32 row, qint32 last) const;
    void WarnUnplayable(const QString& procedure) const;
    // After a change of the rows: the list is modified, stored, and its holders told.
    void Edited();
    void SetModified(bool modified);
    void Store();
    // Runs a write of the store; a refused one is reported and undone as the class tells.
    void Persist(const QString& procedure, const std::function<void()>& write);
    void TakeStored();
    void MoveNextIndex(qint32 index);
    void Swap(qint32 upper);
    qint32 IndexOf(const PlayListItem* item) const;
    void ItemChanged(const PlayListItem* item);

    std::shared_ptr<CartPlayer> Player(const char* procedure) const;
    qint32 NextPlayable(qint32 from) const;
    // Loads the list into its player unless the player already holds its next row, cued.
    void Cue(CartPlayer& player);
    void PlayerRowChanged(const iPlayList* list, int row);
    void EndWait();

    std::shared_ptr<CartWorld> m_world;
    std::shared_ptr<PlayListStore> m_store;
    PlayListStore::Header m_header;
    Items m_items;
    std::shared_ptr<Macro> m_macro;
    std::weak_ptr<CartPlayer> m_player;
    QMetaObject::Connection m_playerConnection;
    std::shared_ptr<PlayListItem> m_playing; // the row the player sounds for the list
    QDateTime m_waitForStart;
};
