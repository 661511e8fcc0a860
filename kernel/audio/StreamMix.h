#pragma once
#include "kernel/audio/PeakMeter.h"
#include "kernel/audio/Voice.h"
#include <array>
#include <memory>
#include <vector>

// The audio side of one stream: a few voices, so that what went before can fade out or play
// its end while the next sound is prepared, chained behind it or already sounding, and the
// stream's level after volume.
class StreamMix
{
public:
    // The front, what fades out or sounds on after a load, the next step armed behind the
    // front, and one more so that a new sound never waits for a fade to finish.
    static constexpr int VoiceCount = 4;

    // A playing stream gets voices numbered firstVoiceId and on; a recording stream none.
    StreamMix(int firstVoiceId, int sampleRate, bool playing);

    bool HasVoices() const { return m_voices[0] != nullptr; }
    Voice& VoiceAt(int index) { return *m_voices[static_cast<std::size_t>(index)]; }
    const PeakMeter& Meter() const { return m_meter; }

    // Audio callback: adds the stream's frames (at most Voice::MaxRenderFrames) into the
    // channel's interleaved stereo bus.
    void Render(float* channelBus, int frames);

private:
    bool FollowsNow(int index, const std::array<bool, VoiceCount>& entered,
                    const std::array<std::optional<int>, VoiceCount>& endedAt) const;

    std::array<std::unique_ptr<Voice>, VoiceCount> m_voices;
    std::vector<float> m_bus;
    PeakMeter m_meter;
};
