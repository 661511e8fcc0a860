#include "kernel/audio/ChannelMix.h"
#include <algorithm>

ChannelMix::ChannelMix(int streams, bool records, int firstVoiceId, int sampleRate)
    : m_records(records), m_bus(Voice::MaxRenderFrames * 2), m_meter(sampleRate)
{
    for (int i = 0; i < streams; ++i) {
        m_streams.push_back(std::make_unique<StreamMix>(firstVoiceId + i * StreamMix::VoiceCount, sampleRate, !records));
        if (records)
            m_captures.push_back(std::make_unique<::Capture>(sampleRate));
    }
}

void ChannelMix::Process(const float* input, int inputChannels, float* output, int frames)
{
    std::fill_n(m_bus.data(), frames * 2, 0.0f);
    if (m_records) {
        if (input)
            m_meter.Measure(input, inputChannels, frames);
        else
            m_meter.Measure(m_bus.data(), frames);
        for (auto& capture : m_captures)
            capture->Receive(input, inputChannels, frames);
        return;
    }
    for (auto& stream : m_streams)
        stream->Render(m_bus.data(), frames);
    m_meter.Measure(m_bus.data(), frames);
    for (int i = 0; i < frames * 2; ++i)
        output[i] += m_bus[i];
}

std::uint64_t ChannelMix::Underruns() const
{
    std::uint64_t count = m_gaps.load(std::memory_order_relaxed);
    for (const auto& stream : m_streams)
        for (int v = 0; stream->HasVoices() && v < StreamMix::VoiceCount; ++v)
            count += stream->VoiceAt(v).Underruns();
    return count;
}
