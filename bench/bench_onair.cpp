// The Live screen of the running workstation on the Null device's virtual clock: from the
// release of a drag on a deck, and from a click on Play of a loaded deck, to the first frame
// that sounds at the device. The time is the handling of the mouse event (load and play
// through the kernel), plus the device periods until sound; on a real clock the first of those
// periods is the wait for the next callback, at most one period.
#include "browse/IFBrowserCart.h"
#include "foundation/Globals.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/iCartPlayer.h"
#include "kernelapi/iCarts.h"
#include "onair/Directe.h"
#include "onair/IFCartPlayer.h"
#include "support/VirtualWorkstation.h"
#include <QApplication>
#include <QTest>
#include <QTreeView>
#include <benchmark/benchmark.h>

namespace {
// The Live screen, loaded, open on family JIN.
Directe* LiveScreen()
{
    static Directe* page = [] {
        auto* made = new Directe;
        made->show();
        QCoreApplication::processEvents();
        made->TmrLoader_Timer();
        made->IFBrowserCart1->LoadFamilyByName(QStringLiteral("JIN"));
        return made;
    }();
    return page;
}

void DragReleaseOnDeckToFirstSoundingFrame(benchmark::State& state)
{
    VirtualWorkstation& workstation = VirtualWorkstation::Get();
    if (!workstation.Running()) {
        state.SkipWithError("the workstation did not start");
        return;
    }
    Directe* page = LiveScreen();
    IFCartPlayer* deck = page->IFCartPlayer1[0];
    QTreeView* list = page->IFBrowserCart1->ListView1;
    QWidget* viewport = list->viewport();
    const QPoint from = list->visualRect(list->model()->index(0, 0)).center();
    const QPoint onDeck = viewport->mapFromGlobal(deck->mapToGlobal(deck->rect().center()));
    workstation.MeasureToSound(
        state, *deck->CartPlayer(),
        [&] {
            QTest::mousePress(viewport, Qt::LeftButton, {}, from);
            QTest::mouseMove(viewport, from + QPoint(0, 12));
            QTest::mouseMove(viewport, onDeck);
        },
        [&] { QTest::mouseRelease(viewport, Qt::LeftButton, {}, onDeck); });
}

void PlayClickToFirstSoundingFrame(benchmark::State& state)
{
    VirtualWorkstation& workstation = VirtualWorkstation::Get();
    if (!workstation.Running()) {
        state.SkipWithError("the workstation did not start");
        return;
    }
    IFCartPlayer* deck = LiveScreen()->IFCartPlayer1[0];
    QWidget* play = deck->findChild<QWidget*>(QStringLiteral("CmdPlay"));
    const auto cart = Globals::Kernel()->Carts()->Cart(QStringLiteral("JIN0001"));
    workstation.MeasureToSound(
        state, *deck->CartPlayer(),
        [&] {
            deck->CartPlayer()->Load(cart);
            QCoreApplication::processEvents();
        },
        [&] { QTest::mouseClick(play, Qt::LeftButton); });
}
}

BENCHMARK(DragReleaseOnDeckToFirstSoundingFrame)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(30);
BENCHMARK(PlayClickToFirstSoundingFrame)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(30);
