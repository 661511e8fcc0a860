#pragma once
#include <QString>
#include <QStringList>

// A station's catalogue on a PostgreSQL server as the station tool handles it: the schemas
// that the station's URI names for Sound.MDB, User.MDB and Kernel.MDB (PostgresLocation),
// whether any of them is there, removing them again, and the rights of the workstation role.
//
// The tool connects as the owner role, which makes the schemas and so owns them; the
// workstation connects as a role that may read, add, change and delete rows in them, and
// nothing more: it cannot create, alter or drop a table.
class ServerCatalogue
{
public:
    // station: the station's data path, a postgresql:// URI. Throws KernelError for a
    // malformed one.
    explicit ServerCatalogue(const QString& station);

    // The catalogue file names joined behind the URI, in the order the tool writes them.
    static QStringList Files();
    // The schema behind station + file.
    static QString SchemaOf(const QString& station, const QString& file);

    // Whether the server holds any of the station's schemas. Throws KernelError when the
    // server cannot be reached.
    bool Exists() const;
    // Drops the station's schemas and everything in them.
    void Drop() const;
    // Gives a role the row rights on every table and sequence of the station's schemas, and
    // on those made in them later.
    void GrantRows(const QString& role) const;
    // Gathers the planner's statistics, which a bulk load leaves empty until autovacuum comes
    // round: without them the first family read of a large catalogue scans instead of using
    // the key (a 10,000-cart family walked in 154 ms instead of 38).
    void Analyze() const;

private:
    // The same database with the schema public, which every database has.
    QString ServerDatabase() const;
    QStringList Schemas() const;

    QString m_station;
};
