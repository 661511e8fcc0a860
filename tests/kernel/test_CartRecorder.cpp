#include "test_CartRecorderFixture.h"

namespace {
constexpr qint32 Stopped = iCartRecorder::Stopped;
constexpr qint32 Recording = iCartRecorder::Recording;
constexpr qint32 Paused = iCartRecorder::Paused;
}

TEST_F(CartRecorderTest, ABlankTapeBecomesANewCartWhoseSoundIsTheInputFrameForFrame)
{
    Open();
    int contentsChanged = 0;
    QObject::connect(Family(QStringLiteral("TMP")).get(), &iFamily::ChangedContents, [&] { ++contentsChanged; });
    recorder->LoadBlank(Family(QStringLiteral("TMP")));
    const QString proposed = recorder->DisplayTitle();
    EXPECT_EQ(proposed, QStringLiteral("TMP0003")) << "the number after the family's highest";
    EXPECT_EQ(recorder->DisplayName(), QStringLiteral("TMP"));
    EXPECT_EQ(recorder->LoadState(), iCartRecorder::Proposed);

    Advance(1000);
    recorder->Record();
    Advance(3 * Rate + 123);
    EXPECT_GT(RecStream()->GetLevels().left, -10.0f) << "the Rec stream shows what comes in";
    recorder->Stop();

    const auto cart = Cart(proposed);
    ASSERT_EQ(cart->Type(), CartType::Sound);
    const QString file = cart->Sound()->FileName();
    EXPECT_TRUE(file.startsWith(station.SoundDir())) << file.toStdString();
    EXPECT_EQ(ReadFile(file), Source(1000, 1000 + 3 * Rate + 123));
    const qint32 ms = 3003; // 3.00256 s, rounded
    EXPECT_EQ(cart->Sound()->FileStart(), 0);
    EXPECT_EQ(cart->Sound()->FileStop(), ms);
    EXPECT_EQ(cart->Sound()->FileStopMark(), ms);
    EXPECT_EQ(cart->Time(), ms);
    EnergyReader energy;
    energy.SetFileName(EnergyFile::PathFor(file));
    EXPECT_EQ(energy.howManySamples(), 301) << "one step of 10 ms, the last one partial";
    EXPECT_EQ(contentsChanged, 1);
    EXPECT_EQ(recorder->LoadState(), iCartRecorder::Loaded);
    EXPECT_EQ(recorder->DisplayName(), proposed);
    EXPECT_EQ(recorder->RecordingState(), Stopped);
}

TEST_F(CartRecorderTest, PauseAndResumeJoinTheTakeWithNothingMissingAndNothingTwice)
{
    Open();
    recorder->LoadBlank(Family(QStringLiteral("TMP")));
    const QString id = recorder->DisplayTitle();
    Advance(700);
    recorder->Record();
    Advance(Rate + 77);
    recorder->Pause();
    EXPECT_EQ(recorder->RecordingState(), Paused);
    Advance(Rate / 2 + 5);
    recorder->Resume();
    Advance(Rate + 300);
    recorder->Stop();

    const std::int64_t pausedAt = 700 + Rate + 77;
    const std::int64_t resumedAt = pausedAt + Rate / 2 + 5;
    EXPECT_EQ(ReadFile(Cart(id)->Sound()->FileName()), Joined(Source(700, pausedAt), Source(resumedAt, resumedAt + Rate + 300)));
}

TEST_F(CartRecorderTest, RecordThenPauseArmsWithoutRunningAndResumeStartsTheTake)
{
    Open();
    recorder->LoadBlank(Family(QStringLiteral("TMP")));
    const QString id = recorder->DisplayTitle();
    TakeEvents();
    recorder->Record();
    recorder->Pause();
    EXPECT_EQ(recorder->RecordingState(), Paused);
    Advance(Rate);
    EXPECT_EQ(TakeEvents(), QStringList{QStringLiteral("rec:2")}) << "never Recording before Paused";
    recorder->Resume();
    Advance(Rate / 4);
    recorder->Stop();
    EXPECT_EQ(TakeEvents().filter(QStringLiteral("rec:")), (QStringList{QStringLiteral("rec:1"), QStringLiteral("rec:0")}));
    EXPECT_EQ(ReadFile(Cart(id)->Sound()->FileName()), Source(Rate, Rate + Rate / 4)) << "nothing of the armed second";
}

TEST_F(CartRecorderTest, EventsComeDisplayFirstThenLoadStateThenRecordingState)
{
    Open();
    recorder->LoadBlank(Family(QStringLiteral("TMP")));
    EXPECT_EQ(TakeEvents(true), (QStringList{QStringLiteral("name:TMP"), QStringLiteral("time"), QStringLiteral("title:TMP0003"),
                                             QStringLiteral("load:1")}));
    recorder->Record();
    EXPECT_EQ(recorder->RecordingState(), Recording);
    EXPECT_TRUE(TakeEvents(true).isEmpty()) << "Recording is announced when the event loop or the engine comes round";
    Advance(Rate / 2);
    const QStringList running = TakeEvents(true);
    ASSERT_FALSE(running.isEmpty());
    EXPECT_EQ(running.first(), QStringLiteral("rec:1"));
    EXPECT_EQ(running.count(QStringLiteral("time")), 5) << "the time moves by tenths of a second";
    EXPECT_EQ(recorder->DisplayTime(), QStringLiteral("00:00:00.50"));

    recorder->Stop();
    const QStringList stopped = TakeEvents(true);
    ASSERT_EQ(stopped.size(), 4) << "the time shown stays: the cart is as long as the take";
    EXPECT_EQ(stopped[0], QStringLiteral("name:TMP0003"));
    EXPECT_TRUE(stopped[1].startsWith(QStringLiteral("title:Recording of ")));
    EXPECT_EQ(stopped.mid(2), (QStringList{QStringLiteral("load:2"), QStringLiteral("rec:0")}));
    EXPECT_EQ(recorder->DisplayTime(), QStringLiteral("00:00:00.50"));

    recorder->Eject();
    EXPECT_EQ(TakeEvents(true), (QStringList{QStringLiteral("name:"), QStringLiteral("time"), QStringLiteral("title:"), QStringLiteral("load:0")}));
}

TEST_F(CartRecorderTest, ATakeOfNoLengthLeavesNoCartAndNoFile)
{
    Open();
    const QStringList before = SoundFiles();
    recorder->LoadBlank(Family(QStringLiteral("TMP")));
    TakeEvents();
    recorder->Record();
    recorder->Stop();
    Advance(Rate / 10);
    EXPECT_EQ(Cart(QStringLiteral("TMP0003"))->Type(), CartType::Unknown);
    EXPECT_EQ(SoundFiles(), before);
    EXPECT_EQ(recorder->LoadState(), iCartRecorder::Proposed);
    EXPECT_TRUE(TakeEvents().isEmpty()) << "Recording was never announced";

    recorder->Record();
    recorder->Pause();
    recorder->Stop();
    EXPECT_EQ(Cart(QStringLiteral("TMP0003"))->Type(), CartType::Unknown) << "an armed recorder that never ran";
    EXPECT_EQ(SoundFiles(), before);
}

TEST_F(CartRecorderTest, ACartRecordedAgainKeepsItsOldSoundUntilTheTakeStops)
{
    Open();
    const auto cart = Cart(QStringLiteral("JIN0001"));
    const QString old = cart->Sound()->FileName();
    const qint32 oldTime = cart->Time();
    recorder->Load(cart);
    EXPECT_EQ(recorder->LoadState(), iCartRecorder::Loaded);
    EXPECT_EQ(recorder->DisplayName(), QStringLiteral("JIN0001"));
    recorder->Record();
    Advance(3 * Rate);

    EXPECT_EQ(cart->Sound()->FileName(), old);
    EXPECT_EQ(cart->Time(), oldTime);
    EXPECT_TRUE(QFile::exists(old));
    const QString take = recorder->TakePath();
    EXPECT_NE(take, old);
    EXPECT_GE(ReadFile(take).size(), std::size_t(2 * Rate * 2)) << "the header follows the take: a killed process leaves a valid file";

    recorder->Stop();
    EXPECT_EQ(cart->Sound()->FileName(), take);
    EXPECT_EQ(cart->Time(), 3000);
    EXPECT_FALSE(QFile::exists(old));
    EXPECT_FALSE(QFile::exists(EnergyFile::PathFor(old)));
    EXPECT_TRUE(QFile::exists(EnergyFile::PathFor(take)));
    EXPECT_EQ(EmbeddedKernel::Open(station.Folder(), logger)->Carts()->Cart(QStringLiteral("JIN0001"))->Sound()->FileName(), take);
}

TEST_F(CartRecorderTest, TheTargetMustBeASoundCartAndTheRecorderStopped)
{
    Open();
    EXPECT_THROW(recorder->Record(), KernelError) << "nothing loaded";
    ASSERT_EQ(Cart(QStringLiteral("MES0000"))->Type(), CartType::Macro);
    EXPECT_THROW(recorder->Load(Cart(QStringLiteral("MES0000"))), KernelError);
    recorder->Load(Cart(QStringLiteral("JIN0002")));
    recorder->Record();
    EXPECT_THROW(recorder->Load(Cart(QStringLiteral("JIN0003"))), KernelError);
    EXPECT_THROW(recorder->LoadBlank(Family(QStringLiteral("TMP"))), KernelError);
    Advance(Rate / 10);
    recorder->Eject();
    EXPECT_EQ(recorder->RecordingState(), Stopped) << "Eject stops the take first";
    EXPECT_EQ(Cart(QStringLiteral("JIN0002"))->Time(), 100);
}
