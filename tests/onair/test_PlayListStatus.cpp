// The status strip, the disk buttons and the playlist panel on the real kernel: the words and
// lamps of each state, Chained flipped, Play on a chosen stream, Shuffle, saving with the save
// dialog, a macro dropped on an empty panel, and a list removed while it is shown.
#include "PlayListTest.h"
#include "editing/DlgCartIDSelector.h"
#include "editing/KorvaneCommonDialog.h"
#include "editing/IFCartIDSelector.h"
#include "kernelapi/iChannel.h"
#include "kernelapi/iChannels.h"
#include "kernelapi/iMacro.h"
#include "kernelapi/iStream.h"
#include "kernelapi/iStreams.h"
#include "onair/IFPlayList.h"
#include "onair/UCChannelStreamSelector.h"
#include "onair/UCPlayListDiskOperation.h"
#include "onair/UCPlayListStatus.h"
#include "support/Photograph.h"
#include <QComboBox>
#include <QLabel>
#include <QToolButton>

using namespace PlayListStatusTable;

TEST_F(PlayListTest, TheStatusStripShowsTheStateOfTheListAndOffWithoutOne)
{
    UCPlayListStatus status;
    status.Init();
    EXPECT_EQ(status.Word(Loaded), "Not Loaded");
    EXPECT_EQ(status.Icon(Chained), "STATUS_NOT_CHAINED");
    EXPECT_FALSE(status.PlayShown());
    EXPECT_FALSE(status.WaitShown());

    status.SetPlayList(List(QStringLiteral("PL0001")));
    EXPECT_EQ(status.Word(Loaded), "Loaded");
    EXPECT_EQ(status.LoadedContents(), "MES0001");
    EXPECT_EQ(status.Word(Playing), "Stopped");
    EXPECT_EQ(status.Word(Modified), "Not Modified");
    EXPECT_EQ(status.Word(Chained), "Chained");
    EXPECT_EQ(status.Icon(AutoClose), "STATUS_AUTOCLOSE");
    EXPECT_TRUE(status.PlayShown());

    QTest::mouseClick(status.findChild<QLabel*>(QStringLiteral("LblChained")), Qt::LeftButton);
    EXPECT_FALSE(List(QStringLiteral("PL0001"))->Chained());
    EXPECT_EQ(status.Word(Chained), "Not Chained") << "the strip follows the list's event";

    status.SetPlayList(List(QStringLiteral("PL0002")));
    EXPECT_EQ(status.Word(Loaded), "Not Loaded");
    EXPECT_TRUE(status.LoadedContents().isEmpty());
    EXPECT_TRUE(log->Errors().isEmpty()) << log->Errors().join('\n').toStdString();
}

TEST_F(PlayListTest, PlayStartsTheListOnTheChosenStream)
{
    UCPlayListStatus status;
    status.Init();
    status.SetPlayList(List(QStringLiteral("PL0002")));
    status.Selector()->SetChannelName(QStringLiteral("A"));
    status.Selector()->SetStreamIndex(2);
    ASSERT_NE(status.Selector()->Stream(), nullptr);
    status.findChild<QToolButton*>(QStringLiteral("CmdPlay"))->click();
    AdvanceMs(10);
    const auto player = kernel->Channels()->Item(QStringLiteral("A"))->Streams()->Item(2)->CartPlayer();
    EXPECT_EQ(player->Status(), DeckStatus::Playing);
    EXPECT_EQ(player->Cart(), Cart(QStringLiteral("JIN0001")));
    EXPECT_EQ(status.Word(Playing), "Playing");
    player->Eject();
    EXPECT_EQ(status.Word(Playing), "Stopped");
}

TEST_F(PlayListTest, ARightPressOnTheMacroOffersShuffle)
{
    UCPlayListStatus status;
    status.SetPlayList(List(QStringLiteral("PL0002")));
    int changes = 0;
    QObject::connect(List(QStringLiteral("PL0002")).get(), &iPlayList::ContentChanged, [&] { ++changes; });
    dialogs->popupChoices.push_back(UCPlayListStatus::ShuffleKey);
    status.LblLoadedContents_RightPress(QPoint(10, 10));
    ASSERT_EQ(dialogs->menus.size(), 1);
    QStringList texts;
    for (const auto& line : dialogs->menus.first())
        texts << line.text;
    EXPECT_EQ(texts, (QStringList{"-Playlist", "Shuffle", "-Cancel", "Cancel"}));
    EXPECT_EQ(changes, 1) << "the list was shuffled";
    status.LblLoadedContents_RightPress(QPoint(10, 10)); // no choice: nothing
    EXPECT_EQ(changes, 1);
}

TEST_F(PlayListTest, SaveAsksForAMacroIDAndADescriptionAndReloadNeedsAMacro)
{
    UCPlayListDiskOperation disk;
    auto* save = disk.findChild<QToolButton*>(QStringLiteral("CmdSave"));
    auto* reload = disk.findChild<QToolButton*>(QStringLiteral("CmdReload"));
    disk.SetPlayList(List(QStringLiteral("PL0002")));
    EXPECT_FALSE(save->isEnabled()) << "no macro loaded";
    disk.SetPlayList(List(QStringLiteral("PL0001")));
    EXPECT_TRUE(save->isEnabled() && reload->isEnabled());
    disk.SetEnabled(false);
    EXPECT_FALSE(save->isEnabled() || reload->isEnabled());
    disk.SetEnabled(true);

    disk.SetPlayList(List(QStringLiteral("PL0002")));
    int shown = 0;
    auto previous = KorvaneCommonDialog::SetModalRunner([&](DlgCartIDSelector& dialog) {
        ++shown;
        Q_EMIT dialog.Selector()->OK(QStringLiteral("MES0009"));
    });
    dialogs->inputs.push_back(QStringLiteral("Morning pads"));
    disk.CmdSave_Click();
    KorvaneCommonDialog::SetModalRunner(std::move(previous));
    EXPECT_EQ(shown, 1);
    EXPECT_EQ(disk.Dialog().CartFilter(), KorvaneCommonDialog::Macros);
    ASSERT_EQ(dialogs->prompts.size(), 1);
    EXPECT_TRUE(dialogs->prompts.first().startsWith(QStringLiteral("The Macro you are going to save has no description.")));
    const auto list = List(QStringLiteral("PL0002"));
    ASSERT_NE(list->LoadedMacro(), nullptr);
    EXPECT_EQ(list->LoadedMacro()->Cart()->ID(), "MES0009");
    EXPECT_EQ(Cart(QStringLiteral("MES0009"))->Description(), "Morning pads");
    EXPECT_TRUE(save->isEnabled()) << "the saved list has its macro now";

    auto cancel = KorvaneCommonDialog::SetModalRunner([](DlgCartIDSelector& dialog) { Q_EMIT dialog.Selector()->Cancel(); });
    const auto fresh = Lists()->Add();
    disk.SetPlayList(fresh);
    disk.CmdSave_Click();
    KorvaneCommonDialog::SetModalRunner(std::move(cancel));
    EXPECT_EQ(fresh->LoadedMacro(), nullptr) << "a cancelled dialog saves nothing";
    EXPECT_TRUE(log->Errors().isEmpty()) << log->Errors().join('\n').toStdString();
}

TEST_F(PlayListTest, AMacroDroppedOnAnEmptyPanelBecomesAListAndOtherCartsDoNot)
{
    IFPlayList panel;
    panel.resize(640, 480);
    panel.show();
    panel.TmrInit_Timer();
    EXPECT_EQ(panel.Combo()->itemText(0), "[None]");
    EXPECT_EQ(panel.Combo()->count(), 1 + Lists()->Count());
    const int before = Lists()->Count();
    panel.Drop(QStringLiteral("JIN0001"), 100, 300);
    EXPECT_EQ(panel.PlayList(), nullptr);
    EXPECT_EQ(Lists()->Count(), before);

    panel.Drop(QStringLiteral("MES0002"), 100, 300);
    ASSERT_NE(panel.PlayList(), nullptr);
    EXPECT_EQ(Lists()->Count(), before + 1);
    EXPECT_EQ(panel.PlayList()->LoadedMacro()->Cart()->ID(), "MES0002");
    EXPECT_EQ(panel.Combo()->currentData().toString(), panel.PlayList()->ID());
    panel.Contents()->TmrGrabContents_Timer();
    EXPECT_EQ(panel.Contents()->Rows().Count(), 4) << "three steps and the ghost";
    EXPECT_TRUE(log->Errors().isEmpty()) << log->Errors().join('\n').toStdString();
}

TEST_F(PlayListTest, AListRemovedWhileShownLeavesThePanelUsable)
{
    IFPlayList panel;
    panel.resize(640, 480);
    panel.show();
    panel.TmrInit_Timer();
    const int line = panel.Combo()->findData(QStringLiteral("PL0002"));
    ASSERT_GT(line, 0);
    panel.Combo()->setCurrentIndex(line);
    panel.CboPlayListNames_Click(line);
    ASSERT_EQ(panel.PlayList(), List(QStringLiteral("PL0002")));
    EXPECT_EQ(panel.Combo()->itemText(line), "Morning pads");

    Lists()->Remove(QStringLiteral("PL0002"));
    ASSERT_TRUE(panel.TmrFillCombo().isActive());
    panel.TmrFillCombo_Timer();
    EXPECT_EQ(panel.PlayList(), nullptr);
    EXPECT_EQ(panel.Combo()->currentIndex(), 0);
    EXPECT_EQ(panel.Combo()->findData(QStringLiteral("PL0002")), -1);

    panel.CboPlayListNames_Click(panel.Combo()->findData(QStringLiteral("PL0001")));
    EXPECT_EQ(panel.PlayList(), List(QStringLiteral("PL0001")));
    panel.CboPlayListNames_Click(0);
    EXPECT_EQ(panel.PlayList(), nullptr);
    EXPECT_TRUE(log->Errors().isEmpty()) << log->Errors().join('\n').toStdString();
}

TEST_F(PlayListTest, ThePanelIsPhotographed)
{
    IFPlayList panel;
    panel.resize(680, 420);
    panel.show();
    panel.TmrInit_Timer();
    panel.SetPlayList(List(QStringLiteral("PL0002")));
    const auto list = List(QStringLiteral("PL0002"));
    list->Item(2)->SetLooped(true);
    list->Item(3)->SetIgnored(true);
    list->SetNextIndex(4);
    panel.Contents()->TmrGrabContents_Timer();
    panel.Contents()->SelectRow(2);
    const QPoint over = panel.Contents()->RowPoint(6);
    panel.Contents()->Over(over.x(), over.y());
    QApplication::processEvents();
    EXPECT_TRUE(Photograph(&panel, QStringLiteral("PlayList")));
}
