#pragma once
#include <QDateTime>
#include <QObject>
#include <QString>
#include <memory>

class iCart;
class iCartPlayer;
class iMacro;
class iPlayListItem;

// A playlist: rows of carts that play one after the other on a player, loaded from and saved
// to a macro. Rows count from 1; a row may be blank. Walking it with Count and Item gives the
// rows in order. A failed call throws KernelError. Several workstations may hold the same
// list: an edit of a list that another workstation changed or deleted since this one read it
// is not stored, and throws KernelError saying so; a changed list then shows the stored rows.
class iPlayList : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~iPlayList() override = default;

    // The time a waiting list starts at; invalid when it waits for none.
    virtual QDateTime WaitForStart() const = 0;
    // Whether the list waits for WaitForStart.
    virtual bool Waiting() const = 0;
    // Makes the list wait: its next row is cued on its player now and starts by itself at that
    // time, as Play would start it; an invalid time ends the wait. Waiting ends when the row
    // starts, or when the player is given something else. Raises StatusChanged. Throws
    // KernelError without a player or with nothing left to play.
    virtual void SetWaitForStart(const QDateTime& start) = 0;
    // 1 when a macro is loaded, 0 otherwise.
    virtual qint32 LoadState() const = 0;
    // 1 while the list plays, 0 otherwise.
    virtual qint32 PlayState() const = 0;
    // The row that plays next, 1 to Count. Raises ChangedNextIndex.
    virtual qint32 NextIndex() const = 0;
    virtual void SetNextIndex(qint32 index) = 0;
    virtual QString Name() const = 0;
    virtual void SetName(const QString& name) = 0;
    virtual QString Description() const = 0;
    // The list's ID; it begins with "PL".
    virtual QString ID() const = 0;
    // The macro loaded into the list; null when none is.
    virtual std::shared_ptr<iMacro> LoadedMacro() const = 0;
    // The player the list plays on.
    virtual void SetPlayer(const std::shared_ptr<iCartPlayer>& player) = 0;
    // Whether the next row starts by itself when one ends. Raises StatusChanged.
    virtual bool Chained() const = 0;
    virtual void SetChained(bool chained) = 0;
    // Whether the list closes by itself after its last row.
    virtual bool AutoClose() const = 0;
    // Whether the list has changes not yet saved.
    virtual bool Modified() const = 0;
    // Number of rows.
    virtual qint32 Count() const = 0;
    // The row at a place, 1 to Count; throws KernelError outside that range.
    virtual std::shared_ptr<iPlayListItem> Item(qint32 index) const = 0;
    // Loads a stored macro into the list by its cart ID.
    virtual void Load(const QString& cartID) = 0;
    // Writes the list to its macro. When it has no ID or description, RequestNameToSave or
    // RequestDescriptionToSave is raised first, and an answer left empty cancels the save.
    virtual void Save() = 0;
    // Deletes a row.
    virtual void Delete(qint32 row) = 0;
    // Inserts a row before the given one; a null cart inserts a blank row.
    virtual void Insert(qint32 row, const std::shared_ptr<iCart>& cart) = 0;
    // Mixes the order of the rows.
    virtual void Shuffle() = 0;
    // Sets the cart of a row, adding blank rows up to it if the list is shorter; a null cart
    // makes it blank.
    virtual void Put(qint32 row, const std::shared_ptr<iCart>& cart) = 0;
    // Swaps a row with the one above it.
    virtual void LiftUp(qint32 row) = 0;
    // Swaps a row with the one below it.
    virtual void LiftDown(qint32 row) = 0;
    // Reloads the list from its stored macro, dropping unsaved changes.
    virtual void Reload() = 0;
    // Starts the list on its player; false when it cannot start (no player, nothing to play).
    // A chained list goes on from row to row by itself, each row starting on the frame the one
    // before ends; an unchained one cues its next row when a row ends, and waits for Play.
    virtual bool Play() = 0;

Q_SIGNALS:
    // Rows were added, removed or reordered: holders reload the list.
    void ContentChanged();
    // One row changed (also its Playing flag). When a chained list moves on, ChangedNextIndex
    // comes first, then the row that ended, then the row that starts.
    void ChangedPlayListItem(qint32 index);
    void ChangedNextIndex(qint32 oldIndex, qint32 newIndex);
    // LoadState, PlayState, Modified, Chained, AutoClose or Waiting changed. PlayState stays 1
    // while a chained list moves from row to row.
    void StatusChanged();
    // The list has no ID to be saved under: the holder writes one into *name, or leaves it
    // empty to cancel the save.
    void RequestNameToSave(QString* name);
    // The list has no description: the holder writes one into *description, or leaves it
    // empty to cancel the save.
    void RequestDescriptionToSave(QString* description);
};
