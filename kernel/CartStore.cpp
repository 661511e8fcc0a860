#include "kernel/CartStore.h"
#include "foundation/db/CatalogueSchema.h"
#include "foundation/db/Database.h"
#include "kernel/CartID.h"
#include "kernel/WriteRule.h"
#include <QSqlQuery>

namespace {
const QString PropertiesTable = QStringLiteral("CartProperties");

const QString CartColumns = QStringLiteral(
    "SELECT Cart.ID, Cart.Descripcio, Cart.Comentari, Cart.Type, Cart.StartDate, Cart.StopDate, Cart.Time, "
    "Sound.ID, Sound.Start, Sound.Stop, Sound.StartMark, Sound.StopMark FROM Cart LEFT JOIN Sound ON Sound.ID = Cart.ID ");

struct Letter
{
    CartType type;
    const char* letter;
};

const Letter Letters[] = {{CartType::Sound, "S"}, {CartType::Macro, "M"},    {CartType::Control, "C"},
                          {CartType::Reserved, "R"}, {CartType::Separator, "X"}};

// A stored date: the driver's date, or ISO text with 'T' or a blank before the time.
QDateTime DateOf(const QVariant& value)
{
    if (value.isNull())
        return {};
    if (value.typeId() == QMetaType::QDateTime)
        return value.toDateTime();
    QString text = value.toString();
    if (text.size() > 10 && text[10] == u' ')
        text[10] = u'T';
    return QDateTime::fromString(text, Qt::ISODateWithMs);
}

QVariant DateValue(const QDateTime& date)
{
    return date.isValid() ? QVariant(date) : QVariant(QMetaType(QMetaType::QDateTime));
}

CartRecord RecordOf(const QSqlQuery& query)
{
    CartRecord record;
    record.id = query.value(0).toString().toUpper();
    record.description = query.value(1).toString();
    record.comment = query.value(2).toString();
    record.type = CartStore::TypeOf(query.value(3).toString());
    record.startDate = DateOf(query.value(4));
    record.stopDate = DateOf(query.value(5));
    record.time = query.value(6).toInt();
    record.hasSound = !query.value(7).isNull();
    record.soundStart = query.value(8).toInt();
    record.soundStop = query.value(9).toInt();
    record.startMark = query.value(10).toInt();
    record.stopMark = query.value(11).toInt();
    return record;
}
}

CartStore::CartStore(std::shared_ptr<Database> db) : m_db(std::move(db)) {}

QString CartStore::Letter(CartType type)
{
    for (const auto& entry : Letters) {
        if (entry.type == type)
            return QString::fromLatin1(entry.letter);
    }
    return {};
}

CartType CartStore::TypeOf(const QString& letter)
{
    const QString text = letter.trimmed().toUpper();
    for (const auto& entry : Letters) {
        if (text == QLatin1String(entry.letter))
            return entry.type;
    }
    return CartType::Unknown;
}

std::optional<CartRecord> CartStore::Read(const QString& id) const
{
    QSqlQuery query = m_db->Query(CartColumns + QStringLiteral("WHERE Cart.ID = ?"), {id});
    if (!query.next())
        return std::nullopt;
    return RecordOf(query);
}

std::vector<CartRecord> CartStore::ReadFamily(const QString& familyID) const
{
    // A range of the key finds the family through the index, on either engine.
    return Records(m_db->Query(CartColumns + QStringLiteral("WHERE Cart.ID >= ? AND Cart.ID <= ? ORDER BY Cart.ID"),
                               {CartID::Make(familyID, 0), CartID::Make(familyID, CartID::Slots - 1)}));
}

std::vector<CartRecord> CartStore::ReadFamilyPage(const QString& familyID, const QString& after, int limit) const
{
    return Records(m_db->Query(CartColumns + QStringLiteral("WHERE Cart.ID > ? AND Cart.ID <= ? ORDER BY Cart.ID LIMIT ") +
                                   QString::number(limit),
                               {after, CartID::Make(familyID, CartID::Slots - 1)}));
}

int CartStore::CountFamily(const QString& familyID) const
{
    QSqlQuery query = m_db->Query(QStringLiteral("SELECT COUNT(*) FROM Cart WHERE ID >= ? AND ID <= ?"),
                                  {CartID::Make(familyID, 0), CartID::Make(familyID, CartID::Slots - 1)});
    return query.next() ? query.value(0).toInt() : 0;
}

std::vector<CartRecord> CartStore::Records(QSqlQuery query)
{
    std::vector<CartRecord> records;
    while (query.next()) {
        CartRecord record = RecordOf(query);
        if (CartID::IsValid(record.id))
            records.push_back(std::move(record));
    }
    return records;
}

bool CartStore::Exists(const QString& id) const
{
    return m_db->Query(QStringLiteral("SELECT ID FROM Cart WHERE ID = ?"), {id}).next();
}

bool CartStore::Write(const CartRecord& r)
{
    const QVariantList values{WriteRule::Fit(*m_db, "Cart", "Descripcio", r.description),
                              WriteRule::Fit(*m_db, "Cart", "Comentari", r.comment),
                              Letter(r.type), DateValue(r.startDate), DateValue(r.stopDate), r.time};
    const bool inserted = !Exists(r.id);
    if (inserted) {
        m_db->Query(QStringLiteral("INSERT INTO Cart (Descripcio, Comentari, Type, StartDate, StopDate, Time, ID) "
                                   "VALUES (?, ?, ?, ?, ?, ?, ?)"),
                    values + QVariantList{r.id});
    } else {
        m_db->Query(QStringLiteral("UPDATE Cart SET Descripcio = ?, Comentari = ?, Type = ?, StartDate = ?, "
                                   "StopDate = ?, Time = ? WHERE ID = ?"),
                    values + QVariantList{r.id});
    }
    if (r.type != CartType::Sound)
        m_db->Query(QStringLiteral("DELETE FROM Sound WHERE ID = ?"), {r.id});
    if (r.type != CartType::Macro)
        m_db->Query(QStringLiteral("DELETE FROM RMacro WHERE MacroID = ?"), {r.id});
    return inserted;
}

void CartStore::SetTime(const QString& id, qint32 ms)
{
    m_db->Query(QStringLiteral("UPDATE Cart SET Time = ? WHERE ID = ?"), {ms, id});
}

void CartStore::Delete(const QString& id)
{
    if (m_db->HasTable(PropertiesTable))
        m_db->Query(QStringLiteral("DELETE FROM CartProperties WHERE ID = ?"), {id});
    m_db->Query(QStringLiteral("DELETE FROM RMacro WHERE MacroID = ?"), {id});
    m_db->Query(QStringLiteral("DELETE FROM Cart WHERE ID = ?"), {id});
}

void CartStore::Copy(const QString& sourceID, const QString& destinationID, const QString& fileName)
{
    std::optional<CartRecord> record = Read(sourceID);
    if (!record)
        return;
    record->id = destinationID;
    Write(*record);
    QVariantList sound = SoundRow(sourceID);
    if (!sound.isEmpty()) {
        sound[0] = destinationID;
        sound[1] = fileName;
        m_db->Query(QStringLiteral("INSERT INTO Sound (ID, Filename, Start, Stop, StartMark, StopMark, ClientID) "
                                   "VALUES (?, ?, ?, ?, ?, ?, ?)"),
                    sound);
    }
    if (record->type == CartType::Macro)
        WriteSteps(destinationID, Steps(sourceID));
    const QString properties = ReadProperties(sourceID);
    if (!properties.isEmpty())
        WriteProperties(destinationID, properties);
}

void CartStore::Move(const QString& sourceID, const QString& destinationID)
{
    const QVariantList binds{destinationID, sourceID};
    m_db->Query(QStringLiteral("UPDATE Cart SET ID = ? WHERE ID = ?"), binds);
    m_db->Query(QStringLiteral("UPDATE Sound SET ID = ? WHERE ID = ?"), binds);
    m_db->Query(QStringLiteral("UPDATE RMacro SET MacroID = ? WHERE MacroID = ?"), binds);
    m_db->Query(QStringLiteral("UPDATE RMacro SET SoundID = ? WHERE SoundID = ?"), binds);
    // The backup of the sound's marks goes with the sound.
    if (m_db->HasTable(QStringLiteral("SoundBackup")))
        m_db->Query(QStringLiteral("UPDATE SoundBackup SET ID = ? WHERE ID = ?"), binds);
    if (m_db->HasTable(PropertiesTable))
        m_db->Query(QStringLiteral("UPDATE CartProperties SET ID = ? WHERE ID = ?"), binds);
}

QString CartStore::ReadProperties(const QString& id) const
{
    if (!m_db->HasTable(PropertiesTable))
        return {};
    QSqlQuery query = m_db->Query(QStringLiteral("SELECT Properties FROM CartProperties WHERE ID = ?"), {id});
    return query.next() ? query.value(0).toString() : QString();
}

void CartStore::WriteProperties(const QString& id, const QString& text)
{
    // A station made before carts kept their properties gets the table on first use.
    if (!m_db->HasTable(PropertiesTable))
        CatalogueSchema::CreateKernelSchema(*m_db);
    m_db->Query(QStringLiteral("DELETE FROM CartProperties WHERE ID = ?"), {id});
    m_db->Query(QStringLiteral("INSERT INTO CartProperties (ID, Properties) VALUES (?, ?)"), {id, text});
}

bool CartStore::HasSound(const QString& id) const
{
    return m_db->Query(QStringLiteral("SELECT ID FROM Sound WHERE ID = ?"), {id}).next();
}

QString CartStore::FileNameOf(const QString& id) const
{
    QSqlQuery query = m_db->Query(QStringLiteral("SELECT Filename FROM Sound WHERE ID = ?"), {id});
    return query.next() ? query.value(0).toString() : QString();
}

int CartStore::FileUsers(const QString& fileName) const
{
    QSqlQuery query = m_db->Query(QStringLiteral("SELECT COUNT(*) FROM Sound WHERE Filename = ?"), {fileName});
    return query.next() ? query.value(0).toInt() : 0;
}

QStringList CartStore::Steps(const QString& macroID) const
{
    QSqlQuery query = m_db->Query(QStringLiteral("SELECT SoundID FROM RMacro WHERE MacroID = ? ORDER BY [Index]"), {macroID});
    QStringList steps;
    while (query.next())
        steps << query.value(0).toString().trimmed().toUpper();
    return steps;
}

void CartStore::WriteSteps(const QString& macroID, const QStringList& cartIDs)
{
    m_db->Query(QStringLiteral("DELETE FROM RMacro WHERE MacroID = ?"), {macroID});
    for (int i = 0; i < cartIDs.size(); ++i) {
        const QVariant step = cartIDs[i].isEmpty() ? QVariant(QMetaType(QMetaType::QString)) : QVariant(cartIDs[i]);
        m_db->Query(QStringLiteral("INSERT INTO RMacro (MacroID, [Index], SoundID) VALUES (?, ?, ?)"),
                    {macroID, i + 1, step});
    }
}

QVariantList CartStore::SoundRow(const QString& id) const
{
    QSqlQuery query = m_db->Query(
        QStringLiteral("SELECT ID, Filename, Start, Stop, StartMark, StopMark, ClientID FROM Sound WHERE ID = ?"), {id});
    QVariantList row;
    if (query.next()) {
        for (int i = 0; i < 7; ++i)
            row << query.value(i);
    }
    return row;
}
