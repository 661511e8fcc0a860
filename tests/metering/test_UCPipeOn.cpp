// The channel-running lamp: pictures by direction, lit only while the channel is on and the
// beat is up, blinking on its own with the meter clock unless its owner gives the beat.
#include "metering/MeterTest.h"
#include "metering/UCPipeOn.h"

namespace {
class UCPipeOnTest : public MeterTest
{
protected:
    std::shared_ptr<FakeChannel> play = kernel->channels->Add(QStringLiteral("A"), 3);
    std::shared_ptr<FakeChannel> record = kernel->channels->Add(QStringLiteral("Rec"), 1, 1);
};
}

TEST_F(UCPipeOnTest, LampFollowsChannelOnWithTheBeat)
{
    UCPipeOn pipe;
    pipe.SetFollowMode(true);
    EXPECT_EQ(pipe.ShownPicture(), QStringLiteral("IPlayOff"));
    pipe.RefreshLed(true);
    EXPECT_EQ(pipe.ShownPicture(), QStringLiteral("IPlayOff"));

    pipe.SetChannel(play);
    EXPECT_EQ(pipe.Background(), QColor(0, 127, 0));
    pipe.RefreshLed(true);
    EXPECT_EQ(pipe.ShownPicture(), QStringLiteral("IPlayOff"));
    play->on = true;
    pipe.RefreshLed(true);
    EXPECT_EQ(pipe.ShownPicture(), QStringLiteral("IPlayOn"));
    pipe.RefreshLed(false);
    EXPECT_EQ(pipe.ShownPicture(), QStringLiteral("IPlayOff"));

    pipe.SetChannel(record);
    EXPECT_EQ(pipe.Background(), QColor(128, 0, 0));
    record->on = true;
    pipe.RefreshLed(true);
    EXPECT_EQ(pipe.ShownPicture(), QStringLiteral("IRecOn"));
    record->on = false;
    pipe.RefreshLed(true);
    EXPECT_EQ(pipe.ShownPicture(), QStringLiteral("IRecOff"));

    pipe.ToPlay();
    EXPECT_EQ(pipe.Background(), QColor(0, 127, 0));
    EXPECT_EQ(pipe.ShownPicture(), QStringLiteral("IPlayOff"));
}

TEST_F(UCPipeOnTest, BlinksOnItsOwnEvery500MsUnlessFollowing)
{
    UCPipeOn pipe;
    pipe.SetChannel(play);
    play->on = true;
    // Each 500 ms beat shows the lamp's own flag and then flips it; the flag starts down.
    UntilBeat(&MeterClock::PipeTick);
    EXPECT_EQ(pipe.ShownPicture(), QStringLiteral("IPlayOff"));
    UntilBeat(&MeterClock::PipeTick);
    EXPECT_EQ(pipe.ShownPicture(), QStringLiteral("IPlayOn"));
    UntilBeat(&MeterClock::PipeTick);
    EXPECT_EQ(pipe.ShownPicture(), QStringLiteral("IPlayOff"));

    pipe.SetFollowMode(true);
    UntilBeat(&MeterClock::PipeTick);
    UntilBeat(&MeterClock::PipeTick);
    EXPECT_EQ(pipe.ShownPicture(), QStringLiteral("IPlayOff"));

    // A channel that fails to answer leaves the lamp off and is logged once.
    pipe.SetFollowMode(false);
    play->failing = true;
    for (int beat = 0; beat < 4; ++beat)
        UntilBeat(&MeterClock::PipeTick);
    EXPECT_EQ(pipe.ShownPicture(), QStringLiteral("IPlayOff"));
    EXPECT_EQ(log->Errors().size(), 1);
}
