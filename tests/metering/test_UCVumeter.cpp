// The stereo meter: bars fed from the channel, the overload lamps, the click that restarts the
// sweep, a failing source, and the layout.
#include "metering/MeterLamp.h"
#include "metering/MeterTest.h"
#include "metering/UCSingleVumeter.h"
#include "metering/UCVumeter.h"
#include <QTest>

namespace {
const QColor LampOff(64, 0, 0);
const QColor LampOn(255, 0, 0);

class UCVumeterTest : public MeterTest
{
protected:
    void SetUp() override
    {
        MeterTest::SetUp();
        meter.resize(40, 200);
        meter.SetChannel(channel);
        channel->SetLevels(-40, -40);
        Reads(50);
    }

    void Reads(int count)
    {
        for (int i = 0; i < count; ++i)
            meter.RefreshLevel();
    }

    std::shared_ptr<FakeChannel> channel = kernel->channels->Add(QStringLiteral("A"), 3);
    UCVumeter meter;
};
}

TEST_F(UCVumeterTest, CalibratesBothBarsAndShowsTheChannel)
{
    for (UCSingleVumeter* bar : {meter.VuLeft, meter.VuRight}) {
        EXPECT_FLOAT_EQ(bar->WorkLevel, -12);
        EXPECT_FLOAT_EQ(bar->LevelZeroPercent, 80);
        EXPECT_FLOAT_EQ(bar->LevelTenPercent, 60);
        EXPECT_FLOAT_EQ(bar->NoiseLevel(), -60);
        EXPECT_NE(bar->Coefficients().a, 0);
    }
    channel->SetLevels(-20, -30);
    meter.RefreshLevel();
    EXPECT_FLOAT_EQ(meter.VuLeft->Value(), -20);
    EXPECT_FLOAT_EQ(meter.VuRight->Value(), -30);

    // No valid reading: both bars at -110.
    channel->SetLevels(-20, -30, false);
    meter.RefreshLevel();
    EXPECT_FLOAT_EQ(meter.VuLeft->Value(), -110);
    EXPECT_FLOAT_EQ(meter.VuRight->Value(), -110);
}

TEST_F(UCVumeterTest, OverloadLampStaysRedForFiveReadsThenDarkUntilTheNextOverload)
{
    EXPECT_EQ(meter.PeakL->Color(), LampOff);
    channel->SetLevels(-3, -30);
    meter.RefreshLevel();
    EXPECT_EQ(meter.PeakL->Color(), LampOn);
    EXPECT_EQ(meter.PeakR->Color(), LampOff);

    channel->SetLevels(-40, -5.9f);
    for (int read = 1; read <= 4; ++read) {
        meter.RefreshLevel();
        EXPECT_EQ(meter.PeakL->Color(), LampOn) << "read " << read;
        EXPECT_EQ(meter.PeakR->Color(), LampOn) << "read " << read;
    }
    meter.RefreshLevel();
    EXPECT_EQ(meter.PeakL->Color(), LampOff);
    EXPECT_EQ(meter.PeakR->Color(), LampOn);

    // -6 dB exactly is no overload.
    channel->SetLevels(-6, -6);
    Reads(20);
    EXPECT_EQ(meter.PeakL->Color(), LampOff);
    EXPECT_EQ(meter.PeakR->Color(), LampOff);
    channel->SetLevels(-1, -40);
    meter.RefreshLevel();
    EXPECT_EQ(meter.PeakL->Color(), LampOn);
}

TEST_F(UCVumeterTest, AClickOnABarSweepsBothSidesFromFullScale)
{
    meter.show();
    QTest::mouseClick(meter.VuRight, Qt::LeftButton);
    meter.RefreshLevel();
    EXPECT_FLOAT_EQ(meter.VuLeft->Value(), 0);
    EXPECT_FLOAT_EQ(meter.VuRight->Value(), 0);
    EXPECT_EQ(meter.PeakL->Color(), LampOn);
    meter.RefreshLevel();
    EXPECT_NEAR(meter.VuLeft->Value(), -4, 1e-4);
    Reads(44);
    EXPECT_FLOAT_EQ(meter.VuLeft->Value(), -40);
}

TEST_F(UCVumeterTest, AFailingSourceLeavesTheBarsAsTheyWereAndIsLoggedOnce)
{
    channel->SetLevels(-20, -25);
    meter.RefreshLevel();
    channel->failing = true;
    Reads(10);
    EXPECT_FLOAT_EQ(meter.VuLeft->Value(), -20);
    EXPECT_FLOAT_EQ(meter.VuRight->Value(), -25);
    ASSERT_EQ(log->Errors().size(), 1);
    EXPECT_EQ(log->Errors().first(), QStringLiteral("ERROR UCVumeter.RefreshLevel: Channel A does not answer"));

    channel->failing = false;
    meter.RefreshLevel();
    channel->failing = true;
    meter.RefreshLevel();
    EXPECT_EQ(log->Errors().size(), 2);
}

TEST_F(UCVumeterTest, LaysOutLampsOverBars)
{
    // Width 40: bars (40 - 12) / 2 = 14 wide; right bar at 40 - 4 - 14 = 22; bars
    // 200 - 12 - 14 = 174 high from 200 - 4 - 174 = 22 down; lamps 15 square at the top.
    meter.show();
    EXPECT_EQ(meter.VuLeft->geometry(), QRect(4, 22, 14, 174));
    EXPECT_EQ(meter.VuRight->geometry(), QRect(22, 22, 14, 174));
    EXPECT_EQ(meter.PeakL->geometry(), QRect(4, 4, 15, 15));
    EXPECT_EQ(meter.PeakR->geometry(), QRect(22, 4, 15, 15));

    // Width 41: 14.5 rounds to 14. Too small: nothing negative.
    meter.resize(41, 200);
    EXPECT_EQ(meter.VuLeft->width(), 14);
    meter.resize(5, 5);
    EXPECT_EQ(meter.VuLeft->geometry(), QRect(4, 1, 0, 0));
    EXPECT_EQ(meter.VuRight->geometry(), QRect(1, 1, 0, 0));
}
