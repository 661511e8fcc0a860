#pragma once
#include <QString>
#include <memory>
#include <vector>

class Database;

// The SQL behind playlists: tables PlayList and PlayListItem of the kernel's database. A
// station made before playlists existed gets the tables on first use. Every write is one
// transaction. Failures throw KernelError.
class PlayListStore
{
public:
    struct Header
    {
        QString id;
        QString name;
        QString description;
        QString macroID; // the macro loaded into the list; empty when none
        bool chained = false;
        bool autoClose = false;
        bool modified = false;
        qint32 nextIndex = 1;
    };

    struct Row
    {
        QString cartID; // empty for a blank row
        bool ignored = false;
        bool looped = false;
        bool modified = false;
        QString properties; // the row's property bag as text
    };

    explicit PlayListStore(std::shared_ptr<Database> db);

    std::vector<Header> ReadAll() const;
    std::vector<Row> ReadRows(const QString& id) const;
    void Write(const Header& header);
    void Write(const Header& header, const std::vector<Row>& rows);
    void Remove(const QString& id);
    // "PL" and four digits, one above the highest ID in use.
    QString NewID() const;

private:
    void WriteHeader(const Header& header);

    std::shared_ptr<Database> m_db;
};
