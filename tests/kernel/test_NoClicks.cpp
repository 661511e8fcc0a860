// No transport sequence makes a player click: every start, stop, jump and change of sound
// fades, whatever order the commands come in and however close together. A walk of random
// commands on the virtual clock checks the device's output sample by sample.
#include "test_AudioEngineFixture.h"
#include "kernel/audio/NullDevice.h"
#include <random>

namespace {
// A sine of 100 Hz at -6 dBFS moves at most 0.0065 from one sample to the next; a fade of
// 3 ms from full level moves 0.0035 a sample. Two voices crossing, at up to +6 dB, stay well
// under this; a sound cut dead jumps by up to 0.5 or, at +6 dB, 1.
constexpr float MaxStep = 0.1f;

class NoClicksTest : public AudioEngineTest
{
protected:
    // Sounds that begin and end at a zero crossing, so that their own ends do not click:
    // whole tens of ms of the 100 Hz sine.
    QString WriteSine(const QString& name, int ms) const
    {
        std::vector<float> samples;
        for (int i = 0; i < Rate * ms / 1000; ++i)
            samples.insert(samples.end(), 2, static_cast<float>(0.5 * std::sin(2 * M_PI * 100.0 * i / Rate)));
        return WriteSamples(name, Rate, 2, samples);
    }

    // Runs the clock period by period and checks every sample against the one before it.
    void RunPeriods(int periods)
    {
        AudioEngine& engine = channels->Engine();
        const auto& device = dynamic_cast<const NullDevice&>(engine.Device(0));
        for (int p = 0; p < periods; ++p) {
            engine.Advance(engine.Settings().periodFrames);
            const std::vector<float>& out = device.Output();
            for (std::size_t i = 0; i < out.size(); i += 2) {
                m_worst = std::max(m_worst, std::fabs(out[i] - m_last));
                m_last = out[i];
            }
        }
    }

    float m_last = 0;
    float m_worst = 0;
};
}

TEST_F(NoClicksTest, NoSequenceOfTransportCommandsCutsASoundDead)
{
    Open();
    const std::vector<QString> sounds = {WriteSine("short.wav", 300), WriteSine("long.wav", 2000)};
    const auto player = Player("A");
    std::mt19937 random(20261123);
    auto pick = [&random](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };

    QStringList history;
    for (int step = 0; step < 3000; ++step) {
        const int command = pick(14);
        history << QString::number(command);
        try {
            switch (command) {
            case 0:
            case 1:
                player->LoadSource(Whole(sounds[static_cast<std::size_t>(pick(2))]), QStringLiteral("sine"));
                break;
            case 2:
            case 3:
                player->Play(pick(4) == 0);
                break;
            case 4:
                player->Pause();
                break;
            case 5:
                player->Stop();
                break;
            case 6:
                player->Cue();
                break;
            case 7:
                player->Recue();
                break;
            case 8:
                player->SetPosition(pick(2000));
                break;
            case 9:
                pick(2) ? player->FastForward(pick(500)) : player->Rewind(pick(500));
                break;
            case 10:
                player->Skip();
                break;
            case 11:
                player->Eject();
                break;
            case 12:
                player->SetLoop(pick(2) == 0);
                break;
            case 13:
                player->SetVolume(static_cast<qint16>(pick(27) - 20));
                break;
            }
        } catch (const KernelError&) {
            // an empty player refuses most commands: that is no click
        }
        const int periods = pick(3) == 0 ? 0 : pick(40);
        RunPeriods(periods);
        ASSERT_LE(m_worst, MaxStep) << "a click after the commands " << history.mid(std::max<qsizetype>(0, history.size() - 8)).join(' ').toStdString();
    }
    RunPeriods(100);
    EXPECT_LE(m_worst, MaxStep);
    EXPECT_GT(m_worst, 0.0f) << "the walk made sound";
}
