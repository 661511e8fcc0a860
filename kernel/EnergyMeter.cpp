#include "kernel/EnergyMeter.h"
#include "kernel/AudioFileInfo.h"
#include "kernel/EnergyScale.h"
#include <algorithm>
#include <cstdlib>

namespace {
// Energy reserved ahead from the header's length, at most this many bytes (a damaged header
// may claim any length).
constexpr qint64 MaxReserve = 1 << 20;
}

EnergyMeter::EnergyMeter(AudioFileInfo& info)
    : m_info(info), m_peaks(size_t(info.channels), 0), m_filePeaks(size_t(info.channels), 0)
{
    const bool plausible = info.frames / info.rate < MaxReserve;
    m_info.energy.reserve(int(plausible ? std::min(MaxReserve, (info.Steps() + 1) * info.channels) : MaxReserve));
    m_stepEnd = AudioFileInfo::StepBegin(1, info.rate);
}

void EnergyMeter::Add(const qint16* samples, qint64 frames)
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

qint64 EnergyMeter::Finish()
{
    if (m_position > AudioFileInfo::StepBegin(m_step, m_info.rate))
        CloseStep();
    return m_position;
}

QVector<double> EnergyMeter::Peaks() const
{
    QVector<double> peaks;
    for (int peak : m_filePeaks)
        peaks << peak / 32768.0;
    return peaks;
}

void EnergyMeter::RaisePeaks(const qint16* samples, qint64 frames, int channels, int* peaks)
{
    // Stereo gets its own loop, which the compiler can keep in registers.
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

void EnergyMeter::CloseStep()
{
    for (size_t c = 0; c < m_peaks.size(); ++c) {
        m_info.energy.append(char(EnergyScale::Byte(m_peaks[c])));
        m_filePeaks[c] = std::max(m_filePeaks[c], m_peaks[c]);
        m_peaks[c] = 0;
    }
    ++m_step;
    m_stepEnd = AudioFileInfo::StepBegin(m_step + 1, m_info.rate);
}
