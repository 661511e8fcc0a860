#include "tools/StationBuilder.h"
#include "foundation/db/CatalogueSchema.h"
#include "foundation/db/Database.h"
#include "kernel/AudioFileInfo.h"
#include "kernel/EnergyFile.h"
#include "kernel/StationDatabases.h"
#include "kernelapi/KernelError.h"
#include "tools/AudioGenerator.h"
#include "tools/BulkCatalogue.h"
#include "tools/DemoCatalogue.h"
#include "tools/KernelCatalogue.h"
#include "tools/StationFiles.h"
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>

StationBuilder::StationBuilder(const StationOptions& options) : m_options(options), m_folder(options.dir) {}

void StationBuilder::CheckDatabase(const QString& location)
{
    if (location.isEmpty() || location.compare(QLatin1String("sqlite"), Qt::CaseInsensitive) == 0)
        return;
    if (location.startsWith(QLatin1String("postgresql://"), Qt::CaseInsensitive))
        throw KernelError(QStringLiteral("Creating a station on a PostgreSQL server is not supported yet; "
                                         "leave out --database to use the SQLite files in <station>/data/"));
    throw KernelError(QStringLiteral("Unknown database '%1': leave out --database to use the SQLite files in "
                                     "<station>/data/")
                          .arg(location));
}

QString StationBuilder::ExportDir(const StationFolder& folder)
{
    return folder.Root() + QStringLiteral("export/");
}

StationReport StationBuilder::Create()
{
    if (m_options.dir.trimmed().isEmpty())
        throw KernelError(QStringLiteral("No station folder given"));
    CheckDatabase(m_options.database);
    RefuseExistingStation();
    NoteMissingEntries();
    StationReport report;
    report.dir = m_folder.Root();
    try {
        MakeFolders();
        StationFiles::Write(m_folder);
        WriteDatabases(report);
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

void StationBuilder::WriteEnergyFiles() const
{
    QDirIterator sounds(m_folder.SoundDir(), QDir::Files, QDirIterator::Subdirectories);
    while (sounds.hasNext())
        EnergyFile::WriteFor(sounds.next());
}

std::unique_ptr<Database> StationBuilder::CreateDatabase(const char* file) const
{
    return Database::Open(m_folder.DataDir() + QLatin1String(file), Database::OpenMode::Create);
}

void StationBuilder::RemoveCreated() const
{
    for (const QString& entry : m_created) {
        if (QFileInfo(entry).isDir())
            QDir(entry).removeRecursively();
        else
            QFile::remove(entry);
    }
}
