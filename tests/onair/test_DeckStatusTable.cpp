// The deck's status table read without widgets: what a presenter sees in each state.
#include "kernelapi/iCartPlayer.h"
#include "onair/DeckStatusTable.h"
#include <gtest/gtest.h>

namespace {
const DeckStatusTable::Row& RowOf(CartPlayerStatus status)
{
    const DeckStatusTable::Row* row = DeckStatusTable::Find(static_cast<qint32>(status));
    EXPECT_NE(row, nullptr);
    static const DeckStatusTable::Row none{};
    return row ? *row : none;
}
}

TEST(DeckStatusTable, EveryStatusOfThePlayerHasARowAndNoOtherValueHasOne)
{
    for (qint32 status = static_cast<qint32>(CartPlayerStatus::Ready); status <= static_cast<qint32>(CartPlayerStatus::Sync); ++status)
        EXPECT_NE(DeckStatusTable::Find(status), nullptr) << status;
    EXPECT_EQ(DeckStatusTable::Find(-1), nullptr);
    EXPECT_EQ(DeckStatusTable::Find(static_cast<qint32>(CartPlayerStatus::Sync) + 1), nullptr);
}

TEST(DeckStatusTable, OnlyASoundingCartIsRedOnlyAnEndingOneFlashesAndTheWindingKeysShowWhileItStandsStill)
{
    using S = CartPlayerStatus;
    for (S status : {S::Ready, S::Playing, S::Paused, S::Cueing, S::Cued, S::Expiring, S::Sync}) {
        const DeckStatusTable::Row& row = RowOf(status);
        EXPECT_EQ(row.red, status == S::Playing) << static_cast<int>(status);
        EXPECT_EQ(row.flash, status == S::Expiring) << static_cast<int>(status);
        EXPECT_EQ(row.cuers, status == S::Paused || status == S::Cueing || status == S::Cued) << static_cast<int>(status);
        EXPECT_EQ(row.clearMeter, status == S::Ready || status == S::Expiring) << static_cast<int>(status);
    }
    EXPECT_EQ(RowOf(S::Ready).background, DeckStatusTable::Dark);
    EXPECT_EQ(RowOf(S::Ready).text, DeckStatusTable::Text::Empty);
    EXPECT_EQ(RowOf(S::Cued).top, DeckStatusTable::Slots::Cued);
    EXPECT_EQ(RowOf(S::Playing).top, DeckStatusTable::Slots::CuePauseSkip) << "Pause replaces Play while it sounds";
}
