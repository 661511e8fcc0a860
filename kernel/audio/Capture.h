#pragma once
#include "kernel/audio/SpscRing.h"
#include <QString>
#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

class Take;

// What a recording stream captures, on its way from the device to a file. The audio callback
// copies the input, as stereo, into a lock-free ring while the capture runs; the writer (a
// thread of the engine on the real-time clock, the engine's own Advance on the virtual one)
// moves it from the ring into the take, the file under way. The UI thread changes the mode
// and hands takes in and out.
//
// A change of mode returns once no callback can add frames any more that it took under the
// old mode: the callback flags itself busy while it looks at the mode, and the UI thread waits
// out that flag, which stays up only for the copy of one period into memory. So a pause or a
// stop cuts the audio on a period's edge, and what comes after a resume follows what came
// before it with nothing missing and nothing twice.
class Capture
{
public:
    enum class Mode { Idle, Armed, Running };
    static constexpr int RingSeconds = 4;

    explicit Capture(int sampleRate);
    ~Capture();
    Capture(const Capture&) = delete;
    Capture& operator=(const Capture&) = delete;

    // --- audio callback ---
    // frames of interleaved input of that many channels (null: silence); at most
    // Voice::MaxRenderFrames.
    void Receive(const float* input, int channels, int frames);

    // --- UI thread ---
    void SetMode(Mode mode);
    Mode CurrentMode() const { return m_mode.load(std::memory_order_acquire); }
    // Hands a new take to the writer; what the ring holds from before is dropped.
    void Begin(std::unique_ptr<Take> take);
    // Writes what is left in the ring and takes the take back (null when none).
    std::unique_ptr<Take> End();
    // Empties the take and the ring: the take starts again from nothing.
    void Restart();
    // The take failed: the writer wrote nothing since. Its description stays until End.
    bool Failed() const { return m_failed.load(std::memory_order_acquire); }
    QString Failure() const;
    // Frames lost since the start because the ring was full (the writer did not keep up).
    std::uint64_t Overruns() const { return m_overruns.load(std::memory_order_relaxed); }

    // --- any thread ---
    // A take is under way.
    bool Busy() const { return m_hasTake.load(std::memory_order_acquire); }
    // Frames captured for the take since it began (or started again).
    std::uint64_t Captured() const { return m_captured.load(std::memory_order_relaxed); }

    // --- writer ---
    // Moves what the ring holds into the take, when at least minFrames are waiting.
    void Write(std::size_t minFrames);

private:
    void WriteLocked(std::size_t minFrames);
    void Discard();

    std::atomic<Mode> m_mode{Mode::Idle};
    std::atomic<bool> m_busy{false};
    SpscRing<float> m_ring;
    std::vector<float> m_stereo; // callback only
    std::atomic<std::uint64_t> m_overruns{0};
    std::atomic<std::uint64_t> m_captured{0};

    mutable std::mutex m_takeMutex; // writer and UI thread, never the callback
    std::unique_ptr<Take> m_take;
    std::vector<float> m_block; // under the mutex
    std::atomic<bool> m_failed{false};
    std::atomic<bool> m_hasTake{false};
};
