#pragma once
#include <QList>
#include <QObject>
#include <QString>
#include <memory>

class iCart;
class iFamilySlots;
class iRecalculation;

// One family: the carts whose IDs start with its three letters, with the rights of users on
// them. Walking it with Count and Item gives its carts in slot order. A failed call throws
// KernelError.
class iFamily : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~iFamily() override = default;

    // The three-letter family ID.
    virtual QString ID() const = 0;
    virtual QString Description() const = 0;
    // Readable by every user, whatever their own rights.
    virtual bool EveryBody() const = 0;
    // Writable by every user, whatever their own rights.
    virtual bool EveryBodyWrite() const = 0;
    // The occupied slot numbers of the family.
    virtual std::shared_ptr<iFamilySlots> Slots() const = 0;
    // Free slot numbers around a cart's slot, in ascending order, for placing a spacer or a
    // moved cart; mode 0 gives the nearest free numbers on both sides, other modes are the
    // kernel's own.
    virtual QList<int> FreeSlots(const QString& cartID, int mode) const = 0;
    // Prints the family's header, its list of carts, or both.
    virtual void Print(bool header, bool contents) = 0;
    // Brings the object up to date with the family of that ID; false if it does not exist.
    virtual bool Reload(const QString& familyID) = 0;
    // Reloads the carts from the catalogue and raises ChangedContents.
    virtual void Refresh() = 0;
    // Read right of a user; an empty user ID asks for the current user.
    virtual bool MayRead(const QString& userID) const = 0;
    // Write right of a user; an empty user ID asks for the current user.
    virtual bool MayWrite(const QString& userID) const = 0;
    // Number of carts in the family.
    virtual int Count() const = 0;
    // The cart at a place in slot order, 1 to Count; throws KernelError outside that range.
    virtual std::shared_ptr<iCart> Item(int index) const = 0;
    // Measures every cart of the family again in the background (accurate decodes every
    // sound file; otherwise only sounds whose energy file is missing or stale are decoded)
    // and writes the lengths; macros last, from their steps. The family raises
    // ChangedContents at the end.
    virtual std::shared_ptr<iRecalculation> Recalculate(bool accurate) = 0;

Q_SIGNALS:
    // Carts were added to or removed from the family: holders reload it.
    void ChangedContents();
    // Properties of carts changed but the set is the same: holders may keep their rows.
    void SlightlyChangedContents();
    // The family is about to go away: every holder must release it.
    void QueryClear();
};
