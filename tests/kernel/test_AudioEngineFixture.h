#pragma once
#include "kernel/FileLogger.h"
#include "kernel/KernelLog.h"
#include "kernel/audio/AudioEngine.h"
#include "kernel/audio/CartPlayer.h"
#include "kernel/audio/Channels.h"
#include "kernel/audio/PeakMeter.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/iChannel.h"
#include "kernelapi/iStream.h"
#include "kernelapi/iStreams.h"
#include <QDate>
#include <QFile>
#include <QTemporaryDir>
#include <cmath>
#include <gtest/gtest.h>
#include <sndfile.h>
#include <vector>

// Channels of the audio engine on the virtual clock, over test sounds written with libsndfile,
// with a file logger whose lines the tests read back.
class AudioEngineTest : public ::testing::Test
{
protected:
    static constexpr int Rate = 48000;

    // A 1 kHz sine, whose peaks fall on samples at 48 kHz, at a level per side in dBFS.
    struct Tone
    {
        int rate = Rate;
        int channels = 2;
        int ms = 2000;
        double leftDb = -6;
        double rightDb = -6;
    };

    static double Amplitude(double db) { return std::pow(10.0, db / 20.0); }

    QString WriteTone(const QString& name, const Tone& tone) const
    {
        const int frames = tone.rate * tone.ms / 1000;
        std::vector<float> samples;
        for (int i = 0; i < frames; ++i) {
            const double wave = std::sin(2 * M_PI * 1000.0 * i / tone.rate);
            samples.push_back(static_cast<float>(wave * Amplitude(tone.leftDb)));
            if (tone.channels > 1)
                samples.push_back(static_cast<float>(wave * Amplitude(tone.rightDb)));
        }
        return WriteSamples(name, tone.rate, tone.channels, samples);
    }

    // Ten steps of 100 ms of the 1 kHz sine, step k at StepDb(k): a player's level tells
    // which step it plays.
    static double StepDb(int step) { return -40.0 + 3.0 * step; }

    QString WriteSteps(const QString& name) const
    {
        std::vector<float> samples;
        for (int i = 0; i < Rate; ++i) {
            const double wave = std::sin(2 * M_PI * 1000.0 * i / Rate) * Amplitude(StepDb(i / (Rate / 10)));
            samples.insert(samples.end(), 2, static_cast<float>(wave));
        }
        return WriteSamples(name, Rate, 2, samples);
    }

    QString WriteSamples(const QString& name, int rate, int channels, const std::vector<float>& samples) const
    {
        const QString path = dir.filePath(name);
        SF_INFO info{};
        info.samplerate = rate;
        info.channels = channels;
        info.format = SF_FORMAT_WAV | SF_FORMAT_FLOAT;
        SNDFILE* file = sf_open(QFile::encodeName(path).constData(), SFM_WRITE, &info);
        EXPECT_NE(file, nullptr) << sf_strerror(nullptr);
        sf_writef_float(file, samples.data(), static_cast<sf_count_t>(samples.size()) / channels);
        sf_close(file);
        return path;
    }

    QString WriteBytes(const QString& name, const QByteArray& bytes) const
    {
        QFile file(dir.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }

    // The virtual clock, and nothing expires unless a test says so.
    static AudioSettings VirtualSettings()
    {
        AudioSettings settings;
        settings.virtualClock = true;
        settings.expiringMs = 0;
        return settings;
    }

    // devices: how the engine opens the configured devices, when not its own way.
    void Open(const AudioSettings& settings = VirtualSettings(), DeviceFactory devices = {})
    {
        channels = std::make_unique<Channels>(settings, KernelLog(logger), PlayQueue::MacroSource(), std::move(devices));
    }

    std::shared_ptr<CartPlayer> Player(const QString& channel, int stream = 1) const
    {
        return std::dynamic_pointer_cast<CartPlayer>(Stream(channel, stream)->CartPlayer());
    }

    std::shared_ptr<iStream> Stream(const QString& channel, int stream = 1) const
    {
        return channels->Item(channel)->Streams()->Item(stream);
    }

    // A sound file with no cart, played from its start to its end.
    static PlaySource Whole(const QString& file) { return PlaySource{file, 0, 0}; }

    void AdvanceMs(int ms) const { channels->Engine().Advance(static_cast<std::int64_t>(ms) * Rate / 1000); }

    QStringList LogLinesWith(const QString& text) const
    {
        QFile file(logger->FileFor(QDate::currentDate()));
        if (!file.open(QIODevice::ReadOnly))
            return {};
        return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n')).filter(text);
    }

    // The description of the KernelError a call throws; empty when it does not throw.
    template <typename Call> static QString Failure(Call call)
    {
        try {
            call();
            return {};
        } catch (const KernelError& e) {
            return e.Description();
        }
    }

    QTemporaryDir dir;
    std::shared_ptr<FileLogger> logger = std::make_shared<FileLogger>(dir.filePath(QStringLiteral("log")));
    std::unique_ptr<Channels> channels;
};
