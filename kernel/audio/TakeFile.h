#pragma once
#include <QString>
#include <QtGlobal>
#include <memory>

struct RecordFormat;

// The audio file a take is written into, in the station's recording format. Every write
// leaves a file that a player can open, so that a take survives a process that is killed.
// Failures throw KernelError naming the file.
class TakeFile
{
public:
    // Creates the file (replacing one of that name) for frames at the rate.
    static std::unique_ptr<TakeFile> Create(const RecordFormat& format, const QString& path, int sampleRate);
    virtual ~TakeFile() = default;

    // Interleaved 16-bit frames of the format's channels.
    virtual void Write(const qint16* frames, qint64 count) = 0;
    // Completes the file: what an encoder holds back is written, the header is final.
    virtual void Close() = 0;
};
