#include "PluggableDevice.h"
#include "foundation/db/Database.h"
#include "test_CartRecorderFixture.h"
#include <csignal>
#include <sys/resource.h>

namespace {
// Files of the process can grow to the given size and no further, as on a full disk, while
// it lives; a write past it fails instead of ending the process.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        getrlimit(RLIMIT_FSIZE, &m_old);
        m_oldHandler = std::signal(SIGXFSZ, SIG_IGN);
        rlimit limit = m_old;
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &m_old);
        std::signal(SIGXFSZ, m_oldHandler);
    }

private:
    rlimit m_old{};
    void (*m_oldHandler)(int) = nullptr;
};
}

TEST_F(CartRecorderTest, ASoundFolderThatCannotBeWrittenRefusesRecordWithAnErrorLine)
{
    Open();
    kernel->SetConfig(QStringLiteral("SoundPath(1)"), station.IniFile() + QStringLiteral("/sound"));
    recorder->Load(Cart(QStringLiteral("JIN0002")));
    TakeEvents();
    EXPECT_THROW(recorder->Record(), KernelError);
    Advance(Rate / 10);
    EXPECT_EQ(recorder->RecordingState(), iCartRecorder::Stopped);
    EXPECT_TRUE(TakeEvents().isEmpty());
    EXPECT_EQ(LogLinesWith(QStringLiteral("Cannot record into JIN0002")).size(), 1);
}

TEST_F(CartRecorderTest, ADiskThatFillsUpStopsTheTakeAndKeepsWhatWasWrittenAndTheOldSound)
{
    Open();
    const auto cart = Cart(QStringLiteral("JIN0001"));
    const QString old = cart->Sound()->FileName();
    recorder->Load(cart);
    QString take;
    {
        const FileSizeLimit limit(400000); // about two seconds of the take
        recorder->Record();
        take = recorder->TakePath();
        Advance(4 * Rate);
    }
    EXPECT_EQ(recorder->RecordingState(), iCartRecorder::Stopped);
    EXPECT_EQ(LogLinesWith(QStringLiteral("The recording into JIN0001 failed")).size(), 1);
    EXPECT_EQ(cart->Sound()->FileName(), old);
    EXPECT_TRUE(QFile::exists(old));
    const std::vector<qint16> kept = ReadFile(take);
    ASSERT_GE(kept.size(), std::size_t(Rate * 2)) << "at least the second before the last header update";
    EXPECT_EQ(kept, Source(0, static_cast<std::int64_t>(kept.size() / 2)));
    EXPECT_FALSE(QFile::exists(EnergyFile::PathFor(take)));
}

TEST_F(CartRecorderTest, AnInputDeviceLostDuringATakeEndsItWithWhatWasCaptured)
{
    Open();
    AudioSettings settings = AudioSettings::Read(station.KernelIniFile(), KernelLog(logger));
    settings.channels.last().device = QStringLiteral("card");
    const auto socket = std::make_shared<PluggableDevice::Socket>();
    Channels channels(settings, KernelLog(logger), PlayQueue::MacroSource(), PluggableDevice::Factory(socket));
    channels.SetCatalogue(kernel->World());
    const auto rec = channels.Item(QStringLiteral("Rec"))->Streams()->Item(1)->CartRecorder();
    rec->Load(Cart(QStringLiteral("JIN0002")));
    rec->Record();
    channels.Engine().Advance(Rate);
    socket->plugged = false;
    channels.Engine().Advance(Rate / 10);
    EXPECT_EQ(rec->RecordingState(), iCartRecorder::Stopped);
    EXPECT_EQ(LogLinesWith(QStringLiteral("went away during the recording into JIN0002")).size(), 1);
    EXPECT_EQ(Cart(QStringLiteral("JIN0002"))->Time(), 1000);
}

TEST_F(CartRecorderTest, ABlankTapeTakesTheNumberAfterTheHighestThenTheFirstGapAndAFullFamilyNone)
{
    Open();
    const auto sound = Database::Open(station.DataDir() + QStringLiteral("Sound.MDB"));
    sound->QueryNative(QStringLiteral("INSERT INTO Cart (ID, Descripcio, Type) VALUES ('TMP9999', 'Last', 'S')"));
    recorder->LoadBlank(Family(QStringLiteral("TMP")));
    EXPECT_EQ(recorder->DisplayTitle(), QStringLiteral("TMP0000"));

    sound->QueryNative(QStringLiteral("WITH RECURSIVE n(x) AS (SELECT 0 UNION ALL SELECT x + 1 FROM n WHERE x < 9999) "
                                      "INSERT OR IGNORE INTO Cart (ID, Descripcio, Type) "
                                      "SELECT 'TMP' || substr('000' || x, -4), 'Filler', 'S' FROM n"));
    recorder->LoadBlank(Family(QStringLiteral("TMP")));
    EXPECT_EQ(recorder->LoadState(), iCartRecorder::Free) << "a full family leaves the recorder ejected";
    EXPECT_EQ(recorder->DisplayName(), QString());
}

TEST_F(CartRecorderTest, ABlankTapeWhoseNumberWasTakenMeanwhileGoesToTheNextFreeOne)
{
    Open();
    recorder->LoadBlank(Family(QStringLiteral("TMP")));
    recorder->Record();
    Advance(Rate / 2);
    Database::Open(station.DataDir() + QStringLiteral("Sound.MDB"))
        ->QueryNative(QStringLiteral("INSERT INTO Cart (ID, Descripcio, Type) VALUES ('TMP0003', 'Elsewhere', 'S')"));
    recorder->Stop();
    EXPECT_EQ(recorder->DisplayName(), QStringLiteral("TMP0004"));
    EXPECT_EQ(Cart(QStringLiteral("TMP0003"))->Description(), QStringLiteral("Elsewhere"));
    EXPECT_EQ(Cart(QStringLiteral("TMP0004"))->Time(), 500);
}

TEST_F(CartRecorderTest, ALayerIITakeIsWrittenWhenTheStationRecordsInThatFormat)
{
    Set(QStringLiteral("Record"), QStringLiteral("Format"), QStringLiteral("mp2"));
    Set(QStringLiteral("Record"), QStringLiteral("BitRate"), QStringLiteral("192"));
    Open();
    recorder->Load(Cart(QStringLiteral("JIN0002")));
    recorder->Record();
    Advance(2 * Rate);
    recorder->Stop();
    const QString file = Cart(QStringLiteral("JIN0002"))->Sound()->FileName();
    EXPECT_TRUE(file.endsWith(QStringLiteral(".mp2")));
    EXPECT_EQ(Cart(QStringLiteral("JIN0002"))->Time(), 2000);
    int channels = 0;
    EXPECT_GE(ReadFile(file, &channels).size(), std::size_t(2 * Rate * 2)) << "libsndfile decodes the take";
    EXPECT_EQ(channels, 2);
    EnergyReader energy;
    energy.SetFileName(EnergyFile::PathFor(file));
    EXPECT_EQ(energy.howManySamples(), 200);
}

// An hour at 8 kHz mono in periods of 4096 frames, so that it runs in seconds under the
// sanitizers.
TEST_F(CartRecorderTest, AnHourLongTakeHasItsExactLengthInTheRowAndTheEnergyFile)
{
    Set(QStringLiteral("Audio"), QStringLiteral("SampleRate"), QStringLiteral("8000"));
    Set(QStringLiteral("Audio"), QStringLiteral("PeriodFrames"), QStringLiteral("4096"));
    Set(QStringLiteral("Record"), QStringLiteral("Channels"), QStringLiteral("1"));
    Set(QStringLiteral("NullInput"), QStringLiteral("Source"), QStringLiteral("tone"));
    Open();
    recorder->LoadBlank(Family(QStringLiteral("TMP")));
    const QString id = recorder->DisplayTitle();
    recorder->Record();
    Advance(3600LL * 8000);
    recorder->Stop();
    const auto cart = Cart(id);
    EXPECT_EQ(cart->Time(), 3600000);
    EXPECT_EQ(cart->Sound()->FileStop(), 3600000);
    EXPECT_EQ(cart->Sound()->SoundFile()->Length(), 3600000);
    EnergyReader energy;
    energy.SetFileName(EnergyFile::PathFor(cart->Sound()->FileName()));
    EXPECT_EQ(energy.howManySamples(), 360000);
    EXPECT_TRUE(energy.HeaderText().contains(QStringLiteral("frames=28800000")));
}
