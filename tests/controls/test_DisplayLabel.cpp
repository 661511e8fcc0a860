// The lit text window: type that follows the window's height, and an inactive window's
// dimmed text.
#include "foundation/controls/DisplayLabel.h"
#include <QImage>
#include <algorithm>
#include <gtest/gtest.h>

namespace {
// The window's picture inside its rounded rim, where only the glass and the text show.
QImage Glass(DisplayLabel& label)
{
    const QImage image = label.grab().toImage();
    return image.copy(image.rect().adjusted(4, 4, -4, -4));
}

// How many rows of the glass hold text, read as pixels brighter than the dark back.
int InkRows(DisplayLabel& label)
{
    const QImage glass = Glass(label);
    int rows = 0;
    for (int y = 0; y < glass.height(); ++y) {
        bool ink = false;
        for (int x = 0; x < glass.width() && !ink; ++x)
            ink = qGray(glass.pixel(x, y)) > 128;
        rows += ink;
    }
    return rows;
}

int BrightestGrey(DisplayLabel& label)
{
    const QImage glass = Glass(label);
    int brightest = 0;
    for (int y = 0; y < glass.height(); ++y)
        for (int x = 0; x < glass.width(); ++x)
            brightest = std::max(brightest, qGray(glass.pixel(x, y)));
    return brightest;
}
}

TEST(DisplayLabel, TypeSizedToTheHeightGrowsWithTheWindow)
{
    DisplayLabel label;
    label.SetColors(Qt::black, Qt::white);
    label.SetText(QStringLiteral("HIH"));
    label.SetTypeHeight(0.42);
    label.resize(300, 30);
    const int small = InkRows(label);
    label.resize(300, 60);
    const int large = InkRows(label);
    EXPECT_GT(small, 0);
    EXPECT_GE(large, small * 3 / 2) << "the type follows the height";
}

TEST(DisplayLabel, AnInactiveWindowDimsItsTextButKeepsItsColours)
{
    DisplayLabel label;
    label.SetColors(Qt::black, Qt::white);
    label.SetText(QStringLiteral("HIH"));
    label.SetTypeHeight(0.5);
    label.resize(200, 40);
    const int lit = BrightestGrey(label);
    label.SetActive(false);
    EXPECT_LT(BrightestGrey(label), lit - 60);
    EXPECT_EQ(label.ForeColor(), QColor(Qt::white));
    EXPECT_EQ(label.BackColor(), QColor(Qt::black));
}
