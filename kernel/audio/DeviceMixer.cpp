#include "kernel/audio/DeviceMixer.h"
#include "kernel/audio/ChannelMix.h"
#include <algorithm>

DeviceMixer::DeviceMixer(std::vector<ChannelMix*> channels) : m_channels(std::move(channels)), m_events(1024)
{
}

bool DeviceMixer::Records() const
{
    return std::any_of(m_channels.begin(), m_channels.end(), [](const ChannelMix* channel) { return channel->Records(); });
}

void DeviceMixer::Gap(bool output, bool input)
{
    for (ChannelMix* channel : m_channels)
        if (channel->Records() ? input : output)
            channel->CountGap();
}

void DeviceMixer::Process(const float* input, int inputChannels, float* output, int frames)
{
    std::fill_n(output, frames * 2, 0.0f);
    for (int done = 0; done < frames;) {
        const int block = std::min(frames - done, Voice::MaxRenderFrames);
        const float* in = input ? input + static_cast<std::ptrdiff_t>(done) * inputChannels : nullptr;
        for (ChannelMix* channel : m_channels)
            channel->Process(in, inputChannels, output + done * 2, block, m_events);
        done += block;
    }
    m_frames.store(m_frames.load(std::memory_order_relaxed) + static_cast<std::uint64_t>(frames), std::memory_order_release);
}
