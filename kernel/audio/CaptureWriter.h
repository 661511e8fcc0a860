#pragma once
#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

class Capture;

// The thread that moves captured audio from the captures' rings into their files, on the
// real-time clock: it passes over every capture each PassMs (half a device period at most),
// so that what the device captured reaches the file within a period or two; while no take is
// under way it looks only every IdleMs, or when woken. With no thread (a virtual clock) the
// engine calls WriteAll after every period.
class CaptureWriter
{
public:
    static constexpr int IdleMs = 100;

    CaptureWriter(std::vector<Capture*> captures, int passMs, bool threaded);
    ~CaptureWriter();
    CaptureWriter(const CaptureWriter&) = delete;
    CaptureWriter& operator=(const CaptureWriter&) = delete;

    // One pass on the calling thread: a capture is written when at least minFrames wait.
    void WriteAll(std::size_t minFrames);
    // A take has begun: the thread passes at its pace from now on.
    void Wake();

private:
    void Loop();
    bool AnyBusy() const;

    std::vector<Capture*> m_captures;
    const int m_passMs;
    std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_stop = false;
    unsigned m_wakes = 0;
    std::thread m_thread;
};
