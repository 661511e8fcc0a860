#include "kernel/AudioFileInfo.h"
#include "kernel/AudioFile.h"
#include "kernel/EnergyMeter.h"
#include "kernelapi/KernelError.h"
#include <algorithm>
#include <limits>
#include <vector>

namespace {
constexpr qint64 BlockFrames = 1 << 16;
}

AudioFileInfo AudioFileInfo::Header(const AudioFile& file)
{
    AudioFileInfo info;
    info.rate = file.Rate();
    info.channels = file.Channels();
    info.frames = file.HeaderFrames();
    return info;
}

AudioFileInfo AudioFileInfo::Decode(AudioFile& file, qint64 maxFrames)
{
    AudioFileInfo info = Header(file);
    if (maxFrames >= 0)
        info.frames = std::min(info.frames, maxFrames);
    EnergyMeter meter(info);
    std::vector<qint16> block(size_t(BlockFrames * info.channels));
    qint64 left = maxFrames < 0 ? std::numeric_limits<qint64>::max() : maxFrames;
    for (qint64 read; left > 0 && (read = file.Read(block.data(), std::min(left, BlockFrames))) > 0; left -= read)
        meter.Add(block.data(), read);
    info.frames = meter.Finish();
    info.peaks = meter.Peaks();
    return info;
}

double AudioFileInfo::Peak() const
{
    return peaks.isEmpty() ? 0.0 : *std::max_element(peaks.cbegin(), peaks.cend());
}

qint32 AudioFileInfo::Ms(qint64 frames, int rate)
{
    constexpr qint64 Limit = std::numeric_limits<qint32>::max();
    if (frames < 0 || frames / rate >= Limit / 1000)
        throw KernelError(QStringLiteral("A sound of %1 frames at %2 Hz is too long to be timed in milliseconds").arg(frames).arg(rate));
    return qint32(std::min(Limit, (frames * 1000 + rate / 2) / rate));
}

qint64 AudioFileInfo::StepBegin(qint64 step, int rate)
{
    return step * rate * StepMs / 1000;
}

qint64 AudioFileInfo::Steps() const
{
    constexpr qint64 PerSecond = 1000 / StepMs;
    return frames / rate * PerSecond + (frames % rate * PerSecond + rate - 1) / rate;
}
