// A channel's device going away and coming back, underruns, and the choice of a device by
// name, on the virtual clock with a device that the test plugs in and pulls out.
#include "test_AudioEngineFixture.h"
#include "kernel/audio/Channel.h"
#include "kernel/audio/PortAudioDevice.h"
#include "kernel/PluggableDevice.h"

namespace {
class AudioEngineDevicesTest : public AudioEngineTest
{
protected:
    // "A" and "Rec" on the pluggable card, "B" on the Null device.
    void OpenOnTheCard()
    {
        AudioSettings settings = VirtualSettings();
        settings.channels = {{"A", "Card", 2, false}, {"Rec", "Card", 1, true}, {"B", "null", 1, false}};
        Open(settings, PluggableDevice::Factory(socket));
    }

    // Whether the channel is on air, with its levels measured, or off air with no signal.
    void ExpectOnAir(const QString& name, bool on) const
    {
        const auto channel = channels->Item(name);
        EXPECT_EQ(channel->Active(), on) << name.toStdString();
        EXPECT_EQ(channel->ChannelOn(), on) << name.toStdString();
        EXPECT_EQ(channel->GetLevels().valid, on) << name.toStdString();
        if (!on) {
            EXPECT_EQ(channel->GetLevels().left, PeakMeter::SilenceDb) << "the meter falls to no signal";
        }
    }

    bool CardSounds() const
    {
        const auto& device = dynamic_cast<const NullDevice&>(channels->Engine().Device(0));
        return std::any_of(device.Output().begin(), device.Output().end(), [](float sample) { return sample != 0.0f; });
    }

    std::shared_ptr<PluggableDevice::Socket> socket = std::make_shared<PluggableDevice::Socket>();
};
}

TEST_F(AudioEngineDevicesTest, ALostDeviceIsOffAirWhileItsPlayersKeepTimeAndIsOnAirAgainWhenItReturns)
{
    OpenOnTheCard();
    const auto player = Player("A");
    player->LoadSource(Whole(WriteTone("tone.wav", {Rate, 2, 30000})), "tone");
    player->Play();
    AdvanceMs(500);
    ExpectOnAir("A", true);
    ExpectOnAir("Rec", true);
    EXPECT_NEAR(Stream("A")->GetLevels().left, -6.0f, 0.1f);
    EXPECT_TRUE(CardSounds());

    socket->plugged = false;
    AdvanceMs(100);
    ExpectOnAir("A", false);
    ExpectOnAir("Rec", false);
    ExpectOnAir("B", true);
    EXPECT_FALSE(Stream("A")->GetLevels().valid);
    EXPECT_EQ(LogLinesWith(QStringLiteral("ERROR")).size(), 1);
    EXPECT_EQ(LogLinesWith(QStringLiteral("Device 'Card' stopped; channel A, Rec is off air: its players keep time, "
                                          "and the device is tried again every 2 s"))
                  .size(),
              1);

    // Tried again every 2 s without a line each time; the player goes on in time meanwhile.
    AdvanceMs(5000);
    EXPECT_EQ(LogLinesWith(QStringLiteral("ERROR")).size(), 1);
    EXPECT_EQ(player->Status(), static_cast<qint32>(CartPlayerStatus::Playing));
    const int periodMs = 1000 * channels->Engine().Settings().periodFrames / Rate;
    EXPECT_NEAR(player->PlayPosition(), 5600, periodMs + 1) << "one period is lost when the device goes";

    socket->plugged = true;
    AdvanceMs(2000);
    ExpectOnAir("A", true);
    ExpectOnAir("Rec", true);
    EXPECT_NEAR(Stream("A")->GetLevels().left, -6.0f, 0.1f);
    EXPECT_TRUE(CardSounds());
    EXPECT_EQ(socket->opened, 2);
    EXPECT_EQ(LogLinesWith(QStringLiteral("OK")).filter(QStringLiteral("Device 'Card' is back: channel A, Rec is on air again")).size(), 1);
    EXPECT_NEAR(player->PlayPosition(), 7600, periodMs + 1) << "the player goes on from where it was";
}

TEST_F(AudioEngineDevicesTest, AnAbsentDeviceIsTriedAgainUntilItComes)
{
    socket->plugged = false;
    OpenOnTheCard();
    ExpectOnAir("A", false);
    EXPECT_EQ(LogLinesWith(QStringLiteral("Device 'Card' is absent (present: none); channel A, Rec is off air")).size(), 1);
    const auto player = Player("A");
    player->LoadSource(Whole(WriteTone("tone.wav", {})), "tone");
    player->Play();
    AdvanceMs(1000);
    EXPECT_NEAR(player->PlayPosition(), 1000, 6) << "the stand-in keeps time";
    ExpectOnAir("B", true);

    socket->plugged = true;
    AdvanceMs(2000);
    ExpectOnAir("A", true);
    EXPECT_EQ(LogLinesWith(QStringLiteral("Device 'Card' is back")).size(), 1);
    EXPECT_EQ(LogLinesWith(QStringLiteral("ERROR")).size(), 1);
}

// A device that still runs but sends no periods is off air at once, and gone after 2 s.
TEST_F(AudioEngineDevicesTest, ADeviceThatFallsSilentIsOffAirAfterAQuarterSecondAndLostAfterTwo)
{
    OpenOnTheCard();
    AdvanceMs(100);
    socket->quiet = true;
    AdvanceMs(300);
    const auto a = channels->Item("A");
    EXPECT_TRUE(a->Active());
    EXPECT_FALSE(a->ChannelOn());
    EXPECT_FALSE(a->GetLevels().valid);
    EXPECT_TRUE(LogLinesWith(QStringLiteral("ERROR")).isEmpty());

    AdvanceMs(1800);
    EXPECT_FALSE(a->Active());
    EXPECT_EQ(LogLinesWith(QStringLiteral("Device 'Card' has sent no audio for 2000 ms; channel A, Rec is off air")).size(), 1);
    const std::int64_t clock = channels->Engine().ClockMs(0);
    AdvanceMs(500);
    EXPECT_NEAR(channels->Engine().ClockMs(0), clock + 500, 6) << "the stand-in keeps time";
}

// Gaps that the device reports count on the channels they touch; each channel has one
// warning at most every 10 s, with the count since the last.
TEST_F(AudioEngineDevicesTest, DeviceGapsCountOnTheirChannelsAndAreLoggedAtMostEveryTenSeconds)
{
    OpenOnTheCard();
    socket->outputGaps = 1000000;
    AdvanceMs(25000);
    const int periods = 1000000 - socket->outputGaps;
    EXPECT_EQ(channels->Item("A")->Underruns(), periods);
    EXPECT_EQ(channels->Item("Rec")->Underruns(), 0);
    EXPECT_EQ(channels->Item("B")->Underruns(), 0);
    const QStringList lines = LogLinesWith(QStringLiteral("WARN"));
    ASSERT_EQ(lines.size(), 3);
    EXPECT_TRUE(lines[0].contains(QStringLiteral("Channel A: gaps in its audio (underruns: 1 since the last line about them, 1 in all)")));
    EXPECT_TRUE(lines[2].contains(QStringLiteral("Channel A: gaps in its audio (underruns: 1875 since the last line about them")));

    socket->outputGaps = 0;
    socket->inputGaps = 3;
    AdvanceMs(100);
    EXPECT_EQ(channels->Item("Rec")->Underruns(), 3);
    EXPECT_EQ(LogLinesWith(QStringLiteral("Channel Rec: gaps in its audio (underruns: 1 since the last line about them, 1 in all)")).size(), 1);
}

// While the disk falls behind, a voice's ring runs dry: its channel counts the underruns, and
// the player's position holds while nothing sounds, so that it stays where the sound is.
TEST_F(AudioEngineDevicesTest, AnUnderrunIsCountedAndThePositionFollowsWhatSounded)
{
    OpenOnTheCard();
    const auto player = Player("A");
    player->LoadSource(Whole(WriteSamples("steady.wav", Rate, 2, std::vector<float>(2 * 10 * Rate, 0.5f))), "steady");
    player->Play();
    auto& card = dynamic_cast<NullDevice&>(channels->Engine().Device(0));
    const int period = channels->Engine().Settings().periodFrames;
    std::int64_t sounded = 0;
    const auto run = [&](int periods, bool withDisk) {
        for (int i = 0; i < periods; ++i) {
            if (withDisk)
                channels->Engine().Advance(period);
            else
                card.Advance(period);
            for (std::size_t frame = 0; frame < card.Output().size(); frame += 2)
                sounded += card.Output()[frame] != 0.0f ? 1 : 0;
        }
    };
    run(20, true);
    run(600, false); // 3.2 s while the disk does nothing: the ring holds about 1.4 s
    run(20, true);
    EXPECT_GT(channels->Item("A")->Underruns(), 100);
    EXPECT_EQ(LogLinesWith(QStringLiteral("Channel A: gaps in its audio")).size(), 1);
    EXPECT_NEAR(player->PlayPosition(), sounded * 1000 / Rate, 1);
    EXPECT_LT(player->PlayPosition(), 2000);
}

// "default" means the default output for a playing device and the default input for a
// recording one; JACK's clients, which PortAudio lists too, are left out of the search.
TEST(PortAudioDevices, DefaultMeansTheDefaultInputForRecordingAndNamesAreFoundAmongTheListed)
{
    const PortAudioDevice::Listing listing{{"Speakers", "Microphone", QString(), "default"}, 1, 0};
    EXPECT_EQ(PortAudioDevice::Find(listing, "default", true), 1);
    EXPECT_EQ(PortAudioDevice::Find(listing, "Default", false), 0);
    EXPECT_EQ(PortAudioDevice::Find(listing, "Microphone", false), 1);
    EXPECT_EQ(PortAudioDevice::Find({{"default"}, -1, -1}, "default", true), 0) << "with no default, the device of that name";
    try {
        PortAudioDevice::Find(listing, "system", false);
        ADD_FAILURE() << "a JACK client is found";
    } catch (const KernelError& e) {
        EXPECT_EQ(e.Description(), QStringLiteral("Device 'system' is absent (present: Speakers, Microphone, default)"));
    }
}
