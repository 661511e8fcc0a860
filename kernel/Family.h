#pragma once
#include "kernel/CartRecord.h"
#include "kernel/FamilyStore.h"
#include "kernelapi/iFamily.h"
#include <QBitArray>
#include <optional>
#include <vector>

class CartWorld;

// One family over its Familia row and the carts of its ID range. The carts are read with one
// query the first time they are needed and kept as rows; a cart object is made only when an
// item is asked for. Rights come from the user's groups (RGrup and RFamilia) and are read at
// each question, since the administration screens change them.
//
// FreeSlots modes: 0 the nearest free numbers on each side of the cart's number (the number
// itself when free), 1 the first free numbers of the family, 2 the numbers after its highest
// occupied one; each gives at most FreeSlotsWanted numbers, ascending.
class Family : public iFamily
{
    Q_OBJECT
public:
    static constexpr int FreeSlotsWanted = 10;
    static constexpr int PageSize = 1000;

    Family(std::shared_ptr<CartWorld> world, const FamilyStore::Row& row, QObject* parent = nullptr);

    QString ID() const override { return m_row.id; }
    QString Description() const override { return m_row.description; }
    bool EveryBody() const override;
    bool EveryBodyWrite() const override;
    std::shared_ptr<iFamilySlots> Slots() const override;
    QList<int> FreeSlots(const QString& cartID, int mode) const override;
    void Print(bool header, bool contents) override;
    bool Reload(const QString& familyID) override;
    void Refresh() override;
    bool MayRead(const QString& userID) const override;
    bool MayWrite(const QString& userID) const override;
    int Count() const override;
    std::shared_ptr<iCart> Item(int index) const override;
    std::shared_ptr<iRecalculation> Recalculate(bool accurate) override;

    const FamilyStore::Row& Row() const { return m_row; }
    void SetRow(const FamilyStore::Row& row) { m_row = row; }
    // Compares the carts already read with the store: when another workstation changed them,
    // takes the new rows and raises ChangedContents. Carts not read yet are left to be read.
    void Recheck();
    // Carts came or went: the rows are read again on next use; raises ChangedContents.
    void ContentsChanged();
    // A cart's stored properties changed: its row is read again; raises SlightlyChangedContents.
    void CartChanged(const QString& cartID);
    // The family goes away; raises QueryClear.
    void Clear();

private:
    // Every cart of the family, read whole.
    const std::vector<CartRecord>& Records() const;
    // Reads pages of carts until the first `wanted` are there (or the family ends).
    void ReadUpTo(int wanted) const;
    // Drops what was read: the next question reads again.
    void Forget();
    bool SameAsStored(const std::vector<CartRecord>& stored) const;
    QBitArray Occupied() const;
    FamilyStore::Right RightOf(const QString& userID) const;
    QList<int> Nearest(int number, const QBitArray& occupied) const;
    QList<int> FreeFrom(int first, const QBitArray& occupied) const;
    // The report's header: description, rights, number of carts and their total time.
    QStringList HeaderLines() const;

    std::shared_ptr<CartWorld> m_world;
    FamilyStore::Row m_row;
    // The carts read so far, in ID order. A browser walks a family item by item, so the rows are
    // read a page at a time and a count is asked for first: no single read of a full family
    // holds the event loop for long.
    mutable std::vector<CartRecord> m_records;
    mutable bool m_read = false;     // the count or some rows were read
    mutable bool m_complete = false; // m_records holds every cart
    mutable int m_count = 0;
};
