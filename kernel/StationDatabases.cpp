#include "kernel/StationDatabases.h"
#include "foundation/db/Database.h"
#include "kernel/Station.h"
#include "kernelapi/KernelError.h"
#include <QFileInfo>
#include <QStringList>

StationDatabases StationDatabases::Open(const Station& station)
{
    StationDatabases databases = OpenFiles(station.DatabasePath(), station.OnServer());
    RequireTables(*databases.Kernel,
                  {QStringLiteral("Config"), QStringLiteral("StationConfig"), QStringLiteral("Contents"),
                   QStringLiteral("Application")});
    RequireTables(*databases.Users, {QStringLiteral("Usuari")});
    return databases;
}

StationDatabases StationDatabases::OpenFiles(const QString& folder, bool onServer)
{
    const QString sound = folder + QLatin1String(SoundFile);
    const QString user = folder + QLatin1String(UserFile);
    StationDatabases databases;
    databases.Kernel = OpenFile(folder + QLatin1String(KernelFile), onServer);
    databases.Users = OpenFile(user, onServer);
    OpenFile(sound, onServer); // refuses a damaged file or a missing schema by name before it is attached
    databases.Kernel->Attach(sound, QStringLiteral("Sound"));
    databases.Kernel->Attach(user, QStringLiteral("User"));
    return databases;
}

std::shared_ptr<Database> StationDatabases::OpenFile(const QString& path, bool onServer)
{
    if (!onServer && !QFileInfo(path).isFile())
        throw KernelError(QStringLiteral("'%1' is missing").arg(path));
    return Database::Open(path); // its refusals name the file
}

void StationDatabases::RequireTables(Database& db, const QStringList& tables)
{
    for (const QString& table : tables) {
        if (!db.HasTable(table))
            throw KernelError(QStringLiteral("'%1' has no table %2").arg(db.Location(), table));
    }
}
