// No event that changes a player's state is ever lost, however many come at once and however
// long the UI thread is away: each voice keeps the latest of each kind of event, and the UI
// thread hands them out in the order they happened.
#include "test_AudioEngineFixture.h"
#include "kernel/audio/EventLatches.h"
#include "kernel/audio/NullDevice.h"
#include <array>
#include <thread>

TEST(EventLatches, AFloodFromTwoThreadsEndsWithTheLatestOfEveryVoiceInOrder)
{
    constexpr int Voices = 24;
    constexpr std::uint32_t Generations = 20000;
    std::array<EventLatches, Voices> latches;
    auto post = [&latches](EngineEvent::Kind first, EngineEvent::Kind second) {
        for (std::uint32_t generation = 1; generation <= Generations; ++generation)
            for (EventLatches& voice : latches) {
                voice.Post(first, generation);
                voice.Post(second, generation);
            }
    };
    std::thread callback(post, EngineEvent::Kind::Started, EngineEvent::Kind::Ended);
    std::thread worker(post, EngineEvent::Kind::Prepared, EngineEvent::Kind::ReadFailed);

    std::array<std::array<std::uint32_t, EngineEvent::KindCount>, Voices> latest{};
    std::vector<EngineEvent> events;
    auto collect = [&] {
        events.clear();
        for (int v = 0; v < Voices; ++v)
            latches[static_cast<std::size_t>(v)].Collect(v, events);
        for (const EngineEvent& event : events) {
            std::uint32_t& seen = latest[static_cast<std::size_t>(event.voice)][static_cast<std::size_t>(event.kind)];
            ASSERT_GT(event.generation, seen) << "an event comes once, and never an older one after a newer";
            seen = event.generation;
        }
    };
    for (int round = 0; round < 2000; ++round)
        collect();
    callback.join();
    worker.join();
    collect();

    std::uint64_t posted = 0;
    for (int v = 0; v < Voices; ++v) {
        for (EngineEvent::Kind kind : {EngineEvent::Kind::Started, EngineEvent::Kind::Ended, EngineEvent::Kind::Prepared,
                                       EngineEvent::Kind::ReadFailed})
            EXPECT_EQ(latest[static_cast<std::size_t>(v)][static_cast<std::size_t>(kind)], Generations);
        EXPECT_EQ(latest[static_cast<std::size_t>(v)][static_cast<std::size_t>(EngineEvent::Kind::PrepareFailed)], 0u);
        posted += latches[static_cast<std::size_t>(v)].Posted();
    }
    EXPECT_EQ(posted, std::uint64_t{4} * Voices * Generations);
}

TEST(EventLatches, EventsAreHandedOutInTheOrderTheyWerePosted)
{
    std::array<EventLatches, 3> latches;
    latches[2].Post(EngineEvent::Kind::Ended, 7);
    latches[0].Post(EngineEvent::Kind::Started, 4);
    latches[1].Post(EngineEvent::Kind::Prepared, 1);
    std::vector<EngineEvent> events;
    for (int v = 0; v < 3; ++v)
        latches[static_cast<std::size_t>(v)].Collect(v, events);
    std::sort(events.begin(), events.end(),
              [](const EngineEvent& a, const EngineEvent& b) { return EventLatches::Before(a.stamp, b.stamp); });
    ASSERT_EQ(events.size(), 3u);
    EXPECT_EQ(events[0].voice, 2);
    EXPECT_EQ(events[1].voice, 0);
    EXPECT_EQ(events[2].voice, 1);
    EXPECT_TRUE(EventLatches::Before(0xFFFFFFF0u, 5u)) << "stamps wrap around";
}

// Every stream's sound ends while the UI thread is away; when it comes back, each player hears
// its end and comes to rest, and every posted event was handed out.
TEST_F(AudioEngineTest, PlayersHearEveryEndAfterTheUiThreadWasAway)
{
    Open();
    AudioEngine& engine = channels->Engine();
    const QString blip = WriteTone("blip.wav", {Rate, 2, 20});
    std::vector<std::shared_ptr<CartPlayer>> players;
    for (const QString& channel : {QStringLiteral("A"), QStringLiteral("B")})
        for (int stream = 1; stream <= 3; ++stream)
            players.push_back(Player(channel, stream));
    for (int round = 0; round < 50; ++round) {
        for (const auto& player : players) {
            player->LoadSource(Whole(blip), "blip");
            player->Play();
        }
        auto& device = dynamic_cast<NullDevice&>(engine.Device(0));
        device.Advance(Rate / 10); // the devices run on; nobody drains
        engine.Drain();
        for (const auto& player : players)
            ASSERT_EQ(player->Status(), static_cast<qint32>(CartPlayerStatus::Ready)) << "round " << round;
    }
    engine.Drain();
    EXPECT_EQ(engine.EventsCollected(), engine.EventsPosted());
}
