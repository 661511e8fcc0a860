#include "kernel/AudioFileInfo.h"
#include "kernel/AudioFile.h"
#include "kernel/EnergyScale.h"
#include "kernelapi/KernelError.h"
#include <algorithm>
#include <limits>
#include <vector>

namespace {
constexpr qint64 BlockFrames = 1 << 16;
// Energy reserved ahead from the header's length, at most this many bytes (a damaged header
// may claim any length).
constexpr qint64 MaxReserve = 1 << 20;

// Raises peaks[c] to the largest magnitude of channel c in the frames.
void RaisePeaks(const qint16* samples, qint64 frames, int channels, int* peaks)
{
    if (channels == 2) {
        int left = peaks[0], right = peaks[1];
        for (qint64 f = 0; f < frames; ++f) {
            left = std::max(left, std::abs(int(samples[2 * f])));
            right = std::max(right, std::abs(int(samples[2 * f + 1])));
        }
        peaks[0] = left;
        peaks[1] = right;
        return;
    }
    for (qint64 f = 0; f < frames; ++f) {
        for (int c = 0; c < channels; ++c)
            peaks[c] = std::max(peaks[c], std::abs(int(samples[f * channels + c])));
    }
}

// Collects the energy of the steps while blocks of frames go by.
class StepMeter
{
public:
    explicit StepMeter(AudioFileInfo& info)
        : m_info(info), m_peaks(size_t(info.channels), 0), m_filePeaks(size_t(info.channels), 0)
    {
        const bool plausible = info.frames / info.rate < MaxReserve;
        m_info.energy.reserve(int(plausible ? std::min(MaxReserve, (info.Steps() + 1) * info.channels) : MaxReserve));
        m_stepEnd = AudioFileInfo::StepBegin(1, info.rate);
    }

    void Add(const qint16* samples, qint64 frames)
    {
        while (frames > 0) {
            const qint64 take = std::min(frames, m_stepEnd - m_position);
            RaisePeaks(samples, take, m_info.channels, m_peaks.data());
            samples += take * m_info.channels;
            frames -= take;
            m_position += take;
            if (m_position == m_stepEnd)
                CloseStep();
        }
    }

    // Closes the last, partial step and returns the frames seen.
    qint64 Finish()
    {
        if (m_position > AudioFileInfo::StepBegin(m_step, m_info.rate))
            CloseStep();
        return m_position;
    }

    // Each channel's peak, 0 to 1.
    QVector<double> Peaks() const
    {
        QVector<double> peaks;
        for (int peak : m_filePeaks)
            peaks << peak / 32768.0;
        return peaks;
    }

private:
    void CloseStep()
    {
        for (size_t c = 0; c < m_peaks.size(); ++c) {
            m_info.energy.append(char(EnergyScale::Byte(m_peaks[c])));
            m_filePeaks[c] = std::max(m_filePeaks[c], m_peaks[c]);
            m_peaks[c] = 0;
        }
        ++m_step;
        m_stepEnd = AudioFileInfo::StepBegin(m_step + 1, m_info.rate);
    }

    AudioFileInfo& m_info;
    std::vector<int> m_peaks;     // of the step under way
    std::vector<int> m_filePeaks; // of the steps closed
    qint64 m_step = 0;
    qint64 m_position = 0;
    qint64 m_stepEnd = 0;
};
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
    StepMeter meter(info);
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
