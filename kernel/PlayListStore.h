#pragma once
#include <QString>
#include <memory>
#include <optional>
#include <vector>

class Database;

// The SQL behind playlists: tables PlayList and PlayListItem of the kernel's database. A
// station made before playlists existed gets the tables on first use, one made before lists
// carried a version gets the column. Every write is one transaction. Failures throw
// KernelError.
//
// Several workstations may hold the same list. Every edit of a list counts its Version up, and
// an edit is stored only over the version it was made on (compared in the UPDATE's WHERE): an
// edit made on a list that another workstation changed or deleted meanwhile is refused with
// Conflict or Gone and stores nothing. Where the next row stands is playing state, not an
// edit: it is stored over any version.
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
        qint64 version = 0; // the stored version this header was read or written as
    };

    struct Row
    {
        QString cartID; // empty for a blank row
        bool ignored = false;
        bool looped = false;
        bool modified = false;
        QString properties; // the row's property bag as text
    };

    // Another workstation stored a newer version of the list.
    struct Conflict
    {
        qint64 stored = 0;
    };
    // The list is no longer in the store.
    struct Gone
    {
    };

    explicit PlayListStore(std::shared_ptr<Database> db);

    std::vector<Header> ReadAll() const;
    // The stored header of a list; none when the list is not stored.
    std::optional<Header> Read(const QString& id) const;
    std::vector<Row> ReadRows(const QString& id) const;
    // Stores a new list, version 0.
    void Create(Header& header, const std::vector<Row>& rows);
    // Store an edit over header.version and count it up; throw Conflict or Gone.
    void Write(Header& header);
    void Write(Header& header, const std::vector<Row>& rows);
    // Throws Gone.
    void WriteNextIndex(const Header& header);
    void Remove(const QString& id);
    // "PL" and four digits, one above the highest ID in use.
    QString NewID() const;

private:
    void AddVersionColumn();
    void UpdateHeader(Header& header);
    void WriteRows(const Header& header, const std::vector<Row>& rows);
    [[noreturn]] void Refuse(const QString& id) const;

    std::shared_ptr<Database> m_db;
};
