#pragma once
#include <QString>
#include <QStringList>
#include <memory>

class Database;
class Station;

// The station's databases as the kernel uses them: the kernel's connection (Kernel.MDB with
// Sound.MDB and User.MDB attached, so that every kernel SQL text finds its tables) and a
// connection to User.MDB for the users. On a database server the three are schemas of one
// database, named by joining the file names behind the station's URI (PostgresLocation).
class StationDatabases
{
public:
    static constexpr const char* KernelFile = "Kernel.MDB";
    static constexpr const char* SoundFile = "Sound.MDB";
    static constexpr const char* UserFile = "User.MDB";

    // Throws KernelError naming the file when a database is missing, is not a database or
    // lacks a table the kernel needs.
    static StationDatabases Open(const Station& station);

    std::shared_ptr<Database> Kernel;
    std::shared_ptr<Database> Users;

private:
    static StationDatabases OpenFiles(const QString& folder, bool onServer);
    static std::shared_ptr<Database> OpenFile(const QString& path, bool onServer);
    static void RequireTables(Database& db, const QStringList& tables);
};
