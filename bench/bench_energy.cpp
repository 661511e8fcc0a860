// The energy file of one hour of 48 kHz stereo 16-bit WAV: decoding the whole file and
// writing its ".bef", as the kernel does for every sound it imports or recalculates. The
// hour of audio is made once in build/bench-stations and then read from the disk cache.
#include "kernel/AudioFileInfo.h"
#include "kernel/EnergyFile.h"
#include "tools/ToneFile.h"
#include <QDir>
#include <QFileInfo>
#include <benchmark/benchmark.h>

namespace {
QString HourOfAudio()
{
    const QString path = QDir::cleanPath(QStringLiteral(KORVANE_BIN_DIR "/../bench-stations/hour-48k-stereo.wav"));
    ToneFile tone;
    tone.rate = 48000;
    tone.channels = 2;
    tone.ms = 3600 * 1000;
    tone.frequency = 997;
    if (QFileInfo(path).size() != 44 + tone.Frames() * 4) {
        QDir().mkpath(QFileInfo(path).absolutePath());
        tone.Write(path);
    }
    return path;
}

void EnergyFileOfOneHour(benchmark::State& state)
{
    const QString audio = HourOfAudio();
    for (auto _ : state) {
        const AudioFileInfo info = EnergyFile::WriteFor(audio);
        benchmark::DoNotOptimize(info.energy.size());
    }
    state.SetLabel("budget: under 1 s");
}
}

BENCHMARK(EnergyFileOfOneHour)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1)->Repetitions(3)->ReportAggregatesOnly(true);
