#pragma once
#include "kernel/audio/AudioCallback.h"
#include "kernel/audio/EngineEvent.h"
#include <atomic>
#include <cstdint>
#include <vector>

class ChannelMix;

// The real-time callback of one device: it runs every channel that the device carries and
// sums the playing ones into the output. Events for the UI thread leave through a lock-free
// ring; the count of frames done is the device's clock.
class DeviceMixer : public AudioCallback
{
public:
    explicit DeviceMixer(std::vector<ChannelMix*> channels);

    void Process(const float* input, int inputChannels, float* output, int frames) override;
    // Counts the gap on every channel it touched: the playing ones for output, the recording
    // ones for input.
    void Gap(bool output, bool input) override;

    bool Records() const;
    // UI thread: the events posted by the callback.
    EngineEvents& Events() { return m_events; }
    // Frames processed since the device started.
    std::uint64_t Frames() const { return m_frames.load(std::memory_order_acquire); }

private:
    std::vector<ChannelMix*> m_channels;
    EngineEvents m_events;
    std::atomic<std::uint64_t> m_frames{0};
};
