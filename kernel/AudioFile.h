#pragma once
#include <QByteArray>
#include <QString>
#include <memory>

struct sf_private_tag;
struct SF_INFO;

// An audio file open for reading through libsndfile: WAV, AIFF, FLAC, OGG, MP2, MP3 and the
// other formats the library knows, from a path or from bytes in memory. Samples come as
// interleaved 16-bit frames, which is all the precision that lengths and energy need.
// Move-only; the file closes with the object.
class AudioFile
{
public:
    // Most channels a file may have.
    static constexpr int MaxChannels = 64;

    // Throws KernelError naming the file when it is missing or not readable audio.
    static AudioFile Open(const QString& path);
    // The same over bytes in memory; name is used in messages.
    static AudioFile FromMemory(const QByteArray& bytes, const QString& name);

    AudioFile(AudioFile&&) noexcept;
    AudioFile& operator=(AudioFile&&) noexcept;
    ~AudioFile();

    const QString& Name() const { return m_name; }
    int Rate() const { return m_rate; }
    int Channels() const { return m_channels; }
    // Frames as the file's header gives them; decoding may find a different count.
    qint64 HeaderFrames() const { return m_frames; }
    // The title and artist tags the file carries; empty when it has none.
    QString Title() const;
    QString Artist() const;

    // Reads up to frames frames into buffer (frames × Channels() samples); returns the
    // frames read, 0 at the end.
    qint64 Read(qint16* buffer, qint64 frames);
    // Goes to a frame; throws KernelError when the file cannot seek there.
    void Seek(qint64 frame);

private:
    struct Memory;
    AudioFile(sf_private_tag* file, const SF_INFO& info, const QString& name, std::unique_ptr<Memory> memory);
    [[noreturn]] static void Refuse(const QString& name, const QString& reason);

    sf_private_tag* m_file = nullptr;
    QString m_name;
    int m_rate = 0;
    int m_channels = 0;
    qint64 m_frames = 0;
    std::unique_ptr<Memory> m_memory; // the bytes a file from memory reads
};
