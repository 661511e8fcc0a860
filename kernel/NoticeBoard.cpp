#include "kernel/NoticeBoard.h"
#include "foundation/db/CatalogueSchema.h"
#include "foundation/db/Database.h"
#include "kernel/WriteRule.h"
#include <QDateTime>
#include <QSqlQuery>

namespace {
const QString Table = QStringLiteral("Notice");
}

NoticeBoard::NoticeBoard(std::shared_ptr<Database> db) : m_db(std::move(db))
{
    if (Ready())
        m_seen = LastID();
}

bool NoticeBoard::Ready()
{
    if (!m_ready)
        m_ready = m_db->HasTable(Table);
    return m_ready;
}

qint64 NoticeBoard::LastID()
{
    QSqlQuery last = m_db->Query(QStringLiteral("SELECT MAX(ID) FROM Notice"));
    return last.next() ? last.value(0).toLongLong() : 0;
}

void NoticeBoard::Post(const Notice& notice)
{
    if (!Ready()) {
        CatalogueSchema::CreateKernelSchema(*m_db);
        m_ready = true;
    }
    const QDateTime now = QDateTime::currentDateTime();
    m_db->Transaction([&] {
        m_db->Query(QStringLiteral("DELETE FROM Notice WHERE Sent < ?"), {now.addDays(-1)});
        m_db->Query(QStringLiteral("INSERT INTO Notice (Station, UserName, [Text], Sent) VALUES (?, ?, ?, ?)"),
                    {WriteRule::Fit(*m_db, Table, QStringLiteral("Station"), notice.station),
                     WriteRule::Fit(*m_db, Table, QStringLiteral("UserName"), notice.user),
                     WriteRule::Fit(*m_db, Table, QStringLiteral("Text"), notice.text), now});
    });
}

std::vector<NoticeBoard::Notice> NoticeBoard::Collect()
{
    std::vector<Notice> notices;
    if (!Ready())
        return notices;
    QSqlQuery rows = m_db->Query(QStringLiteral("SELECT ID, Station, UserName, [Text] FROM Notice WHERE ID > ? ORDER BY ID"), {m_seen});
    while (rows.next()) {
        m_seen = rows.value(0).toLongLong();
        notices.push_back({rows.value(1).toString(), rows.value(2).toString(), rows.value(3).toString()});
    }
    return notices;
}
