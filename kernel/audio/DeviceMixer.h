#pragma once
#include "kernel/audio/AudioCallback.h"
#include <atomic>
#include <cstdint>
#include <vector>

class ChannelMix;

// The real-time callback of one device: it runs every channel that the device carries, sums
// the playing ones into the output and holds the sum within full scale. The count of frames
// done is the device's clock.
class DeviceMixer : public AudioCallback
{
public:
    explicit DeviceMixer(std::vector<ChannelMix*> channels);

    void Process(const float* input, int inputChannels, float* output, int frames) override;
    // Counts the gap on every channel it touched: the playing ones for output, the recording
    // ones for input.
    void Gap(bool output, bool input) override;

    bool Records() const;
    // Frames processed since the device started.
    std::uint64_t Frames() const { return m_frames.load(std::memory_order_acquire); }
    // Output samples that were beyond full scale and had to be held.
    std::uint64_t Overs() const { return m_overs.load(std::memory_order_relaxed); }

private:
    std::vector<ChannelMix*> m_channels;
    std::atomic<std::uint64_t> m_frames{0};
    std::atomic<std::uint64_t> m_overs{0};
};
