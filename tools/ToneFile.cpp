#include "tools/ToneFile.h"
#include "kernelapi/KernelError.h"
#include <QFile>
#include <QSaveFile>
#include <algorithm>
#include <cmath>
#include <memory>
#include <sndfile.h>
#include <twolame.h>
#include <vector>

namespace {
constexpr qint64 BlockFrames = 1 << 15;

int SndfileFormat(ToneFile::Format format)
{
    switch (format) {
    case ToneFile::Format::Wav16: return SF_FORMAT_WAV | SF_FORMAT_PCM_16;
    case ToneFile::Format::Wav24: return SF_FORMAT_WAV | SF_FORMAT_PCM_24;
    case ToneFile::Format::Aiff: return SF_FORMAT_AIFF | SF_FORMAT_PCM_16;
    case ToneFile::Format::Flac: return SF_FORMAT_FLAC | SF_FORMAT_PCM_16;
    case ToneFile::Format::Ogg: return SF_FORMAT_OGG | SF_FORMAT_VORBIS;
    case ToneFile::Format::Mp3: return SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III;
    case ToneFile::Format::Mp2: break;
    }
    return 0;
}

[[noreturn]] void Fail(const QString& path, const QString& reason)
{
    throw KernelError(QStringLiteral("Cannot write the test sound '%1': %2").arg(path, reason));
}

struct TwolameCloser
{
    void operator()(twolame_options* options) const { twolame_close(&options); }
};
}

void ToneFile::Write(const QString& path) const
{
    if (format == Format::Mp2)
        WriteMp2(path);
    else
        WriteWithSndfile(path);
}

void ToneFile::Render(float* block, qint64 first, qint64 frames) const
{
    const double step = 2 * M_PI * frequency / rate;
    for (qint64 f = 0; f < frames; ++f) {
        const float value = float(amplitude * std::sin(step * double(first + f)));
        std::fill_n(block + f * channels, channels, value);
    }
}

void ToneFile::WriteWithSndfile(const QString& path) const
{
    SF_INFO info{};
    info.samplerate = rate;
    info.channels = channels;
    info.format = SndfileFormat(format);
    SNDFILE* file = sf_open(QFile::encodeName(path).constData(), SFM_WRITE, &info);
    if (!file)
        Fail(path, QString::fromUtf8(sf_strerror(nullptr)));
    std::vector<float> block(size_t(BlockFrames * channels));
    for (qint64 first = 0; first < Frames(); first += BlockFrames) {
        const qint64 frames = std::min(BlockFrames, Frames() - first);
        Render(block.data(), first, frames);
        if (sf_writef_float(file, block.data(), frames) != frames) {
            const QString error = QString::fromUtf8(sf_strerror(file));
            sf_close(file);
            Fail(path, error);
        }
    }
    sf_close(file);
}

void ToneFile::WriteMp2(const QString& path) const
{
    const std::unique_ptr<twolame_options, TwolameCloser> encoder(twolame_init());
    twolame_set_in_samplerate(encoder.get(), rate);
    twolame_set_out_samplerate(encoder.get(), rate);
    twolame_set_num_channels(encoder.get(), channels);
    twolame_set_bitrate(encoder.get(), channels == 1 ? 96 : 192);
    if (twolame_init_params(encoder.get()) != 0)
        Fail(path, QStringLiteral("MPEG Layer II cannot carry %1 channels at %2 Hz").arg(channels).arg(rate));
    std::vector<float> block(size_t(BlockFrames * channels));
    std::vector<short> pcm(block.size());
    std::vector<unsigned char> mpeg(size_t(BlockFrames * 2 + 16384));
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        Fail(path, file.errorString());
    for (qint64 first = 0; first < Frames(); first += BlockFrames) {
        const qint64 frames = std::min(BlockFrames, Frames() - first);
        Render(block.data(), first, frames);
        std::transform(block.cbegin(), block.cend(), pcm.begin(), [](float v) { return short(std::lround(v * 32767)); });
        const int bytes = twolame_encode_buffer_interleaved(encoder.get(), pcm.data(), int(frames), mpeg.data(), int(mpeg.size()));
        file.write(reinterpret_cast<const char*>(mpeg.data()), std::max(0, bytes));
    }
    const int tail = twolame_encode_flush(encoder.get(), mpeg.data(), int(mpeg.size()));
    file.write(reinterpret_cast<const char*>(mpeg.data()), std::max(0, tail));
    if (!file.commit())
        Fail(path, file.errorString());
}
