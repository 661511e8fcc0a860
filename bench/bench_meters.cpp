// Level-meter refresh: one tick of the shared meter clock over the meter row of every channel
// of the demo station, with carts playing on "A" and "B" on the Null device: every meter reads
// its channel and repaints the LEDs that changed.
#include "foundation/Globals.h"
#include "kernel/EmbeddedKernel.h"
#include "kernel/StationFolder.h"
#include "kernelapi/iCartPlayer.h"
#include "kernelapi/iCarts.h"
#include "kernelapi/iChannel.h"
#include "kernelapi/iChannels.h"
#include "kernelapi/iStream.h"
#include "kernelapi/iStreams.h"
#include "metering/IFVumeters.h"
#include "metering/MeterClock.h"
#include "support/BenchStation.h"
#include <QCoreApplication>
#include <benchmark/benchmark.h>

namespace {
std::shared_ptr<iCartPlayer> PlayOn(CKernel& kernel, const QString& channel, const QString& cartID)
{
    auto player = kernel.Channels()->Item(channel)->Streams()->Item(1)->CartPlayer();
    player->Load(kernel.Carts()->Cart(cartID));
    player->SetLoop(true);
    player->Play();
    return player;
}

void Tick()
{
    MeterClock::Instance().Tick();
    QCoreApplication::processEvents();
}

void MeterTickAllChannels(benchmark::State& state)
{
    const auto kernel = EmbeddedKernel::Open(StationFolder(BenchStation::Demo()), nullptr);
    Globals::SetKernel(kernel);
    MeterClock::Instance().Suspend(true);
    {
        IFVumeters row;
        row.resize(240, 320);
        row.Init();
        row.show();
        const auto a = PlayOn(*kernel, QStringLiteral("A"), QStringLiteral("MUS0001"));
        const auto b = PlayOn(*kernel, QStringLiteral("B"), QStringLiteral("MUS0002"));
        // Past the sweep that follows start-up: the figure is of the steady state.
        for (int i = 0; i < 50; ++i)
            Tick();
        for (auto _ : state)
            Tick();
        state.SetLabel(QStringLiteral("budget: under 1 ms per tick, %1 channels").arg(row.MemberCount()).toStdString());
        a->Stop();
        b->Stop();
    }
    Globals::SetKernel(nullptr);
}
}

BENCHMARK(MeterTickAllChannels)->Unit(benchmark::kMicrosecond);
