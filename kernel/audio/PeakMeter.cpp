#include "kernel/audio/PeakMeter.h"
#include <algorithm>
#include <cmath>

namespace {
float ToDb(float peak)
{
    const float db = peak > 0 ? 20.0f * std::log10(peak) : PeakMeter::SilenceDb;
    return std::max(db, PeakMeter::SilenceDb);
}
}

void PeakMeter::Measure(const float* stereo, int frames)
{
    Measure(stereo, 2, frames);
}

void PeakMeter::Measure(const float* input, int channels, int frames)
{
    float left = 0;
    float right = 0;
    const int second = channels > 1 ? 1 : 0;
    for (int i = 0; i < frames; ++i, input += channels) {
        left = std::max(left, std::fabs(input[0]));
        right = std::max(right, std::fabs(input[second]));
    }
    Publish(left, right, frames);
}

void PeakMeter::Publish(float left, float right, int frames)
{
    const float release = Release(frames);
    m_heldLeft = std::max(left, m_heldLeft * release);
    m_heldRight = std::max(right, m_heldRight * release);
    m_left.store(m_heldLeft, std::memory_order_relaxed);
    m_right.store(m_heldRight, std::memory_order_relaxed);
    m_valid.store(true, std::memory_order_release);
}

// The factor by which a held peak falls over that many frames; computed again only when the
// callback's size changes.
float PeakMeter::Release(int frames)
{
    if (frames != m_releaseFrames) {
        m_releaseFrames = frames;
        const float db = -ReleaseDbPerSecond * static_cast<float>(frames) / static_cast<float>(m_sampleRate);
        m_releaseFactor = std::pow(10.0f, db / 20.0f);
    }
    return m_releaseFactor;
}

AudioLevels PeakMeter::Read() const
{
    AudioLevels levels;
    levels.valid = m_valid.load(std::memory_order_acquire);
    levels.left = ToDb(m_left.load(std::memory_order_relaxed));
    levels.right = ToDb(m_right.load(std::memory_order_relaxed));
    return levels;
}
