// The rows of a macro under edit and the signal arrows, on the row model alone.
#include "browse/BrowserRowModel.h"
#include "browse/CartRows.h"
#include "browse/MacroRows.h"
#include "browse/SignalArrows.h"
#include <gtest/gtest.h>

namespace {
BrowserRow Row(const QString& key, const QString& icon, qint32 ms = 0)
{
    BrowserRow row;
    row.key = key;
    row.icon = icon;
    row.ms = ms;
    return row;
}

struct MacroRowsTest : ::testing::Test
{
    BrowserRowModel rows{{QStringLiteral("ID"), QStringLiteral("Time")}};

    void Set(std::vector<BrowserRow> list)
    {
        rows.Clear();
        rows.Append(std::move(list));
    }
    // Each row as key:icon.
    QStringList Shown() const
    {
        QStringList shown;
        for (const BrowserRow& row : rows.Rows())
            shown << row.key + u':' + row.icon;
        return shown;
    }
};

// A separator's three rows, as CartRows makes them.
std::vector<BrowserRow> Separator(const QString& id)
{
    return {Row(id + CartRows::AroundSeparatorKey, CartRows::AroundSeparatorKey), Row(id, QStringLiteral("4")),
            Row(id + CartRows::AroundSeparatorKey, CartRows::AroundSeparatorKey)};
}
}

TEST_F(MacroRowsTest, AnEmptyMacroGetsAGhostAndAFamilyNone)
{
    EXPECT_EQ(MacroRows::ParseGhost(rows, false), -1);
    EXPECT_EQ(rows.Count(), 0);
    EXPECT_EQ(MacroRows::ParseGhost(rows, true), 0);
    EXPECT_EQ(Shown(), QStringList({"Ghost:Ghost"}));
    EXPECT_EQ(MacroRows::ParseGhost(rows, true), 0) << "parsed again, it stays one ghost";
    EXPECT_EQ(rows.Count(), 1);
}

TEST_F(MacroRowsTest, BlanksAtTheEndAreGhostsAndBlanksBeforeACartAreEntries)
{
    Set({Row("A", "0"), CartRows::Blank(), Row("B", "0"), CartRows::Blank(), CartRows::Blank()});
    EXPECT_EQ(MacroRows::ParseGhost(rows, true), 3) << "the first of the ghosts";
    EXPECT_EQ(Shown(), QStringList({"A:0", "Blank:Blank", "B:0", "Blank:Ghost", "Blank:Ghost"}));
    EXPECT_EQ(MacroRows::UsefulCount(rows), 3);
    MacroRows::Delete(rows, 2, true);
    EXPECT_EQ(Shown(), QStringList({"A:0", "Blank:Ghost", "Blank:Ghost", "Blank:Ghost"}))
        << "the blank before the deleted cart now ends the list";
    Set({CartRows::Blank(), CartRows::Blank()});
    EXPECT_EQ(MacroRows::ParseGhost(rows, true), 0);
    EXPECT_EQ(rows.Count(), 2) << "a list of blanks only needs no further ghost";
}

TEST_F(MacroRowsTest, ASeparatorAtTheEndKeepsItsRowsAndGetsAGhostAfterThem)
{
    Set(Separator("CON0010"));
    EXPECT_EQ(MacroRows::ParseGhost(rows, true), 3);
    MacroRows::Insert(rows, rows.Count(), nullptr, true);
    EXPECT_EQ(Shown(), QStringList({"CON0010_Blank:_Blank", "CON0010:4", "CON0010_Blank:_Blank", "Blank:Ghost"}))
        << "an added blank entry at the end is a ghost";
    EXPECT_EQ(MacroRows::UsefulCount(rows), 3);
}

TEST_F(MacroRowsTest, AnEntryGoesBeforeARowOrAfterTheLastEntry)
{
    Set({Row("A", "0", 1000), Row("B", "0", 2000)});
    MacroRows::ParseGhost(rows, true);
    MacroRows::InsertBlank(rows, 1, true);
    EXPECT_EQ(Shown(), QStringList({"A:0", "Blank:Blank", "B:0", "Ghost:Ghost"}));
    MacroRows::InsertBlank(rows, -1, true);
    EXPECT_EQ(Shown(), QStringList({"A:0", "Blank:Blank", "B:0", "Ghost:Ghost", "Blank:Ghost"})) << "a blank at the end is a ghost";
    MacroRows::Insert(rows, 99, nullptr, true);
    EXPECT_EQ(rows.Count(), 4) << "the ghosts go before the entry is added, and it is a ghost itself";
    EXPECT_EQ(MacroRows::MsBefore(rows, 2), 1000);
    EXPECT_EQ(MacroRows::MsBefore(rows, -1), 0);
    MacroRows::ParseUnGhost(rows);
    EXPECT_EQ(Shown(), QStringList({"A:0", "Blank:Blank", "B:0"}));
}

TEST_F(MacroRowsTest, SignalArrowsFlashOnTheirRowsOnlyWhileTheListIsVisible)
{
    Set({Row("A", "0"), Row("B", "1")});
    SignalArrows arrows;
    arrows.Add(rows, QStringLiteral("B"), CSignalArrow::Red);
    arrows.Add(rows, QStringLiteral("Z"), CSignalArrow::Blue);
    arrows.Tick(rows, false);
    arrows.Tick(rows, false);
    EXPECT_EQ(rows.Row(1).icon, QStringLiteral("1")) << "a list that fills is left alone";
    for (int tick = 2; tick < 12; ++tick)
        arrows.Tick(rows, true);
    EXPECT_EQ(rows.Row(1).icon, QStringLiteral("ArrowRed"));
    EXPECT_EQ(rows.Row(0).icon, QStringLiteral("0"));
    arrows.Refresh(rows, false);
    EXPECT_EQ(rows.Row(1).icon, QStringLiteral("1"));
}
