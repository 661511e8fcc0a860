#pragma once
#include "KernelChecks.h"
#include "foundation/Ini.h"
#include "kernel/EmbeddedKernel.h"
#include "kernel/EnergyFile.h"
#include "kernel/EnergyReader.h"
#include "kernel/FileLogger.h"
#include "kernel/audio/AudioEngine.h"
#include "kernel/audio/CartRecorder.h"
#include "kernel/audio/Channels.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCarts.h"
#include "kernelapi/iChannel.h"
#include "kernelapi/iFamilies.h"
#include "kernelapi/iFamily.h"
#include "kernelapi/iSound.h"
#include "kernelapi/iSoundFile.h"
#include "kernelapi/iStream.h"
#include "kernelapi/iStreams.h"
#include "support/TempStation.h"
#include <QDate>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <gtest/gtest.h>
#include <sndfile.h>
#include <vector>

// A demo station on the virtual clock whose Null device hears a known 16-bit file from its
// first period on, with the recorder of its Rec channel and the events it raises.
class CartRecorderTest : public ::testing::Test
{
protected:
    static constexpr int Rate = 48000;
    static constexpr int SourceSeconds = 20;

    CartRecorderTest()
    {
        Set(QStringLiteral("Audio"), QStringLiteral("Clock"), QStringLiteral("virtual"));
        Set(QStringLiteral("Audio"), QStringLiteral("ExpiringSeconds"), QStringLiteral("0"));
        Set(QStringLiteral("NullInput"), QStringLiteral("Source"), QStringLiteral("file"));
        Set(QStringLiteral("NullInput"), QStringLiteral("File"), QStringLiteral("input.wav"));
        source = WriteSource(station.Dir() + QStringLiteral("input.wav"));
    }

    void Set(const QString& section, const QString& key, const QString& value) const
    {
        WriteIni(section, key, value, station.KernelIniFile());
    }

    // Opens the kernel with the settings written so far and follows the recorder's events.
    void Open()
    {
        kernel = EmbeddedKernel::Open(station.Folder(), logger);
        recorder = std::dynamic_pointer_cast<CartRecorder>(RecStream()->CartRecorder());
        Follow(*recorder);
    }

    std::shared_ptr<iStream> RecStream() const { return kernel->Channels()->Item(QStringLiteral("Rec"))->Streams()->Item(1); }
    AudioEngine& Engine() const { return dynamic_cast<Channels&>(*kernel->Channels()).Engine(); }
    void Advance(std::int64_t frames) const { Engine().Advance(frames); }

    void Follow(iCartRecorder& r)
    {
        QObject::connect(&r, &iCartRecorder::DisplayNameChanged, [this](const QString& v) { events << "name:" + v; });
        QObject::connect(&r, &iCartRecorder::DisplayTimeChanged, [this](const QString&) { events << QStringLiteral("time"); });
        QObject::connect(&r, &iCartRecorder::DisplayTitleChanged, [this](const QString& v) { events << "title:" + v; });
        QObject::connect(&r, &iCartRecorder::LoadStateChanged, [this](qint32 v) { events << "load:" + QString::number(v); });
        QObject::connect(&r, &iCartRecorder::RecordingStateChanged, [this](qint32 v) { events << "rec:" + QString::number(v); });
    }

    // The events since the last call, without the running time.
    QStringList TakeEvents(bool withTime = false)
    {
        QStringList taken = withTime ? events : events.filter(QRegularExpression(QStringLiteral("^(?!time$)")));
        events.clear();
        return taken;
    }

    std::shared_ptr<iFamily> Family(const QString& id) const { return kernel->Families()->Item(id); }
    std::shared_ptr<iCart> Cart(const QString& id) const { return kernel->Carts()->Cart(id); }

    // Every channel's samples differ from their neighbours', so that a frame out of place,
    // missing or twice shows.
    static std::vector<qint16> Samples(int frames)
    {
        std::vector<qint16> samples;
        for (int i = 0; i < frames; ++i) {
            samples.push_back(static_cast<qint16>((i * 7919LL) % 60000 - 30000));
            samples.push_back(static_cast<qint16>(-((i * 104729LL) % 50000) + 25000));
        }
        return samples;
    }

    static std::vector<qint16> WriteSource(const QString& path)
    {
        std::vector<qint16> samples = Samples(Rate * SourceSeconds);
        WriteWav(path, samples);
        return samples;
    }

    static void WriteWav(const QString& path, const std::vector<qint16>& samples)
    {
        SF_INFO info{};
        info.samplerate = Rate;
        info.channels = 2;
        info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
        SNDFILE* file = sf_open(QFile::encodeName(path).constData(), SFM_WRITE, &info);
        ASSERT_NE(file, nullptr);
        sf_writef_short(file, samples.data(), static_cast<sf_count_t>(samples.size() / 2));
        sf_close(file);
    }

    // The frames of an audio file as its header announces them, 16-bit.
    static std::vector<qint16> ReadFile(const QString& path, int* channels = nullptr)
    {
        SF_INFO info{};
        SNDFILE* file = sf_open(QFile::encodeName(path).constData(), SFM_READ, &info);
        if (!file)
            return {};
        std::vector<qint16> samples(static_cast<std::size_t>(info.frames * info.channels));
        samples.resize(static_cast<std::size_t>(sf_readf_short(file, samples.data(), info.frames) * info.channels));
        sf_close(file);
        if (channels)
            *channels = info.channels;
        return samples;
    }

    // The source's frames from..to (exclusive).
    std::vector<qint16> Source(std::int64_t from, std::int64_t to) const
    {
        return {source.begin() + from * 2, source.begin() + to * 2};
    }

    static std::vector<qint16> Joined(std::vector<qint16> a, const std::vector<qint16>& b)
    {
        a.insert(a.end(), b.begin(), b.end());
        return a;
    }

    QStringList SoundFiles() const
    {
        return QDir(station.SoundDir()).entryList(QDir::Files, QDir::Name);
    }

    QStringList LogLinesWith(const QString& text) const { return KernelChecks::LogLinesWith(*logger, text); }

    TempStation station;
    std::shared_ptr<FileLogger> logger = std::make_shared<FileLogger>(station.Folder().LogDir());
    std::vector<qint16> source;
    std::shared_ptr<EmbeddedKernel> kernel;
    std::shared_ptr<CartRecorder> recorder;
    QStringList events;
};
