#include "kernel/audio/StreamMix.h"
#include <algorithm>

StreamMix::StreamMix(int firstVoiceId, int sampleRate, bool playing)
    : m_bus(Voice::MaxRenderFrames * 2), m_meter(sampleRate)
{
    if (!playing)
        return;
    for (int i = 0; i < VoiceCount; ++i)
        m_voices[static_cast<std::size_t>(i)] = std::make_unique<Voice>(firstVoiceId + i, sampleRate);
}

void StreamMix::Render(float* channelBus, int frames, EngineEvents& events)
{
    std::fill_n(m_bus.data(), frames * 2, 0.0f);
    std::array<bool, VoiceCount> entered{};
    std::array<std::optional<int>, VoiceCount> endedAt{};
    for (int i = 0; i < VoiceCount; ++i)
        entered[i] = m_voices[i]->Enter();
    for (int i = 0; i < VoiceCount; ++i)
        if (entered[i] && !m_voices[i]->Waiting())
            endedAt[i] = m_voices[i]->Render(m_bus.data(), frames, events);
    for (int i = 0; i < VoiceCount; ++i) {
        const int other = 1 - i;
        if (!entered[i] || !m_voices[i]->Waiting())
            continue;
        if (endedAt[other] || !entered[other] || !m_voices[other]->Playing())
            RenderWaiting(i, endedAt[other], frames, events);
    }
    for (int i = 0; i < VoiceCount; ++i)
        if (entered[i])
            m_voices[i]->Leave();

    m_meter.Measure(m_bus.data(), frames);
    for (int i = 0; i < frames * 2; ++i)
        channelBus[i] += m_bus[i];
}

// A voice chained behind the other starts on the frame where the other ended, so that the
// two sound back to back without a gap.
void StreamMix::RenderWaiting(int index, std::optional<int> otherEndedAt, int frames, EngineEvents& events)
{
    const int from = otherEndedAt.value_or(0);
    Voice& voice = *m_voices[index];
    voice.Release(events);
    voice.Render(m_bus.data() + from * 2, frames - from, events);
}
