#include "kernel/audio/TakeFile.h"
#include "kernel/audio/Mp2TakeFile.h"
#include "kernel/audio/RecordFormat.h"
#include "kernel/audio/WavTakeFile.h"

std::unique_ptr<TakeFile> TakeFile::Create(const RecordFormat& format, const QString& path, int sampleRate)
{
    if (format.container == RecordFormat::Container::Mp2)
        return std::make_unique<Mp2TakeFile>(path, format.channels, sampleRate, format.bitRateKbps);
    return std::make_unique<WavTakeFile>(path, format.channels, sampleRate);
}
