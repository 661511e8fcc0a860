// A chained playlist on the Null device's virtual clock: the frames between the last frame of
// one row and the first frame of the next, counted in the device's output. The two rows are
// constant levels at different sample rates (the second is resampled), so a silent frame is a
// gap and a frame louder than either row is an overlap.
#include "foundation/Ini.h"
#include "kernel/EmbeddedKernel.h"
#include "kernel/StationFolder.h"
#include "kernel/audio/AudioEngine.h"
#include "kernel/audio/Channels.h"
#include "kernel/audio/NullDevice.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCartPlayer.h"
#include "kernelapi/iCarts.h"
#include "kernelapi/iChannel.h"
#include "kernelapi/iPlayList.h"
#include "kernelapi/iPlayLists.h"
#include "kernelapi/iSound.h"
#include "kernelapi/iStream.h"
#include "kernelapi/iStreams.h"
#include "tools/StationBuilder.h"
#include "tools/StationOptions.h"
#include <QDataStream>
#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <cmath>

namespace {
constexpr float FirstLevel = 0.5f;
constexpr float SecondLevel = 0.25f;

// A mono 16-bit WAV file of one constant level.
void WriteLevel(const QString& path, float level, int rate, int ms)
{
    const quint32 frames = static_cast<quint32>(rate) * static_cast<quint32>(ms) / 1000;
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return;
    QDataStream out(&file);
    out.setByteOrder(QDataStream::LittleEndian);
    out.writeRawData("RIFF", 4);
    out << quint32(36 + frames * 2);
    out.writeRawData("WAVEfmt ", 8);
    out << quint32(16) << quint16(1) << quint16(1) << quint32(rate) << quint32(rate * 2) << quint16(2) << quint16(16);
    out.writeRawData("data", 4);
    out << quint32(frames * 2);
    const auto sample = static_cast<qint16>(std::lround(level * 32768.0f));
    for (quint32 i = 0; i < frames; ++i)
        out << sample;
}

class ChainStation
{
public:
    ChainStation()
    {
        StationOptions options;
        options.dir = m_dir.path();
        options.soundLength = SoundLength::Short;
        StationBuilder(options).Create();
        WriteIni(QStringLiteral("Audio"), QStringLiteral("Clock"), QStringLiteral("virtual"), m_dir.filePath(QStringLiteral("kernel.ini")));
        kernel = EmbeddedKernel::Open(StationFolder(m_dir.path()), nullptr);
        player = kernel->Channels()->Item(QStringLiteral("A"))->Streams()->Item(1)->CartPlayer();
        list = kernel->PlayLists()->Add();
        list->Put(1, Cart(QStringLiteral("JIN0001"), FirstLevel, 48000));
        list->Put(2, Cart(QStringLiteral("JIN0002"), SecondLevel, 44100));
        list->SetChained(true);
        list->SetPlayer(player);
    }

    std::shared_ptr<iCart> Cart(const QString& id, float level, int rate) const
    {
        const QString path = m_dir.filePath(id + QStringLiteral("-level.wav"));
        WriteLevel(path, level, rate, 200);
        const auto cart = kernel->Carts()->Cart(id);
        cart->Sound()->SetFileName(path);
        cart->Sound()->SetFileStart(0);
        cart->Sound()->SetFileStop(200);
        return cart;
    }

    // Plays the list from its first row and gives the left side of what the device put out.
    std::vector<float> PlayThrough() const
    {
        AudioEngine& engine = dynamic_cast<Channels&>(*kernel->Channels()).Engine();
        const auto& device = dynamic_cast<const NullDevice&>(engine.Device(0));
        const int period = engine.Settings().periodFrames;
        list->SetNextIndex(1);
        list->Play();
        std::vector<float> output;
        for (int p = 0; p < 500 * 48 / period; ++p) {
            engine.Advance(period);
            for (std::size_t i = 0; i < device.Output().size(); i += 2)
                output.push_back(device.Output()[i]);
        }
        return output;
    }

    QTemporaryDir m_dir;
    std::shared_ptr<EmbeddedKernel> kernel;
    std::shared_ptr<iCartPlayer> player;
    std::shared_ptr<iPlayList> list;
};

// Between the first and the last sounding frame: silent frames (a gap) and frames where both
// rows sound (an overlap).
std::pair<int, int> GapAndOverlap(const std::vector<float>& output)
{
    std::size_t first = 0;
    while (first < output.size() && output[first] == 0.0f)
        ++first;
    std::size_t last = output.size();
    while (last > first && output[last - 1] == 0.0f)
        --last;
    int gap = 0;
    int overlap = 0;
    for (std::size_t i = first + 200; i + 50 < last; ++i) { // past the first row's fade in
        gap += std::fabs(output[i]) < SecondLevel / 2 ? 1 : 0;
        overlap += output[i] > FirstLevel + SecondLevel / 2 ? 1 : 0;
    }
    return {gap, overlap};
}
}

void GapBetweenTwoChainedPlaylistItems(benchmark::State& state)
{
    const ChainStation station;
    int worstGap = 0;
    int worstOverlap = 0;
    for (auto _ : state) {
        const auto [gap, overlap] = GapAndOverlap(station.PlayThrough());
        worstGap = std::max(worstGap, gap);
        worstOverlap = std::max(worstOverlap, overlap);
        state.SetIterationTime(static_cast<double>(gap) / 48000.0);
    }
    state.counters["gap_frames"] = worstGap;
    state.counters["overlap_frames"] = worstOverlap;
    state.SetLabel("budget: 0 frames");
}

BENCHMARK(GapBetweenTwoChainedPlaylistItems)->UseManualTime()->Unit(benchmark::kMicrosecond)->Iterations(5);
