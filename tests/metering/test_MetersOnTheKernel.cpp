// The meter row and the channel monitor on the real embedded kernel of a demo station, its
// channels on the Null device with the virtual clock: a cart played on "A" moves A's meter
// and nothing else.
#include "foundation/Globals.h"
#include "foundation/Ini.h"
#include "foundation/controls/IFBlackBoard.h"
#include "kernel/EmbeddedKernel.h"
#include "kernel/audio/AudioEngine.h"
#include "kernel/audio/Channels.h"
#include "kernelapi/iCartPlayer.h"
#include "kernelapi/iCarts.h"
#include "kernelapi/iChannel.h"
#include "kernelapi/iStream.h"
#include "kernelapi/iStreams.h"
#include "metering/IFChannelMonitor.h"
#include "metering/IFVumeter.h"
#include "metering/IFVumeters.h"
#include "metering/MeterClock.h"
#include "metering/UCPipeOn.h"
#include "metering/UCSingleVumeter.h"
#include "metering/UCVumeter.h"
#include "support/TempStation.h"
#include <QLabel>
#include <gtest/gtest.h>

namespace {
class MetersOnTheKernel : public ::testing::Test
{
protected:
    void SetUp() override
    {
        MeterClock::Instance().Suspend(true);
        ASSERT_TRUE(WriteIni(QStringLiteral("Audio"), QStringLiteral("Clock"), QStringLiteral("virtual"), station.KernelIniFile()));
        kernel = EmbeddedKernel::Open(station.Folder(), nullptr);
        Globals::SetKernel(kernel);
    }

    void TearDown() override { Globals::SetKernel(nullptr); }

    void AdvanceMs(int ms) const
    {
        const auto channels = std::dynamic_pointer_cast<Channels>(kernel->Channels());
        channels->Engine().Advance(static_cast<std::int64_t>(ms) * channels->Engine().Settings().sampleRate / 1000);
    }

    static void Ticks(int count)
    {
        for (int i = 0; i < count; ++i)
            MeterClock::Instance().Tick();
    }

    TempStation station;
    std::shared_ptr<EmbeddedKernel> kernel;
};
}

TEST_F(MetersOnTheKernel, ACartPlayedOnAMovesOnlyTheMeterOfA)
{
    IFVumeters row;
    row.Init();
    ASSERT_EQ(row.MemberCount(), 3);
    EXPECT_EQ(row.Member(1)->Label1->text(), QStringLiteral("A"));
    EXPECT_EQ(row.Member(3)->Label1->text(), QStringLiteral("Rec"));
    UCSingleVumeter* aLeft = row.Member(1)->UCVumeter1->VuLeft;
    UCSingleVumeter* bLeft = row.Member(2)->UCVumeter1->VuLeft;
    EXPECT_FLOAT_EQ(aLeft->WorkLevel, -12);
    EXPECT_FLOAT_EQ(aLeft->NoiseLevel(), -60);
    Ticks(45);
    EXPECT_LE(aLeft->Value(), -59);

    const auto player = kernel->Channels()->Item(QStringLiteral("A"))->Streams()->Item(1)->CartPlayer();
    player->Load(kernel->Carts()->Cart(QStringLiteral("MUS0001")));
    player->Play();
    AdvanceMs(60);
    Ticks(1);
    EXPECT_GT(aLeft->Value(), -59);
    EXPECT_LT(aLeft->Value(), 0);
    EXPECT_LE(bLeft->Value(), -59);

    // Every channel of the engine runs: the lamps follow the blink beat.
    const bool beat = row.Blink();
    for (int tick = 0; tick < 7 && row.Blink() == beat; ++tick)
        Ticks(1);
    const QString lit = row.Blink() ? QStringLiteral("On") : QStringLiteral("Off");
    EXPECT_EQ(row.Member(2)->UCPipeOn1->ShownPicture(), QStringLiteral("IPlay") + lit);
    EXPECT_EQ(row.Member(3)->UCPipeOn1->ShownPicture(), QStringLiteral("IRec") + lit);
}

TEST_F(MetersOnTheKernel, ChannelMonitorPrintsTheStationsChannels)
{
    IFChannelMonitor monitor;
    monitor.Init();
    monitor.TmrChannelMonitor_Timer();
    EXPECT_EQ(monitor.IFBlackBoard1->PrintedLines(),
              QStringList({QStringLiteral("A: True - 3 - 0 underruns"), QStringLiteral("B: True - 3 - 0 underruns"),
                           QStringLiteral("Rec: True - 1 - 0 underruns")}));
}
