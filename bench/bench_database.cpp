// The catalogue on both engines: a find-first over a 100,000-cart Cart table and the load of a
// family of 10,000 carts, on the SQLite files and on a PostgreSQL server (KORVANE_TEST_POSTGRES,
// which ./bench.sh sets by starting a private server; without it the server figures are
// skipped with a message). The server's copy is made by `korvane-station migrate`.
#include "foundation/Ini.h"
#include "foundation/db/Database.h"
#include "foundation/db/PostgresLocation.h"
#include "foundation/db/Recordset.h"
#include "kernel/EmbeddedKernel.h"
#include "kernel/Station.h"
#include "kernel/StationDatabases.h"
#include "kernelapi/iFamilies.h"
#include "kernelapi/iFamily.h"
#include "tools/ServerCatalogue.h"
#include "tools/StationBuilder.h"
#include "tools/StationMigration.h"
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <benchmark/benchmark.h>

namespace {
constexpr int Carts = 100000;
// The last two carts, asked for in turn so that no find reuses the previous one's answer.
const QString LastCarts[] = {QStringLiteral("BAJ9999"), QStringLiteral("BAJ9998")};

QString StationsDir()
{
    return QStringLiteral(KORVANE_BIN_DIR "/../bench-stations/");
}

// The demo station with 100,000 more carts, on SQLite files; made once and kept.
QString SqliteStation()
{
    const QString dir = StationsDir() + QStringLiteral("database-100k");
    if (!QFileInfo::exists(dir + QStringLiteral("/station.ini"))) {
        QDir().mkpath(StationsDir());
        StationOptions options;
        options.dir = dir;
        options.carts = Carts;
        options.soundLength = SoundLength::Short;
        StationBuilder(options).Create();
    }
    return QDir(dir).absolutePath() + u'/';
}

// The same station copied onto the server, once per run: a second station folder whose
// kernel.ini first names the SQLite files and, after the migration, the server.
QString ServerStation()
{
    static QString station;
    const QString server = qEnvironmentVariable("KORVANE_TEST_POSTGRES");
    if (!station.isEmpty() || server.isEmpty())
        return station;
    const QString bench = PostgresLocation::WithSchema(server, QStringLiteral("bench"));
    const QString sqlite = SqliteStation();
    const QString dir = StationsDir() + QStringLiteral("database-100k-server/");
    QDir(dir).removeRecursively();
    QDir().mkpath(dir);
    QFile::copy(sqlite + QStringLiteral("station.ini"), dir + QStringLiteral("station.ini"));
    QFile::copy(sqlite + QStringLiteral("kernel.ini"), dir + QStringLiteral("kernel.ini"));
    WriteIni(QStringLiteral("Data"), QStringLiteral("Path"), sqlite + QStringLiteral("data/"), dir + QStringLiteral("kernel.ini"));
    ServerCatalogue(bench).Drop();
    StationMigration(dir, bench, QString()).Migrate();
    station = dir;
    return station;
}

// The station of an engine: 0 SQLite, 1 the server; empty when there is no server.
QString StationOf(const benchmark::State& state)
{
    return state.range(0) == 0 ? SqliteStation() : ServerStation();
}

QString EngineName(const benchmark::State& state)
{
    return state.range(0) == 0 ? QStringLiteral("SQLite") : QStringLiteral("PostgreSQL");
}

bool Skipped(benchmark::State& state, const QString& station)
{
    if (!station.isEmpty())
        return false;
    state.SkipWithError("no PostgreSQL server: KORVANE_TEST_POSTGRES is not set (./bench.sh starts one)");
    return true;
}

// FindFirst of one of the last carts over the shared Cart recordset, its rows already read:
// the criteria runs on the store and the answer is looked up among all rows.
void FindFirstIn100kCarts(benchmark::State& state)
{
    const QString station = StationOf(state);
    if (Skipped(state, station))
        return;
    const QString location = Station(StationFolder(station)).DatabasePath() + QLatin1String(StationDatabases::SoundFile);
    const auto db = Database::Open(location);
    Recordset carts(*db, QStringLiteral("Cart"));
    carts.MoveLast();
    if (carts.RecordCount() < Carts) {
        state.SkipWithError("the catalogue has fewer than 100,000 carts");
        return;
    }
    int turn = 0;
    for (auto _ : state) {
        carts.FindFirst(QStringLiteral("ID = '") + LastCarts[turn++ % 2] + u'\'');
        benchmark::DoNotOptimize(carts.NoMatch());
    }
    state.SetLabel((EngineName(state) + QStringLiteral(", budget: under 100 ms (a search of the whole catalogue)")).toStdString());
}

// A family of 10,000 carts read again by the kernel and walked item by item, as the cart
// browser asks for it.
void FamilyLoad10k(benchmark::State& state)
{
    const QString station = StationOf(state);
    if (Skipped(state, station))
        return;
    const auto kernel = EmbeddedKernel::Open(StationFolder(station), nullptr);
    const auto family = kernel->Families()->Item(QStringLiteral("BAA"));
    for (auto _ : state) {
        family->Refresh();
        for (int index = 1; index <= family->Count(); ++index)
            benchmark::DoNotOptimize(family->Item(index));
    }
    if (family->Count() != 10000)
        state.SkipWithError("the family BAA does not hold 10,000 carts");
    state.SetLabel((EngineName(state) + QStringLiteral(", budget: within the 300 ms of a full family into the browser")).toStdString());
}
}

BENCHMARK(FindFirstIn100kCarts)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(FamilyLoad10k)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
