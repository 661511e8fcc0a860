#pragma once
#include "foundation/db/CatalogueSchema.h"
#include <QList>
#include <QString>
#include <QStringList>

class Database;

// Moves a station's catalogue from its SQLite files onto a PostgreSQL server, row for row:
// each of Sound.MDB, User.MDB and Kernel.MDB becomes the schema that the server URI names
// for it (ServerCatalogue), every declared table present in the file is copied in one
// transaction per database, the row counts of both sides are compared, and then kernel.ini
// names the server. The SQLite files stay where they are, untouched.
//
// Refused before anything is written: a folder that is not a station, a station already on
// a server, a server that already holds the station's schemas. A failure on the way drops
// the schemas again and leaves kernel.ini as it was.
class StationMigration
{
public:
    struct TableCount
    {
        QString table;
        int rows = 0;
    };

    // server: the owner role's URI; workstation: the URI kernel.ini gets, whose role is given
    // the row rights (empty: server).
    StationMigration(const QString& dir, const QString& server, const QString& workstation);

    // Throws KernelError with a readable description.
    QList<TableCount> Migrate();
    // Tables of the files that no database of the station declares, left out of the copy.
    QStringList LeftOut() const { return m_leftOut; }

private:
    QString RefuseUnmovable() const;
    QList<TableCount> CopyDatabase(const QString& folder, const char* file, CatalogueSchema::Catalogue catalogue);
    static int CopyTable(Database& from, Database& to, const QString& table);
    static void RestartIdentities(Database& to, const QString& table);
    static int CountOf(Database& db, const QString& table);

    QString m_dir;
    QString m_server;
    QString m_workstation;
    QStringList m_leftOut;
};
