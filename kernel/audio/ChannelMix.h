#pragma once
#include "kernel/audio/Capture.h"
#include "kernel/audio/PeakMeter.h"
#include "kernel/audio/StreamMix.h"
#include <atomic>
#include <cstdint>
#include <memory>
#include <vector>

// The audio side of one channel: its streams summed onto a bus that is measured and added to
// the device's output, or, on a recording channel, the device's input measured.
class ChannelMix
{
public:
    // Voices of a playing channel are numbered from firstVoiceId on.
    ChannelMix(int streams, bool records, int firstVoiceId, int sampleRate);

    bool Records() const { return m_records; }
    int StreamCount() const { return static_cast<int>(m_streams.size()); }
    StreamMix& Stream(int index) { return *m_streams[static_cast<std::size_t>(index)]; }
    const PeakMeter& Meter() const { return m_meter; }
    // The capture of a stream of a recording channel.
    ::Capture& CaptureOf(int stream) { return *m_captures[static_cast<std::size_t>(stream)]; }
    // How many voice numbers the channel takes.
    int VoiceCount() const { return m_records ? 0 : StreamCount() * StreamMix::VoiceCount; }

    // Audio callback, at most Voice::MaxRenderFrames at a time: a playing channel adds its mix
    // to the stereo output; a recording one measures the input (silence when there is none).
    void Process(const float* input, int inputChannels, float* output, int frames);
    // Audio callback: the device lost some of the channel's audio.
    void CountGap() { m_gaps.fetch_add(1, std::memory_order_relaxed); }
    // Any thread: gaps in the channel's audio so far, those the device reported and the
    // callbacks in which one of its voices found its ring empty.
    std::uint64_t Underruns() const;

private:
    const bool m_records;
    std::vector<std::unique_ptr<StreamMix>> m_streams;
    std::vector<std::unique_ptr<::Capture>> m_captures; // recording channels only
    std::vector<float> m_bus;
    PeakMeter m_meter;
    std::atomic<std::uint64_t> m_gaps{0};
};
