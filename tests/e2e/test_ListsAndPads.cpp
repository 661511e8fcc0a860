// A chained list and the pads, by mouse and keys: three carts dragged from the browser into a
// new waiting list play one after another from its Play, and the pads of a list play by key
// and by press on the Live screen.
#include "browse/BrowserRowModel.h"
#include "browse/IFBrowserCart.h"
#include "browse/IFBrowserFamily.h"
#include "e2e/WorkstationSteps.h"
#include "e2e/WorkstationTest.h"
#include "foundation/Globals.h"
#include "foundation/Ini.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCartPlayer.h"
#include "kernelapi/iChannel.h"
#include "kernelapi/iChannels.h"
#include "kernelapi/iPlayList.h"
#include "kernelapi/iPlayListItem.h"
#include "kernelapi/iPlayLists.h"
#include "kernelapi/iStream.h"
#include "kernelapi/iStreams.h"
#include "onair/Directe.h"
#include "onair/IFFastCart.h"
#include "onair/IFFastCarts.h"
#include "onair/IFPlayList.h"
#include "onair/UCChannelStreamSelector.h"
#include "onair/UCFastCartsContents.h"
#include "onair/PlayListItemModel.h"
#include "onair/UCPlayListContents.h"
#include "onair/UCPlayListStatus.h"
#include "support/Photograph.h"
#include <QComboBox>
#include <QLineEdit>
#include <QTabWidget>
#include <QTableView>
#include <QTest>
#include <QToolButton>
#include <QTreeView>

using namespace WorkstationSteps;
using ListsAndPads = WorkstationTest;

namespace {
std::shared_ptr<iCartPlayer> PlayerOf(const QString& channel, int stream)
{
    return Globals::Kernel()->Channels()->Item(channel)->Streams()->Item(stream)->CartPlayer();
}
}

TEST_F(ListsAndPads, ThreeCartsDraggedIntoAChainedListPlayInOrder)
{
    Directe* onAir = OpenLive(station);
    ASSERT_NE(onAir, nullptr);
    OpenFamily(onAir, QStringLiteral("JIN"));

    const auto list = Globals::Kernel()->PlayLists()->Add();
    IFPlayList* waiting = onAir->IFPlayList[0];
    waiting->TmrInit_Timer();
    waiting->TmrFillCombo_Timer();
    const int line = waiting->Combo()->findData(list->ID());
    ASSERT_GE(line, 0) << list->ID().toStdString();
    waiting->CboPlayListNames_Click(line);
    UCPlayListContents* contents = waiting->Contents();
    const QStringList carts{QStringLiteral("JIN0001"), QStringLiteral("JIN0003"), QStringLiteral("JIN0002")};
    for (const QString& id : carts) {
        // Each goes onto the ghost row after the last, so the list grows at its end.
        contents->TmrGrabContents_Timer();
        DragRowOnto(onAir->IFBrowserCart1->ListView1, id, contents, contents->RowPoint(contents->Rows().Count()));
    }
    ASSERT_EQ(list->Count(), 3);
    for (int row = 0; row < 3; ++row)
        EXPECT_EQ(list->Item(row + 1)->Cart()->ID(), carts[row]) << "the list keeps the order of the drags";
    list->SetChained(true);

    UCPlayListStatus* status = waiting->Status();
    status->Selector()->SetChannelName(QStringLiteral("A"));
    status->Selector()->SetStreamIndex(1);
    Photograph(onAir, QStringLiteral("onair-waiting-list"));
    QTest::mouseClick(status->findChild<QToolButton*>(QStringLiteral("CmdPlay")), Qt::LeftButton);
    const auto player = PlayerOf(QStringLiteral("A"), 1);
    QStringList heard;
    for (int ms = 0; ms < 20000 && (heard.size() < 3 || player->Status() != static_cast<qint32>(CartPlayerStatus::Ready)); ms += 10) {
        AdvanceMs(10);
        const auto cart = player->Cart();
        if (cart && player->Stream()->GetLevels().left > -110.0f && (heard.isEmpty() || heard.last() != cart->ID()))
            heard << cart->ID();
    }
    EXPECT_EQ(heard, carts) << heard.join(' ').toStdString();

    const QString log = TodaysLog(station.Dir());
    EXPECT_TRUE(ErrorLines(log).isEmpty()) << log.toStdString();
}

TEST_F(ListsAndPads, PadsPlayByKeyAndByPress)
{
    Directe* onAir = OpenLive(station);
    ASSERT_NE(onAir, nullptr);
    onAir->ListTabs->setCurrentWidget(onAir->IFFastCarts1);
    IFFastCarts* pads = onAir->IFFastCarts1;
    pads->TmrInit_Timer();
    pads->TmrFillCombo_Timer();
    const auto list = Globals::Kernel()->PlayLists()->Item(QStringLiteral("PL0002"));
    ASSERT_NE(list, nullptr);
    pads->SetPlayList(list);
    UCFastCartsContents* grid = pads->UCFastCartsContents1;
    grid->TmrRefresh_Timer();
    for (int i = 0; i < UCFastCartsContents::NumSlots; ++i)
        grid->Pad(i)->TmrInit_Timer();
    pads->UCChannelStreamSelector1->SetChannelName(QStringLiteral("A"));
    pads->UCChannelStreamSelector1->SetStreamIndex(2);
    const auto player = PlayerOf(QStringLiteral("A"), 2);

    EXPECT_FALSE(onAir->PreventShortCuts()) << "no text box has the keys when the page opens";
    EXPECT_TRUE(pads->CmdRespondToKeys->isChecked());
    QTest::keyClick(onAir, Qt::Key_1);
    AdvanceMs(20);
    ASSERT_NE(player->Cart(), nullptr) << "the key 1 fires the first pad";
    EXPECT_EQ(player->Cart()->ID(), list->Item(1)->Cart()->ID());
    EXPECT_EQ(player->Status(), static_cast<qint32>(CartPlayerStatus::Playing));

    IFFastCart* second = grid->Pad(1);
    QTest::mousePress(second, Qt::LeftButton, {}, second->rect().center());
    QTest::mouseRelease(second, Qt::LeftButton, {}, second->rect().center());
    AdvanceMs(20);
    ASSERT_NE(player->Cart(), nullptr);
    EXPECT_EQ(player->Cart()->ID(), list->Item(2)->Cart()->ID()) << "a press fires its pad";
    Photograph(onAir, QStringLiteral("onair-pads"));

    // A text box that wants the keys silences the pads.
    QLineEdit* search = onAir->IFBrowserCart1->findChild<QLineEdit*>();
    onAir->activateWindow();
    QTest::mouseClick(search, Qt::LeftButton);
    search->setFocus();
    QCoreApplication::processEvents();
    ASSERT_TRUE(onAir->PreventShortCuts());
    player->Eject();
    QTest::keyClick(onAir, Qt::Key_1);
    AdvanceMs(20);
    EXPECT_FALSE(player->Loaded());
}
