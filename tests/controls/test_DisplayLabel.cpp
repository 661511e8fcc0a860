// The lit text window: type that follows the window's height, and an inactive window's
// dimmed text.
#include "foundation/controls/DisplayLabel.h"
#include <QImage>
#include <algorithm>
#include <gtest/gtest.h>

namespace {
// The brightest grey of each row of the window's picture inside its rounded rim, where only
// the glass and the text show.
QList<int> RowBrightness(DisplayLabel& label)
{
    const QImage image = label.grab().toImage();
    QList<int> rows;
    for (int y = 4; y < image.height() - 4; ++y) {
        int brightest = 0;
        for (int x = 4; x < image.width() - 4; ++x)
            brightest = std::max(brightest, qGray(image.pixel(x, y)));
        rows.append(brightest);
    }
    return rows;
}

// How many rows hold text, read as pixels much brighter than the dark back.
int InkRows(DisplayLabel& label)
{
    const QList<int> rows = RowBrightness(label);
    return static_cast<int>(std::count_if(rows.cbegin(), rows.cend(), [](int grey) { return grey > 128; }));
}

int BrightestGrey(DisplayLabel& label)
{
    const QList<int> rows = RowBrightness(label);
    return *std::max_element(rows.cbegin(), rows.cend());
}

// White capitals on black, the type sized to the window's height.
class DisplayLabelTest : public testing::Test
{
protected:
    void SetUp() override
    {
        label.SetColors(Qt::black, Qt::white);
        label.SetText(QStringLiteral("HIH"));
        label.SetTypeHeight(0.42);
    }

    DisplayLabel label;
};
}

TEST_F(DisplayLabelTest, TypeSizedToTheHeightGrowsWithTheWindow)
{
    label.resize(300, 30);
    const int small = InkRows(label);
    label.resize(300, 60);
    const int large = InkRows(label);
    EXPECT_GT(small, 0);
    EXPECT_GE(large, small * 3 / 2) << "the type follows the height";
}

TEST_F(DisplayLabelTest, AnInactiveWindowDimsItsTextButKeepsItsColours)
{
    label.resize(200, 40);
    const int lit = BrightestGrey(label);
    label.SetActive(false);
    EXPECT_LT(BrightestGrey(label), lit - 60);
    EXPECT_EQ(label.ForeColor(), QColor(Qt::white));
    EXPECT_EQ(label.BackColor(), QColor(Qt::black));
}
