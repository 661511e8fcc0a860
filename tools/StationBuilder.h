#pragma once
#include "kernel/StationFolder.h"
#include "tools/StationOptions.h"
#include "tools/StationReport.h"
#include <QStringList>
#include <memory>

class Database;

// Creates a working demo station in a folder: station.ini, kernel.ini, data/ with the three
// databases, sound/ with generated audio and its energy files, log/ and export/. With a
// server URI the three databases are schemas on that server (ServerCatalogue) and kernel.ini
// names the server. A folder that already holds a station (station.ini or data/), or a server
// that already holds the station's schemas, is refused before anything is touched; a creation
// that fails half way removes again what it made.
class StationBuilder
{
public:
    explicit StationBuilder(const StationOptions& options);

    // Throws KernelError with a readable description when the station cannot be made.
    StationReport Create();

    // Refuses a catalogue location that is neither empty (the SQLite files) nor a usable
    // postgresql:// URI, and a workstation URI without a server or on another database.
    static void CheckDatabase(const QString& location, const QString& workstation = {});
    // Where the databases are: the data folder or the server URI, to be joined with a file name.
    QString DataLocation() const;
    // Where the exports of the demo station go.
    static QString ExportDir(const StationFolder& folder);

private:
    void RefuseExistingStation() const;
    void NoteMissingEntries();
    void MakeFolders() const;
    void WriteDatabases(StationReport& report) const;
    // kernel.ini names the server, and the workstation's role gets its row rights.
    void ConnectWorkstation() const;
    // The energy file of every sound, as the kernel writes it for the sounds it makes.
    void WriteEnergyFiles() const;
    std::unique_ptr<Database> CreateDatabase(const char* file) const;
    void RemoveCreated() const;

    StationOptions m_options;
    StationFolder m_folder;
    QStringList m_created; // entries that did not exist before, removed again on failure
};
