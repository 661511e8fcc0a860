// Feeds arbitrary bytes to the energy file reader and reads every sample of what it accepts;
// then writes the same bytes as the energy block of a file and checks that every sample reads
// back as its byte.
#include "kernel/AudioFileInfo.h"
#include "kernel/EnergyData.h"
#include "kernel/EnergyFile.h"
#include "kernel/EnergyScale.h"
#include "kernelapi/KernelError.h"
#include <cstdint>
#include <cstdlib>

namespace {
bool InRange(float value)
{
    return value >= 0.0f && value <= 1.0f;
}

void ReadEverything(const EnergyData& data)
{
    if (data.Samples() < 0 || data.Channels() < 1)
        std::abort();
    for (qint32 n = -1; n <= data.Samples(); ++n) {
        const iEnergyReader::Sample sample = data.SampleN(n);
        if (!InRange(sample.left) || !InRange(sample.right))
            std::abort();
    }
}

void CheckWrittenReadsBack(const QByteArray& energy, int channels)
{
    AudioFileInfo info;
    info.rate = 48000;
    info.channels = channels;
    info.energy = energy.left(int(energy.size() / channels * channels));
    info.frames = info.energy.size() / channels * 480;
    const EnergyData data = EnergyData::Parse(EnergyFile::Bytes(info), QStringLiteral("written"));
    if (data.Samples() != info.Steps())
        std::abort();
    for (qint32 n = 0; n < data.Samples(); ++n) {
        const iEnergyReader::Sample sample = data.SampleN(n);
        if (sample.left != float(EnergyScale::Value(quint8(info.energy[n * channels]))))
            std::abort();
        if (channels > 1 && sample.right != float(EnergyScale::Value(quint8(info.energy[n * channels + 1]))))
            std::abort();
    }
}
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    try {
        ReadEverything(EnergyData::Parse(bytes, QStringLiteral("fuzz.bef")));
    } catch (const KernelError&) {
        // a refusal with a message is the expected answer to most inputs
    }
    if (size > 0)
        CheckWrittenReadsBack(bytes.mid(1), 1 + data[0] % 3);
    return 0;
}
