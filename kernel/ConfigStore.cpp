#include "kernel/ConfigStore.h"
#include "foundation/db/Database.h"
#include <QSqlQuery>

std::shared_ptr<ConfigStore> ConfigStore::Shared(std::shared_ptr<Database> db)
{
    return std::shared_ptr<ConfigStore>(new ConfigStore(std::move(db), QStringLiteral("Config"), QString()));
}

std::shared_ptr<ConfigStore> ConfigStore::ForStation(std::shared_ptr<Database> db, const QString& stationID)
{
    // A station without an ID still has a store of its own, under the empty ID.
    const QString station = stationID.isNull() ? QStringLiteral("") : stationID;
    return std::shared_ptr<ConfigStore>(new ConfigStore(std::move(db), QStringLiteral("StationConfig"), station));
}

ConfigStore::ConfigStore(std::shared_ptr<Database> db, const QString& table, const QString& stationID)
    : m_db(std::move(db)), m_table(table), m_station(stationID)
{
    Reload();
}

QVariant ConfigStore::Value(const QString& key) const
{
    return m_values.value(key, QStringLiteral(""));
}

void ConfigStore::SetValue(const QString& key, const QVariant& value)
{
    const QString text = value.isNull() ? QStringLiteral("") : value.toString();
    m_db->Transaction([&] {
        QVariantList binds{text};
        binds += KeyBinds(key);
        const QSqlQuery update = m_db->Query(QStringLiteral("UPDATE %1 SET Value = ? WHERE %2").arg(m_table, Condition()), binds);
        if (update.numRowsAffected() < 1)
            Insert(key, text);
    });
    m_values.insert(key, text);
}

void ConfigStore::Reload()
{
    QString sql = QStringLiteral("SELECT ID, Value FROM ") + m_table;
    QVariantList binds;
    if (!m_station.isNull()) {
        sql += QStringLiteral(" WHERE Station = ?");
        binds << m_station;
    }
    QSqlQuery query = m_db->Query(sql, binds);
    QHash<QString, QString> values;
    while (query.next())
        values.insert(query.value(0).toString(), query.value(1).toString());
    m_values.swap(values);
}

QString ConfigStore::Condition() const
{
    return m_station.isNull() ? QStringLiteral("ID = ?") : QStringLiteral("Station = ? AND ID = ?");
}

QVariantList ConfigStore::KeyBinds(const QString& key) const
{
    return m_station.isNull() ? QVariantList{key} : QVariantList{m_station, key};
}

void ConfigStore::Insert(const QString& key, const QString& value)
{
    if (m_station.isNull())
        m_db->Query(QStringLiteral("INSERT INTO Config (ID, Value) VALUES (?, ?)"), {key, value});
    else
        m_db->Query(QStringLiteral("INSERT INTO StationConfig (Station, ID, Value) VALUES (?, ?, ?)"), {m_station, key, value});
}
