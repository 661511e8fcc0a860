// A real device: the engine's channels on a private JACK server, which the test takes away
// and brings back.
#include "test_AudioEngineFixture.h"
#include "kernel/JackServer.h"
#include "kernel/audio/Channel.h"
#include <QElapsedTimer>
#include <QTest>
#include <iostream>

// Plays into a JACK server, then takes the server away: the channels must go off air while
// the player keeps time, and come back on air, sounding, when a new server of the same name
// starts.
TEST_F(AudioEngineTest, AChannelOnAJackServerGoesOffAirWithTheServerAndBackOnAirWithANewOne)
{
    JackServer jack;
    if (!jack.Failure().isEmpty())
        GTEST_SKIP() << "No JACK server for the real-device test: " << jack.Failure().toStdString();

    AudioSettings settings;
    settings.channels = {{"A", "system", 3, false}, {"Rec", "system", 1, true}};
    Open(settings);
    const auto a = channels->Item("A");
    const auto rec = channels->Item("Rec");
    ASSERT_TRUE(QTest::qWaitFor([&] { return a->ChannelOn(); }, 10000)) << LogLinesWith("ERROR").join('\n').toStdString();
    const auto player = Player("A");
    player->LoadSource(Whole(WriteTone("tone.wav", {Rate, 2, 30000})), "tone");
    player->Play();
    EXPECT_TRUE(QTest::qWaitFor([&] { return player->PlayPosition() > 300; }, 10000));
    EXPECT_TRUE(a->Active());
    EXPECT_NEAR(Stream("A")->GetLevels().left, -6.0f, 0.1f);
    EXPECT_TRUE(rec->GetLevels().valid) << "the server's input reaches the recording channel";

    jack.Kill();
    QElapsedTimer gone;
    gone.start();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !a->Active(); }, 10000));
    std::cout << "Off air " << gone.elapsed() << " ms after the JACK server ended" << std::endl;
    EXPECT_FALSE(a->ChannelOn());
    EXPECT_FALSE(rec->ChannelOn());
    EXPECT_FALSE(a->GetLevels().valid);
    EXPECT_FALSE(Stream("A")->GetLevels().valid);
    EXPECT_EQ(LogLinesWith(QStringLiteral("Device 'system' stopped; channel A, Rec is off air")).size(), 1);
    const qint32 lostAt = player->PlayPosition();
    EXPECT_TRUE(QTest::qWaitFor([&] { return player->PlayPosition() > lostAt + 300; }, 10000));
    EXPECT_EQ(player->Status(), static_cast<qint32>(CartPlayerStatus::Playing));

    jack.Start();
    ASSERT_TRUE(jack.Failure().isEmpty()) << jack.Failure().toStdString();
    QElapsedTimer back;
    back.start();
    EXPECT_TRUE(QTest::qWaitFor([&] { return a->ChannelOn(); }, 15000));
    std::cout << "On air again " << back.elapsed() << " ms after the JACK server answered" << std::endl;
    EXPECT_TRUE(a->Active());
    EXPECT_TRUE(QTest::qWaitFor([&] { return rec->GetLevels().valid; }, 5000));
    EXPECT_NEAR(Stream("A")->GetLevels().left, -6.0f, 0.1f);
    EXPECT_EQ(LogLinesWith(QStringLiteral("Device 'system' is back: channel A, Rec is on air again")).size(), 1);
    EXPECT_EQ(LogLinesWith(QStringLiteral("ERROR")).size(), 1);
    const qint32 backAt = player->PlayPosition();
    EXPECT_GT(backAt, lostAt + 300) << "the player went on while the server was away";
    EXPECT_TRUE(QTest::qWaitFor([&] { return player->PlayPosition() > backAt + 300; }, 10000));
}
