#include "kernel/audio/Mp2TakeFile.h"
#include "kernelapi/KernelError.h"
#include <algorithm>
#include <twolame.h>

namespace {
// Samples of one channel handed to the encoder at a time.
constexpr int ChunkFrames = 4608;
// What the encoder may give back for a chunk: its own advice, 1.25 times the samples + 7200.
constexpr int MpegBytes = ChunkFrames * 5 / 4 + 7200;
}

Mp2TakeFile::Mp2TakeFile(const QString& path, int channels, int sampleRate, int bitRateKbps)
    : m_file(path), m_mpeg(MpegBytes)
{
    m_encoder = twolame_init();
    if (!m_encoder)
        throw KernelError(QStringLiteral("Cannot start the Layer II encoder for '%1'").arg(path));
    twolame_set_in_samplerate(m_encoder, sampleRate);
    twolame_set_out_samplerate(m_encoder, sampleRate);
    twolame_set_num_channels(m_encoder, channels);
    twolame_set_mode(m_encoder, channels == 1 ? TWOLAME_MONO : TWOLAME_STEREO);
    twolame_set_bitrate(m_encoder, bitRateKbps);
    if (twolame_init_params(m_encoder) != 0)
        throw KernelError(QStringLiteral("Cannot record '%1' as MPEG Layer II: %2 Hz, %3 channels at %4 kbit/s is not a Layer II format")
                              .arg(path).arg(sampleRate).arg(channels).arg(bitRateKbps));
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        throw KernelError(QStringLiteral("Cannot create the recording '%1': %2").arg(path, m_file.errorString()));
}

Mp2TakeFile::~Mp2TakeFile()
{
    twolame_close(&m_encoder);
}

void Mp2TakeFile::Write(const qint16* frames, qint64 count)
{
    const int channels = twolame_get_num_channels(m_encoder);
    for (qint64 done = 0; done < count;) {
        const int chunk = static_cast<int>(std::min<qint64>(count - done, ChunkFrames));
        Put(twolame_encode_buffer_interleaved(m_encoder, frames + done * channels, chunk, m_mpeg.data(), MpegBytes));
        done += chunk;
    }
}

void Mp2TakeFile::Close()
{
    if (!m_file.isOpen())
        return;
    Put(twolame_encode_flush(m_encoder, m_mpeg.data(), MpegBytes));
    m_file.close();
}

// Each chunk goes to the disk as it is encoded: the file loses nothing to a killed process.
void Mp2TakeFile::Put(int bytes)
{
    if (bytes < 0)
        throw KernelError(QStringLiteral("The Layer II encoder failed on '%1'").arg(m_file.fileName()));
    if (m_file.write(reinterpret_cast<const char*>(m_mpeg.data()), bytes) != bytes || !m_file.flush())
        throw KernelError(QStringLiteral("Cannot write the recording '%1': %2").arg(m_file.fileName(), m_file.errorString()));
}
