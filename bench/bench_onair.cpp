// The on-air page of the running workstation on the Null device's virtual clock: from the
// release of a drag on a deck, and from a click on Play of a loaded deck, to the first frame
// that sounds at the device. The time is the handling of the mouse event (load and play
// through the kernel), plus the device periods until sound; on a real clock the first of those
// periods is the wait for the next callback, at most one period.
#include "browse/IFBrowserCart.h"
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
#include "metering/MeteringControls.h"
#include "onair/FrmOnAir.h"
#include "onair/IFCartPlayer.h"
#include "onair/OnAirControls.h"
#include "shell/Registry.h"
#include "shell/modMain.h"
#include "support/BenchStation.h"
#include <QApplication>
#include <QTest>
#include <QTreeView>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>

namespace {
using Clock = std::chrono::steady_clock;

// The workstation started as main starts it, with the on-air page open on family JIN.
struct OnAirRig
{
    FrmOnAir* page = nullptr;
    IFCartPlayer* deck = nullptr;
    AudioEngine* engine = nullptr;
    NullDevice* device = nullptr;

    static OnAirRig& Get()
    {
        static OnAirRig rig;
        return rig;
    }

    OnAirRig()
    {
        qputenv("KORVANE_STATION", BenchStation::VirtualClock().toUtf8());
        Dialogs::InstallFromEnvironment();
        Registry::RegisterShell();
        Metering::RegisterControls(Registry::Register);
        Browse::RegisterControls(Registry::Register);
        OnAir::RegisterControls(Registry::Register);
        if (!modMain::Main())
            return;
        engine = &dynamic_cast<Channels&>(*Globals::Kernel()->Channels()).Engine();
        device = &dynamic_cast<NullDevice&>(engine->Device(0));
        page = new FrmOnAir;
        page->show();
        QCoreApplication::processEvents();
        page->IFBrowserCart1->LoadFamilyByName(QStringLiteral("JIN"));
        deck = page->IFCartPlayer1[0];
    }

    double PeriodMs() const { return 1000.0 * engine->Settings().periodFrames / engine->Settings().sampleRate; }

    bool Sounds() const
    {
        const std::vector<float>& out = device->Output();
        return std::any_of(out.begin(), out.end(), [](float sample) { return sample != 0.0f; });
    }

    // Runs the device until it puts out sound; the number of periods it took.
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
        deck->CartPlayer()->Eject();
        engine->Advance(8 * engine->Settings().periodFrames); // the fade out
        QCoreApplication::processEvents();
    }
};

double Ms(Clock::duration duration)
{
    return std::chrono::duration<double, std::milli>(duration).count();
}

void Report(benchmark::State& state, const OnAirRig& rig, int periods)
{
    state.counters["periods"] = periods;
    state.counters["period_ms"] = rig.PeriodMs();
    state.SetLabel("budget: within one device period + 2 ms");
}

void DragReleaseOnDeckToFirstSoundingFrame(benchmark::State& state)
{
    OnAirRig& rig = OnAirRig::Get();
    if (!rig.deck) {
        state.SkipWithError("the workstation did not start");
        return;
    }
    QTreeView* list = rig.page->IFBrowserCart1->ListView1;
    QWidget* viewport = list->viewport();
    const QModelIndex row = list->model()->index(0, 0);
    const QPoint from = list->visualRect(row).center();
    const QPoint onDeck = viewport->mapFromGlobal(rig.deck->mapToGlobal(rig.deck->rect().center()));
    int periods = 0;
    for (auto _ : state) {
        rig.Silence();
        QTest::mousePress(viewport, Qt::LeftButton, {}, from);
        QTest::mouseMove(viewport, from + QPoint(0, 12));
        QTest::mouseMove(viewport, onDeck);
        const Clock::time_point start = Clock::now();
        QTest::mouseRelease(viewport, Qt::LeftButton, {}, onDeck);
        const double handledMs = Ms(Clock::now() - start);
        periods = rig.PeriodsToSound();
        state.SetIterationTime((handledMs + periods * rig.PeriodMs()) / 1000.0);
    }
    Report(state, rig, periods);
}

void PlayClickToFirstSoundingFrame(benchmark::State& state)
{
    OnAirRig& rig = OnAirRig::Get();
    if (!rig.deck) {
        state.SkipWithError("the workstation did not start");
        return;
    }
    QWidget* play = rig.deck->findChild<QWidget*>(QStringLiteral("CmdPlay"));
    const auto cart = Globals::Kernel()->Carts()->Cart(QStringLiteral("JIN0001"));
    int periods = 0;
    for (auto _ : state) {
        rig.Silence();
        rig.deck->CartPlayer()->Load(cart);
        QCoreApplication::processEvents();
        const Clock::time_point start = Clock::now();
        QTest::mouseClick(play, Qt::LeftButton);
        const double handledMs = Ms(Clock::now() - start);
        periods = rig.PeriodsToSound();
        state.SetIterationTime((handledMs + periods * rig.PeriodMs()) / 1000.0);
    }
    Report(state, rig, periods);
}
}

BENCHMARK(DragReleaseOnDeckToFirstSoundingFrame)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(30);
BENCHMARK(PlayClickToFirstSoundingFrame)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(30);
