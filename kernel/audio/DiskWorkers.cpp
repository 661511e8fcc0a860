#include "kernel/audio/DiskWorkers.h"
#include "kernel/audio/Voice.h"
#include <chrono>

DiskWorkers::DiskWorkers(std::vector<Voice*> voices, int threads) : m_voices(std::move(voices)), m_threadCount(threads)
{
}

DiskWorkers::~DiskWorkers()
{
    {
        std::lock_guard lock(m_mutex);
        m_stop = true;
    }
    m_wake.notify_all();
    for (std::thread& thread : m_threads)
        thread.join();
}

void DiskWorkers::Start()
{
    for (int i = 0; i < m_threadCount; ++i)
        m_threads.emplace_back([this, i] { Loop(static_cast<std::size_t>(i)); });
}

void DiskWorkers::Wake()
{
    {
        std::lock_guard lock(m_mutex);
        ++m_wakes;
    }
    m_wake.notify_all();
}

void DiskWorkers::FillAll()
{
    Pass(0);
}

// Each worker starts its pass at another voice, so that they spread over the voices instead
// of queueing behind one another.
void DiskWorkers::Pass(std::size_t first)
{
    const std::size_t count = m_voices.size();
    for (std::size_t i = 0; i < count; ++i) {
        Voice* voice = m_voices[(first + i) % count];
        if (!voice->TryClaim())
            continue;
        voice->Work();
        voice->Unclaim();
    }
}

void DiskWorkers::Loop(std::size_t worker)
{
    const std::size_t stride = m_voices.empty() ? 0 : m_voices.size() / static_cast<std::size_t>(m_threadCount);
    std::unique_lock lock(m_mutex);
    unsigned seen = m_wakes;
    while (!m_stop) {
        lock.unlock();
        Pass(worker * stride);
        lock.lock();
        m_wake.wait_for(lock, std::chrono::milliseconds(PassMs), [&] { return m_wakes != seen || m_stop; });
        seen = m_wakes;
    }
}
