#include "kernel/PlayListStore.h"
#include "foundation/db/CatalogueSchema.h"
#include "foundation/db/Database.h"
#include "foundation/db/TableInfo.h"
#include "kernel/WriteRule.h"
#include "kernelapi/KernelError.h"
#include <QSqlQuery>

namespace {
const QString Prefix = QStringLiteral("PL");
const QString Columns = QStringLiteral("ID, Name, Description, MacroID, Chained, AutoClose, Modified, NextIndex, Version");

PlayListStore::Header HeaderOf(const QSqlQuery& query)
{
    return {query.value(0).toString(), query.value(1).toString(), query.value(2).toString(), query.value(3).toString(),
            query.value(4).toBool(),   query.value(5).toBool(),   query.value(6).toBool(),   std::max(1, query.value(7).toInt()),
            query.value(8).toLongLong()};
}
}

PlayListStore::PlayListStore(std::shared_ptr<Database> db) : m_db(std::move(db))
{
    if (!m_db->HasTable(QStringLiteral("PlayList")))
        CatalogueSchema::CreateKernelSchema(*m_db);
    else if (m_db->Table(QStringLiteral("PlayList")).IndexOf(QStringLiteral("Version")) < 0)
        AddVersionColumn();
}

void PlayListStore::AddVersionColumn()
{
    try {
        m_db->ExecuteNative(QStringLiteral("ALTER TABLE PlayList ADD COLUMN Version INTEGER DEFAULT 0"));
    } catch (const KernelError& e) {
        throw KernelError(QStringLiteral("The playlist table of this station has no Version column and it cannot be added "
                                         "(the station's owner can add it with korvane-station): %1")
                              .arg(e.Description()));
    }
}

std::vector<PlayListStore::Header> PlayListStore::ReadAll() const
{
    QSqlQuery query = m_db->Query(QStringLiteral("SELECT %1 FROM PlayList ORDER BY ID").arg(Columns));
    std::vector<Header> headers;
    while (query.next())
        headers.push_back(HeaderOf(query));
    return headers;
}

std::optional<PlayListStore::Header> PlayListStore::Read(const QString& id) const
{
    QSqlQuery query = m_db->Query(QStringLiteral("SELECT %1 FROM PlayList WHERE ID = ?").arg(Columns), {id});
    if (!query.next())
        return std::nullopt;
    return HeaderOf(query);
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

void PlayListStore::Create(Header& h, const std::vector<Row>& rows)
{
    const QString table = QStringLiteral("PlayList");
    m_db->Transaction([&] {
        m_db->Query(QStringLiteral("INSERT INTO PlayList (ID, Name, Description, MacroID, Chained, AutoClose, Modified, "
                                   "NextIndex, Version) VALUES (?, ?, ?, ?, ?, ?, ?, ?, 0)"),
                    {h.id, WriteRule::Fit(*m_db, table, QStringLiteral("Name"), h.name),
                     WriteRule::Fit(*m_db, table, QStringLiteral("Description"), h.description), h.macroID, h.chained,
                     h.autoClose, h.modified, h.nextIndex});
        WriteRows(h, rows);
    });
    h.version = 0;
}

void PlayListStore::Write(Header& header)
{
    Header written = header;
    m_db->Transaction([&] {
        written.version = header.version;
        UpdateHeader(written);
    });
    header.version = written.version;
}

void PlayListStore::Write(Header& header, const std::vector<Row>& rows)
{
    Header written = header;
    m_db->Transaction([&] {
        written.version = header.version; // a transaction that runs again starts over
        UpdateHeader(written);
        WriteRows(written, rows);
    });
    header.version = written.version;
}

void PlayListStore::UpdateHeader(Header& h)
{
    const QString table = QStringLiteral("PlayList");
    QSqlQuery update = m_db->Query(QStringLiteral("UPDATE PlayList SET Name = ?, Description = ?, MacroID = ?, Chained = ?, "
                                                  "AutoClose = ?, Modified = ?, NextIndex = ?, Version = ? "
                                                  "WHERE ID = ? AND Version = ?"),
                                   {WriteRule::Fit(*m_db, table, QStringLiteral("Name"), h.name),
                                    WriteRule::Fit(*m_db, table, QStringLiteral("Description"), h.description), h.macroID,
                                    h.chained, h.autoClose, h.modified, h.nextIndex, h.version + 1, h.id, h.version});
    if (update.numRowsAffected() == 0)
        Refuse(h.id);
    ++h.version;
}

void PlayListStore::WriteRows(const Header& header, const std::vector<Row>& rows)
{
    m_db->Query(QStringLiteral("DELETE FROM PlayListItem WHERE PlayListID = ?"), {header.id});
    for (size_t i = 0; i < rows.size(); ++i) {
        const Row& row = rows[i];
        m_db->Query(QStringLiteral("INSERT INTO PlayListItem (PlayListID, [Index], CartID, Ignored, Looped, Modified, "
                                   "Properties) VALUES (?, ?, ?, ?, ?, ?, ?)"),
                    {header.id, int(i + 1), row.cartID, row.ignored, row.looped, row.modified, row.properties});
    }
}

void PlayListStore::WriteNextIndex(const Header& header)
{
    QSqlQuery update = m_db->Query(QStringLiteral("UPDATE PlayList SET NextIndex = ? WHERE ID = ?"), {header.nextIndex, header.id});
    if (update.numRowsAffected() == 0)
        throw Gone{};
}

// Tells a newer version from a deleted list.
void PlayListStore::Refuse(const QString& id) const
{
    const std::optional<Header> stored = Read(id);
    if (!stored)
        throw Gone{};
    throw Conflict{stored->version};
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
