// A take on air, by mouse: Blank proposes a new cassette in the temporary family, Rec records
// the station's input (a tone on the demo station's Null device, on the virtual clock), Stop
// puts the new cart in the browser, a drag puts it on a deck where it sounds, and a held press
// on the eraser deletes it.
#include "browse/BrowserRowModel.h"
#include "browse/IFBrowserCart.h"
#include "browse/IFBrowserFamily.h"
#include "e2e/WorkstationSteps.h"
#include "e2e/WorkstationTest.h"
#include "editing/IFCartEraser.h"
#include "editing/IFCartRecorder.h"
#include "foundation/controls/DisplayLabel.h"
#include "foundation/Globals.h"
#include "foundation/Ini.h"
#include "foundation/controls/UCButton.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCartPlayer.h"
#include "kernelapi/iCartRecorder.h"
#include "kernelapi/iCarts.h"
#include "kernelapi/iStream.h"
#include "onair/Directe.h"
#include "onair/IFCartPlayer.h"
#include "support/Photograph.h"
#include <QApplication>
#include <QTest>
#include <QTreeView>

using namespace WorkstationSteps;
using Recording = WorkstationTest;

TEST_F(Recording, ATakeGoesFromBlankToTheBrowserToADeckAndIsErasedByAHeldPress)
{
    Directe* onAir = OpenLive(station);
    ASSERT_NE(onAir, nullptr);
    IFCartRecorder* panel = onAir->IFCartRecorder1;
    const std::shared_ptr<iCartRecorder> recorder = panel->CartRecorder();
    ASSERT_NE(recorder, nullptr) << "the Rec channel gives its recorder";

    const QString blankFamily = Globals::Kernel()->Config(QStringLiteral("FamEspTmp")).toString();
    OpenFamily(onAir, blankFamily);
    Press(panel->CmdBlank);
    EXPECT_EQ(recorder->LoadState(), iCartRecorder::Proposed);
    EXPECT_EQ(panel->LblTitle->Text(), QStringLiteral("New Cassette"));

    Press(panel->CmdRec);
    AdvanceMs(2000);
    EXPECT_EQ(recorder->RecordingState(), iCartRecorder::Recording);
    Photograph(onAir, QStringLiteral("onair-recording"));
    Press(panel->CmdRec);
    EXPECT_EQ(recorder->RecordingState(), iCartRecorder::Stopped);
    const QString take = recorder->DisplayName();
    ASSERT_TRUE(take.startsWith(blankFamily)) << take.toStdString();
    const auto cart = Globals::Kernel()->Carts()->Cart(take);
    ASSERT_NE(cart, nullptr);
    EXPECT_GE(cart->Time(), 1900) << "about two seconds were recorded";

    IFBrowserCart* carts = onAir->IFBrowserCart1;
    for (int k = 0; k < 100 && RowCentre(carts->ListView1, take).isNull(); ++k)
        QCoreApplication::processEvents();
    IFCartPlayer* deck = onAir->IFCartPlayer1[0];
    DragRowOnto(carts->ListView1, take, deck);
    AdvanceMs(200);
    ASSERT_EQ(deck->CartPlayer()->Status(), static_cast<qint32>(CartPlayerStatus::Playing));
    EXPECT_GT(deck->CartPlayer()->Stream()->GetLevels().left, -40.0f) << "the recorded tone sounds";
    Press(deck->findChild<UCButton*>(QStringLiteral("CmdEject")));

    IFCartEraser* eraser = onAir->IFCartEraser1;
    qint64 now = 0;
    eraser->SetClock([&now] { return now; });
    DragRowOnto(carts->ListView1, take, eraser);
    ASSERT_NE(eraser->Cart(), nullptr);
    EXPECT_EQ(eraser->Cart()->ID(), take);
    QTest::mousePress(eraser->CmdErase, Qt::LeftButton);
    now += 2000;
    eraser->TmrErase_Timer();
    EXPECT_TRUE(Globals::Kernel()->Carts()->Exists(take)) << "two seconds of the five";
    now += 3100;
    eraser->TmrErase_Timer();
    QTest::mouseRelease(eraser->CmdErase, Qt::LeftButton);
    EXPECT_FALSE(Globals::Kernel()->Carts()->Exists(take));

    const QString log = TodaysLog(station.Dir());
    EXPECT_TRUE(ErrorLines(log).isEmpty()) << log.toStdString();
}
