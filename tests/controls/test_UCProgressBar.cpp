// The striped bar: black lines every third pixel from x = 1 as far as Percent of the width.
#include "foundation/controls/UCProgressBar.h"
#include <QImage>
#include <cmath>
#include <gtest/gtest.h>

namespace {
// The columns of the bar that are black, read from its picture.
QList<int> BlackColumns(UCProgressBar& bar)
{
    const QImage image = bar.grab().toImage();
    QList<int> columns;
    for (int x = 0; x < image.width(); ++x)
        if (QColor(image.pixel(x, image.height() / 2)) == Qt::black && QColor(image.pixel(x, 0)) == Qt::black)
            columns.append(x);
    return columns;
}
}

TEST(UCProgressBar, DrawsStripesAsFarAsThePercent)
{
    UCProgressBar bar;
    bar.resize(30, 10);
    EXPECT_TRUE(BlackColumns(bar).isEmpty());
    EXPECT_EQ(QColor(bar.grab().toImage().pixel(1, 5)), QColor(192, 224, 255));

    bar.SetPercent(50);
    EXPECT_EQ(BlackColumns(bar), QList<int>({1, 4, 7, 10, 13}));
    bar.SetPercent(100);
    EXPECT_EQ(BlackColumns(bar), QList<int>({1, 4, 7, 10, 13, 16, 19, 22, 25, 28}));
    EXPECT_FLOAT_EQ(bar.Percent(), 100);

    // Out of range and not a number: nothing is drawn beyond the width, nothing fails.
    bar.SetPercent(1e9f);
    EXPECT_EQ(BlackColumns(bar).size(), 10);
    bar.SetPercent(-20);
    EXPECT_TRUE(BlackColumns(bar).isEmpty());
    bar.SetPercent(std::nanf(""));
    EXPECT_TRUE(BlackColumns(bar).isEmpty());
}
