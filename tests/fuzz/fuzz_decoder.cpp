// Feeds arbitrary bytes to the audio decoder through libsndfile's virtual I/O, measures what
// it accepts as the kernel does for every sound (length, peaks, energy of each step), and
// checks that the energy file written from the measure reads back with one sample per step.
#include "kernel/AudioFile.h"
#include "kernel/AudioFileInfo.h"
#include "kernel/EnergyData.h"
#include "kernel/EnergyFile.h"
#include "kernelapi/KernelError.h"
#include <cstdint>
#include <cstdlib>

namespace {
void Measure(AudioFile& file)
{
    const AudioFileInfo info = AudioFileInfo::Decode(file);
    if (info.energy.size() != info.Steps() * info.channels || info.peaks.size() != info.channels)
        std::abort();
    for (double peak : info.peaks) {
        if (peak < 0.0 || peak > 1.0)
            std::abort();
    }
    info.LengthMs();
    const EnergyData data = EnergyData::Parse(EnergyFile::Bytes(info), QStringLiteral("decoded"));
    if (data.Samples() != info.Steps())
        std::abort();
}
}

// The system's Vorbis and Ogg libraries leak small blocks on some damaged streams; those leaks
// are theirs and not a fault of the kernel's decoding path.
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libvorbis.so\nleak:libogg.so\n";
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    try {
        AudioFile file = AudioFile::FromMemory(bytes, QStringLiteral("fuzz"));
        Measure(file);
    } catch (const KernelError&) {
        // unreadable audio is refused with a message
    }
    return 0;
}
