// The kernel's Import of 20 files of 10 s stereo 48 kHz WAV from the import folder: the time
// from the call to ImportFinished, and the longest stall of the event loop meanwhile (the
// decoding runs on the import's own thread). Budget: no stall over 16 ms.
#include "kernel/EmbeddedKernel.h"
#include "kernel/StationFolder.h"
#include "support/BenchStation.h"
#include "support/StallProbe.h"
#include "tools/ToneFile.h"
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <benchmark/benchmark.h>

namespace {
constexpr int Files = 20;

void ImportTwentyFiles(benchmark::State& state)
{
    const StationFolder folder(BenchStation::OwnDemo(QStringLiteral("import-20")));
    const auto kernel = EmbeddedKernel::Open(folder, nullptr);
    kernel->SetImportClock([] { return QDateTime::currentDateTime().addSecs(3600); });
    const QString model = folder.Root() + QStringLiteral("import-model.wav");
    ToneFile{ToneFile::Format::Wav16, 48000, 2, 10000}.Write(model);
    double longestStall = 0;
    int imported = 0;
    for (auto _ : state) {
        state.PauseTiming();
        QDir().mkpath(kernel->ImportDirectory());
        for (int n = 0; n < Files; ++n)
            QFile::copy(model, kernel->ImportDirectory() + QStringLiteral("/Take %1.wav").arg(n));
        bool finished = false;
        const auto connection = QObject::connect(kernel.get(), &CKernel::ImportFinished, [&](int count, int) {
            imported = count;
            finished = true;
        });
        state.ResumeTiming();
        QElapsedTimer clock;
        clock.start();
        StallProbe probe;
        kernel->Import();
        while (!finished)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        longestStall = std::max(longestStall, probe.FinishMs());
        state.SetIterationTime(clock.nsecsElapsed() / 1e9);
        QObject::disconnect(connection);
    }
    state.counters["files"] = imported;
    state.counters["stall_ms"] = longestStall;
    state.SetLabel("20 x 10 s stereo WAV; budget: no stall over 16 ms");
}
}

BENCHMARK(ImportTwentyFiles)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);
