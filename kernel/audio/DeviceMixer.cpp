#include "kernel/audio/DeviceMixer.h"
#include "kernel/audio/ChannelMix.h"
#include "kernel/audio/OutputGuard.h"
#include <algorithm>

DeviceMixer::DeviceMixer(std::vector<ChannelMix*> channels) : m_channels(std::move(channels))
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
    const DenormalsAreZero denormals;
    std::fill_n(output, frames * 2, 0.0f);
    for (int done = 0; done < frames;) {
        const int block = std::min(frames - done, Voice::MaxRenderFrames);
        const float* in = input ? input + static_cast<std::ptrdiff_t>(done) * inputChannels : nullptr;
        for (ChannelMix* channel : m_channels)
            channel->Process(in, inputChannels, output + done * 2, block);
        done += block;
    }
    if (const int overs = OutputGuard::Clip(output, frames * 2))
        m_overs.fetch_add(static_cast<std::uint64_t>(overs), std::memory_order_relaxed);
    m_frames.store(m_frames.load(std::memory_order_relaxed) + static_cast<std::uint64_t>(frames), std::memory_order_release);
}
