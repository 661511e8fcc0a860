#include "kernel/AudioFile.h"
#include "kernelapi/KernelError.h"
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <cstring>
#include <utility>
#include <sndfile.h>

namespace {
// Rates outside this range are damaged headers, not audio.
constexpr int MaxRate = 1536000;
}

// The bytes of a file read from memory and the read position, for libsndfile's virtual I/O.
struct AudioFile::Memory
{
    QByteArray bytes;
    sf_count_t position = 0;

    static Memory& Of(void* data) { return *static_cast<Memory*>(data); }
    static sf_count_t Length(void* data) { return Of(data).bytes.size(); }
    static sf_count_t Tell(void* data) { return Of(data).position; }
    static sf_count_t Write(const void*, sf_count_t, void*) { return 0; }

    static sf_count_t Seek(sf_count_t offset, int whence, void* data)
    {
        Memory& memory = Of(data);
        const sf_count_t base = whence == SEEK_CUR ? memory.position : whence == SEEK_END ? memory.bytes.size() : 0;
        const sf_count_t target = base + offset;
        if (target < 0)
            return -1;
        memory.position = target;
        return target;
    }

    static sf_count_t Read(void* buffer, sf_count_t count, void* data)
    {
        Memory& memory = Of(data);
        const sf_count_t available = std::max<sf_count_t>(0, memory.bytes.size() - memory.position);
        const sf_count_t n = std::clamp<sf_count_t>(count, 0, available);
        if (n > 0)
            std::memcpy(buffer, memory.bytes.constData() + memory.position, size_t(n));
        memory.position += n;
        return n;
    }
};

AudioFile AudioFile::Open(const QString& path)
{
    if (!QFileInfo(path).isFile())
        Refuse(path, QStringLiteral("the file does not exist"));
    SF_INFO info{};
    SNDFILE* file = sf_open(QFile::encodeName(path).constData(), SFM_READ, &info);
    return AudioFile(file, info, path, nullptr);
}

AudioFile AudioFile::FromMemory(const QByteArray& bytes, const QString& name)
{
    static SF_VIRTUAL_IO io{&Memory::Length, &Memory::Seek, &Memory::Read, &Memory::Write, &Memory::Tell};
    auto memory = std::make_unique<Memory>();
    memory->bytes = bytes;
    SF_INFO info{};
    SNDFILE* file = sf_open_virtual(&io, SFM_READ, &info, memory.get());
    return AudioFile(file, info, name, std::move(memory));
}

AudioFile::AudioFile(SNDFILE* file, const SF_INFO& info, const QString& name, std::unique_ptr<Memory> memory)
    : m_file(file), m_name(name), m_rate(info.samplerate), m_channels(info.channels), m_frames(info.frames),
      m_memory(std::move(memory))
{
    if (!file)
        Refuse(name, QString::fromUtf8(sf_strerror(nullptr)));
    QString damage;
    if (m_rate < 1 || m_rate > MaxRate)
        damage = QStringLiteral("its sample rate %1 is not possible").arg(m_rate);
    else if (m_channels < 1 || m_channels > MaxChannels)
        damage = QStringLiteral("it has %1 channels").arg(m_channels);
    else if (m_frames < 0)
        damage = QStringLiteral("its header gives a negative length");
    if (!damage.isEmpty()) {
        sf_close(file);
        m_file = nullptr;
        Refuse(name, damage);
    }
    // Decoded formats may overshoot full scale; clip rather than wrap around.
    sf_command(file, SFC_SET_CLIPPING, nullptr, SF_TRUE);
}

AudioFile::AudioFile(AudioFile&& other) noexcept
    : m_file(std::exchange(other.m_file, nullptr)), m_name(std::move(other.m_name)), m_rate(other.m_rate),
      m_channels(other.m_channels), m_frames(other.m_frames), m_memory(std::move(other.m_memory))
{
}

AudioFile& AudioFile::operator=(AudioFile&& other) noexcept
{
    if (this != &other) {
        if (m_file)
            sf_close(m_file);
        m_file = std::exchange(other.m_file, nullptr);
        m_name = std::move(other.m_name);
        m_rate = other.m_rate;
        m_channels = other.m_channels;
        m_frames = other.m_frames;
        m_memory = std::move(other.m_memory);
    }
    return *this;
}

AudioFile::~AudioFile()
{
    if (m_file)
        sf_close(m_file);
}

qint64 AudioFile::Read(qint16* buffer, qint64 frames)
{
    return std::max<sf_count_t>(0, sf_readf_short(m_file, buffer, frames));
}

void AudioFile::Seek(qint64 frame)
{
    if (sf_seek(m_file, frame, SEEK_SET) < 0)
        throw KernelError(QStringLiteral("Cannot go to frame %1 of the sound file '%2': %3")
                              .arg(frame)
                              .arg(m_name, QString::fromUtf8(sf_strerror(m_file))));
}

QString AudioFile::Title() const
{
    const char* text = m_file ? sf_get_string(m_file, SF_STR_TITLE) : nullptr;
    return text ? QString::fromUtf8(text) : QString();
}

QString AudioFile::Artist() const
{
    const char* text = m_file ? sf_get_string(m_file, SF_STR_ARTIST) : nullptr;
    return text ? QString::fromUtf8(text) : QString();
}

void AudioFile::Refuse(const QString& name, const QString& reason)
{
    throw KernelError(QStringLiteral("Cannot read the sound file '%1': %2").arg(name, reason));
}
