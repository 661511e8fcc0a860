// A playlist of 1,000 items shown in the playlist panel: from the list set on the panel to
// every row read and on the grid, with the longest stall of the event loop meanwhile. The
// list is made once from a 1,000-step macro on a copy of the demo station of its own.
#include "foundation/Globals.h"
#include "kernel/EmbeddedKernel.h"
#include "kernel/StationFolder.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCarts.h"
#include "kernelapi/iMacro.h"
#include "kernelapi/iPlayList.h"
#include "kernelapi/iPlayLists.h"
#include "onair/IFPlayList.h"
#include "onair/PlayListItemModel.h"
#include "onair/UCPlayListContents.h"
#include "support/BenchStation.h"
#include "support/StallProbe.h"
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <benchmark/benchmark.h>
#include <algorithm>

namespace {
constexpr int Items = 1000;
const QString MacroID = QStringLiteral("MES0100");

QString PlayListStation()
{
    return BenchStation::OwnDemo(QStringLiteral("playlist-1000"));
}

struct PlayListRig
{
    PlayListRig()
    {
        kernel = EmbeddedKernel::Open(StationFolder(PlayListStation()), nullptr);
        Globals::SetKernel(kernel);
        list = ThousandItemList();
        panel.resize(800, 900);
        panel.show();
        panel.TmrInit_Timer();
    }
    static PlayListRig& Get()
    {
        static PlayListRig* rig = nullptr;
        if (!rig) {
            rig = new PlayListRig;
            qAddPostRoutine([] {
                delete std::exchange(rig, nullptr);
                Globals::SetKernel(nullptr);
            });
        }
        return *rig;
    }

    // The list made from the 1,000-step macro, made with it on the first run.
    std::shared_ptr<iPlayList> ThousandItemList()
    {
        const auto lists = kernel->PlayLists();
        for (int index = 1; index <= lists->Count(); ++index)
            if (lists->Item(index)->Count() == Items)
                return lists->Item(index);
        if (!kernel->Carts()->Exists(MacroID)) {
            const auto macro = kernel->Carts()->NewMacro();
            macro->Clear();
            const QStringList steps{QStringLiteral("JIN0001"), QStringLiteral("MUS0002"), QStringLiteral("CON0003"),
                                    QStringLiteral("MES0002"), QStringLiteral("PUB0001")};
            for (int i = 0; i < Items; ++i)
                macro->Add(i % 50 == 49 ? nullptr : kernel->Carts()->Cart(steps[i % steps.size()]), nullptr);
            macro->Cart()->SetID(MacroID);
            macro->Save(QStringLiteral("A thousand steps"));
        }
        return lists->AddFromMacro(MacroID);
    }

    std::shared_ptr<EmbeddedKernel> kernel;
    std::shared_ptr<iPlayList> list;
    IFPlayList panel;
};

void ThousandItemPlayListIntoPanel(benchmark::State& state)
{
    PlayListRig& rig = PlayListRig::Get();
    double longestStall = 0;
    for (auto _ : state) {
        rig.panel.SetPlayList(nullptr);
        QCoreApplication::processEvents();
        QElapsedTimer clock;
        clock.start();
        StallProbe probe;
        rig.panel.SetPlayList(rig.list);
        QCoreApplication::processEvents(); // the grid lays out and paints its rows
        longestStall = std::max(longestStall, probe.FinishMs());
        state.SetIterationTime(clock.nsecsElapsed() / 1e9);
    }
    state.counters["rows"] = rig.panel.Contents()->Rows().Count();
    state.counters["stall_ms"] = longestStall;
    state.SetLabel("budget: under 100 ms, no stall over 16 ms");
}
}

BENCHMARK(ThousandItemPlayListIntoPanel)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);
