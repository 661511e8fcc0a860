#include "test_AudioEngineFixture.h"
#include "foundation/Ini.h"
#include "kernel/audio/Channel.h"
#include "support/TempStation.h"
#include "kernel/EmbeddedKernel.h"
#include <QTest>

namespace {
constexpr float Tolerance = 0.1f;

// A WAV header announcing a second of 16-bit stereo at 48 kHz over the given audio bytes.
QByteArray WavHeader(int dataBytes)
{
    QByteArray header("RIFF");
    auto put32 = [&header](quint32 v) { header.append(reinterpret_cast<const char*>(&v), 4); };
    auto put16 = [&header](quint16 v) { header.append(reinterpret_cast<const char*>(&v), 2); };
    put32(36 + dataBytes);
    header += "WAVEfmt ";
    put32(16);
    put16(1);
    put16(2);
    put32(48000);
    put32(48000 * 4);
    put16(4);
    put16(16);
    header += "data";
    put32(static_cast<quint32>(dataBytes));
    return header;
}
}

TEST_F(AudioEngineTest, KnownSignalsReadTheirLevelsPerStreamAndChannel)
{
    Open();
    Player("A")->LoadSource(Whole(WriteTone("tone.wav", {Rate, 2, 2000, -6, -12})), "tone");
    Player("A")->Play();
    AdvanceMs(500);

    const AudioLevels stream = Stream("A")->GetLevels();
    EXPECT_TRUE(stream.valid);
    EXPECT_NEAR(stream.left, -6.0f, Tolerance);
    EXPECT_NEAR(stream.right, -12.0f, Tolerance);
    const AudioLevels channel = channels->Item("A")->GetLevels();
    EXPECT_NEAR(channel.left, -6.0f, Tolerance);
    EXPECT_NEAR(channel.right, -12.0f, Tolerance);

    // Silent streams, a silent channel and the recording channel's silent input read -110.
    for (const AudioLevels& silent : {Stream("A", 2)->GetLevels(), channels->Item("B")->GetLevels(),
                                      channels->Item("Rec")->GetLevels(), Stream("Rec")->GetLevels()}) {
        EXPECT_TRUE(silent.valid);
        EXPECT_EQ(silent.left, -110.0f);
        EXPECT_EQ(silent.right, -110.0f);
    }
}

TEST_F(AudioEngineTest, StreamsSumOnTheirChannelAndVolumeScalesAStream)
{
    Open();
    const QString tone = WriteTone("tone.wav", {Rate, 1, 20000, -12, -12});
    for (int stream : {1, 2}) {
        Player("A", stream)->LoadSource(Whole(tone), "tone");
        Player("A", stream)->Play();
    }
    AdvanceMs(200);
    EXPECT_NEAR(Stream("A", 1)->GetLevels().left, -12.0f, Tolerance);
    EXPECT_NEAR(Stream("A", 2)->GetLevels().right, -12.0f, Tolerance); // mono reaches both sides
    EXPECT_NEAR(channels->Item("A")->GetLevels().left, -6.0f, Tolerance); // two equal signals in phase

    Player("A", 1)->SetVolume(-6);
    AdvanceMs(1000); // the glide, and the held peak falling to the new level
    EXPECT_NEAR(Stream("A", 1)->GetLevels().left, -18.0f, Tolerance);
    EXPECT_NEAR(channels->Item("A")->GetLevels().left, 20 * std::log10(Amplitude(-12) + Amplitude(-18)), Tolerance);

    Player("A", 1)->SetVolume(-110);
    AdvanceMs(5000);
    EXPECT_EQ(Stream("A", 1)->GetLevels().left, -110.0f);
    EXPECT_NEAR(channels->Item("A")->GetLevels().left, -12.0f, Tolerance);
    EXPECT_EQ(Player("A", 1)->Status(), static_cast<qint32>(CartPlayerStatus::Playing)); // silent, not stopped
}

TEST_F(AudioEngineTest, LoadPrebuffersSoThatTheFirstPeriodAfterPlaySounds)
{
    Open();
    const auto player = Player("B", 3);
    player->LoadSource(Whole(WriteTone("tone.wav", {})), "tone");
    AdvanceMs(100);
    EXPECT_EQ(Stream("B", 3)->GetLevels().left, -110.0f) << "a cued player is silent";

    player->Play();
    channels->Engine().Advance(channels->Engine().Settings().periodFrames);
    EXPECT_NEAR(Stream("B", 3)->GetLevels().left, -6.0f, Tolerance);
    EXPECT_EQ(player->Underruns(), 0u);
}

TEST_F(AudioEngineTest, OtherRatesAndChannelCountsAreResampledToTheDeviceRate)
{
    Open();
    const auto player = Player("A");
    player->LoadSource(Whole(WriteTone("cd.wav", {44100, 1, 1000, -6, -6})), "cd");
    EXPECT_EQ(player->CueRemaining(), 1000);
    player->Play();
    AdvanceMs(500);
    EXPECT_NEAR(Stream("A")->GetLevels().left, -6.0f, Tolerance);
    EXPECT_NEAR(Stream("A")->GetLevels().right, -6.0f, Tolerance);
    EXPECT_NEAR(player->PlayPosition(), 500, 10);

    AdvanceMs(480);
    EXPECT_EQ(player->Status(), static_cast<qint32>(CartPlayerStatus::Playing));
    AdvanceMs(40);
    EXPECT_EQ(player->Status(), static_cast<qint32>(CartPlayerStatus::Ready)) << "a second of audio lasts a second";
    EXPECT_EQ(player->Underruns(), 0u);
}

TEST_F(AudioEngineTest, BadFilesAreRefusedAndEveryPlayerStaysUsable)
{
    Open();
    const auto witness = Player("B");
    witness->LoadSource(Whole(WriteTone("witness.wav", {Rate, 2, 20000})), "witness");
    witness->Play();

    const auto player = Player("A");
    const QString missing = dir.filePath("missing.wav");
    EXPECT_EQ(Failure([&] { player->LoadSource(Whole(missing), "x"); }), QStringLiteral("Sound file '%1' does not exist").arg(missing));
    const QString garbage = WriteBytes("garbage.wav", QByteArray("RIFF") + QByteArray(200, 'x'));
    EXPECT_TRUE(Failure([&] { player->LoadSource(Whole(garbage), "x"); }).startsWith(QStringLiteral("Cannot read sound file '%1': ").arg(garbage)));
    const QString empty = WriteBytes("empty.wav", WavHeader(0));
    EXPECT_EQ(Failure([&] { player->LoadSource(Whole(empty), "x"); }), QStringLiteral("Sound file '%1' holds no audio").arg(empty));
    const QString tone = WriteTone("tone.wav", {Rate, 2, 1000});
    EXPECT_EQ(Failure([&] { player->LoadSource({tone, 800, 300}, "x"); }),
              QStringLiteral("Sound file '%1' has nothing to play between 800 ms and 300 ms").arg(tone));
    EXPECT_EQ(Failure([&] { player->LoadSource({tone, 5000, 0}, "x"); }),
              QStringLiteral("Sound file '%1' has nothing to play between 5000 ms and 0 ms").arg(tone));
    EXPECT_FALSE(player->Loaded());
    EXPECT_EQ(Failure([&] { player->Play(); }), QStringLiteral("No cart is loaded in the player"));

    // A refused load keeps what the player held.
    player->LoadSource(Whole(tone), "good");
    EXPECT_FALSE(Failure([&] { player->LoadSource(Whole(missing), "x"); }).isEmpty());
    EXPECT_EQ(player->DisplayTitle(), QStringLiteral("good"));
    player->Play();
    AdvanceMs(200);
    EXPECT_NEAR(Stream("A")->GetLevels().left, -6.0f, Tolerance);

    // A WAV cut short plays the audio it holds and says so in the log.
    const QByteArray audio = QByteArray(4 * 4800, '\x10');
    const QString truncated = WriteBytes("truncated.wav", WavHeader(4 * Rate) + audio);
    player->LoadSource(Whole(truncated), "cut");
    EXPECT_EQ(player->CueRemaining(), 100);
    EXPECT_EQ(LogLinesWith(QStringLiteral("Sound file '%1' holds less audio than its header announces").arg(truncated)).size(), 1);
    player->Play();
    AdvanceMs(150);
    EXPECT_EQ(player->Status(), static_cast<qint32>(CartPlayerStatus::Ready));

    EXPECT_NEAR(Stream("B")->GetLevels().left, -6.0f, Tolerance) << "the other player sounded throughout";
    EXPECT_EQ(witness->Status(), static_cast<qint32>(CartPlayerStatus::Playing));
}

TEST_F(AudioEngineTest, SettingsComeFromKernelIniWithDefaultsForWhatIsMissingOrWrong)
{
    const QString ini = dir.filePath("kernel.ini");
    const KernelLog log(logger);
    AudioSettings settings = AudioSettings::Read(ini, log);
    EXPECT_EQ(settings.sampleRate, 48000);
    EXPECT_EQ(settings.periodFrames, 256);
    EXPECT_FALSE(settings.virtualClock);
    ASSERT_EQ(settings.channels.size(), 3);
    EXPECT_EQ(settings.channels[2].name, QStringLiteral("Rec"));
    EXPECT_TRUE(settings.channels[2].records);

    WriteIni("Audio", "SampleRate", "44100", ini);
    WriteIni("Audio", "PeriodFrames", "lots", ini);
    WriteIni("Audio", "Clock", "Virtual", ini);
    WriteIni("Channel_Main", "Device", "default", ini);
    WriteIni("Channel_Main", "Streams", "99", ini);
    WriteIni("Channel_Mic", "Direction", "record", ini);
    WriteIni("Channel_Aux", "Direction", "sideways", ini);
    settings = AudioSettings::Read(ini, log);
    EXPECT_EQ(settings.sampleRate, 44100);
    EXPECT_EQ(settings.periodFrames, 256);
    EXPECT_TRUE(settings.virtualClock);
    ASSERT_EQ(settings.channels.size(), 3);
    EXPECT_EQ(settings.channels[0].name, QStringLiteral("Main"));
    EXPECT_EQ(settings.channels[0].device, QStringLiteral("default"));
    EXPECT_EQ(settings.channels[0].streams, 3);
    EXPECT_EQ(settings.channels[1].device, QStringLiteral("null"));
    EXPECT_EQ(settings.channels[1].streams, 1);
    EXPECT_TRUE(settings.channels[1].records);
    EXPECT_FALSE(settings.channels[2].records);
    EXPECT_EQ(LogLinesWith(QStringLiteral("[Audio] PeriodFrames=lots is not a number from 16 to 8192; 256 is used")).size(), 1);
    EXPECT_EQ(LogLinesWith(QStringLiteral("[Channel_Main] Streams=99 is not a number from 1 to 16; 3 is used")).size(), 1);
    EXPECT_EQ(LogLinesWith(QStringLiteral("[Channel_Aux] Direction=sideways is neither play nor record")).size(), 1);
}

// The device opens on the device thread: the channel is off air until it does, and with an
// absent device it stays off air while its player keeps real time on the stand-in.
TEST_F(AudioEngineTest, AnAbsentDeviceLeavesItsChannelOffAirWhileItsPlayerKeepsRealTime)
{
    AudioSettings settings;
    settings.channels = {{"A", "Korvane test device that is not there", 2, false}, {"B", "null", 1, false}};
    Open(settings);
    const auto a = channels->Item("A");
    EXPECT_FALSE(a->ChannelOn());
    EXPECT_TRUE(channels->Item("B")->ChannelOn());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !LogLinesWith(QStringLiteral("ERROR")).isEmpty(); }, 10000));
    EXPECT_EQ(LogLinesWith(QStringLiteral("Device 'Korvane test device that is not there' is absent")).size(), 1);
    EXPECT_EQ(LogLinesWith(QStringLiteral("channel A is off air")).size(), 1);
    EXPECT_FALSE(a->Active());
    EXPECT_FALSE(a->GetLevels().valid);
    EXPECT_EQ(std::dynamic_pointer_cast<Channel>(a)->DeviceName(), QStringLiteral("Korvane test device that is not there"));
    EXPECT_EQ(Failure([&] { channels->Engine().Advance(256); }),
              QStringLiteral("The audio engine runs in real time: it cannot be advanced"));
    Player("A")->LoadSource(Whole(WriteTone("tone.wav", {})), "tone");
    Player("A")->Play();
    EXPECT_TRUE(QTest::qWaitFor([&] { return Player("A")->PlayPosition() > 100; }, 10000));
}

TEST_F(AudioEngineTest, ChannelsAndStreamsAreFoundByNameAndPlace)
{
    Open();
    EXPECT_EQ(channels->Count(), 3);
    EXPECT_EQ(channels->Item(2)->Name(), QStringLiteral("B"));
    EXPECT_EQ(channels->Item("rec"), channels->Item(3));
    EXPECT_TRUE(channels->Exists("a"));
    EXPECT_FALSE(channels->Exists("C"));
    EXPECT_EQ(Failure([&] { channels->Item(4); }), QStringLiteral("There is no channel number 4: the station has 3"));
    EXPECT_EQ(Failure([&] { channels->Item("C"); }), QStringLiteral("There is no channel named 'C'"));

    const auto a = channels->Item("A");
    EXPECT_EQ(a->Direction(), 0);
    EXPECT_TRUE(a->Active());
    EXPECT_TRUE(a->ChannelOn());
    EXPECT_EQ(a->Streams()->Count(), 3);
    EXPECT_EQ(a->Streams()->Item(3)->Name(), QStringLiteral("A3"));
    EXPECT_EQ(Failure([&] { a->Streams()->Item(0); }), QStringLiteral("There is no stream number 0: the channel has 3"));
    const auto player = a->Streams()->Item(2)->CartPlayer();
    EXPECT_EQ(player, a->Streams()->Item(2)->CartPlayer());
    EXPECT_EQ(player->Stream(), a->Streams()->Item(2));
    EXPECT_EQ(a->Streams()->Item(2)->CartRecorder(), nullptr);

    const auto rec = channels->Item("Rec");
    EXPECT_EQ(rec->Direction(), 1);
    EXPECT_EQ(rec->Streams()->Count(), 1);
    EXPECT_EQ(rec->Streams()->Item(1)->CartPlayer(), nullptr);
    ASSERT_NE(rec->Streams()->Item(1)->CartRecorder(), nullptr);
    EXPECT_EQ(rec->Streams()->Item(1)->CartRecorder(), rec->Streams()->Item(1)->CartRecorder());
}

TEST(AudioEngineKernel, TheRootHandsOutOneSetOfChannelsFromTheStationsSettings)
{
    TempStation station;
    const auto kernel = EmbeddedKernel::Open(station.Folder(), nullptr);
    const auto channels = kernel->Channels();
    EXPECT_EQ(channels, kernel->Channels());
    ASSERT_EQ(channels->Count(), 3);
    EXPECT_EQ(channels->Item(1)->Name(), QStringLiteral("A"));
    EXPECT_EQ(std::dynamic_pointer_cast<Channel>(channels->Item("B"))->DeviceName(), QStringLiteral("null"));
    EXPECT_TRUE(channels->Item("Rec")->ChannelOn());
}
