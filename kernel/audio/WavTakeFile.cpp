#include "kernel/audio/WavTakeFile.h"
#include "kernelapi/KernelError.h"
#include <QFile>

WavTakeFile::WavTakeFile(const QString& path, int channels, int sampleRate)
    : m_path(path), m_headerEvery(static_cast<qint64>(sampleRate) * HeaderEverySeconds)
{
    SF_INFO info{};
    info.samplerate = sampleRate;
    info.channels = channels;
    info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
    m_file = sf_open(QFile::encodeName(path).constData(), SFM_WRITE, &info);
    if (!m_file)
        throw KernelError(QStringLiteral("Cannot create the recording '%1': %2").arg(path, QString::fromUtf8(sf_strerror(nullptr))));
}

WavTakeFile::~WavTakeFile()
{
    if (m_file)
        sf_close(m_file);
}

void WavTakeFile::Write(const qint16* frames, qint64 count)
{
    const sf_count_t written = sf_writef_short(m_file, frames, count);
    if (written != count)
        throw KernelError(QStringLiteral("Cannot write the recording '%1': %2").arg(m_path, QString::fromUtf8(sf_strerror(m_file))));
    m_sinceHeader += count;
    if (m_sinceHeader >= m_headerEvery) {
        sf_command(m_file, SFC_UPDATE_HEADER_NOW, nullptr, 0);
        m_sinceHeader = 0;
    }
}

void WavTakeFile::Close()
{
    SNDFILE* file = std::exchange(m_file, nullptr);
    if (file && sf_close(file) != 0)
        throw KernelError(QStringLiteral("Cannot complete the recording '%1'").arg(m_path));
}
