#include "test_AudioEngineFixture.h"
#include "kernel/audio/Channel.h"
#include <QCoreApplication>
#include <QProcess>
#include <QTest>

namespace {
// A JACK server of its own, with the dummy driver at 48 kHz, for the life of the object.
// JACK_DEFAULT_SERVER names it while it lives, so that PortAudio's JACK devices are its.
class JackServer
{
public:
    JackServer() : m_name(QStringLiteral("korvane-test-%1").arg(QCoreApplication::applicationPid()))
    {
        m_jackd.setProcessChannelMode(QProcess::MergedChannels);
        m_jackd.start(QStringLiteral("jackd"), {"--no-realtime", "--name", m_name, "-d", "dummy", "--rate", "48000", "--period", "256"});
        if (!m_jackd.waitForStarted(5000)) {
            m_failure = QStringLiteral("jackd does not start: ") + m_jackd.errorString();
            return;
        }
        if (QProcess::execute(QStringLiteral("jack_wait"), {"--server", m_name, "--wait", "--timeout", "10"}) != 0) {
            m_failure = QStringLiteral("jackd does not answer: ") + QString::fromLocal8Bit(m_jackd.readAll());
            return;
        }
        qputenv("JACK_DEFAULT_SERVER", m_name.toUtf8());
    }

    ~JackServer()
    {
        Kill();
        qunsetenv("JACK_DEFAULT_SERVER");
    }

    QString Failure() const { return m_failure; }

    // Ends the server as a crash would end the session, but lets it unregister itself: a
    // killed jackd leaves its entry in JACK's shared registry, and a few of those make every
    // later server refuse to start.
    void Kill()
    {
        m_jackd.terminate();
        if (!m_jackd.waitForFinished(5000)) {
            m_jackd.kill();
            m_jackd.waitForFinished(5000);
        }
    }

private:
    QString m_name;
    QProcess m_jackd;
    QString m_failure;
};
}

// Plays through PortAudio into a JACK server, then takes the server away: the channel must
// fall back to the Null device and its player sound on.
TEST_F(AudioEngineTest, PlaysThroughJackAndFallsBackToTheNullDeviceWhenTheServerGoes)
{
    JackServer jack;
    if (!jack.Failure().isEmpty())
        GTEST_SKIP() << "No JACK server for the real-device test: " << jack.Failure().toStdString();

    AudioSettings settings;
    settings.channels = {{"A", "system", 3, false}, {"Rec", "system", 1, true}};
    Open(settings);
    const auto a = std::dynamic_pointer_cast<Channel>(channels->Item("A"));
    ASSERT_EQ(a->DeviceName(), QStringLiteral("system")) << LogLinesWith("ERROR").join('\n').toStdString();

    const auto player = Player("A");
    player->LoadSource(Whole(WriteTone("tone.wav", {Rate, 2, 30000})), "tone");
    player->Play();
    EXPECT_TRUE(QTest::qWaitFor([&] { return player->PlayPosition() > 300; }, 10000));
    EXPECT_TRUE(a->ChannelOn());
    EXPECT_NEAR(Stream("A")->GetLevels().left, -6.0f, 0.1f);
    EXPECT_TRUE(channels->Item("Rec")->GetLevels().valid) << "the server's input reaches the recording channel";

    jack.Kill();
    EXPECT_TRUE(QTest::qWaitFor([&] { return a->DeviceName() == QLatin1String("null"); }, 10000));
    EXPECT_EQ(LogLinesWith(QStringLiteral("Device 'system': ")).size(), 1);
    EXPECT_EQ(LogLinesWith(QStringLiteral("channel A, Rec runs on the Null device")).size(), 1);
    const qint32 position = player->PlayPosition();
    EXPECT_TRUE(QTest::qWaitFor([&] { return player->PlayPosition() > position + 300; }, 10000));
    EXPECT_EQ(player->Status(), static_cast<qint32>(CartPlayerStatus::Playing));
    EXPECT_NEAR(Stream("A")->GetLevels().left, -6.0f, 0.1f);
}
