// Playlists on a player of the kernel, on the virtual clock: chained rows follow one another on
// the exact frame, unchained ones wait for Play, a waiting list starts at its time, and the
// events come in their order. The device's output is compared frame by frame.
#include "foundation/Ini.h"
#include "foundation/db/Database.h"
#include "kernel/EmbeddedKernel.h"
#include "kernel/FileLogger.h"
#include "kernel/audio/AudioEngine.h"
#include "kernel/audio/Channels.h"
#include "kernel/audio/NullDevice.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCartPlayer.h"
#include "kernelapi/iCarts.h"
#include "kernelapi/iChannel.h"
#include "kernelapi/iPlayList.h"
#include "kernelapi/iPlayListItem.h"
#include "kernelapi/iPlayLists.h"
#include "kernelapi/iSound.h"
#include "kernelapi/iStream.h"
#include "kernelapi/iStreams.h"
#include "support/TempStation.h"
#include <QDate>
#include <QFile>
#include <QSignalSpy>
#include <gtest/gtest.h>
#include <sndfile.h>

namespace {
constexpr int Rate = 48000;
constexpr qint32 Playing = static_cast<qint32>(CartPlayerStatus::Playing);
constexpr qint32 Cued = static_cast<qint32>(CartPlayerStatus::Cued);
}

class PlayListPlayingTest : public ::testing::Test
{
protected:
    PlayListPlayingTest()
    {
        WriteIni(QStringLiteral("Audio"), QStringLiteral("Clock"), QStringLiteral("virtual"), station.KernelIniFile());
        WriteIni(QStringLiteral("Audio"), QStringLiteral("ExpiringSeconds"), QStringLiteral("0"), station.KernelIniFile());
        kernel = EmbeddedKernel::Open(station.Folder(), logger);
        player = kernel->Channels()->Item(QStringLiteral("A"))->Streams()->Item(1)->CartPlayer();
        list = kernel->PlayLists()->Add();
        list->SetPlayer(player);
    }

    AudioEngine& Engine() const { return dynamic_cast<Channels&>(*kernel->Channels()).Engine(); }

    // Runs the clock a period at a time and keeps the left side of what channel A put out.
    void Run(int ms)
    {
        AudioEngine& engine = Engine();
        const auto& device = dynamic_cast<const NullDevice&>(engine.Device(0));
        const int periods = ms * Rate / 1000 / engine.Settings().periodFrames;
        for (int p = 0; p < periods; ++p) {
            engine.Advance(engine.Settings().periodFrames);
            for (std::size_t i = 0; i < device.Output().size(); i += 2)
                output.push_back(device.Output()[i]);
        }
    }

    // A sound cart of the demo station made to play a file of a constant level, a ms long at
    // that rate.
    std::shared_ptr<iCart> LevelCart(const char* id, float level, int rate, int ms)
    {
        const QString path = station.Dir() + QStringLiteral("%1.wav").arg(QLatin1String(id));
        std::vector<float> samples(static_cast<std::size_t>(rate * ms / 1000) * 2, level);
        SF_INFO info{};
        info.samplerate = rate;
        info.channels = 2;
        info.format = SF_FORMAT_WAV | SF_FORMAT_FLOAT;
        SNDFILE* file = sf_open(QFile::encodeName(path).constData(), SFM_WRITE, &info);
        EXPECT_NE(file, nullptr) << sf_strerror(nullptr);
        sf_writef_float(file, samples.data(), static_cast<sf_count_t>(samples.size() / 2));
        sf_close(file);
        const auto cart = kernel->Carts()->Cart(QString::fromLatin1(id));
        cart->Sound()->SetFileName(path);
        cart->Sound()->SetFileStart(0);
        cart->Sound()->SetFileStop(ms);
        cart->Save();
        return cart;
    }

    // The first frame at or after from that sounds.
    std::size_t FirstSounding(std::size_t from = 0) const
    {
        while (from < output.size() && output[from] == 0.0f)
            ++from;
        return from;
    }

    QStringList LogLinesWith(const QString& text) const
    {
        QFile file(logger->FileFor(QDate::currentDate()));
        if (!file.open(QIODevice::ReadOnly))
            return {};
        return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n')).filter(text);
    }

    // The list's events, in order.
    void Follow()
    {
        QObject::connect(list.get(), &iPlayList::ChangedNextIndex, [this](qint32 from, qint32 to) { events << QStringLiteral("next %1>%2").arg(from).arg(to); });
        QObject::connect(list.get(), &iPlayList::ChangedPlayListItem, [this](qint32 row) {
            events << QStringLiteral("row %1 %2").arg(row).arg(list->Item(row)->Playing() ? "on" : "off");
        });
        QObject::connect(list.get(), &iPlayList::StatusChanged, [this] { events << QStringLiteral("status %1").arg(list->PlayState()); });
    }

    TempStation station;
    std::shared_ptr<FileLogger> logger = std::make_shared<FileLogger>(station.Folder().LogDir());
    std::shared_ptr<EmbeddedKernel> kernel;
    std::shared_ptr<iCartPlayer> player;
    std::shared_ptr<iPlayList> list;
    std::vector<float> output;
    QStringList events;
};

// A and B at 48 kHz, C at 44.1 kHz (the decoder resamples it), D at 48 kHz: each row's first
// frame follows the last frame of the row before, with no silent frame between and no frame
// where two rows sound together. C's edges ring a little from the resampler's filter, so its
// frames are compared with a tolerance that still tells a gap (0) or an overlap from C alone.
TEST_F(PlayListPlayingTest, ChainedRowsFollowOnTheExactFrameAlsoAcrossSampleRates)
{
    list->Put(1, LevelCart("JIN0001", 0.5f, 48000, 100));
    list->Put(2, LevelCart("JIN0002", 0.25f, 48000, 50));
    list->Put(3, LevelCart("JIN0003", -0.25f, 44100, 100));
    list->Put(4, LevelCart("JIN0004", -0.5f, 48000, 60));
    list->SetChained(true);
    QList<qint32> statuses;
    QObject::connect(player.get(), &iCartPlayer::StatusChanged, [&](qint32 status) { statuses << status; });

    ASSERT_TRUE(list->Play());
    Run(400);
    const std::size_t a = FirstSounding();
    const std::size_t b = a + 4800;
    const std::size_t c = b + 2400;
    const std::size_t d = c + 4800;
    const std::size_t end = d + 2880;
    ASSERT_LT(end + 10, output.size());
    for (std::size_t i = a + 200; i < b; ++i)
        ASSERT_EQ(output[i], 0.5f) << "frame " << i - a << " of A";
    for (std::size_t i = b; i < c; ++i)
        ASSERT_EQ(output[i], 0.25f) << "frame " << i - b << " of B";
    for (std::size_t i = c; i < d; ++i)
        ASSERT_NEAR(output[i], -0.25f, i < c + 50 || i >= d - 50 ? 0.1f : 0.01f) << "frame " << i - c << " of C";
    for (std::size_t i = d; i < end; ++i)
        ASSERT_EQ(output[i], -0.5f) << "frame " << i - d << " of D";
    EXPECT_EQ(FirstSounding(end), output.size()) << "nothing sounds after D";

    EXPECT_EQ(statuses.count(Playing), 1) << "the player plays on from row to row";
    EXPECT_EQ(list->PlayState(), 0);
    EXPECT_EQ(list->NextIndex(), 5);
}

TEST_F(PlayListPlayingTest, AChainedListRaisesItsEventsInOrderAndStaysPlayingBetweenRows)
{
    list->Put(1, LevelCart("JIN0001", 0.5f, 48000, 100));
    list->Put(2, nullptr);
    list->Put(3, LevelCart("JIN0002", 0.25f, 48000, 100));
    list->SetChained(true);
    Follow();

    ASSERT_TRUE(list->Play());
    EXPECT_EQ(events, QStringList({"next 1>2", "row 1 on", "status 1"}));
    EXPECT_EQ(list->PlayState(), 1);
    events.clear();
    Run(150);
    EXPECT_EQ(events, QStringList({"next 2>4", "row 1 off", "row 3 on"})) << "the blank row is passed over";
    EXPECT_TRUE(list->Item(3)->Playing());
    EXPECT_FALSE(list->Item(1)->Playing());
    events.clear();
    Run(100);
    EXPECT_EQ(events, QStringList({"row 3 off", "status 0"}));
}

TEST_F(PlayListPlayingTest, AnUnchainedListCuesItsNextRowAndWaitsForPlay)
{
    list->Put(1, LevelCart("JIN0001", 0.5f, 48000, 100));
    list->Put(2, LevelCart("JIN0002", 0.25f, 48000, 100));
    ASSERT_FALSE(list->Chained());
    ASSERT_TRUE(list->Play());
    Run(300);
    const std::size_t a = FirstSounding();
    EXPECT_EQ(FirstSounding(a + 4800), output.size()) << "row 2 does not start by itself";
    EXPECT_EQ(player->Status(), Cued);
    EXPECT_EQ(player->Cart()->ID(), QStringLiteral("JIN0002"));
    EXPECT_EQ(list->PlayState(), 0);
    EXPECT_FALSE(list->Item(1)->Playing());

    output.clear();
    list->SetPlayer(player); // as the status strip does before each Play
    ASSERT_TRUE(list->Play());
    EXPECT_TRUE(list->Item(2)->Playing());
    Run(50);
    EXPECT_EQ(output[FirstSounding() + 500], 0.25f);
    Run(100);
    EXPECT_FALSE(list->Play()) << "nothing left to play";
}

TEST_F(PlayListPlayingTest, AWaitingListStartsAtItsTimeAndStopsWaitingWhenThePlayerIsTaken)
{
    list->Put(1, LevelCart("JIN0001", 0.5f, 48000, 100));
    QSignalSpy status(list.get(), &iPlayList::StatusChanged);
    EXPECT_FALSE(list->Waiting());
    EXPECT_FALSE(list->WaitForStart().isValid());

    const QDateTime start = QDateTime::currentDateTime().addMSecs(300);
    list->SetWaitForStart(start);
    EXPECT_TRUE(list->Waiting());
    EXPECT_EQ(list->WaitForStart(), start);
    EXPECT_EQ(status.count(), 1);
    EXPECT_EQ(player->Status(), Cued) << "cued ahead, so that it sounds at once";
    Run(250);
    EXPECT_EQ(FirstSounding(), output.size());
    EXPECT_TRUE(list->Waiting());
    Run(100);
    EXPECT_LT(FirstSounding(), output.size());
    EXPECT_FALSE(list->Waiting());
    EXPECT_EQ(list->PlayState(), 1);

    // Another cart loaded into the player ends the wait; an invalid time cancels one.
    Run(100);
    list->SetNextIndex(1);
    list->SetWaitForStart(QDateTime::currentDateTime().addSecs(60));
    player->Load(kernel->Carts()->Cart(QStringLiteral("JIN0001")));
    EXPECT_FALSE(list->Waiting());
    list->SetWaitForStart(QDateTime::currentDateTime().addSecs(60));
    list->SetWaitForStart(QDateTime());
    EXPECT_FALSE(list->Waiting());
    output.clear();
    Run(100);
    EXPECT_EQ(FirstSounding(), output.size());

    const auto other = kernel->PlayLists()->Add();
    EXPECT_THROW(other->SetWaitForStart(start), KernelError) << "no player";
    other->SetPlayer(player);
    EXPECT_THROW(other->SetWaitForStart(start), KernelError) << "nothing to play";
}

TEST_F(PlayListPlayingTest, RowsOfMissingOrUnknownCartsArePassedOverWithAWarning)
{
    list->Put(1, LevelCart("JIN0001", 0.5f, 48000, 100));
    list->Put(2, kernel->Carts()->Cart(QStringLiteral("JIN0999")));
    list->Put(3, LevelCart("JIN0002", 0.25f, 48000, 100));
    list->Put(4, LevelCart("JIN0003", 0.125f, 48000, 100));
    list->SetChained(true);
    const QString id = list->ID();
    list.reset();
    player.reset();
    kernel.reset();
    {
        // Another program wrote a type letter this catalogue does not know.
        auto sound = Database::Open(station.DataDir() + QStringLiteral("Sound.MDB"));
        sound->Query(QStringLiteral("UPDATE Cart SET Type = 'Z' WHERE ID = 'JIN0002'"));
    }
    kernel = EmbeddedKernel::Open(station.Folder(), logger);
    list = kernel->PlayLists()->Item(id);
    EXPECT_EQ(LogLinesWith(QStringLiteral("row 2 names cart JIN0999, which does not exist")).size(), 1);
    EXPECT_EQ(LogLinesWith(QStringLiteral("row 3 names cart JIN0002, which does not exist or is of an unknown type")).size(), 1);

    player = kernel->Channels()->Item(QStringLiteral("A"))->Streams()->Item(1)->CartPlayer();
    list->SetPlayer(player);
    ASSERT_TRUE(list->Play());
    Run(300);
    const std::size_t a = FirstSounding();
    EXPECT_EQ(output[a + 4800], 0.125f) << "row 4 follows row 1";
    EXPECT_EQ(list->NextIndex(), 5);

    try {
        list->Item(9);
        ADD_FAILURE() << "row 9 of 4";
    } catch (const KernelError& e) {
        EXPECT_EQ(e.Description(), QStringLiteral("Playlist %1 has no row 9 here (rows 1 to 4)").arg(id));
    }
}
