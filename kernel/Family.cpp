#include "kernel/Family.h"
#include "foundation/Strings.h"
#include "kernel/Cart.h"
#include "kernel/CartID.h"
#include "kernel/CartWorld.h"
#include "kernel/FamilyRecalculation.h"
#include "kernel/FamilySlots.h"
#include "kernelapi/KernelError.h"
#include <algorithm>

namespace {
const QString Object = QStringLiteral("iFamily");

QString YesNo(bool value)
{
    return value ? QStringLiteral("yes") : QStringLiteral("no");
}

// The tag of a cart's type in a printed list.
QString Tag(CartType type)
{
    const QString letter = CartStore::Letter(type);
    return letter.isEmpty() ? QStringLiteral(" ? ") : u' ' + letter + u' ';
}
}

Family::Family(std::shared_ptr<CartWorld> world, const FamilyStore::Row& row, QObject* parent)
    : iFamily(parent), m_world(std::move(world)), m_row(row)
{
}

bool Family::EveryBody() const
{
    return m_row.everyBody || EveryBodyWrite();
}

bool Family::EveryBodyWrite() const
{
    return m_world->FamilyRows().EveryBodyWrite(m_row.id);
}

bool Family::MayRead(const QString& userID) const
{
    return RightOf(userID) != FamilyStore::Right::None;
}

bool Family::MayWrite(const QString& userID) const
{
    return RightOf(userID) == FamilyStore::Right::Write;
}

FamilyStore::Right Family::RightOf(const QString& userID) const
{
    const QString user = userID.trimmed().isEmpty() ? m_world->CurrentUserID() : userID.trimmed();
    return user.isEmpty() ? FamilyStore::Right::None : m_world->FamilyRows().RightOf(user, m_row.id);
}

int Family::Count() const
{
    if (!m_read) {
        m_count = m_world->Store().CountFamily(m_row.id);
        m_read = true;
    }
    return m_complete ? int(m_records.size()) : m_count;
}

std::shared_ptr<iCart> Family::Item(int index) const
{
    if (index >= 1 && index <= Count())
        ReadUpTo(index);
    if (index < 1 || index > int(m_records.size()))
        throw KernelError(QStringLiteral("Family %1 has no cart %2 (it has %3)").arg(m_row.id).arg(index).arg(Count()));
    return m_world->LiveCart(m_records[size_t(index - 1)]);
}

const std::vector<CartRecord>& Family::Records() const
{
    if (!m_complete) {
        m_records = m_world->Store().ReadFamily(m_row.id);
        m_read = m_complete = true;
    }
    return m_records;
}

void Family::ReadUpTo(int wanted) const
{
    while (!m_complete && int(m_records.size()) < wanted) {
        const QString after = m_records.empty() ? m_row.id : m_records.back().id;
        std::vector<CartRecord> page = m_world->Store().ReadFamilyPage(m_row.id, after, PageSize);
        m_complete = int(page.size()) < PageSize;
        m_records.insert(m_records.end(), std::make_move_iterator(page.begin()), std::make_move_iterator(page.end()));
    }
}

void Family::Forget()
{
    m_records.clear();
    m_read = m_complete = false;
}

QBitArray Family::Occupied() const
{
    QBitArray occupied(CartID::Slots);
    for (const CartRecord& record : Records())
        occupied.setBit(CartID::NumberOf(record.id));
    return occupied;
}

std::shared_ptr<iFamilySlots> Family::Slots() const
{
    return std::make_shared<FamilySlots>(m_row.id, Occupied());
}

QList<int> Family::FreeSlots(const QString& cartID, int mode) const
{
    const QBitArray occupied = Occupied();
    switch (mode) {
    case 0:
        return Nearest(std::max(0, CartID::NumberOf(cartID)), occupied);
    case 1:
        return FreeFrom(0, occupied);
    case 2:
        return FreeFrom(Records().empty() ? 0 : CartID::NumberOf(Records().back().id) + 1, occupied);
    default:
        throw KernelError(QStringLiteral("FreeSlots has no mode %1").arg(mode));
    }
}

// Up to half of the wanted numbers below the cart's number, the rest from the number up.
QList<int> Family::Nearest(int number, const QBitArray& occupied) const
{
    QList<int> below;
    for (int n = number - 1; n >= 0 && below.size() < FreeSlotsWanted / 2; --n) {
        if (!occupied.testBit(n))
            below.prepend(n);
    }
    QList<int> slots = below;
    for (int n = number; n < CartID::Slots && slots.size() < FreeSlotsWanted; ++n) {
        if (!occupied.testBit(n))
            slots.append(n);
    }
    return slots;
}

QList<int> Family::FreeFrom(int first, const QBitArray& occupied) const
{
    QList<int> slots;
    for (int n = first; n < CartID::Slots && slots.size() < FreeSlotsWanted; ++n) {
        if (!occupied.testBit(n))
            slots.append(n);
    }
    return slots;
}

bool Family::Reload(const QString& familyID)
{
    const QString id = familyID.trimmed().isEmpty() ? m_row.id : CartID::Normalized(familyID);
    if (id != m_row.id) {
        m_world->Log().Warn(Object, QStringLiteral("Reload"), QStringLiteral("Family %1 cannot become family %2").arg(m_row.id, id));
        return false;
    }
    const std::optional<FamilyStore::Row> row = m_world->FamilyRows().Read(id);
    if (!row)
        return false;
    m_row = *row;
    ContentsChanged();
    return true;
}

void Family::Refresh()
{
    if (const std::optional<FamilyStore::Row> row = m_world->FamilyRows().Read(m_row.id))
        m_row = *row;
    ContentsChanged();
}

void Family::Recheck()
{
    if (!m_read)
        return;
    std::vector<CartRecord> stored = m_world->Store().ReadFamily(m_row.id);
    if (SameAsStored(stored))
        return;
    m_records = std::move(stored);
    m_complete = true;
    Q_EMIT ChangedContents();
}

// What was read (all of it, or a first part and the count) still stands in the store.
bool Family::SameAsStored(const std::vector<CartRecord>& stored) const
{
    if (m_complete)
        return stored == m_records;
    return int(stored.size()) == m_count && stored.size() >= m_records.size() &&
           std::equal(m_records.begin(), m_records.end(), stored.begin());
}

void Family::ContentsChanged()
{
    Forget();
    Q_EMIT ChangedContents();
}

void Family::CartChanged(const QString& cartID)
{
    if (m_read) {
        const auto found = std::lower_bound(m_records.begin(), m_records.end(), cartID,
                                            [](const CartRecord& record, const QString& id) { return record.id < id; });
        const std::optional<CartRecord> record = m_world->Store().Read(cartID);
        if (found != m_records.end() && found->id == cartID && record)
            *found = *record;
        else if (m_complete || found != m_records.end())
            Forget();
    }
    Q_EMIT SlightlyChangedContents();
}

std::shared_ptr<iRecalculation> Family::Recalculate(bool accurate)
{
    return FamilyRecalculation::Create(m_world, m_row.id, accurate);
}

void Family::Clear()
{
    Q_EMIT QueryClear();
}

// The header is made here; the list of carts, which may be long, is written out by the
// printing thread from a copy of the rows.
void Family::Print(bool header, bool contents)
{
    QStringList head = header ? HeaderLines() : QStringList();
    std::vector<CartRecord> records = contents ? Records() : std::vector<CartRecord>();
    m_world->PrintReport(Object, QStringLiteral("family-") + m_row.id, QStringLiteral("Family ") + m_row.id,
                         [head = std::move(head), records = std::move(records)] {
                             QStringList lines = head;
                             lines.reserve(lines.size() + qsizetype(records.size()));
                             for (const CartRecord& record : records)
                                 lines << QStringLiteral("%1 %2 %3  %4").arg(record.id, Tag(record.type), MsToClock(record.time), record.description);
                             return lines;
                         });
}

QStringList Family::HeaderLines() const
{
    qint64 total = 0;
    for (const CartRecord& record : Records())
        total += record.time;
    return {QStringLiteral("Description: ") + m_row.description, QStringLiteral("EveryBody (R): ") + YesNo(EveryBody()),
            QStringLiteral("EveryBody (R/W): ") + YesNo(EveryBodyWrite()), QStringLiteral("Carts: ") + QString::number(Records().size()),
            QStringLiteral("Total time: ") + MsToClock(qint32(std::min<qint64>(total, INT32_MAX))), QString()};
}
