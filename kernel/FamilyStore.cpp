#include "kernel/FamilyStore.h"
#include "foundation/db/Database.h"
#include "kernel/WriteRule.h"
#include <QSqlQuery>

const QString FamilyStore::EveryBodyGroup = QStringLiteral("EVERYBODY");

namespace {
FamilyStore::Row RowOf(const QSqlQuery& query)
{
    return {query.value(0).toString().trimmed().toUpper(), query.value(1).toString(), query.value(2).toBool()};
}
}

FamilyStore::FamilyStore(std::shared_ptr<Database> db) : m_db(std::move(db)) {}

std::vector<FamilyStore::Row> FamilyStore::ReadAll() const
{
    QSqlQuery query = m_db->Query(QStringLiteral("SELECT ID, Descripcio, Tothom FROM Familia ORDER BY ID"));
    std::vector<Row> rows;
    while (query.next())
        rows.push_back(RowOf(query));
    return rows;
}

std::optional<FamilyStore::Row> FamilyStore::Read(const QString& familyID) const
{
    QSqlQuery query = m_db->Query(QStringLiteral("SELECT ID, Descripcio, Tothom FROM Familia WHERE ID = ?"), {familyID});
    if (!query.next())
        return std::nullopt;
    return RowOf(query);
}

void FamilyStore::Add(const Row& row, const QString& ownerGroup)
{
    m_db->Query(QStringLiteral("INSERT INTO Familia (ID, Descripcio, Tothom) VALUES (?, ?, ?)"),
                {row.id, WriteRule::Fit(*m_db, QStringLiteral("Familia"), QStringLiteral("Descripcio"), row.description), row.everyBody});
    if (!ownerGroup.isEmpty())
        m_db->Query(QStringLiteral("INSERT INTO RFamilia (GrupID, familia, [Write]) VALUES (?, ?, ?)"),
                    {ownerGroup, row.id, true});
}

void FamilyStore::Remove(const QString& familyID)
{
    m_db->Query(QStringLiteral("DELETE FROM RFamilia WHERE familia = ?"), {familyID});
    m_db->Query(QStringLiteral("DELETE FROM Familia WHERE ID = ?"), {familyID});
}

bool FamilyStore::GroupExists(const QString& groupID) const
{
    return m_db->Query(QStringLiteral("SELECT ID FROM Grup WHERE ID = ?"), {groupID}).next();
}

FamilyStore::Right FamilyStore::RightOf(const QString& userID, const QString& familyID) const
{
    QSqlQuery query = m_db->Query(QStringLiteral("SELECT RFamilia.[Write] FROM RFamilia INNER JOIN RGrup ON "
                                                 "RGrup.GrupID = RFamilia.GrupID WHERE RGrup.UserID = ? AND "
                                                 "RFamilia.familia = ?"),
                                  {userID, familyID});
    Right right = Right::None;
    while (query.next() && right != Right::Write)
        right = query.value(0).toBool() ? Right::Write : Right::Read;
    return right;
}

bool FamilyStore::EveryBodyWrite(const QString& familyID) const
{
    QSqlQuery query = m_db->Query(QStringLiteral("SELECT [Write] FROM RFamilia WHERE GrupID = ? AND familia = ?"),
                                  {EveryBodyGroup, familyID});
    while (query.next()) {
        if (query.value(0).toBool())
            return true;
    }
    return false;
}
