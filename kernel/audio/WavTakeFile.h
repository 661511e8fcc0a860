#pragma once
#include "kernel/audio/TakeFile.h"
#include <sndfile.h>

// A take as WAV with 16-bit linear PCM, through libsndfile. The header is brought up to date
// after every HeaderEverySeconds of audio, so that a file left by a killed process is a valid
// WAV holding what was written up to then.
class WavTakeFile : public TakeFile
{
public:
    static constexpr int HeaderEverySeconds = 1;

    WavTakeFile(const QString& path, int channels, int sampleRate);
    ~WavTakeFile() override;

    void Write(const qint16* frames, qint64 count) override;
    void Close() override;

private:
    QString m_path;
    SNDFILE* m_file = nullptr;
    const qint64 m_headerEvery;
    qint64 m_sinceHeader = 0;
};
