// The audio engine on the Null device's virtual clock, over the demo station's sounds: how
// soon Play is heard, and how much of each device period the audio callback takes.
#include "kernel/KernelLog.h"
#include "kernel/audio/AudioEngine.h"
#include "kernel/audio/CartPlayer.h"
#include "kernel/audio/ChannelMix.h"
#include "kernel/audio/Channels.h"
#include "kernel/audio/NullDevice.h"
#include "kernel/audio/SoundDecoder.h"
#include "kernel/audio/StreamMix.h"
#include "kernel/audio/Voice.h"
#include "kernelapi/iChannel.h"
#include "kernelapi/iStream.h"
#include "kernelapi/iStreams.h"
#include "support/BenchStation.h"
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QElapsedTimer>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <thread>

namespace {
using Clock = std::chrono::steady_clock;

std::unique_ptr<Channels> VirtualChannels()
{
    AudioSettings settings;
    settings.virtualClock = true;
    return std::make_unique<Channels>(settings, KernelLog(), PlayQueue::MacroSource());
}

std::shared_ptr<CartPlayer> PlayerOf(const Channels& channels, const QString& channel, int stream)
{
    return std::dynamic_pointer_cast<CartPlayer>(channels.Item(channel)->Streams()->Item(stream)->CartPlayer());
}

// The demo station's audio files, in name order.
QStringList DemoSounds()
{
    const QDir sound(BenchStation::Demo() + QStringLiteral("/sound"));
    QStringList files;
    for (const QString& name : sound.entryList({"*.wav", "*.flac", "*.ogg", "*.aiff"}, QDir::Files, QDir::Name))
        files << sound.filePath(name);
    return files;
}

bool Sounds(const NullDevice& device)
{
    const std::vector<float>& out = device.Output();
    return std::any_of(out.begin(), out.end(), [](float sample) { return sample != 0.0f; });
}

double Ms(Clock::duration duration)
{
    return std::chrono::duration<double, std::milli>(duration).count();
}

// From the call of Play to the first frame that sounds at the device. The time is the Play
// call itself, plus the periods the device ran until it put out sound; on a real clock the
// first of those periods is the wait for the next callback, at most one period.
void PlayToFirstSoundingFrame(benchmark::State& state)
{
    const auto channels = VirtualChannels();
    AudioEngine& engine = channels->Engine();
    auto& device = dynamic_cast<NullDevice&>(engine.Device(0));
    const int period = engine.Settings().periodFrames;
    const double periodMs = 1000.0 * period / engine.Settings().sampleRate;
    const auto player = PlayerOf(*channels, QStringLiteral("A"), 1);
    const QString sound = DemoSounds().value(0);
    int periods = 0;
    for (auto _ : state) {
        player->LoadSource({sound, 0, 0}, QStringLiteral("bench"));
        const Clock::time_point start = Clock::now();
        player->Play();
        const double playMs = Ms(Clock::now() - start);
        periods = 0;
        do {
            engine.Advance(period);
            ++periods;
        } while (!Sounds(device) && periods < 100);
        state.SetIterationTime((playMs + periods * periodMs) / 1000.0);
        player->Eject();
        engine.Advance(4 * period); // the fade out
    }
    state.counters["periods"] = periods;
    state.counters["period_ms"] = periodMs;
    state.SetLabel("budget: within one device period + 2 ms");
}

// Two channels of three streams playing the demo sounds in loops: the time of the device's
// callback for one period, and its share of the period.
void CallbackShareOfPeriod(benchmark::State& state)
{
    const auto channels = VirtualChannels();
    AudioEngine& engine = channels->Engine();
    auto& device = dynamic_cast<NullDevice&>(engine.Device(0));
    const int period = engine.Settings().periodFrames;
    const QStringList sounds = DemoSounds();
    for (int i = 0; i < 6; ++i) {
        const auto player = PlayerOf(*channels, i < 3 ? QStringLiteral("A") : QStringLiteral("B"), i % 3 + 1);
        player->SetLoop(true);
        player->LoadSource({sounds.value(i % sounds.size()), 0, 0}, QStringLiteral("bench"));
        player->Play();
    }
    double totalMs = 0;
    std::int64_t done = 0;
    for (auto _ : state) {
        if (done++ % 64 == 0)
            engine.Advance(period); // the disk fills the rings, outside the measure
        const Clock::time_point start = Clock::now();
        device.Advance(period);
        const double ms = Ms(Clock::now() - start);
        totalMs += ms;
        state.SetIterationTime(ms / 1000.0);
    }
    const double periodMs = 1000.0 * period / engine.Settings().sampleRate;
    state.counters["share_%"] = 100.0 * totalMs / (static_cast<double>(done) * periodMs);
    state.counters["period_ms"] = periodMs;
    state.SetLabel("budget: under 10% of the device period");
}
}

// A file on a reader that takes 200 ms for every block (a network share in trouble) plays on
// stream A1 while five other streams play the demo sounds, on the real-time clock of the Null
// device for three seconds. The figure is how far the refill of a healthy stream's ring ever
// fell behind its callback: the ring's length less the audio in it at the worst moment.
void SlowReaderDelaysNoOtherStream(benchmark::State& state)
{
    constexpr auto SlowRead = [](const QString& fileName) {
        if (fileName.endsWith(QLatin1String("#slow")))
            std::this_thread::sleep_for(std::chrono::milliseconds(200));
    };
    AudioSettings settings;
    const auto channels = std::make_unique<Channels>(settings, KernelLog(), PlayQueue::MacroSource());
    AudioEngine& engine = channels->Engine();
    const QStringList sounds = DemoSounds();
    SoundDecoder::SetReadHook(SlowRead);
    const double ringMs = 1000.0 * Voice::RingFrames / settings.sampleRate;
    double worstLagMs = 0;
    std::uint64_t underruns = 0;
    for (auto _ : state) {
        std::vector<std::shared_ptr<CartPlayer>> players;
        for (int i = 0; i < 6; ++i) {
            players.push_back(PlayerOf(*channels, i < 3 ? QStringLiteral("A") : QStringLiteral("B"), i % 3 + 1));
            players.back()->SetLoop(true);
            // "#slow" is not part of the name libsndfile opens: the slow file is a symbolic link.
            QString sound = sounds.value(i % sounds.size());
            if (i == 0) {
                const QString link = QDir::temp().filePath(QStringLiteral("korvane-bench#slow"));
                QFile::remove(link);
                QFile::link(sound, link);
                sound = link;
            }
            players.back()->LoadSource({sound, 0, 0}, QStringLiteral("bench"));
            players.back()->Play();
        }
        QElapsedTimer running;
        running.start();
        while (running.elapsed() < 3000) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
            for (int i = 1; i < 6; ++i) {
                StreamMix& stream = engine.Channel(i < 3 ? 0 : 1).Stream(i % 3);
                int buffered = 0;
                for (int v = 0; v < StreamMix::VoiceCount; ++v)
                    buffered = std::max(buffered, stream.VoiceAt(v).BufferedFrames());
                if (running.elapsed() > 500) // after the rings first filled
                    worstLagMs = std::max(worstLagMs, ringMs - 1000.0 * buffered / settings.sampleRate);
            }
        }
        for (int i = 1; i < 6; ++i)
            underruns += players[static_cast<std::size_t>(i)]->Underruns();
        for (const auto& player : players)
            player->Eject();
        state.SetIterationTime(worstLagMs / 1000.0);
    }
    SoundDecoder::SetReadHook(nullptr);
    state.counters["ring_ms"] = ringMs;
    state.counters["underruns"] = static_cast<double>(underruns);
    state.SetLabel("the worst refill lag of a healthy stream; no underrun");
}

BENCHMARK(PlayToFirstSoundingFrame)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(50);
BENCHMARK(CallbackShareOfPeriod)->UseManualTime()->Unit(benchmark::kMicrosecond)->Iterations(5000);
BENCHMARK(SlowReaderDelaysNoOtherStream)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(1);
