#include "tools/StationBuilder.h"
#include "foundation/db/CatalogueSchema.h"
#include "foundation/Ini.h"
#include "foundation/db/Database.h"
#include "foundation/db/PostgresLocation.h"
#include "kernel/AudioFileInfo.h"
#include "kernel/EnergyFile.h"
#include "kernel/StationDatabases.h"
#include "kernelapi/KernelError.h"
#include "tools/AudioGenerator.h"
#include "tools/BulkCatalogue.h"
#include "tools/DemoCatalogue.h"
#include "tools/KernelCatalogue.h"
#include "tools/ServerCatalogue.h"
#include "tools/StationFiles.h"
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>

StationBuilder::StationBuilder(const StationOptions& options) : m_options(options), m_folder(options.dir) {}

void StationBuilder::CheckDatabase(const QString& location, const QString& workstation)
{
    const bool onServer = PostgresLocation::Names(location);
    if (!onServer && !location.isEmpty() && location.compare(QLatin1String("sqlite"), Qt::CaseInsensitive) != 0)
        throw KernelError(QStringLiteral("Unknown database '%1': give a postgresql:// URI, or leave out --database to use "
                                         "the SQLite files in <station>/data/")
                              .arg(location));
    if (workstation.isEmpty())
        return;
    if (!onServer)
        throw KernelError(QStringLiteral("--workstation needs a PostgreSQL server given with --database"));
    if (!PostgresLocation::Names(workstation)
        || !PostgresLocation::Parse(workstation).SameDatabase(PostgresLocation::Parse(location)))
        throw KernelError(QStringLiteral("--workstation must name the same server and database as --database"));
    if (PostgresLocation::Parse(workstation).user.isEmpty())
        throw KernelError(QStringLiteral("--workstation must name the workstation's role (postgresql://ROLE@host/database)"));
}

QString StationBuilder::DataLocation() const
{
    return PostgresLocation::Names(m_options.database) ? m_options.database : m_folder.DataDir();
}

QString StationBuilder::ExportDir(const StationFolder& folder)
{
    return folder.Root() + QStringLiteral("export/");
}

StationReport StationBuilder::Create()
{
    if (m_options.dir.trimmed().isEmpty())
        throw KernelError(QStringLiteral("No station folder given"));
    CheckDatabase(m_options.database, m_options.workstation);
    RefuseExistingStation();
    NoteMissingEntries();
    StationReport report;
    report.dir = m_folder.Root();
    try {
        MakeFolders();
        StationFiles::Write(m_folder);
        WriteDatabases(report);
        ConnectWorkstation();
        WriteEnergyFiles();
    } catch (...) {
        RemoveCreated();
        throw;
    }
    return report;
}

void StationBuilder::RefuseExistingStation() const
{
    const QString root = QDir::toNativeSeparators(m_folder.Root());
    if (QFileInfo::exists(m_folder.StationIni()) || QFileInfo::exists(m_folder.DataDir()))
        throw KernelError(QStringLiteral("'%1' already holds a station (station.ini or data/ is there); nothing was changed")
                              .arg(root));
    const QFileInfo rootInfo(QDir::cleanPath(m_folder.Root()));
    if (rootInfo.exists() && !rootInfo.isDir())
        throw KernelError(QStringLiteral("'%1' is a file, not a folder").arg(root));
    if (PostgresLocation::Names(m_options.database) && ServerCatalogue(m_options.database).Exists())
        throw KernelError(QStringLiteral("The server already holds a station's schemas (%1); nothing was changed")
                              .arg(ServerCatalogue::SchemaOf(m_options.database, StationDatabases::SoundFile)));
}

void StationBuilder::NoteMissingEntries()
{
    if (!QFileInfo::exists(QDir::cleanPath(m_folder.Root()))) {
        m_created << m_folder.Root();
        return;
    }
    for (const QString& entry : {m_folder.StationIni(), m_folder.KernelIni(), m_folder.DataDir(), m_folder.SoundDir(),
                                 m_folder.LogDir(), ExportDir(m_folder)}) {
        if (!QFileInfo::exists(entry))
            m_created << entry;
    }
}

void StationBuilder::MakeFolders() const
{
    for (const QString& dir : {m_folder.DataDir(), m_folder.SoundDir(), m_folder.LogDir(), ExportDir(m_folder)}) {
        if (!QDir().mkpath(dir))
            throw KernelError(QStringLiteral("Cannot create the folder '%1'").arg(QDir::toNativeSeparators(dir)));
    }
}

void StationBuilder::WriteDatabases(StationReport& report) const
{
    const std::unique_ptr<Database> sound = CreateDatabase(StationDatabases::SoundFile);
    const std::unique_ptr<Database> user = CreateDatabase(StationDatabases::UserFile);
    const std::unique_ptr<Database> kernel = CreateDatabase(StationDatabases::KernelFile);
    CatalogueSchema::CreateSoundSchema(*sound);
    CatalogueSchema::CreateUserSchema(*user);
    CatalogueSchema::CreateKernelSchema(*kernel);

    const AudioGenerator audio(m_options.soundLength);
    DemoCatalogue(*sound, *user, m_folder.SoundDir(), audio).Write(report);
    BulkCatalogue(*sound, *user, m_folder.SoundDir(), audio).Write(m_options.carts, report);
    KernelCatalogue::Write(*kernel, m_folder, report);
}

void StationBuilder::ConnectWorkstation() const
{
    if (!PostgresLocation::Names(m_options.database))
        return;
    const QString workstation = m_options.workstation.isEmpty() ? m_options.database : m_options.workstation;
    ServerCatalogue(m_options.database).Analyze();
    if (!m_options.workstation.isEmpty())
        ServerCatalogue(m_options.database).GrantRows(PostgresLocation::Parse(workstation).user);
    WriteIni(QStringLiteral("Data"), QStringLiteral("Path"), workstation, m_folder.KernelIni());
}

void StationBuilder::WriteEnergyFiles() const
{
    QDirIterator sounds(m_folder.SoundDir(), QDir::Files, QDirIterator::Subdirectories);
    while (sounds.hasNext())
        EnergyFile::WriteFor(sounds.next());
}

std::unique_ptr<Database> StationBuilder::CreateDatabase(const char* file) const
{
    return Database::Open(DataLocation() + QLatin1String(file), Database::OpenMode::Create);
}

void StationBuilder::RemoveCreated() const
{
    if (PostgresLocation::Names(m_options.database)) {
        try {
            ServerCatalogue(m_options.database).Drop();
        } catch (const KernelError&) {
            // The server went away: the schemas it may still hold are named by the first error.
        }
    }
    for (const QString& entry : m_created) {
        if (QFileInfo(entry).isDir())
            QDir(entry).removeRecursively();
        else
            QFile::remove(entry);
    }
}
