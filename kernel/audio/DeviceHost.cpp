#include "kernel/audio/DeviceHost.h"
#include "kernel/audio/DeviceSlot.h"
#include <chrono>

DeviceHost::DeviceHost(std::vector<DeviceSlot*> slots) : m_slots(std::move(slots))
{
    m_thread = std::thread([this] { Run(); });
}

DeviceHost::~DeviceHost()
{
    {
        std::lock_guard lock(m_mutex);
        m_stop = true;
    }
    m_wake.notify_one();
    m_thread.join();
}

void DeviceHost::Run()
{
    using Clock = std::chrono::steady_clock;
    const Clock::time_point start = Clock::now();
    std::unique_lock lock(m_mutex);
    while (!m_stop) {
        lock.unlock();
        const auto nowMs = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start).count();
        for (DeviceSlot* slot : m_slots)
            slot->Watch(nowMs);
        lock.lock();
        m_wake.wait_for(lock, std::chrono::milliseconds(WatchMs), [this] { return m_stop; });
    }
    lock.unlock();
    for (DeviceSlot* slot : m_slots)
        slot->Stop();
}
