// The playlist grid on the real kernel: the rows and the ghost, the next-row arrow, the double
// clicks, the edit buttons, drops by both protocols, rows moved by a drag, families, and carts
// that went away.
#include "PlayListTest.h"
#include "foundation/Strings.h"
#include "kernelapi/iFamilies.h"
#include "kernelapi/iFamily.h"
#include "shell/components/CComponent.h"
#include <QToolButton>

using namespace PlayListRows;

namespace {
std::shared_ptr<CComponent> Offering(int shareType, std::shared_ptr<QObject> object)
{
    auto source = std::make_shared<CComponent>();
    source->SetName(QStringLiteral("CartBrowser"));
    source->SetShareType(shareType);
    source->SetSharedObject(std::move(object));
    return source;
}
}

TEST_F(PlayListTest, TheGridShowsEveryRowKindAndTheGhost)
{
    Contents(QStringLiteral("PL0002"));
    ASSERT_EQ(Rows().Count(), 7);
    EXPECT_EQ(Icon(1, Type), "SOUND");
    EXPECT_EQ(Text(1, ID), "JIN0001");
    EXPECT_EQ(Text(1, Time), MsToHuman(Cart(QStringLiteral("JIN0001"))->Time()));
    EXPECT_EQ(Text(1, UsefulTime), MsToHuman(Cart(QStringLiteral("JIN0001"))->UsefulTime()));
    EXPECT_EQ(Text(1, Description), Cart(QStringLiteral("JIN0001"))->Title());
    EXPECT_EQ(Icon(5, Type), "BLANK");
    EXPECT_TRUE(Text(5, ID).isEmpty());
    EXPECT_EQ(Icon(7, Type), "GHOST");
    EXPECT_EQ(Icon(1, Next), "PLAYING") << "the list plays its first row next";

    contents->SetPlayList(List(QStringLiteral("PL0001")));
    EXPECT_EQ(Rows().Count(), 4);
    EXPECT_EQ(Icon(1, Type), "ACTION");
    contents->SetPlayList(nullptr);
    EXPECT_EQ(Rows().Count(), 0) << "no list, no ghost";
    EXPECT_TRUE(log->Errors().isEmpty()) << log->Errors().join('\n').toStdString();
}

TEST_F(PlayListTest, ADeletedCartShowsAsUnknownAndTheListStaysUsable)
{
    Contents(QStringLiteral("PL0002"));
    ASSERT_FALSE(kernel->Carts()->DeleteCart(QStringLiteral("ESP0001"), false).failed);
    contents->StartGrabContents(0);
    Grab();
    EXPECT_EQ(Icon(3, Type), "UNKNOWN");
    EXPECT_EQ(Text(3, ID), "ESP0001");
    EXPECT_EQ(Text(3, Description), "[Unknown]");
    contents->SelectRow(3);
    contents->DeleteSelectedItem();
    Grab();
    EXPECT_EQ(ListIDs(QStringLiteral("PL0002")).indexOf(QStringLiteral("ESP0001")), -1);
    EXPECT_TRUE(log->Errors().isEmpty()) << log->Errors().join('\n').toStdString();
}

TEST_F(PlayListTest, TheArrowFollowsTheNextRowUpToTheGhost)
{
    Contents(QStringLiteral("PL0002"));
    const auto list = List(QStringLiteral("PL0002"));
    contents->CellDoubleClicked(3, Next);
    EXPECT_EQ(list->NextIndex(), 3);
    EXPECT_EQ(Icon(1, Next), "WHITESPACE");
    EXPECT_EQ(Icon(3, Next), "PLAYING");
    contents->CellDoubleClicked(7, Next);
    EXPECT_EQ(list->NextIndex(), 7) << "the ghost's next cell sets Count + 1";
    EXPECT_EQ(Icon(7, Next), "PLAYING");
    contents->CellDoubleClicked(2, Playing);
    EXPECT_EQ(list->NextIndex(), 2);
    contents->CellDoubleClicked(8, Next);
    contents->CellDoubleClicked(0, Next);
    EXPECT_EQ(list->NextIndex(), 2) << "rows outside the list and its ghost change nothing";
}

TEST_F(PlayListTest, DoubleClicksFlipTheFlagsOfAnItemUnlessInEditMode)
{
    Contents(QStringLiteral("PL0002"));
    const auto item = List(QStringLiteral("PL0002"))->Item(2);
    contents->CellDoubleClicked(2, Ignored);
    contents->CellDoubleClicked(2, Looped);
    EXPECT_TRUE(item->Ignored());
    EXPECT_TRUE(item->Looped());
    EXPECT_EQ(Icon(2, Ignored), "IGNORED");
    EXPECT_EQ(Icon(2, Looped), "LOOPED");
    EXPECT_EQ(Icon(2, Modified), "MODIFIED");
    contents->CellDoubleClicked(2, Modified);
    EXPECT_FALSE(item->Modified());
    EXPECT_EQ(Icon(2, Modified), "WHITESPACE");
    contents->CellDoubleClicked(7, Looped); // the ghost has no item
    contents->CellDoubleClicked(2, Description);

    contents->SetEditMode(true);
    contents->CellDoubleClicked(2, Ignored);
    EXPECT_TRUE(item->Ignored()) << "edit mode ignores double clicks";
    EXPECT_TRUE(log->Errors().isEmpty()) << log->Errors().join('\n').toStdString();
}

TEST_F(PlayListTest, TheEditButtonsActOnTheSelectedRowBehindTheirCovers)
{
    Contents(QStringLiteral("PL0002"));
    auto* up = contents->findChild<QToolButton*>(QStringLiteral("CmdUp"));
    auto* down = contents->findChild<QToolButton*>(QStringLiteral("CmdDown"));
    auto* remove = contents->findChild<QToolButton*>(QStringLiteral("CmdDelete"));
    auto* insert = contents->findChild<QToolButton*>(QStringLiteral("CmdInsert"));
    EXPECT_FALSE(up->isEnabled() || down->isEnabled() || remove->isEnabled() || insert->isEnabled()) << "no row selected";

    contents->SelectRow(1);
    EXPECT_FALSE(up->isEnabled());
    EXPECT_TRUE(down->isEnabled());
    down->click();
    EXPECT_EQ(contents->SelectedRow(), 2);
    Grab();
    EXPECT_EQ(ListIDs(QStringLiteral("PL0002")).mid(0, 2), (QStringList{"JIN0002", "JIN0001"}));
    EXPECT_EQ(contents->SelectedRow(), 2) << "the selection stays after the reload";
    up->click();
    Grab();
    EXPECT_EQ(ListIDs(QStringLiteral("PL0002")).first(), "JIN0001");

    contents->SelectRow(7);
    EXPECT_FALSE(remove->isEnabled()) << "the ghost";
    EXPECT_FALSE(down->isEnabled());
    contents->DeleteSelectedItem();
    EXPECT_FALSE(contents->TmrGrabContents().isActive()) << "nothing to delete at the ghost";
    insert->click();
    Grab();
    EXPECT_EQ(ListIDs(QStringLiteral("PL0002")).last(), "") << "a blank at the end";

    contents->SelectRow(7); // the last item, the blank just added
    QTest::keyClick(contents->Grid(), Qt::Key_Delete);
    EXPECT_EQ(contents->SelectedRow(), 6) << "deleting the last item selects the one above";
    Grab();
    EXPECT_EQ(ListIDs(QStringLiteral("PL0002")).size(), 6);
    QTest::keyClick(contents->Grid(), Qt::Key_Insert);
    Grab();
    EXPECT_EQ(ListIDs(QStringLiteral("PL0002")).at(5), "") << "Insert puts a blank before the selected row";
    EXPECT_TRUE(log->Errors().isEmpty()) << log->Errors().join('\n').toStdString();
}

TEST_F(PlayListTest, OldStyleDropsGoBeforeTheRowUnderThePointerAndAppendAtTheGhost)
{
    Contents(QStringLiteral("PL0002"));
    const QPoint ghost = contents->RowPoint(7);
    contents->Over(ghost.x(), ghost.y());
    EXPECT_EQ(Rows().HighLighted(), 7);
    contents->Drop(ghost.x(), ghost.y(), QStringLiteral("MUS0002"));
    EXPECT_EQ(Rows().HighLighted(), 0) << "a drop ends the highlight";
    Grab();
    EXPECT_EQ(ListIDs(QStringLiteral("PL0002")).last(), "MUS0002");
    EXPECT_EQ(Icon(8, Type), "GHOST");

    const QPoint second = contents->RowPoint(2);
    contents->Drop(second.x(), second.y(), QStringLiteral("PUB0001"));
    Grab();
    EXPECT_EQ(ListIDs(QStringLiteral("PL0002")).mid(0, 3), (QStringList{"JIN0001", "PUB0001", "JIN0002"}));

    contents->Drop(0, 0, QStringLiteral("PUB0002"));
    EXPECT_FALSE(contents->TmrGrabContents().isActive()) << "above the rows a drop does nothing";
    const QPoint below(10, contents->height() - 3);
    contents->Drop(below.x(), below.y(), QStringLiteral("PUB0003"));
    Grab();
    EXPECT_EQ(ListIDs(QStringLiteral("PL0002")).last(), "PUB0003") << "below the rows is the ghost";
    contents->Drop(second.x(), second.y(), QStringLiteral("XX"));
    EXPECT_EQ(log->Errors().size(), 1) << "a malformed ID is refused with an error line";
}

TEST_F(PlayListTest, AHighlightEndsTwoSecondsAfterTheLastOver)
{
    Contents(QStringLiteral("PL0002"));
    const QPoint third = contents->RowPoint(3);
    contents->Over(third.x(), third.y());
    EXPECT_EQ(Rows().HighLighted(), 3);
    EXPECT_EQ(Rows().data(Rows().index(2, ID), Qt::BackgroundRole).value<QColor>(), QColor(255, 192, 192));
    const QPoint fourth = contents->RowPoint(4);
    contents->Over(fourth.x(), fourth.y());
    EXPECT_EQ(Rows().HighLighted(), 4) << "one row at a time";
    EXPECT_TRUE(contents->TmrDropHighlight().isActive());
    EXPECT_EQ(contents->TmrDropHighlight().interval(), 2000);
    contents->TmrDropHighlight_Timer();
    EXPECT_EQ(Rows().HighLighted(), 0);
    EXPECT_FALSE(Rows().data(Rows().index(3, ID), Qt::BackgroundRole).isValid());
    EXPECT_FALSE(contents->TmrDropHighlight().isActive());
}

TEST_F(PlayListTest, CartsAndFamiliesDraggedFromTheBrowsersGoWhereThePointerIs)
{
    Contents(QStringLiteral("PL0002"));
    MoveOverRow(2);
    contents->Component()->RaiseEventDragDrop(Offering(CComponent::ShareCart, Cart(QStringLiteral("MUS0003"))));
    Grab();
    EXPECT_EQ(ListIDs(QStringLiteral("PL0002")).at(1), "MUS0003");

    const auto family = kernel->Families()->Item(QStringLiteral("CON"));
    MoveOverRow(Rows().Count());
    contents->Component()->RaiseEventDragDrop(Offering(CComponent::ShareFamily, family));
    Grab();
    EXPECT_EQ(ListIDs(QStringLiteral("PL0002")).mid(7), (QStringList{"CON0001", "CON0002", "CON0003", "CON0004"}));

    contents->Component()->RaiseEventDragDrop(Offering(CComponent::ShareNothing, nullptr));
    contents->Component()->RaiseEventDragDrop(nullptr);
    EXPECT_FALSE(contents->TmrGrabContents().isActive()) << "anything else is ignored";
    EXPECT_TRUE(log->Errors().isEmpty()) << log->Errors().join('\n').toStdString();
}

TEST_F(PlayListTest, ARowDraggedInsideTheGridMovesWithItsFlags)
{
    Contents(QStringLiteral("PL0002"));
    List(QStringLiteral("PL0002"))->Item(1)->SetLooped(true);
    EXPECT_EQ(Icon(1, Looped), "LOOPED") << "a changed row is redrawn in place";
    PressRow(1);
    MoveOverRow(4, Qt::LeftButton);
    contents->Component()->RaiseEventDragDrop(contents->Component());
    Grab();
    EXPECT_EQ(ListIDs(QStringLiteral("PL0002")).mid(0, 4), (QStringList{"JIN0002", "ESP0001", "JIN0001", "ESP0002"}));
    EXPECT_TRUE(List(QStringLiteral("PL0002"))->Item(3)->Looped());
    EXPECT_EQ(contents->SelectedRow(), 3);

    // A far move copies the row: twenty more rows make the distance.
    for (int i = 0; i < 20; ++i)
        List(QStringLiteral("PL0002"))->Insert(1, nullptr);
    Grab();
    const int from = 23; // JIN0001, still looped
    PressRow(from);
    MoveOverRow(1, Qt::LeftButton);
    contents->Component()->RaiseEventDragDrop(contents->Component());
    Grab();
    const QStringList ids = ListIDs(QStringLiteral("PL0002"));
    EXPECT_EQ(ids.first(), "JIN0001");
    EXPECT_EQ(ids.count(QStringLiteral("JIN0001")), 1);
    EXPECT_TRUE(List(QStringLiteral("PL0002"))->Item(1)->Looped());

    PressRow(Rows().Count()); // the ghost cannot move
    MoveOverRow(1, Qt::LeftButton);
    contents->Component()->RaiseEventDragDrop(contents->Component());
    EXPECT_FALSE(contents->TmrGrabContents().isActive());
    EXPECT_TRUE(log->Errors().isEmpty()) << log->Errors().join('\n').toStdString();
}

// A station with a full family of 10,000 carts (BAA).
class LargeFamilyPlayListTest : public PlayListTest
{
protected:
    void SetUp() override
    {
        WriteIni(QStringLiteral("Audio"), QStringLiteral("Clock"), QStringLiteral("virtual"), large.KernelIniFile());
        kernel = EmbeddedKernel::Open(large.Folder(), nullptr);
        Globals::SetKernel(kernel);
        dialogs = new ScriptedDialogs;
        previousDialogs = Dialogs::SetHandler(std::unique_ptr<Dialogs::Handler>(dialogs));
    }

    TempStation large{10000};
};

TEST_F(LargeFamilyPlayListTest, AFamilyTooLargeForAListIsRefusedWithAMessage)
{
    Contents(QStringLiteral("PL0002"));
    const auto family = kernel->Families()->Item(QStringLiteral("BAA"));
    ASSERT_EQ(family->Count(), 10000);
    MoveOverRow(1);
    contents->Component()->RaiseEventDragDrop(Offering(CComponent::ShareFamily, family));
    ASSERT_EQ(dialogs->boxes.size(), 1);
    EXPECT_TRUE(dialogs->boxes.first().text.contains(QStringLiteral("BAA"))) << dialogs->boxes.first().text.toStdString();
    EXPECT_TRUE(dialogs->boxes.first().text.contains(QStringLiteral("10000")));
    EXPECT_EQ(List(QStringLiteral("PL0002"))->Count(), 6) << "nothing was added";
    MoveOverRow(2);
    contents->Component()->RaiseEventDragDrop(Offering(CComponent::ShareCart, Cart(QStringLiteral("BAA0001"))));
    Grab();
    EXPECT_EQ(ListIDs(QStringLiteral("PL0002")).at(1), "BAA0001") << "the list stays usable";
}
