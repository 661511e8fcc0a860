#pragma once
#include "kernel/audio/EngineEvent.h"
#include "kernel/audio/PeakMeter.h"
#include "kernel/audio/Voice.h"
#include <array>
#include <memory>
#include <vector>

// The audio side of one stream: two voices, so that one can fade out or play its end while
// the other is prepared or chained behind it, and the stream's level after volume.
class StreamMix
{
public:
    static constexpr int VoiceCount = 2;

    // A playing stream gets voices numbered firstVoiceId and on; a recording stream none.
    StreamMix(int firstVoiceId, int sampleRate, bool playing);

    bool HasVoices() const { return m_voices[0] != nullptr; }
    Voice& VoiceAt(int index) { return *m_voices[static_cast<std::size_t>(index)]; }
    const PeakMeter& Meter() const { return m_meter; }

    // Audio callback: adds the stream's frames (at most Voice::MaxRenderFrames) into the
    // channel's interleaved stereo bus.
    void Render(float* channelBus, int frames, EngineEvents& events);

private:
    void RenderWaiting(int index, std::optional<int> otherEndedAt, int frames, EngineEvents& events);

    std::array<std::unique_ptr<Voice>, VoiceCount> m_voices;
    std::vector<float> m_bus;
    PeakMeter m_meter;
};
