// The playlist manager on the real kernel: rows with their lamps, the counter, add, remove and
// rename, one SelectionChanged for a quick walk, and macros made lists.
#include "PlayListTest.h"
#include "onair/IFPlayLists.h"
#include "support/Photograph.h"
#include <QLineEdit>
#include <QTableWidget>
#include <QToolButton>

class PlayListsTest : public PlayListTest
{
protected:
    IFPlayLists& Manager()
    {
        manager = std::make_unique<IFPlayLists>();
        manager->resize(560, 300);
        manager->show();
        manager->TmrInit_Timer();
        return *manager;
    }
    void TearDown() override
    {
        manager.reset();
        PlayListTest::TearDown();
    }
    std::unique_ptr<IFPlayLists> manager;
};

TEST_F(PlayListsTest, EveryListHasARowWithItsLampsAndItsIDWithoutPL)
{
    IFPlayLists& lists = Manager();
    ASSERT_EQ(lists.Grid()->rowCount(), 2);
    EXPECT_EQ(lists.Grid()->item(0, IFPlayLists::ColumnID)->text(), "0001");
    EXPECT_EQ(lists.GetIDByRow(0), "PL0001");
    EXPECT_EQ(lists.Grid()->item(0, IFPlayLists::ColumnName)->text(), "Top of the hour");
    EXPECT_EQ(lists.IconKey(0, IFPlayLists::StatusLoaded), "STATUS_LOADED");
    EXPECT_EQ(lists.IconKey(1, IFPlayLists::StatusLoaded), "STATUS_UNLOADED");
    EXPECT_EQ(lists.IconKey(0, IFPlayLists::StatusPlaying), "STATUS_STOPPED");
    EXPECT_EQ(lists.IconKey(0, IFPlayLists::StatusModified), "STATUS_UNMODIFIED");
    EXPECT_EQ(lists.Counter(), "2");
    lists.SelectRow(1);
    EXPECT_EQ(lists.Counter(), "2 / 2");

    List(QStringLiteral("PL0002"))->Insert(1, nullptr);
    EXPECT_EQ(lists.IconKey(1, IFPlayLists::StatusModified), "STATUS_MODIFIED") << "a changed list's row is redrawn";
    EXPECT_TRUE(Photograph(&lists, QStringLiteral("PlayLists")));
}

TEST_F(PlayListsTest, AddRemoveAndTheCounterWithoutLists)
{
    IFPlayLists& lists = Manager();
    lists.findChild<QToolButton*>(QStringLiteral("CmdAdd"))->click();
    EXPECT_EQ(lists.Grid()->rowCount(), 3);
    QTest::keyClick(lists.Grid(), Qt::Key_Insert);
    EXPECT_EQ(lists.Grid()->rowCount(), 4);
    for (int row = lists.Grid()->rowCount() - 1; row >= 0; --row) {
        lists.SelectRow(row);
        QTest::keyClick(lists.Grid(), Qt::Key_Delete);
    }
    EXPECT_EQ(Lists()->Count(), 0);
    EXPECT_EQ(lists.Counter(), "-");
    lists.Remove(); // nothing selected, nothing to remove
    EXPECT_TRUE(log->Errors().isEmpty()) << log->Errors().join('\n').toStdString();
}

TEST_F(PlayListsTest, TheNameIsEditedInTheGridOnlyInEditMode)
{
    IFPlayLists& lists = Manager();
    lists.SelectRow(1);
    lists.EditName();
    EXPECT_TRUE(lists.NameEditor()->isHidden()) << "not in edit mode";
    lists.SetEditMode(true);
    lists.EditName();
    ASSERT_FALSE(lists.NameEditor()->isHidden());
    EXPECT_EQ(lists.NameEditor()->text(), "Morning pads");
    lists.NameEditor()->setText(QStringLiteral("Breakfast pads  "));
    QTest::keyClick(lists.NameEditor(), Qt::Key_Return);
    EXPECT_EQ(List(QStringLiteral("PL0002"))->Name(), "Breakfast pads");
    EXPECT_EQ(lists.Grid()->item(1, IFPlayLists::ColumnName)->text(), "Breakfast pads");
    EXPECT_TRUE(lists.NameEditor()->isHidden());

    lists.EditName();
    lists.NameEditor()->setText(QStringLiteral("Never"));
    QTest::keyClick(lists.NameEditor(), Qt::Key_Escape);
    EXPECT_EQ(List(QStringLiteral("PL0002"))->Name(), "Breakfast pads");
}

TEST_F(PlayListsTest, AQuickWalkRaisesOneSelectionChanged)
{
    IFPlayLists& lists = Manager();
    QStringList raised;
    QObject::connect(&lists, &IFPlayLists::SelectionChanged, [&](const QString& id) { raised << id; });
    lists.SelectRow(0);
    lists.SelectRow(1);
    lists.SelectRow(0);
    EXPECT_TRUE(raised.isEmpty());
    ASSERT_TRUE(lists.TmrSelectionChanged().isActive());
    lists.TmrSelectionChanged_Timer();
    EXPECT_EQ(raised, QStringList{"PL0001"});
    EXPECT_FALSE(lists.TmrSelectionChanged().isActive());
}

TEST_F(PlayListsTest, AMacroBecomesAListAndOtherCartsChangeNothing)
{
    IFPlayLists& lists = Manager();
    lists.Load(QStringLiteral("JIN0001"));
    lists.Load(QStringLiteral("XYZ9999")); // no such cart: type -1
    EXPECT_EQ(Lists()->Count(), 2);
    lists.Load(QStringLiteral("PAU0001"));
    EXPECT_EQ(Lists()->Count(), 3);
    EXPECT_EQ(lists.Grid()->rowCount(), 3);
    EXPECT_TRUE(log->Errors().isEmpty()) << log->Errors().join('\n').toStdString();
    lists.Load(QStringLiteral("XX"));
    ASSERT_EQ(log->Errors().size(), 1);
    EXPECT_TRUE(log->Errors().first().contains(QStringLiteral("MacroID = 'XX' - "))) << log->Errors().first().toStdString();
}
