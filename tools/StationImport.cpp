#include "tools/StationImport.h"
#include "foundation/db/Database.h"
#include "kernel/ConfigStore.h"
#include "kernel/Sound.h"
#include "kernel/SoundImport.h"
#include "kernel/Station.h"
#include "kernel/StationDatabases.h"
#include "kernelapi/KernelError.h"
#include <QDir>

const QString StationImport::DefaultFamily = QStringLiteral("IMP");

namespace {
StationFolder CheckedStation(const QString& dir)
{
    const StationFolder folder(dir);
    if (!folder.IsStation())
        throw KernelError(QStringLiteral("'%1' is not a station: station.ini is missing").arg(QDir::toNativeSeparators(folder.Root())));
    return folder;
}
}

StationImport::StationImport(const QString& stationDir, const QString& family)
{
    const StationFolder folder = CheckedStation(stationDir);
    const std::shared_ptr<Database> db = StationDatabases::Open(Station(folder)).Kernel;
    m_import = std::make_unique<SoundImport>(db, Sound::Folder(*ConfigStore::Shared(db), folder), family);
}

StationImport::~StationImport() = default;

const QString& StationImport::Family() const
{
    return m_import->Family();
}

StationImport::Outcome StationImport::Import(const QStringList& files)
{
    m_import->EnsureFamily();
    Outcome outcome;
    for (const QString& file : files) {
        try {
            outcome.ids << m_import->ImportFile(file);
        } catch (const KernelError& e) {
            outcome.failures << e.Description();
        }
    }
    return outcome;
}
