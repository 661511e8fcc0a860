#include "support/VirtualWorkstation.h"
#include "browse/BrowseControls.h"
#include "foundation/Globals.h"
#include "foundation/ui/Dialogs.h"
#include "kernel/audio/AudioEngine.h"
#include "kernel/audio/Channels.h"
#include "kernel/audio/NullDevice.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/iCartPlayer.h"
#include "metering/MeteringControls.h"
#include "onair/OnAirControls.h"
#include "shell/Registry.h"
#include "shell/modMain.h"
#include "support/BenchStation.h"
#include <QCoreApplication>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>

VirtualWorkstation& VirtualWorkstation::Get()
{
    static VirtualWorkstation workstation;
    return workstation;
}

VirtualWorkstation::VirtualWorkstation()
{
    qputenv("KORVANE_STATION", BenchStation::VirtualClock().toUtf8());
    Dialogs::InstallFromEnvironment();
    Registry::RegisterShell();
    Metering::RegisterControls(Registry::Register);
    Browse::RegisterControls(Registry::Register);
    OnAir::RegisterControls(Registry::Register);
    if (!modMain::Main())
        return;
    m_engine = &dynamic_cast<Channels&>(*Globals::Kernel()->Channels()).Engine();
    m_device = &dynamic_cast<NullDevice&>(m_engine->Device(0));
}

double VirtualWorkstation::PeriodMs() const
{
    return 1000.0 * m_engine->Settings().periodFrames / m_engine->Settings().sampleRate;
}

bool VirtualWorkstation::Sounds() const
{
    const std::vector<float>& out = m_device->Output();
    return std::any_of(out.begin(), out.end(), [](float sample) { return sample != 0.0f; });
}

int VirtualWorkstation::PeriodsToSound()
{
    int periods = 0;
    do {
        m_engine->Advance(m_engine->Settings().periodFrames);
        ++periods;
    } while (!Sounds() && periods < 100);
    return periods;
}

void VirtualWorkstation::Silence(iCartPlayer& player)
{
    player.Eject();
    m_engine->Advance(8 * m_engine->Settings().periodFrames); // the fade out
    QCoreApplication::processEvents();
}

void VirtualWorkstation::MeasureToSound(benchmark::State& state, iCartPlayer& player, const std::function<void()>& prepare,
                                        const std::function<void()>& act)
{
    using Clock = std::chrono::steady_clock;
    int periods = 0;
    for (auto _ : state) {
        Silence(player);
        prepare();
        const Clock::time_point start = Clock::now();
        act();
        const double handledMs = std::chrono::duration<double, std::milli>(Clock::now() - start).count();
        periods = PeriodsToSound();
        state.SetIterationTime((handledMs + periods * PeriodMs()) / 1000.0);
    }
    state.counters["periods"] = periods;
    state.counters["period_ms"] = PeriodMs();
    state.SetLabel("budget: within one device period + 2 ms");
}
