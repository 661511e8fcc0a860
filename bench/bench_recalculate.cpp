// A family of 10,000 sound carts recalculated in the background, fast and accurate: carts a
// second and the longest stall of the event loop while it runs, beside the floor the accurate
// run cannot beat: measuring the same files (decode and energy file) on one thread alone.
#include "foundation/db/Database.h"
#include "kernel/EmbeddedKernel.h"
#include "kernel/SoundFile.h"
#include "kernel/StationFolder.h"
#include "kernelapi/iFamilies.h"
#include "kernelapi/iFamily.h"
#include "kernelapi/iRecalculation.h"
#include "support/BenchStation.h"
#include "support/StallProbe.h"
#include "tools/ToneFile.h"
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <benchmark/benchmark.h>
#include <algorithm>

namespace {
const QString Family = QStringLiteral("RCL");
constexpr int Carts = 10000;

QString FileOf(int number)
{
    return QStringLiteral("rcl/%1.wav").arg(number, 4, 10, QLatin1Char('0'));
}

// The station with the family, its 10,000 half-second mono files made once and reused.
struct RecalculationStation
{
    RecalculationStation() : folder(BenchStation::OwnDemo(QStringLiteral("recalculation-10k")))
    {
        kernel = EmbeddedKernel::Open(folder, nullptr);
        if (kernel->Families()->Exists(Family))
            return;
        const QString sound = folder.SoundDir();
        QDir().mkpath(sound + QStringLiteral("rcl"));
        ToneFile{ToneFile::Format::Wav16, 44100, 1, 500}.Write(sound + FileOf(0));
        std::unique_ptr<Database> db = Database::Open(folder.DataDir() + QStringLiteral("Sound.MDB"));
        db->Transaction([&] {
            for (int number = 0; number < Carts; ++number) {
                const QString id = Family + QStringLiteral("%1").arg(number, 4, 10, QLatin1Char('0'));
                if (number > 0)
                    QFile::copy(sound + FileOf(0), sound + FileOf(number));
                db->Query(QStringLiteral("INSERT INTO Cart (ID, Descripcio, Type, Time) VALUES (?, ?, 'S', 0)"), {id, id});
                db->Query(QStringLiteral("INSERT INTO Sound (ID, Filename, Start, Stop) VALUES (?, ?, 0, 0)"), {id, FileOf(number)});
            }
        });
        kernel->Families()->Add(Family, QStringLiteral("Recalculation benchmark"));
    }
    static RecalculationStation& Get()
    {
        static RecalculationStation station;
        return station;
    }

    StationFolder folder;
    std::shared_ptr<EmbeddedKernel> kernel;
};

void RecalculateFamily(benchmark::State& state, bool accurate)
{
    RecalculationStation& station = RecalculationStation::Get();
    double longestStall = 0;
    int done = 0;
    for (auto _ : state) {
        QElapsedTimer clock;
        clock.start();
        StallProbe probe;
        const std::shared_ptr<iRecalculation> run = station.kernel->Families()->Item(Family)->Recalculate(accurate);
        while (run->Running())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        longestStall = std::max(longestStall, probe.FinishMs());
        done = run->Done() - run->Failed();
        state.SetIterationTime(clock.nsecsElapsed() / 1e9);
    }
    state.counters["carts"] = done;
    state.counters["carts_per_s"] = benchmark::Counter(double(done) * double(state.iterations()), benchmark::Counter::kIsRate);
    state.counters["stall_ms"] = longestStall;
}

void RecalculateFamilyFast(benchmark::State& state)
{
    RecalculateFamily(state, false);
    state.SetLabel("10,000 x 0.5 s WAV, energy files current; budget: no stall over 16 ms");
}

void RecalculateFamilyAccurate(benchmark::State& state)
{
    RecalculateFamily(state, true);
    state.SetLabel("10,000 x 0.5 s WAV, every file decoded; budget: no stall over 16 ms, floor: DecodeFamilyAlone");
}

// The worker's own work with no catalogue and no event loop: what an accurate run cannot beat.
void DecodeFamilyAlone(benchmark::State& state)
{
    const QString sound = RecalculationStation::Get().folder.SoundDir();
    for (auto _ : state) {
        for (int number = 0; number < Carts; ++number)
            benchmark::DoNotOptimize(SoundFile::Measure(sound + FileOf(number), true));
    }
    state.counters["carts_per_s"] = benchmark::Counter(double(Carts) * double(state.iterations()), benchmark::Counter::kIsRate);
    state.SetLabel("decode and energy file of the 10,000 files on one thread: the floor of the accurate run");
}
}

// Accurate first: it leaves every energy file current, which is the fast run's case.
BENCHMARK(RecalculateFamilyAccurate)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(2);
BENCHMARK(RecalculateFamilyFast)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(2);
BENCHMARK(DecodeFamilyAlone)->Unit(benchmark::kMillisecond)->Iterations(2);
