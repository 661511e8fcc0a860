#pragma once
#include "kernel/audio/EngineEvent.h"
#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

class Voice;

// Keeps the rings of every voice full, decoding ahead of the callbacks. Its thread passes over
// the voices every few ms, and at once when woken. On a virtual clock no thread runs: the
// engine calls FillAll itself before each period.
class DiskThread
{
public:
    static constexpr int PassMs = 10;

    explicit DiskThread(std::vector<Voice*> voices);
    ~DiskThread();

    void Start();
    void Wake();
    // One pass over the voices, on the disk thread or (with no thread) on the UI thread.
    void FillAll();
    // UI thread: the events posted while filling.
    EngineEvents& Events() { return m_events; }

private:
    void Loop();

    std::vector<Voice*> m_voices;
    EngineEvents m_events;
    std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_woken = false;
    bool m_stop = false;
    std::thread m_thread;
};
