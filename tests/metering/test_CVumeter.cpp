// The meter object: settings from the shared store, the floor, the sweep after LevelReset and
// the peak hold with one fall speed for both sides.
#include "metering/CVumeter.h"
#include "metering/MeterTest.h"
#include <cmath>

namespace {
class CVumeterTest : public MeterTest
{
protected:
    void SetUp() override
    {
        MeterTest::SetUp();
        meter.SetChannel(channel);
    }

    // Reads until the sweep that follows a reset is over, at a steady level.
    void SettleAt(float level)
    {
        channel->SetLevels(level, level);
        for (int i = 0; i < 100; ++i)
            meter.Level();
    }

    std::shared_ptr<FakeChannel> channel = kernel->channels->Add(QStringLiteral("A"), 3);
    CVumeter meter;
};
}

TEST_F(CVumeterTest, ReadsTheSettingsAsTheirLeadingNumbers)
{
    EXPECT_FLOAT_EQ(meter.LevelZeroPercent(), 80);
    EXPECT_FLOAT_EQ(meter.LevelTenPercent(), 60);
    EXPECT_FLOAT_EQ(meter.WorkLevel(), -12);
    EXPECT_FLOAT_EQ(meter.NoiseLevel(), -60);

    kernel->config.insert(QStringLiteral("LevelZeroPercent"), QStringLiteral(" 75.5 %"));
    kernel->config.insert(QStringLiteral("WorkLevel"), QStringLiteral("-9dB"));
    kernel->config.insert(QStringLiteral("NoiseLevel"), QStringLiteral("floor"));
    kernel->config.remove(QStringLiteral("LevelTenPercent"));
    meter.SetChannel(channel);
    EXPECT_FLOAT_EQ(meter.LevelZeroPercent(), 75.5f);
    EXPECT_FLOAT_EQ(meter.LevelTenPercent(), 0);
    EXPECT_FLOAT_EQ(meter.WorkLevel(), -9);
    EXPECT_FLOAT_EQ(meter.NoiseLevel(), 0);
    EXPECT_TRUE(log->Errors().isEmpty());

    // Without a kernel the channel is still bound and the failure is logged by its own name.
    Globals::SetKernel(nullptr);
    auto other = std::make_shared<FakeChannel>(QStringLiteral("B"), 1);
    meter.SetChannel(other);
    EXPECT_EQ(meter.Channel(), other);
    ASSERT_EQ(log->Errors().size(), 1);
    EXPECT_TRUE(log->Errors().first().startsWith(QStringLiteral("ERROR CVumeter.Channle_Set: No kernel")));
}

TEST_F(CVumeterTest, SweepsFromFullScaleDownToTheTrueLevelAfterLevelReset)
{
    channel->SetLevels(-20, -40);
    // A new meter starts with a reset: factor 0, then 1 - 0.9^n, until it passes 0.99 at the 44th read.
    for (int read = 1; read <= 44; ++read) {
        const CVumeter::Reading reading = meter.Level();
        const float factor = 1 - std::pow(0.9f, read - 1);
        EXPECT_NEAR(reading.left, -20 * factor, 1e-3) << "read " << read;
        EXPECT_NEAR(reading.right, -40 * factor, 1e-3) << "read " << read;
    }
    EXPECT_FLOAT_EQ(meter.Level().left, -20);
    EXPECT_FLOAT_EQ(meter.Level().right, -40);

    meter.LevelReset();
    EXPECT_FLOAT_EQ(meter.Level().left, 0);
    EXPECT_NEAR(meter.Level().left, -2, 1e-4);
    EXPECT_NEAR(meter.Level().left, -3.8, 1e-4);
}

TEST_F(CVumeterTest, HoldsLevelsAboveTheFloorAndPassesTheValidFlag)
{
    SettleAt(-110);
    channel->SetLevels(-110, -75, false);
    CVumeter::Reading reading = meter.Level();
    EXPECT_FLOAT_EQ(reading.left, -59);
    EXPECT_FLOAT_EQ(reading.right, -59);
    EXPECT_FALSE(reading.valid);

    channel->SetLevels(-59.5f, -12, true);
    reading = meter.Level();
    EXPECT_FLOAT_EQ(reading.left, -59);
    EXPECT_FLOAT_EQ(reading.right, -12);
    EXPECT_TRUE(reading.valid);

    // Nothing bound: silence at the floor, not valid, and no error.
    CVumeter unbound;
    EXPECT_FALSE(unbound.Level().valid);
    EXPECT_TRUE(log->Errors().isEmpty());
}

TEST_F(CVumeterTest, PeaksFallWithOneSpeedSharedByBothSides)
{
    // At a steady 0 dB both peaks stand at 0 and the fall speed ends each read at 0.
    SettleAt(0);
    channel->SetLevels(-59, -59);
    // Both sides falling: the shared speed grows by 0.1 dB at each side's turn.
    const float left[] = {0, -0.2f, -0.6f, -1.2f};
    const float right[] = {-0.1f, -0.4f, -0.9f, -1.6f};
    for (int read = 0; read < 4; ++read) {
        const CVumeter::Reading reading = meter.Level();
        EXPECT_FLOAT_EQ(reading.left, -59);
        EXPECT_NEAR(reading.leftPeak, left[read], 1e-4) << "read " << read;
        EXPECT_NEAR(reading.rightPeak, right[read], 1e-4) << "read " << read;
    }

    // A peak that falls below its level is caught by the level. The left side, caught first,
    // then resets the shared speed at every read, and the right peak hangs where it stands.
    for (int read = 0; read < 30; ++read)
        meter.Level();
    const CVumeter::Reading caught = meter.Level();
    EXPECT_FLOAT_EQ(caught.leftPeak, -59);
    EXPECT_GT(caught.rightPeak, -59);
    EXPECT_FLOAT_EQ(meter.Level().rightPeak, caught.rightPeak);

    // While one side keeps rising to its level, the other side's peak does not fall at all.
    SettleAt(0);
    channel->SetLevels(-59, 0);
    for (int read = 0; read < 50; ++read)
        EXPECT_FLOAT_EQ(meter.Level().leftPeak, 0) << "read " << read;
}

TEST_F(CVumeterTest, ReadingTheStreamSwitchesTheMeterToIt)
{
    auto stream = channel->streams->streams[0];
    stream->levels = {-40, -40, true};
    meter.SetStream(stream);
    EXPECT_EQ(meter.VumeterType(), 1);
    SettleAt(-20);
    EXPECT_FLOAT_EQ(meter.Level().left, -40);

    meter.SetChannel(channel);
    EXPECT_EQ(meter.VumeterType(), 0);
    EXPECT_FLOAT_EQ(meter.Level().left, -20);
    EXPECT_EQ(meter.Stream(), stream);
    EXPECT_EQ(meter.VumeterType(), 1);
    EXPECT_FLOAT_EQ(meter.Level().left, -40);

    meter.SetVumeterType(0);
    channel->failing = true;
    EXPECT_THROW(meter.Level(), KernelError);
}
