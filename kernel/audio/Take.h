#pragma once
#include "kernel/AudioFileInfo.h"
#include "kernel/audio/RecordFormat.h"
#include <QString>
#include <memory>
#include <vector>

class EnergyMeter;
class TakeFile;

// One recording under way: its file, and the energy of what was written, measured as it goes
// so that the energy file is ready the moment the take ends. Frames come in as stereo float
// and are written as 16-bit samples (mono: the mean of the two sides); a sample read from a
// 16-bit source comes out exactly as it went in. Used by one thread at a time.
class Take
{
public:
    // Creates the file; throws KernelError when it cannot be made.
    Take(const RecordFormat& format, const QString& path, int sampleRate);
    ~Take();
    Take(const Take&) = delete;
    Take& operator=(const Take&) = delete;

    const QString& Path() const { return m_path; }
    // Frames written so far.
    qint64 Frames() const { return m_info.frames; }

    // Writes interleaved stereo frames. A failure is kept (see Failed), and the file keeps what
    // was written before it.
    void Append(const float* stereo, qint64 frames);
    bool Failed() const { return !m_failure.isEmpty(); }
    QString Failure() const { return m_failure; }
    // Makes the file again, empty.
    void Restart();
    // Completes the file; what was measured: rate, channels, frames, peaks and energy.
    // Throws KernelError when the file cannot be completed.
    AudioFileInfo Finish();

    // A stereo float frame as the 16-bit samples of a take.
    static qint16 ToSample(float value);

private:
    void Open();

    RecordFormat m_format;
    QString m_path;
    AudioFileInfo m_info;
    std::unique_ptr<TakeFile> m_file;
    std::unique_ptr<EnergyMeter> m_meter;
    std::vector<qint16> m_samples;
    QString m_failure;
};
