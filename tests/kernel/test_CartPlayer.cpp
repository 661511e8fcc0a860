#include "test_AudioEngineFixture.h"
#include <QStringList>

namespace {
constexpr qint32 Ready = static_cast<qint32>(CartPlayerStatus::Ready);
constexpr qint32 Playing = static_cast<qint32>(CartPlayerStatus::Playing);
constexpr qint32 Paused = static_cast<qint32>(CartPlayerStatus::Paused);
constexpr qint32 Cueing = static_cast<qint32>(CartPlayerStatus::Cueing);
constexpr qint32 Cued = static_cast<qint32>(CartPlayerStatus::Cued);
constexpr qint32 Expiring = static_cast<qint32>(CartPlayerStatus::Expiring);

// Everything a player raises, in order, as short texts.
class EventLog
{
public:
    explicit EventLog(iCartPlayer& player)
    {
        QObject::connect(&player, &iCartPlayer::StatusChanged, [this](qint32 s) { events << QStringLiteral("Status %1").arg(s); });
        QObject::connect(&player, &iCartPlayer::DisplayTitleChanged, [this](const QString& t) { events << "Title " + t; });
        QObject::connect(&player, &iCartPlayer::VolumeChanged, [this](qint16 v) { events << QStringLiteral("Volume %1").arg(v); });
        QObject::connect(&player, &iCartPlayer::DisplayTimeChanged,
                         [this](const QString& a, const QString& b) { events << QStringLiteral("Time %1 %2").arg(a, b); });
        QObject::connect(&player, &iCartPlayer::PercentToGoChanged, [this](float p) { events << QStringLiteral("Percent %1").arg(p); });
        QObject::connect(&player, qOverload<qint32>(&iCartPlayer::PlayPosition),
                         [this](qint32 p) { events << QStringLiteral("Position %1").arg(p); });
    }

    // The events of one kind, with the kind word dropped.
    QStringList Of(const QString& kind) const
    {
        QStringList values;
        for (const QString& event : events)
            if (event.startsWith(kind + ' '))
                values << event.mid(kind.size() + 1);
        return values;
    }

    QStringList events;
};
}

class CartPlayerTest : public AudioEngineTest
{
protected:
    void SetUp() override { Open(); }

    std::shared_ptr<CartPlayer> player = nullptr;
};

TEST_F(CartPlayerTest, LoadPlayPauseStopEjectAndTheEndOfTheCartWalkTheStates)
{
    const auto player = Player("A");
    EventLog log(*player);
    player->LoadSource(Whole(WriteTone("tone.wav", {Rate, 2, 2000})), "Two seconds");
    EXPECT_EQ(log.events, QStringList({"Title Two seconds", "Volume 0", "Time 00:00:00.00 -00:00:02.00", "Percent 100", "Status 4"}));
    EXPECT_TRUE(player->Loaded());
    EXPECT_EQ(player->Cart(), nullptr);
    EXPECT_EQ(player->CuePosition(), 0);
    EXPECT_EQ(player->CueRemaining(), 2000);

    player->Play();
    AdvanceMs(500);
    EXPECT_NEAR(player->PlayPosition(), 500, 6);
    player->Pause();
    AdvanceMs(10); // the fade out
    const qint32 paused = player->PausePosition();
    EXPECT_NEAR(paused, 503, 6);
    AdvanceMs(300);
    EXPECT_EQ(player->PausePosition(), paused) << "a paused player stands still";
    EXPECT_EQ(player->PauseRemaining(), 2000 - paused);
    EXPECT_NEAR(Stream("A")->GetLevels().left, -6.0f - PeakMeter::ReleaseDbPerSecond * 0.31f, 0.5f)
        << "and is silent: its held peak only falls";
    player->Pause();
    AdvanceMs(100);
    EXPECT_NEAR(player->PlayPosition(), paused + 100, 6) << "resume goes on from the pause";

    player->Stop();
    EXPECT_TRUE(player->Loaded());
    player->Play();
    AdvanceMs(100);
    EXPECT_NEAR(player->PlayPosition(), 100, 6) << "after a stop the cart plays from its cue point";
    AdvanceMs(2000);
    EXPECT_EQ(player->PlayPosition(), 0) << "at the end the player stands at the cue point again";

    player->Eject();
    EXPECT_FALSE(player->Loaded());
    EXPECT_EQ(player->DisplayTitle(), QString());
    EXPECT_EQ(log.Of("Status"), QStringList({"4", "1", "2", "1", "0", "1", "0"}));
    EXPECT_EQ(log.Of("Title"), QStringList({"Two seconds", ""}));
    EXPECT_EQ(Failure([&] { player->Cue(); }), QStringLiteral("No cart is loaded in the player"));
}

TEST_F(CartPlayerTest, TimeTextsComeTenTimesASecondOfPlayingAndCountDown)
{
    const auto player = Player("B", 2);
    player->LoadSource(Whole(WriteTone("tone.wav", {Rate, 2, 3000})), "tone");
    EventLog log(*player);
    player->Play();
    AdvanceMs(1000);
    const QStringList times = log.Of("Time");
    EXPECT_GE(times.size(), 10);
    EXPECT_LE(times.size(), 11);
    EXPECT_EQ(times.first(), QStringLiteral("00:00:00.00 -00:00:03.00"));
    EXPECT_TRUE(times.last().startsWith(QStringLiteral("00:00:01.0"))) << times.last().toStdString();
    EXPECT_TRUE(times.last().endsWith(QStringLiteral(" -00:00:02.00"))) << times.last().toStdString();
    EXPECT_EQ(log.Of("Position").size(), times.size() - 1) << "positions follow once the player plays";
    const QStringList percents = log.Of("Percent");
    EXPECT_EQ(percents.first().toFloat(), 100.0f);
    EXPECT_NEAR(percents.last().toFloat(), 66.7f, 0.5f);

    player->Pause();
    log.events.clear();
    AdvanceMs(1000);
    EXPECT_TRUE(log.Of("Time").isEmpty()) << "nothing moves while paused";
}

TEST_F(CartPlayerTest, CueRecuePositionAndWindingMoveWhereThePlayerStands)
{
    const auto player = Player("A");
    player->LoadSource(Whole(WriteSteps("steps.wav")), "steps");
    EventLog log(*player);

    player->SetPosition(700);
    EXPECT_EQ(player->CuePosition(), 700);
    EXPECT_EQ(player->CueRemaining(), 300);
    player->Play();
    AdvanceMs(20);
    EXPECT_NEAR(Stream("A")->GetLevels().left, StepDb(7), 0.1) << "the sound at 700 ms";
    player->Cue();
    EXPECT_EQ(player->Status(), Cued);
    EXPECT_EQ(player->CuePosition(), 700) << "Cue goes back to the cue point";
    log.events.clear();
    player->Recue();
    EXPECT_EQ(player->CuePosition(), 0) << "Recue goes back to the start";
    EXPECT_EQ(log.Of("Status"), QStringList({"4"})) << "a move of the cue point is reported";
    player->Recue();
    EXPECT_EQ(log.Of("Status"), QStringList({"4"})) << "a recue where it stands is not";
    EXPECT_EQ(Failure([&] { player->SetPosition(5000); }), QString());
    EXPECT_EQ(player->CuePosition(), 999) << "a position beyond the end stops at the last ms";

    // Winding a player at rest: Cueing while the steps come, Cued when they stop.
    player->Recue();
    log.events.clear();
    player->FastForward(300);
    player->FastForward(300);
    EXPECT_EQ(player->Status(), Cueing);
    EXPECT_EQ(player->CuePosition(), 600);
    player->Rewind(1000);
    EXPECT_EQ(player->CuePosition(), 0);
    AdvanceMs(CartPlayer::WindSettleMs + 20);
    EXPECT_EQ(player->Status(), Cued);
    EXPECT_EQ(log.Of("Status"), QStringList({"3", "4"}));

    // A paused player winds and stays paused; a playing one jumps and plays on.
    player->Play();
    AdvanceMs(200);
    player->Pause();
    const qint32 paused = player->PausePosition();
    player->FastForward(300);
    EXPECT_EQ(player->Status(), Paused);
    EXPECT_EQ(player->PausePosition(), paused + 300);
    player->Pause();
    player->Rewind(400);
    EXPECT_EQ(player->Status(), Playing);
    EXPECT_EQ(player->PlayPosition(), paused - 100);
}

TEST_F(CartPlayerTest, TheMarksBoundWhatIsPlayed)
{
    const auto player = Player("A");
    player->LoadSource({WriteSteps("steps.wav"), 300, 600}, "marked");
    EXPECT_EQ(player->CueRemaining(), 300);
    player->Play();
    channels->Engine().Advance(256);
    EXPECT_NEAR(Stream("A")->GetLevels().left, StepDb(3), 0.1) << "it starts at the start mark";
    AdvanceMs(150);
    EXPECT_NEAR(Stream("A")->GetLevels().left, StepDb(4), 0.1);
    EXPECT_NEAR(player->PlayPosition(), 155, 6) << "positions count from the start mark";
    AdvanceMs(130);
    EXPECT_EQ(player->Status(), Playing);
    AdvanceMs(30);
    EXPECT_EQ(player->Status(), Ready) << "it ends at the stop mark";
    AdvanceMs(2000);
    EXPECT_LT(Stream("A")->GetLevels().left, StepDb(6) - 20) << "nothing past the stop mark sounded";
}

TEST_F(CartPlayerTest, ExpiringNearTheEndUnlessLooping)
{
    AudioSettings settings = VirtualSettings();
    settings.expiringMs = 1000;
    Open(settings);
    const auto player = Player("A");
    EventLog log(*player);
    player->LoadSource(Whole(WriteTone("tone.wav", {Rate, 2, 1500})), "tone");
    player->Play();
    AdvanceMs(400);
    EXPECT_EQ(player->Status(), Playing);
    AdvanceMs(200);
    EXPECT_EQ(player->Status(), Expiring);
    player->Rewind(1000);
    EXPECT_EQ(player->Status(), Playing) << "winding back leaves the end";
    player->SetLoop(true);
    AdvanceMs(2900);
    EXPECT_EQ(player->Status(), Playing) << "a looping cart never ends";
    EXPECT_LT(player->PlayPosition(), 1500);
    EXPECT_NEAR(Stream("A")->GetLevels().left, -6.0f, 0.1);
    player->SetLoop(false);
    AdvanceMs(1600);
    EXPECT_EQ(player->Status(), Ready);
    EXPECT_EQ(log.Of("Status"), QStringList({"4", "1", "5", "1", "5", "0"}));
}

TEST_F(CartPlayerTest, VolumeIsClampedAnsweredAndGlides)
{
    const auto player = Player("A");
    EventLog log(*player);
    player->SetVolume(-6);
    player->SetVolume(-300);
    player->SetVolume(40);
    player->VolumeToZero();
    player->VolumeToCartDefault();
    EXPECT_EQ(log.Of("Volume"), QStringList({"-6", "-110", "18", "0", "0"}));
    EXPECT_EQ(Failure([&] { player->SaveDefaultVolume(); }), QStringLiteral("No cart is loaded in the player"));
    player->LoadSource(Whole(WriteTone("tone.wav", {})), "tone");
    EXPECT_EQ(Failure([&] { player->SaveDefaultVolume(); }), QStringLiteral("The player holds no cart to keep a default volume"));
}

TEST_F(CartPlayerTest, ALoadWhilePlayingLetsTheOldCartFinishAndAChainedPlayFollowsItWithoutAGap)
{
    const auto player = Player("A");
    player->LoadSource(Whole(WriteTone("first.wav", {Rate, 2, 500, -20, -20})), "first");
    player->Play();
    AdvanceMs(100);
    player->LoadSource(Whole(WriteTone("second.wav", {Rate, 2, 500, -6, -6})), "second");
    EXPECT_EQ(player->Status(), Cued);
    EXPECT_EQ(player->DisplayTitle(), QStringLiteral("second"));
    player->Play(true);
    EXPECT_EQ(player->Status(), Playing);
    AdvanceMs(300);
    EXPECT_NEAR(Stream("A")->GetLevels().left, -20.0f, 0.1) << "the first still sounds";
    EXPECT_EQ(player->PlayPosition(), 0) << "the second waits behind it";
    AdvanceMs(200);
    EXPECT_NEAR(Stream("A")->GetLevels().left, -6.0f, 0.1);
    EXPECT_NEAR(player->PlayPosition(), 100, 6) << "the second began where the first ended";
    EXPECT_EQ(player->Underruns(), 0u);

    // Without chaining, Play cuts what sounds.
    player->LoadSource(Whole(WriteTone("third.wav", {Rate, 2, 500, -50, -50})), "third");
    player->Play();
    AdvanceMs(1000);
    EXPECT_EQ(player->Status(), Ready);
    EXPECT_NEAR(Stream("A")->GetLevels().left, -6.0f - PeakMeter::ReleaseDbPerSecond * 1.0f, 0.5f)
        << "the held peak of the second fell from the moment the third began";
}
