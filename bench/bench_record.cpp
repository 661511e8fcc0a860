// The recorder of a fresh demo station whose Null device hears a test tone: how soon Record
// reaches the file, what a running take costs, and how soon the cart is ready after Stop.
#include "foundation/Ini.h"
#include "kernel/EmbeddedKernel.h"
#include "kernel/EnergyFile.h"
#include "kernel/audio/AudioEngine.h"
#include "kernel/audio/CartRecorder.h"
#include "kernel/audio/Channels.h"
#include "kernelapi/iChannel.h"
#include "kernelapi/iFamilies.h"
#include "kernelapi/iStream.h"
#include "kernelapi/iStreams.h"
#include "tools/StationBuilder.h"
#include "tools/StationOptions.h"
#include <QEventLoop>
#include <QTimer>
#include <QFileInfo>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <chrono>
#include <ctime>
#include <thread>

namespace {
using Clock = std::chrono::steady_clock;
// A WAV file holds its 44-byte header before the first frame.
constexpr qint64 WavHeaderBytes = 44;

// A demo station in a temporary folder, recording a tone on the Null device's clock of choice.
class RecordStation
{
public:
    explicit RecordStation(bool virtualClock, int periodFrames = 256)
    {
        StationOptions options;
        options.dir = m_dir.path();
        options.soundLength = SoundLength::Short;
        StationBuilder(options).Create();
        const QString ini = m_dir.filePath(QStringLiteral("kernel.ini"));
        WriteIni(QStringLiteral("Audio"), QStringLiteral("Clock"), virtualClock ? QStringLiteral("virtual") : QStringLiteral("realtime"), ini);
        WriteIni(QStringLiteral("Audio"), QStringLiteral("PeriodFrames"), QString::number(periodFrames), ini);
        WriteIni(QStringLiteral("NullInput"), QStringLiteral("Source"), QStringLiteral("tone"), ini);
        kernel = EmbeddedKernel::Open(StationFolder(m_dir.path()), nullptr);
        recorder = std::dynamic_pointer_cast<CartRecorder>(
            kernel->Channels()->Item(QStringLiteral("Rec"))->Streams()->Item(1)->CartRecorder());
    }

    AudioEngine& Engine() const { return dynamic_cast<Channels&>(*kernel->Channels()).Engine(); }
    double PeriodMs() const { return 1000.0 * Engine().Settings().periodFrames / Engine().Settings().sampleRate; }
    void LoadBlank() const { recorder->LoadBlank(kernel->Families()->Item(QStringLiteral("TMP"))); }

    QTemporaryDir m_dir;
    std::shared_ptr<EmbeddedKernel> kernel;
    std::shared_ptr<CartRecorder> recorder;
};

double Seconds(Clock::duration duration)
{
    return std::chrono::duration<double>(duration).count();
}

double ProcessCpuSeconds()
{
    timespec cpu{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &cpu);
    return static_cast<double>(cpu.tv_sec) + static_cast<double>(cpu.tv_nsec) / 1e9;
}

// Lets the UI thread's event loop run (the engine's drain, the recorder's announcement) for a
// while, idle between its events.
void RunFor(int ms)
{
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
}
}

// From the call of Record to the moment the first captured frame is in the file, on the
// real-time clock of the Null device, in device periods.
void RecordToFirstCapturedFrameInFile(benchmark::State& state)
{
    RecordStation station(false);
    RunFor(200); // the devices open on their own thread
    double worst = 0;
    double total = 0;
    for (auto _ : state) {
        station.LoadBlank();
        const Clock::time_point start = Clock::now();
        station.recorder->Record();
        const QString take = station.recorder->TakePath();
        while (QFileInfo(take).size() <= WavHeaderBytes && Clock::now() - start < std::chrono::seconds(2))
            std::this_thread::sleep_for(std::chrono::microseconds(50));
        const double seconds = Seconds(Clock::now() - start);
        state.SetIterationTime(seconds);
        worst = std::max(worst, seconds);
        total += seconds;
        RunFor(20);
        station.recorder->Stop();
    }
    state.counters["periods"] = total * 1000.0 / station.PeriodMs() / static_cast<double>(state.iterations());
    state.counters["worst_periods"] = worst * 1000.0 / station.PeriodMs();
    state.counters["period_ms"] = station.PeriodMs();
    state.SetLabel("budget: within two device periods");
}

// The CPU of the whole process, as a share of one core, while a take runs on the real-time
// clock, beside the same process with the recorder stopped.
void CpuOfARunningTake(benchmark::State& state)
{
    constexpr int Ms = 5000;
    RecordStation station(false);
    RunFor(200);
    double idleShare = 0;
    double takeShare = 0;
    for (auto _ : state) {
        double cpu = ProcessCpuSeconds();
        Clock::time_point start = Clock::now();
        RunFor(Ms);
        idleShare = (ProcessCpuSeconds() - cpu) / Seconds(Clock::now() - start);
        station.LoadBlank();
        station.recorder->Record();
        cpu = ProcessCpuSeconds();
        start = Clock::now();
        RunFor(Ms);
        takeShare = (ProcessCpuSeconds() - cpu) / Seconds(Clock::now() - start);
        station.recorder->Stop();
        state.SetIterationTime(Ms / 1000.0);
    }
    state.counters["take_%"] = 100.0 * takeShare;
    state.counters["stopped_%"] = 100.0 * idleShare;
    state.SetLabel("process CPU while a 48 kHz stereo WAV take runs, one core = 100%");
}

// An hour of 48 kHz stereo recorded on the virtual clock; the figure is Stop alone: the
// energy file written and the cart saved.
void StopToCartReadyOneHourTake(benchmark::State& state)
{
    RecordStation station(true, 4096);
    for (auto _ : state) {
        state.PauseTiming();
        station.LoadBlank();
        station.recorder->Record();
        station.Engine().Advance(3600LL * station.Engine().Settings().sampleRate);
        const QString take = station.recorder->TakePath();
        state.ResumeTiming();
        const Clock::time_point start = Clock::now();
        station.recorder->Stop();
        state.SetIterationTime(Seconds(Clock::now() - start));
        if (!QFileInfo::exists(EnergyFile::PathFor(take)))
            state.SkipWithError("the energy file was not written");
        QFile::remove(take);
    }
    state.SetLabel("Stop of a one-hour take to the cart saved with its energy file");
}

BENCHMARK(RecordToFirstCapturedFrameInFile)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK(CpuOfARunningTake)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(StopToCartReadyOneHourTake)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(1);
