#pragma once
#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

class Voice;

// The threads that open sound files and keep the rings of every voice full, decoding ahead of
// the callbacks. Each passes over the voices every few ms, and at once when woken, and works
// on any voice that no other worker holds: a file that reads slowly holds up one worker, never
// the others' voices. With no thread (a virtual clock) the engine runs FillAll itself.
class DiskWorkers
{
public:
    static constexpr int PassMs = 10;

    DiskWorkers(std::vector<Voice*> voices, int threads);
    ~DiskWorkers();
    DiskWorkers(const DiskWorkers&) = delete;
    DiskWorkers& operator=(const DiskWorkers&) = delete;

    void Start();
    void Wake();
    // One pass over every voice, on the calling thread.
    void FillAll();

private:
    void Loop(std::size_t worker);
    void Pass(std::size_t first);

    std::vector<Voice*> m_voices;
    const int m_threadCount;
    std::mutex m_mutex;
    std::condition_variable m_wake;
    unsigned m_wakes = 0;
    bool m_stop = false;
    std::vector<std::thread> m_threads;
};
