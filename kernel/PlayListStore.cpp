#include "kernel/PlayListStore.h"
#include "foundation/db/CatalogueSchema.h"
#include "foundation/db/Database.h"
#include "kernel/WriteRule.h"
#include <QSqlQuery>

namespace {
const QString Prefix = QStringLiteral("PL");
}

PlayListStore::PlayListStore(std::shared_ptr<Database> db) : m_db(std::move(db))
{
    if (!m_db->HasTable(QStringLiteral("PlayList")))
        CatalogueSchema::CreateKernelSchema(*m_db);
}

std::vector<PlayListStore::Header> PlayListStore::ReadAll() const
{
    QSqlQuery query = m_db->Query(QStringLiteral(
        "SELECT ID, Name, Description, MacroID, Chained, AutoClose, Modified, NextIndex FROM PlayList ORDER BY ID"));
    std::vector<Header> headers;
    while (query.next()) {
        headers.push_back({query.value(0).toString(), query.value(1).toString(), query.value(2).toString(),
                           query.value(3).toString(), query.value(4).toBool(), query.value(5).toBool(),
                           query.value(6).toBool(), std::max(1, query.value(7).toInt())});
    }
    return headers;
}

std::vector<PlayListStore::Row> PlayListStore::ReadRows(const QString& id) const
{
    QSqlQuery query = m_db->Query(QStringLiteral("SELECT CartID, Ignored, Looped, Modified, Properties FROM PlayListItem "
                                                 "WHERE PlayListID = ? ORDER BY [Index]"),
                                  {id});
    std::vector<Row> rows;
    while (query.next()) {
        rows.push_back({query.value(0).toString(), query.value(1).toBool(), query.value(2).toBool(),
                        query.value(3).toBool(), query.value(4).toString()});
    }
    return rows;
}

void PlayListStore::Write(const Header& header)
{
    m_db->Transaction([&] { WriteHeader(header); });
}

void PlayListStore::Write(const Header& header, const std::vector<Row>& rows)
{
    m_db->Transaction([&] {
        WriteHeader(header);
        m_db->Query(QStringLiteral("DELETE FROM PlayListItem WHERE PlayListID = ?"), {header.id});
        for (size_t i = 0; i < rows.size(); ++i) {
            const Row& row = rows[i];
            m_db->Query(QStringLiteral("INSERT INTO PlayListItem (PlayListID, [Index], CartID, Ignored, Looped, Modified, "
                                       "Properties) VALUES (?, ?, ?, ?, ?, ?, ?)"),
                        {header.id, int(i + 1), row.cartID, row.ignored, row.looped, row.modified, row.properties});
        }
    });
}

void PlayListStore::WriteHeader(const Header& h)
{
    const QString table = QStringLiteral("PlayList");
    const QVariantList values{WriteRule::Fit(*m_db, table, QStringLiteral("Name"), h.name),
                              WriteRule::Fit(*m_db, table, QStringLiteral("Description"), h.description),
                              h.macroID, h.chained, h.autoClose, h.modified, h.nextIndex, h.id};
    QSqlQuery update = m_db->Query(QStringLiteral("UPDATE PlayList SET Name = ?, Description = ?, MacroID = ?, Chained = ?, "
                                                  "AutoClose = ?, Modified = ?, NextIndex = ? WHERE ID = ?"),
                                   values);
    if (update.numRowsAffected() == 0) {
        m_db->Query(QStringLiteral("INSERT INTO PlayList (Name, Description, MacroID, Chained, AutoClose, Modified, "
                                   "NextIndex, ID) VALUES (?, ?, ?, ?, ?, ?, ?, ?)"),
                    values);
    }
}

void PlayListStore::Remove(const QString& id)
{
    m_db->Transaction([&] {
        m_db->Query(QStringLiteral("DELETE FROM PlayListItem WHERE PlayListID = ?"), {id});
        m_db->Query(QStringLiteral("DELETE FROM PlayList WHERE ID = ?"), {id});
    });
}

QString PlayListStore::NewID() const
{
    int highest = 0;
    QSqlQuery query = m_db->Query(QStringLiteral("SELECT ID FROM PlayList"));
    while (query.next()) {
        const QString id = query.value(0).toString();
        if (id.startsWith(Prefix, Qt::CaseInsensitive))
            highest = std::max(highest, id.mid(Prefix.size()).toInt());
    }
    return Prefix + QStringLiteral("%1").arg(highest + 1, 4, 10, QLatin1Char('0'));
}
