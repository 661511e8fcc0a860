// The pure tables of the playlist controls: the rows of the grid, the covers of the edit
// buttons, the double clicks, the status words and the manager's counter.
#include "foundation/Strings.h"
#include "onair/PlayListPictures.h"
#include "onair/PlayListRows.h"
#include "onair/PlayListStatusTable.h"
#include <gtest/gtest.h>

using namespace PlayListRows;

TEST(PlayListRows, ACartRowShowsItsKindTextsAndFlags)
{
    ItemFacts sound{true, 0, QStringLiteral("JIN0001"), 3500, 2800, QStringLiteral("Station ID"), true, true, true, true};
    const Row row = ItemRow(sound, true);
    EXPECT_EQ(row.Icon(Next), "PLAYING");
    EXPECT_EQ(row.Icon(Playing), "PLAYING");
    EXPECT_EQ(row.Icon(Modified), "MODIFIED");
    EXPECT_EQ(row.Icon(Ignored), "IGNORED");
    EXPECT_EQ(row.Icon(Looped), "LOOPED");
    EXPECT_EQ(row.Icon(Type), "SOUND");
    EXPECT_EQ(row.Text(ID), "JIN0001");
    EXPECT_EQ(row.Text(Time), MsToHuman(3500));
    EXPECT_EQ(row.Text(UsefulTime), MsToHuman(2800));
    EXPECT_EQ(row.Text(Description), "Station ID");
    EXPECT_FALSE(row.ghost);

    const Row quiet = ItemRow(ItemFacts{true, 1, QStringLiteral("MES0001"), 0, 0, {}}, false);
    for (int column : {Next, Playing, Modified, Ignored, Looped})
        EXPECT_EQ(quiet.Icon(column), "WHITESPACE") << column;
    EXPECT_EQ(quiet.Icon(Type), "MACRO");
}

TEST(PlayListRows, EveryCartTypeHasItsPictureAndOddTypesAreUnknown)
{
    EXPECT_EQ(TypeIcon(-1), "UNKNOWN");
    EXPECT_EQ(TypeIcon(0), "SOUND");
    EXPECT_EQ(TypeIcon(1), "MACRO");
    EXPECT_EQ(TypeIcon(2), "ACTION");
    EXPECT_EQ(TypeIcon(3), "UNKNOWN");
    EXPECT_EQ(TypeIcon(4), "UNKNOWN");
    EXPECT_EQ(TypeIcon(99), "UNKNOWN");
    for (const QString& key : PlayListPictures::RowKeys())
        EXPECT_FALSE(PlayListPictures::RowIcon(key).isNull()) << key.toStdString();
    EXPECT_TRUE(PlayListPictures::RowIcon(QStringLiteral("NOPE")).isNull());
}

TEST(PlayListRows, ABlankItemKeepsItsFlagsButHasNoTextsAndNeverPlays)
{
    ItemFacts blank;
    blank.playing = true; // a blank row cannot sound, whatever it says
    blank.looped = true;
    const Row row = ItemRow(blank, false);
    EXPECT_EQ(row.Icon(Type), "BLANK");
    EXPECT_EQ(row.Icon(Playing), "WHITESPACE");
    EXPECT_EQ(row.Icon(Looped), "LOOPED");
    for (int column = ID; column < ColumnCount; ++column)
        EXPECT_TRUE(row.Text(column).isEmpty()) << column;
}

TEST(PlayListRows, TheGhostIsEmptyAndCarriesTheArrowWhenTheListPlaysPastItsEnd)
{
    const Row ghost = GhostRow(false);
    EXPECT_TRUE(ghost.ghost);
    EXPECT_EQ(ghost.Icon(Type), "GHOST");
    for (int column = Next; column < Type; ++column)
        EXPECT_EQ(ghost.Icon(column), "WHITESPACE");
    EXPECT_EQ(GhostRow(true).Icon(Next), "PLAYING");
}

TEST(PlayListRows, CoversFollowTheSelectedRow)
{
    const auto covers = [](bool list, int row, int count) {
        const Covers c = ButtonCovers(list, row, count);
        return std::vector<bool>{c.up, c.down, c.remove, c.insert};
    };
    const std::vector<bool> all{true, true, true, true};
    EXPECT_EQ(covers(false, 2, 5), all);
    EXPECT_EQ(covers(true, 0, 5), all);
    EXPECT_EQ(covers(true, 6, 5), all) << "a row past the ghost is no row";
    EXPECT_EQ(covers(true, 1, 5), (std::vector<bool>{true, false, false, false}));
    EXPECT_EQ(covers(true, 5, 5), (std::vector<bool>{false, true, true, false})) << "the ghost";
    EXPECT_EQ(covers(true, 3, 5), (std::vector<bool>{false, false, false, false}));
    EXPECT_EQ(covers(true, 1, 1), (std::vector<bool>{true, true, true, false})) << "the ghost of an empty list";
}

TEST(PlayListRows, DoubleClicksActByColumn)
{
    EXPECT_EQ(DoubleClickAction(Next), CellAction::SetNextIndex);
    EXPECT_EQ(DoubleClickAction(Playing), CellAction::SetNextIndex);
    EXPECT_EQ(DoubleClickAction(Modified), CellAction::ClearModified);
    EXPECT_EQ(DoubleClickAction(Ignored), CellAction::FlipIgnored);
    EXPECT_EQ(DoubleClickAction(Looped), CellAction::FlipLooped);
    for (int column : {int(Type), int(ID), int(Time), int(UsefulTime), int(Description), -1, 99})
        EXPECT_EQ(DoubleClickAction(column), CellAction::None) << column;
    EXPECT_EQ(ColumnKey(UsefulTime), "usefultime");
    EXPECT_EQ(ColumnKey(ColumnCount), "");
}

TEST(PlayListStatusTable, WithoutAListEveryStateIsOff)
{
    namespace T = PlayListStatusTable;
    using T::Facts;
    using T::Show;
    Facts none;
    none.loadState = 1; // facts of no list mean nothing
    none.chained = true;
    EXPECT_EQ(Show(none, T::Loaded).word, "Not Loaded");
    EXPECT_EQ(Show(none, T::Playing).icon, "STATUS_STOPPED");
    EXPECT_EQ(Show(none, T::Modified).word, "Not Modified");
    EXPECT_EQ(Show(none, T::Chained).icon, "STATUS_NOT_CHAINED");
    EXPECT_EQ(Show(none, T::AutoClose).word, "Not Autoclose");

    const Facts on{true, 1, 1, true, true, true};
    EXPECT_EQ(Show(on, T::Loaded).icon, "STATUS_LOADED");
    EXPECT_EQ(Show(on, T::Playing).word, "Playing");
    EXPECT_EQ(Show(on, T::Modified).icon, "STATUS_MODIFIED");
    EXPECT_EQ(Show(on, T::Chained).word, "Chained");
    EXPECT_EQ(Show(on, T::AutoClose).icon, "STATUS_AUTOCLOSE");
    EXPECT_EQ(Show(Facts{true, 2, 7, false, false, false}, T::Loaded).word, "Not Loaded") << "only 1 is loaded";
    for (const QString& key : T::Keys())
        EXPECT_FALSE(PlayListPictures::StatusPicture(key, 18).isNull()) << key.toStdString();
}

TEST(PlayListStatusTable, TheCounterSaysDashPlaceOfCountOrCount)
{
    using PlayListStatusTable::CounterText;
    EXPECT_EQ(CounterText(0, 0), "-");
    EXPECT_EQ(CounterText(0, 3), "-");
    EXPECT_EQ(CounterText(4, 0), "4");
    EXPECT_EQ(CounterText(4, 2), "2 / 4");
}
