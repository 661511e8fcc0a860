// Files are opened and decoded by the disk workers, never on the UI thread: a file that reads
// slowly holds up neither the UI nor the other players, a Play given before its sound is ready
// sounds once it is, and a file that cannot be read empties its player with an ERROR line.
// These run on the real-time clock of the Null device, waiting for what they expect.
#include "test_AudioEngineFixture.h"
#include "kernel/audio/SoundDecoder.h"
#include <QTest>
#include <condition_variable>
#include <mutex>

namespace {
constexpr qint32 Cueing = static_cast<qint32>(CartPlayerStatus::Cueing);
constexpr qint32 Cued = static_cast<qint32>(CartPlayerStatus::Cued);
constexpr qint32 Playing = static_cast<qint32>(CartPlayerStatus::Playing);
constexpr int Patience = 10000;

// Holds every read of a file whose name says "slow" until the gate opens, as a network share
// that stopped answering would.
class SlowFiles
{
public:
    SlowFiles() { SoundDecoder::SetReadHook(&SlowFiles::Read); }
    ~SlowFiles()
    {
        Open();
        SoundDecoder::SetReadHook(nullptr);
    }

    static void Open()
    {
        std::lock_guard lock(s_mutex);
        s_open = true;
        s_opened.notify_all();
    }

private:
    static void Read(const QString& fileName)
    {
        if (!fileName.contains(QLatin1String("slow")))
            return;
        std::unique_lock lock(s_mutex);
        s_opened.wait(lock, [] { return s_open; });
    }

    static inline std::mutex s_mutex;
    static inline std::condition_variable s_opened;
    static inline bool s_open = false;
};

class DiskWorkersTest : public AudioEngineTest
{
protected:
    static AudioSettings RealTime()
    {
        AudioSettings settings = VirtualSettings();
        settings.virtualClock = false;
        return settings;
    }
};
}

TEST_F(DiskWorkersTest, ASlowFileHoldsUpNeitherTheCallerNorTheOtherPlayers)
{
    SlowFiles slow;
    Open(RealTime());
    const auto witness = Player("B");
    witness->LoadSource(Whole(WriteTone("witness.wav", {Rate, 2, 30000})), "witness");
    ASSERT_TRUE(QTest::qWaitFor([&] { return witness->Status() == Cued; }, Patience));
    witness->Play();

    const auto player = Player("A");
    player->LoadSource(Whole(WriteTone("slow.wav", {Rate, 2, 5000})), "slow");
    EXPECT_EQ(player->Status(), Cueing) << "the load does not wait for the file";
    EXPECT_EQ(player->DisplayTitle(), QStringLiteral("slow"));
    player->Play();
    EXPECT_EQ(player->Status(), Playing);

    // The other player's voice is filled by another worker all the while.
    ASSERT_TRUE(QTest::qWaitFor([&] { return witness->PlayPosition() > 2000; }, Patience));
    EXPECT_EQ(witness->Underruns(), 0u);
    EXPECT_NEAR(Stream("B")->GetLevels().left, -6.0f, 0.1f);
    EXPECT_EQ(player->PlayPosition(), 0);
    EXPECT_FALSE(Stream("A")->GetLevels().left > -110.0f);

    SlowFiles::Open();
    EXPECT_TRUE(QTest::qWaitFor([&] { return player->PlayPosition() > 300; }, Patience)) << "the Play given early sounds";
    EXPECT_NEAR(Stream("A")->GetLevels().left, -6.0f, 0.1f);
    EXPECT_EQ(player->Underruns(), 0u);
}

TEST_F(DiskWorkersTest, AFileThatCannotBeReadEmptiesItsPlayerWithAnErrorLine)
{
    Open(RealTime());
    const auto player = Player("A");
    const QString missing = dir.filePath("missing.wav");
    player->LoadSource(Whole(missing), "missing");
    EXPECT_TRUE(player->Loaded());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !player->Loaded(); }, Patience));
    EXPECT_EQ(player->Status(), static_cast<qint32>(CartPlayerStatus::Ready));
    EXPECT_EQ(player->DisplayTitle(), QString());
    EXPECT_EQ(LogLinesWith(QStringLiteral("Sound file '%1' does not exist").arg(missing)).size(), 1);

    player->LoadSource(Whole(WriteTone("tone.wav", {})), "tone");
    EXPECT_TRUE(QTest::qWaitFor([&] { return player->Status() == Cued; }, Patience));
}
