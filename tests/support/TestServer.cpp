#include "support/TestServer.h"
#include "foundation/Ini.h"
#include "foundation/db/CatalogueSchema.h"
#include "foundation/db/Database.h"
#include "foundation/db/PostgresLocation.h"
#include "kernel/StationDatabases.h"
#include "kernel/StationFolder.h"
#include "tools/ServerCatalogue.h"
#include <QCryptographicHash>
#include <QTemporaryDir>
#include <gtest/gtest.h>

const char* const NoTestServer =
    "KORVANE_TEST_POSTGRES is not set, so the PostgreSQL tests do not run (./test.sh starts a private server)";

QString TestServerUri()
{
    return qEnvironmentVariable("KORVANE_TEST_POSTGRES");
}

QString TestServerWorkstationUri()
{
    return qEnvironmentVariable("KORVANE_TEST_POSTGRES_WORKSTATION");
}

QString ServerStation(const QString& uri)
{
    if (uri.isEmpty())
        return {};
    const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
    const QByteArray name = test ? QByteArray(test->test_suite_name()) + '.' + test->name() : QByteArray("no test");
    const QString station = QStringLiteral("t") + QCryptographicHash::hash(name, QCryptographicHash::Md5).toHex().left(12);
    return PostgresLocation::WithSchema(uri, station);
}

QString FreshServerStation()
{
    const QString station = ServerStation();
    if (!station.isEmpty())
        ServerCatalogue(station).Drop();
    return station;
}

void CreateServerCatalogue(const QString& station)
{
    const CatalogueSchema::Catalogue catalogues[] = {CatalogueSchema::Catalogue::Sound, CatalogueSchema::Catalogue::User,
                                                     CatalogueSchema::Catalogue::Kernel};
    const QStringList files = ServerCatalogue::Files();
    for (int i = 0; i < files.size(); ++i)
        CatalogueSchema::Create(*Database::Open(station + files[i], Database::OpenMode::Create), catalogues[i]);
}

std::unique_ptr<Database> OpenServerKernel(const QString& station)
{
    auto kernel = Database::Open(station + QLatin1String(StationDatabases::KernelFile));
    kernel->Attach(station + QLatin1String(StationDatabases::SoundFile), QStringLiteral("Sound"));
    kernel->Attach(station + QLatin1String(StationDatabases::UserFile), QStringLiteral("User"));
    return kernel;
}

StationFolder ServerStationFolder(const QTemporaryDir& dir, const QString& id, const QString& location)
{
    const StationFolder folder(dir.path());
    WriteIni(QStringLiteral("Station"), QStringLiteral("ID"), id, folder.StationIni());
    WriteIni(QStringLiteral("Data"), QStringLiteral("Path"), location, folder.KernelIni());
    return folder;
}
