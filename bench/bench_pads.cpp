// The fast-cart panel of the running workstation on the Null device's virtual clock: from a
// key press on a pad to the first frame that sounds at the device. The time is the handling
// of the key (load and play through the kernel), plus the device periods until sound; on a
// real clock the first of those periods is the wait for the next callback, at most one period.
//
// The workstation is the one the on-air figures started (they run first, in file order); run
// alone, this figure starts it the same way on the same station.
#include "browse/BrowseControls.h"
#include "foundation/Globals.h"
#include "foundation/Ini.h"
#include "foundation/ui/Dialogs.h"
#include "kernel/audio/AudioEngine.h"
#include "kernel/audio/Channels.h"
#include "kernel/audio/NullDevice.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/iCartPlayer.h"
#include "kernelapi/iCarts.h"
#include "kernelapi/iChannel.h"
#include "kernelapi/iChannels.h"
#include "kernelapi/iPlayList.h"
#include "kernelapi/iPlayLists.h"
#include "kernelapi/iStream.h"
#include "kernelapi/iStreams.h"
#include "metering/MeteringControls.h"
#include "onair/IFFastCart.h"
#include "onair/IFFastCarts.h"
#include "onair/OnAirControls.h"
#include "onair/UCChannelStreamSelector.h"
#include "onair/UCFastCartsContents.h"
#include "shell/Registry.h"
#include "shell/modInterface.h"
#include "shell/modMain.h"
#include "support/BenchStation.h"
#include <QApplication>
#include <QTest>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>

namespace {
using Clock = std::chrono::steady_clock;

// The panel on stream 2 of channel A, its pads showing a list whose pad 4 (key Q) holds JIN0001.
struct PadsRig
{
    IFFastCarts* panel = nullptr;
    std::shared_ptr<iCartPlayer> player;
    AudioEngine* engine = nullptr;
    NullDevice* device = nullptr;

    static PadsRig& Get()
    {
        static PadsRig rig;
        return rig;
    }

    PadsRig()
    {
        if (!modInterface::Interface()) {
            qputenv("KORVANE_STATION", BenchStation::VirtualClock().toUtf8());
            Dialogs::InstallFromEnvironment();
            Registry::RegisterShell();
            Metering::RegisterControls(Registry::Register);
            Browse::RegisterControls(Registry::Register);
            OnAir::RegisterControls(Registry::Register);
            if (!modMain::Main())
                return;
        }
        const auto kernel = Globals::Kernel();
        engine = &dynamic_cast<Channels&>(*kernel->Channels()).Engine();
        device = &dynamic_cast<NullDevice&>(engine->Device(0));
        panel = new IFFastCarts;
        panel->resize(900, 520);
        panel->show();
        panel->Init();
        panel->TmrInit_Timer();
        panel->UCChannelStreamSelector1->SetChannelName(QStringLiteral("A"));
        panel->UCChannelStreamSelector1->SetStreamIndex(2);
        const auto list = kernel->PlayLists()->Add();
        list->Put(5, kernel->Carts()->Cart(QStringLiteral("JIN0001")));
        panel->SetPlayList(list);
        panel->UCFastCartsContents1->TmrRefresh_Timer();
        player = kernel->Channels()->Item(QStringLiteral("A"))->Streams()->Item(2)->CartPlayer();
        QCoreApplication::processEvents();
    }

    double PeriodMs() const { return 1000.0 * engine->Settings().periodFrames / engine->Settings().sampleRate; }

    bool Sounds() const
    {
        const std::vector<float>& out = device->Output();
        return std::any_of(out.begin(), out.end(), [](float sample) { return sample != 0.0f; });
    }

    int PeriodsToSound()
    {
        int periods = 0;
        do {
            engine->Advance(engine->Settings().periodFrames);
            ++periods;
        } while (!Sounds() && periods < 100);
        return periods;
    }

    void Silence()
    {
        player->Eject();
        engine->Advance(8 * engine->Settings().periodFrames); // the fade out
        QCoreApplication::processEvents();
    }
};

double Ms(Clock::duration duration)
{
    return std::chrono::duration<double, std::milli>(duration).count();
}

void PadKeyToFirstSoundingFrame(benchmark::State& state)
{
    PadsRig& rig = PadsRig::Get();
    if (!rig.panel) {
        state.SkipWithError("the workstation did not start");
        return;
    }
    int periods = 0;
    for (auto _ : state) {
        rig.Silence();
        const Clock::time_point start = Clock::now();
        QTest::keyClick(rig.panel, Qt::Key_Q);
        const double handledMs = Ms(Clock::now() - start);
        periods = rig.PeriodsToSound();
        state.SetIterationTime((handledMs + periods * rig.PeriodMs()) / 1000.0);
    }
    state.counters["periods"] = periods;
    state.counters["period_ms"] = rig.PeriodMs();
    state.SetLabel("budget: within one device period + 2 ms");
}
}

BENCHMARK(PadKeyToFirstSoundingFrame)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(30);
