#include "kernel/audio/NullDevice.h"
#include "kernel/audio/AudioCallback.h"
#include <algorithm>
#include <chrono>

NullDevice::NullDevice(int sampleRate, int periodFrames, int inputChannels, Clock clock)
    : m_sampleRate(sampleRate), m_periodFrames(periodFrames), m_inputChannels(inputChannels), m_clock(clock),
      m_input(static_cast<std::size_t>(periodFrames) * std::max(inputChannels, 1)), m_output(static_cast<std::size_t>(periodFrames) * 2)
{
}

NullDevice::~NullDevice()
{
    Stop();
}

void NullDevice::Start(AudioCallback* callback)
{
    Stop();
    m_callback = callback;
    m_running.store(true, std::memory_order_release);
    if (m_clock == Clock::RealTime)
        m_thread = std::thread([this] { RealTimeLoop(); });
}

void NullDevice::Stop()
{
    m_running.store(false, std::memory_order_release);
    if (m_thread.joinable())
        m_thread.join();
}

void NullDevice::Advance(long long frames)
{
    while (frames > 0 && Running()) {
        const int period = static_cast<int>(std::min<long long>(frames, m_periodFrames));
        RunPeriod(period);
        frames -= period;
    }
}

void NullDevice::RunPeriod(int frames)
{
    if (m_source && m_inputChannels > 0)
        m_source->Fill(m_input.data(), m_inputChannels, frames);
    m_callback->Process(m_inputChannels > 0 ? m_input.data() : nullptr, m_inputChannels, m_output.data(), frames);
}

// Calls the callback on a fixed grid of periods. After a stall (a suspended machine, a
// debugger) it takes up the grid from now rather than running the missed periods in a burst.
void NullDevice::RealTimeLoop()
{
    using Clock = std::chrono::steady_clock;
    const auto period = std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(
        static_cast<double>(m_periodFrames) / m_sampleRate));
    auto next = Clock::now();
    while (Running()) {
        RunPeriod(m_periodFrames);
        next += period;
        const auto now = Clock::now();
        if (now - next > 8 * period)
            next = now;
        std::this_thread::sleep_until(next);
    }
}
