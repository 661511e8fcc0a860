// Reading `chronyc tracking` and judging how far the clock can be trusted, on captured text.
#include "metering/ChronyTracking.h"
#include "metering/ClockTrust.h"
#include <gtest/gtest.h>

namespace {
const QString Synchronised = QStringLiteral(
    "Reference ID    : C0A80101 (ntp.example.org)\n"
    "Stratum         : 3\n"
    "Ref time (UTC)  : Mon Nov 23 16:20:00 2026\n"
    "System time     : 0.000012345 seconds fast of NTP time\n"
    "Last offset     : -0.000002345 seconds\n"
    "RMS offset      : 0.000030000 seconds\n"
    "Frequency       : 1.234 ppm slow\n"
    "Residual freq   : -0.001 ppm\n"
    "Skew            : 0.012 ppm\n"
    "Root delay      : 0.012345678 seconds\n"
    "Root dispersion : 0.000987654 seconds\n"
    "Update interval : 64.2 seconds\n"
    "Leap status     : Normal\n");

const QString NotSynchronised = QStringLiteral(
    "Reference ID    : 00000000 ()\n"
    "Stratum         : 0\n"
    "Ref time (UTC)  : Thu Jan  1 00:00:00 1970\n"
    "System time     : 0.250000000 seconds slow of NTP time\n"
    "Last offset     : +0.000000000 seconds\n"
    "Update interval : 0.0 seconds\n"
    "Leap status     : Not synchronised\n");

const QDateTime RefTime(QDate(2026, 11, 23), QTime(16, 20, 0), Qt::UTC);
}

TEST(ChronyTracking, ReadsSourceOffsetAgeAndStatus)
{
    const std::optional<ChronyTracking> good = ChronyTracking::Parse(Synchronised);
    ASSERT_TRUE(good);
    EXPECT_EQ(good->source, QStringLiteral("ntp.example.org"));
    EXPECT_DOUBLE_EQ(good->offsetSeconds, 0.000012345);
    EXPECT_EQ(good->referenceTime, RefTime);
    EXPECT_TRUE(good->synchronised);

    const std::optional<ChronyTracking> lost = ChronyTracking::Parse(NotSynchronised);
    ASSERT_TRUE(lost);
    EXPECT_EQ(lost->source, QString());
    EXPECT_DOUBLE_EQ(lost->offsetSeconds, -0.25);
    EXPECT_EQ(lost->referenceTime, QDateTime(QDate(1970, 1, 1), QTime(0, 0), Qt::UTC));
    EXPECT_FALSE(lost->synchronised);
}

TEST(ChronyTracking, TextThatIsNoTrackingReadsAsNothing)
{
    for (const QString& text : {QString(), QStringLiteral("506 Cannot talk to daemon"), QString(Synchronised).replace(QStringLiteral("seconds fast"), QStringLiteral("sec fast")),
                                QString(Synchronised).remove(QStringLiteral("Leap status     : Normal\n"))})
        EXPECT_FALSE(ChronyTracking::Parse(text)) << text.toStdString();
}

TEST(ClockTrust, GreenAmberRedByOffsetAgeAndStatus)
{
    const ClockTrust::Limits limits;
    ChronyTracking tracking = *ChronyTracking::Parse(Synchronised);
    const QDateTime soon = RefTime.addSecs(60);
    EXPECT_EQ(ClockTrust::Judge(tracking, soon, limits), ClockTrust::Green);
    EXPECT_EQ(ClockTrust::Judge(tracking, RefTime.addSecs(3600), limits), ClockTrust::Amber);
    EXPECT_EQ(ClockTrust::Judge(tracking, RefTime.addDays(1), limits), ClockTrust::Red);
    tracking.offsetSeconds = -0.1;
    EXPECT_EQ(ClockTrust::Judge(tracking, soon, limits), ClockTrust::Amber);
    tracking.offsetSeconds = 1.5;
    EXPECT_EQ(ClockTrust::Judge(tracking, soon, limits), ClockTrust::Red);
    EXPECT_EQ(ClockTrust::Judge(ChronyTracking::Parse(NotSynchronised), soon, limits), ClockTrust::Red);
    EXPECT_EQ(ClockTrust::Judge(std::nullopt, soon, limits), ClockTrust::Red);
}
