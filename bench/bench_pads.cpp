// The fast-cart panel of the running workstation on the Null device's virtual clock: from a
// key press on a pad to the first frame that sounds at the device. The time is the handling
// of the key (load and play through the kernel), plus the device periods until sound; on a
// real clock the first of those periods is the wait for the next callback, at most one period.
#include "foundation/Globals.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/iCartPlayer.h"
#include "kernelapi/iCarts.h"
#include "kernelapi/iChannel.h"
#include "kernelapi/iChannels.h"
#include "kernelapi/iPlayList.h"
#include "kernelapi/iPlayLists.h"
#include "kernelapi/iStream.h"
#include "kernelapi/iStreams.h"
#include "onair/IFFastCarts.h"
#include "onair/UCChannelStreamSelector.h"
#include "onair/UCFastCartsContents.h"
#include "support/VirtualWorkstation.h"
#include <QApplication>
#include <QTest>
#include <benchmark/benchmark.h>

namespace {
// The panel plays on stream 2 of channel A; its pads show a list whose pad 5 (key Q) holds
// JIN0001.
IFFastCarts* PadsPanel()
{
    static IFFastCarts* panel = [] {
        auto* made = new IFFastCarts;
        made->resize(900, 520);
        made->show();
        made->Init();
        made->TmrInit_Timer();
        made->UCChannelStreamSelector1->SetChannelName(QStringLiteral("A"));
        made->UCChannelStreamSelector1->SetStreamIndex(2);
        const auto kernel = Globals::Kernel();
        const auto list = kernel->PlayLists()->Add();
        list->Put(5, kernel->Carts()->Cart(QStringLiteral("JIN0001")));
        made->SetPlayList(list);
        made->UCFastCartsContents1->TmrRefresh_Timer();
        QCoreApplication::processEvents();
        return made;
    }();
    return panel;
}

void PadKeyToFirstSoundingFrame(benchmark::State& state)
{
    VirtualWorkstation& workstation = VirtualWorkstation::Get();
    if (!workstation.Running()) {
        state.SkipWithError("the workstation did not start");
        return;
    }
    IFFastCarts* panel = PadsPanel();
    const auto player = Globals::Kernel()->Channels()->Item(QStringLiteral("A"))->Streams()->Item(2)->CartPlayer();
    workstation.MeasureToSound(state, *player, [] {}, [panel] { QTest::keyClick(panel, Qt::Key_Q); });
}
}

BENCHMARK(PadKeyToFirstSoundingFrame)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(30);
