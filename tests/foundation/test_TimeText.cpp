#include "foundation/Colors.h"
#include "foundation/Strings.h"
#include "foundation/System.h"
#include "kernelapi/KernelError.h"
#include <gtest/gtest.h>
#include <limits>

TEST(TimeTextTest, MsToHumanCutsHundredthsAndKeepsTheSign)
{
    EXPECT_EQ(MsToHuman(3723450), "01:02:03.45");
    EXPECT_EQ(MsToHuman(999), "00:00:00.99");
    EXPECT_EQ(MsToHuman(-1000), "-00:00:01.00");
    EXPECT_EQ(MsToHuman(0), "00:00:00.00");
    EXPECT_EQ(MsToHuman(std::numeric_limits<qint32>::max()), "596:31:23.64");
    EXPECT_EQ(MsToHuman(std::numeric_limits<qint32>::min()), "-596:31:23.64");

    const TimeParts parts = SplitMilliseconds(-3723459);
    EXPECT_EQ(parts.sign, -1);
    EXPECT_EQ(parts.hours, 1);
    EXPECT_EQ(parts.minutes, 2);
    EXPECT_EQ(parts.seconds, 3);
    EXPECT_EQ(parts.hundredths, 45);
    EXPECT_EQ(SplitMilliseconds(0).sign, 0);

    EXPECT_EQ(FormatHuman(1, 123, 4, 5, 6), "123:04:05.06");
}

TEST(TimeTextTest, JoinMillisecondsInvertsTheSplitAndOverflowsPast32Bits)
{
    EXPECT_EQ(JoinMilliseconds(1, 2, 3, 45), 3723450);
    const TimeParts parts = SplitMilliseconds(86399990);
    EXPECT_EQ(JoinMilliseconds(parts.hours, parts.minutes, parts.seconds, parts.hundredths), 86399990);
    EXPECT_EQ(JoinMilliseconds(596, 31, 23, 64), 2147483640);
    EXPECT_THROW(JoinMilliseconds(596, 31, 23, 65), KernelError);
}

TEST(TimeTextTest, MsToClockKeepsMillisecondsWhole)
{
    EXPECT_EQ(MsToClock(0), "000:00:00.000");
    EXPECT_EQ(MsToClock(3723456), "001:02:03.456");
    EXPECT_EQ(MsToClock(500 * 3600000), "500:00:00.000");
    EXPECT_EQ(MsToClock(std::numeric_limits<qint32>::max()), "596:31:23.647");
    EXPECT_EQ(MsToClock(-1500), "000:00:01.500");
}

TEST(TimeTextTest, FrameToHumanAndItsOverflow)
{
    EXPECT_EQ(FrameToHuman(0), "00m 00s 00f");
    EXPECT_EQ(FrameToHuman(3 * 4500 + 12 * 75 + 45), "03m 12s 45f");
    EXPECT_EQ(FrameToHuman(100 * 4500), "100m 00s 00f");
    EXPECT_EQ(FrameToHuman(32767 * 4500 + 4499), "32767m 59s 74f");
    // Minutes beyond 16 bits: the failure is logged and nothing is built.
    EXPECT_EQ(FrameToHuman(32768 * 4500), "");
    EXPECT_EQ(FrameToHuman(std::numeric_limits<qint32>::max()), "");
}

TEST(TimeTextTest, ParseDateTimeFieldsAndFlags)
{
    DateTimeFields f = ParseDateTime("20240229133007");
    EXPECT_TRUE(f.hasDate);
    EXPECT_TRUE(f.hasTime);
    EXPECT_EQ(f.year, 2024);
    EXPECT_EQ(f.month, 2);
    EXPECT_EQ(f.day, 29);
    EXPECT_EQ(f.hours, 13);
    EXPECT_EQ(f.minutes, 30);
    EXPECT_EQ(f.seconds, 7);

    f = ParseDateTime("        133007");
    EXPECT_FALSE(f.hasDate);
    EXPECT_EQ(f.year + f.month + f.day, 0);
    EXPECT_TRUE(f.hasTime);
    EXPECT_EQ(f.hours, 13);

    f = ParseDateTime("20240229      ");
    EXPECT_TRUE(f.hasDate);
    EXPECT_FALSE(f.hasTime);
    EXPECT_EQ(f.hours, 0);

    f = ParseDateTime("2024ab29xx3007");
    EXPECT_EQ(f.month, 0);
    EXPECT_EQ(f.hours, 0);
    EXPECT_EQ(f.minutes, 30);

    f = ParseDateTime("");
    EXPECT_FALSE(f.hasDate);
    EXPECT_FALSE(f.hasTime);
}

TEST(TimeTextTest, IsValidDateTimeChecksLengthAndRanges)
{
    EXPECT_TRUE(IsValidDateTime("20240131235959"));
    EXPECT_TRUE(IsValidDateTime("20230229000000")); // 29 February in any year
    EXPECT_TRUE(IsValidDateTime("00001231000000")); // the year is not tested
    EXPECT_FALSE(IsValidDateTime("2024013123595"));
    EXPECT_FALSE(IsValidDateTime("202401312359590"));
    EXPECT_FALSE(IsValidDateTime("20240230000000"));
    EXPECT_FALSE(IsValidDateTime("20241301000000"));
    EXPECT_FALSE(IsValidDateTime("20240100000000"));
    EXPECT_FALSE(IsValidDateTime("20240431000000"));
    EXPECT_FALSE(IsValidDateTime("20240131240000"));
    EXPECT_FALSE(IsValidDateTime("20240131006000"));
    EXPECT_FALSE(IsValidDateTime("20240131000060"));
    EXPECT_FALSE(IsValidDateTime("              "));
}

TEST(TimeTextTest, DaysInMonthHasALeapFebruaryAndRefusesOtherMonths)
{
    int total = 0;
    for (int month = 1; month <= 12; ++month)
        total += DaysInMonth(month);
    EXPECT_EQ(total, 366);
    EXPECT_EQ(DaysInMonth(2), 29);
    EXPECT_THROW(DaysInMonth(0), KernelError);
    EXPECT_THROW(DaysInMonth(13), KernelError);
}

TEST(ColorsTest, ColorToRGBReadsRedFromTheLowByte)
{
    RgbComponents rgb = ColorToRGB(0x123456);
    EXPECT_EQ(rgb.red, 0x56);
    EXPECT_EQ(rgb.green, 0x34);
    EXPECT_EQ(rgb.blue, 0x12);

    rgb = ColorToRGB(static_cast<qint32>(0x80FF0005)); // high byte set: ignored
    EXPECT_EQ(rgb.red, 5);
    EXPECT_EQ(rgb.green, 0);
    EXPECT_EQ(rgb.blue, 255);
}

TEST(SystemTest, TickCountNeverGoesBack)
{
    const qint64 first = TickCount();
    EXPECT_GT(first, 0);
    EXPECT_GE(TickCount(), first);
}
