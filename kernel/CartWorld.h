#pragma once
#include "kernel/CartStore.h"
#include "kernel/FamilyStore.h"
#include "kernel/KernelLog.h"
#include "kernel/ReportPrinter.h"
#include "kernel/StationFolder.h"
#include <QHash>
#include <QObject>
#include <memory>

class Cart;
class ConfigStore;
class Families;
class iFamily;
class iUsers;

// What the cart world's objects share: the stores, the station's folders, the current user,
// the log, and the one live object per cart ID. Carts are held weakly: a cart lives while
// someone holds it, and asking for its ID meanwhile gives the same object. After a write to
// the catalogue the world tells the other live objects of that ID to read it again and tells
// the families, through its signals. Everything runs on the UI thread.
class CartWorld : public QObject, public std::enable_shared_from_this<CartWorld>
{
    Q_OBJECT
public:
    CartWorld(std::shared_ptr<Database> db, std::shared_ptr<ConfigStore> shared, std::shared_ptr<ConfigStore> stationStore,
              const StationFolder& station, std::shared_ptr<iUsers> users, KernelLog log);
    ~CartWorld() override;

    CartStore& Store() { return m_store; }
    FamilyStore& FamilyRows() { return m_familyStore; }
    std::shared_ptr<Database> Db() const { return m_db; }
    const KernelLog& Log() const { return m_log; }
    // Where relative sound file names point, ending in '/'.
    QString SoundFolder() const;
    // Where reports are written as PDF files: <station>/reports/.
    QString ReportsFolder() const;
    // Prints a report in the background on the printer the station's setting "Printer" names,
    // or as a PDF in the reports folder; the log tells where it went or why it failed.
    void PrintReport(const QString& object, const QString& stem, const QString& title, ReportPrinter::Lines lines);
    ReportPrinter& Reports() { return m_reports; }
    // The logged-in user's ID; empty when nobody is logged in.
    QString CurrentUserID() const;

    // The live cart of a valid, normalized ID; read from the catalogue when nobody holds it,
    // a cart of type Unknown when the catalogue has no such ID.
    std::shared_ptr<Cart> LiveCart(const QString& id);
    // The same from a row a family read, without a query.
    std::shared_ptr<Cart> LiveCart(const CartRecord& record);
    // A cart of type Unknown for an ID that cannot be in the catalogue; not a live object.
    std::shared_ptr<Cart> UnknownCart(const QString& id);
    // The cart of a step of a macro or a row of a playlist as stored: null for a blank, the
    // live cart for a cart ID, an Unknown cart (and a warning) for anything else.
    std::shared_ptr<Cart> EntryCart(const QString& id);
    // A cart in memory with no ID.
    std::shared_ptr<Cart> NewCart();

    void SetFamilies(std::weak_ptr<Families> families) { m_families = std::move(families); }
    // The live family of a cart ID; null when there is no such family.
    std::shared_ptr<iFamily> FamilyOf(const QString& cartID) const;

    // A cart was written: other live objects of the ID read it again, and its family hears of
    // it: as new contents when the cart was inserted, as changed properties otherwise.
    void Written(const QString& id, bool inserted, const Cart* writer);
    // A cart was rewritten by a batch that tells its family once at the end: other live
    // objects of the ID read it again.
    void RewrittenInBatch(const QString& id) { ReloadOthers(id, nullptr); }
    // A batch rewrote carts of a family: holders read the family again.
    void FamilyRewritten(const QString& familyID) { Q_EMIT ContentsChanged(familyID); }
    // Every live cart reads its row again; those that changed raise ChangedProperties.
    void RecheckLiveCarts();
    // A cart was deleted.
    void Deleted(const QString& id);

    // Long work writes a family's carts from its own connection: until it releases the hold,
    // the store watcher leaves that family alone, and the work tells the family once at the
    // end. Holds are counted.
    void HoldRechecks(const QString& familyID) { ++m_heldRechecks[familyID]; }
    void ReleaseRechecks(const QString& familyID);
    bool RechecksHeld(const QString& familyID) const { return m_heldRechecks.contains(familyID); }
    // The kernel closes: background work on the catalogue ends, and its threads close their
    // connections, before this returns.
    void Close() { Q_EMIT Closing(); }
    // A cart was renumbered.
    void Moved(const QString& fromID, const QString& toID);

Q_SIGNALS:
    // Carts were added to or removed from the family.
    void ContentsChanged(const QString& familyID);
    // The stored properties of a cart changed.
    void CartChanged(const QString& cartID);
    void CartMoved(const QString& fromID, const QString& toID);
    void Closing();

private:
    std::shared_ptr<Cart> Cached(const QString& id) const;
    void Remember(const std::shared_ptr<Cart>& cart);
    void ReloadOthers(const QString& id, const Cart* writer);

    std::shared_ptr<Database> m_db;
    std::shared_ptr<ConfigStore> m_shared;
    std::shared_ptr<ConfigStore> m_stationStore;
    StationFolder m_station;
    std::shared_ptr<iUsers> m_users;
    KernelLog m_log;
    CartStore m_store;
    FamilyStore m_familyStore;
    std::weak_ptr<Families> m_families;
    QHash<QString, std::weak_ptr<Cart>> m_live;
    QHash<QString, int> m_heldRechecks; // by family ID
    int m_pruneAt = 1024; // the size of m_live at which expired entries are dropped
    // Last: made after the log it writes to, and gone (its reports finished) first.
    ReportPrinter m_reports{m_log};
};
