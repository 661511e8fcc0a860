#pragma once
#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

class DeviceSlot;

// The engine's device thread on the real-time clock: the one thread that opens, starts, polls,
// stops and closes devices, and so the one that calls PortAudio and JACK (from
// Pa_Initialize to Pa_Terminate). It watches every slot at once and then every WatchMs, and
// at its end stops them and closes their devices. The UI thread never waits on a device: it
// reads what the slots publish. Destroying the host ends its thread and joins it.
class DeviceHost
{
public:
    static constexpr int WatchMs = 50;

    explicit DeviceHost(std::vector<DeviceSlot*> slots);
    ~DeviceHost();
    DeviceHost(const DeviceHost&) = delete;
    DeviceHost& operator=(const DeviceHost&) = delete;

private:
    void Run();

    std::vector<DeviceSlot*> m_slots;
    std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_stop = false;
    std::thread m_thread;
};
