// The life of a voice from its file to the device: looping turned on and off while the disk
// has decoded ahead, the file closed once a cart is ejected, and what reaches the device held
// within full scale.
#include "test_AudioEngineFixture.h"
#include "kernel/audio/NullDevice.h"
#include <QDir>
#include <QFileInfo>
#include <limits>

namespace {
constexpr qint32 Ready = static_cast<qint32>(CartPlayerStatus::Ready);
constexpr qint32 Playing = static_cast<qint32>(CartPlayerStatus::Playing);

// How many of this process's open files are the given file.
int OpenHandlesOf(const QString& path)
{
    const QString target = QFileInfo(path).canonicalFilePath();
    int count = 0;
    for (const QFileInfo& fd : QDir(QStringLiteral("/proc/self/fd")).entryInfoList(QDir::System | QDir::Files))
        count += fd.symLinkTarget() == target ? 1 : 0;
    return count;
}

class VoiceLifecycleTest : public AudioEngineTest
{
protected:
    const std::vector<float>& Output() const
    {
        return dynamic_cast<const NullDevice&>(channels->Engine().Device(0)).Output();
    }
};
}

TEST_F(VoiceLifecycleTest, LoopingTurnedOffEndsTheSoundAtTheEndOfThePassItIsIn)
{
    Open();
    const auto player = Player("A");
    player->LoadSource(Whole(WriteTone("tone.wav", {Rate, 2, 1000})), "tone");
    player->SetLoop(true);
    player->Play();
    AdvanceMs(1200); // in the second pass, with the third decoded ahead
    EXPECT_EQ(player->Status(), Playing);
    EXPECT_NEAR(player->PlayPosition(), 200, 10);

    player->SetLoop(false);
    AdvanceMs(750);
    EXPECT_EQ(player->Status(), Playing);
    EXPECT_NEAR(player->PlayPosition(), 950, 10);
    AdvanceMs(100);
    EXPECT_EQ(player->Status(), Ready) << "no pass after the one that played when looping stopped";
}

TEST_F(VoiceLifecycleTest, LoopingTurnedOnAfterTheWholeSoundWasDecodedStillLoops)
{
    Open();
    const auto player = Player("A");
    player->LoadSource(Whole(WriteTone("tone.wav", {Rate, 2, 1000})), "tone");
    player->Play();
    AdvanceMs(600); // the whole second is in the ring by now
    player->SetLoop(true);
    AdvanceMs(900);
    EXPECT_EQ(player->Status(), Playing);
    EXPECT_NEAR(player->PlayPosition(), 500, 10);
    EXPECT_NEAR(Stream("A")->GetLevels().left, -6.0f, 0.1f);
    EXPECT_EQ(player->Underruns(), 0u);
}

TEST_F(VoiceLifecycleTest, AnEjectedOrReplacedSoundLeavesItsFileClosed)
{
    Open();
    const auto player = Player("A");
    const QString first = WriteTone("first.wav", {Rate, 2, 5000});
    const QString second = WriteTone("second.wav", {Rate, 2, 5000});
    player->LoadSource(Whole(first), "first");
    player->Play();
    AdvanceMs(100);
    EXPECT_EQ(OpenHandlesOf(first), 1);

    player->LoadSource(Whole(second), "second");
    player->Play();
    AdvanceMs(20);
    EXPECT_EQ(OpenHandlesOf(first), 0) << "the replaced sound faded out and its file closed";
    player->Eject();
    AdvanceMs(20);
    EXPECT_EQ(OpenHandlesOf(second), 0);
    EXPECT_EQ(*std::max_element(Output().begin(), Output().end()), 0.0f);
}

TEST_F(VoiceLifecycleTest, TheDeviceGetsNothingBeyondFullScaleAndBrokenSamplesHarmNothing)
{
    Open();
    const QString loud = WriteTone("loud.wav", {Rate, 2, 2000, -1, -1});
    for (int stream : {1, 2}) {
        Player("A", stream)->LoadSource(Whole(loud), "loud");
        Player("A", stream)->SetVolume(18);
        Player("A", stream)->Play();
    }
    AdvanceMs(100);
    float peak = 0;
    for (float sample : Output())
        peak = std::max(peak, std::fabs(sample));
    EXPECT_EQ(peak, 1.0f) << "sixteen times full scale is held at full scale";
    for (int stream : {1, 2})
        Player("A", stream)->Eject();

    // A broken file's NaN does not silence the other streams of the device.
    const std::vector<float> broken(Rate / 2, std::numeric_limits<float>::quiet_NaN());
    Player("A", 1)->LoadSource(Whole(WriteSamples("nan.wav", Rate, 2, broken)), "nan");
    Player("A", 2)->LoadSource(Whole(WriteTone("tone.wav", {})), "tone");
    Player("A", 1)->Play();
    Player("A", 2)->Play();
    AdvanceMs(50);
    EXPECT_NEAR(*std::max_element(Output().begin(), Output().end()), 0.5f, 0.01f);
    Player("A", 1)->Eject();
    Player("A", 2)->Eject();
    AdvanceMs(20);

    // Denormal samples, which slow arithmetic down a hundredfold, count as zero.
    const std::vector<float> tiny(Rate / 2, std::numeric_limits<float>::denorm_min() * 1000);
    Player("A", 3)->LoadSource(Whole(WriteSamples("tiny.wav", Rate, 2, tiny)), "tiny");
    Player("A", 3)->Play();
    AdvanceMs(50);
    for (float sample : Output())
        ASSERT_EQ(sample, 0.0f);
}
