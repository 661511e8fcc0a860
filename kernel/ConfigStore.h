#pragma once
#include <QHash>
#include <QString>
#include <QVariant>
#include <memory>

class Database;

// A configuration store of the kernel's database, by text key: the shared store (table Config:
// ID, Value) or the store of one station (table StationConfig: Station, ID, Value). Values are
// kept as text and cached; a write goes to the table at once and is visible at once.
class ConfigStore
{
public:
    static std::shared_ptr<ConfigStore> Shared(std::shared_ptr<Database> db);
    static std::shared_ptr<ConfigStore> ForStation(std::shared_ptr<Database> db, const QString& stationID);

    // The stored text; an absent key reads as an empty string.
    QVariant Value(const QString& key) const;
    void SetValue(const QString& key, const QVariant& value);
    // Reads the table again (after a change made behind the store's back).
    void Reload();

private:
    ConfigStore(std::shared_ptr<Database> db, const QString& table, const QString& stationID);
    QString Condition() const;
    QVariantList KeyBinds(const QString& key) const;
    void Insert(const QString& key, const QString& value);

    std::shared_ptr<Database> m_db;
    QString m_table;
    QString m_station; // null for the shared store
    QHash<QString, QString> m_values;
};
