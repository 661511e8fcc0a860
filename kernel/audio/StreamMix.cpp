#include "kernel/audio/StreamMix.h"
#include <algorithm>

StreamMix::StreamMix(int firstVoiceId, int sampleRate, bool playing)
    : m_bus(Voice::MaxRenderFrames * 2), m_meter(sampleRate)
{
    if (!playing)
        return;
    for (int i = 0; i < VoiceCount; ++i)
        m_voices[static_cast<std::size_t>(i)] = std::make_unique<Voice>(firstVoiceId + i, i, sampleRate);
}

void StreamMix::Render(float* channelBus, int frames)
{
    std::fill_n(m_bus.data(), frames * 2, 0.0f);
    std::array<bool, VoiceCount> entered{};
    std::array<std::optional<int>, VoiceCount> endedAt{};
    for (int i = 0; i < VoiceCount; ++i)
        entered[i] = m_voices[i]->Enter();
    for (int i = 0; i < VoiceCount; ++i)
        if (entered[i] && !m_voices[i]->Waiting())
            endedAt[i] = m_voices[i]->Render(m_bus.data(), frames);
    // A voice chained behind another starts on the frame where the other ended, so that the
    // two sound back to back without a gap.
    for (int i = 0; i < VoiceCount; ++i) {
        if (!entered[i] || !m_voices[i]->Waiting() || !FollowsNow(i, entered, endedAt))
            continue;
        const int from = endedAt[m_voices[i]->Behind()].value_or(0);
        m_voices[i]->Release();
        endedAt[i] = m_voices[i]->Render(m_bus.data() + from * 2, frames - from);
    }
    for (int i = 0; i < VoiceCount; ++i)
        if (entered[i])
            m_voices[i]->Leave();

    m_meter.Measure(m_bus.data(), frames);
    for (int i = 0; i < frames * 2; ++i)
        channelBus[i] += m_bus[i];
}

// Whether the voice it waits behind ended in this render, or is not sounding at all.
bool StreamMix::FollowsNow(int index, const std::array<bool, VoiceCount>& entered,
                           const std::array<std::optional<int>, VoiceCount>& endedAt) const
{
    const int behind = m_voices[index]->Behind();
    if (behind < 0 || behind >= VoiceCount || behind == index)
        return true;
    return endedAt[behind] || !entered[behind] || !m_voices[behind]->Playing();
}
