#pragma once
#include "kernel/audio/EngineEvent.h"
#include "kernel/audio/PlaySource.h"
#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

class SoundDecoder;

// One sound being played on a stream, shared by three threads: the UI thread prepares, starts
// and halts it; the disk thread keeps its ring of decoded audio full; the audio callback
// takes the audio out, fades it in and out, and glides its volume. The callback never waits:
// the UI thread "parks" the voice (a flag handshake) before it resets the ring, and the disk
// thread and the UI thread share the decoder under a mutex that the callback never touches.
class Voice
{
public:
    static constexpr int RingFrames = 65536;     // about 1.4 s at 48 kHz
    static constexpr int PrebufferFrames = 8192; // decoded before Prepare returns
    static constexpr int FillFrames = 4096;      // one step of the disk thread
    static constexpr int DeclickMs = 3;          // fade at start, pause and stop
    static constexpr int GlideMs = 20;           // a volume change glides over this time
    static constexpr int MaxRenderFrames = 2048; // the most one Render call takes

    Voice(int id, int sampleRate);
    ~Voice();
    Voice(const Voice&) = delete;
    Voice& operator=(const Voice&) = delete;

    int Id() const { return m_id; }

    // --- UI thread ---
    // Opens the source at positionMs (ms of the file) and decodes its first part, so that Start
    // sounds at once; silent until Start. Throws KernelError and leaves the voice empty.
    void Prepare(const PlaySource& source, int positionMs);
    // Silences the voice at once and drops its source.
    void Clear();
    // chained: sound only once the stream's other voice has ended.
    void Start(bool chained);
    // Fades out and stops; Start goes on from there.
    void Halt();
    void SetGain(float gain) { m_gain.store(gain, std::memory_order_relaxed); }
    void SetLoop(bool loop) { m_loop.store(loop, std::memory_order_relaxed); }
    // Counts the preparations; events carry it so that stale ones can be told apart.
    std::uint32_t Generation() const { return m_generation.load(std::memory_order_relaxed); }
    bool Prepared() const { return m_prepared; }
    const QString& FileName() const { return m_fileName; }
    // The marks in force and the start of the preparation, in ms of the file.
    int StartMs() const { return m_startMs; }
    int StopMs() const { return m_stopMs; }
    // The ms of the file reached by what has sounded.
    int PositionMs() const;
    // Whether the file holds less audio than its header announces.
    bool Truncated() const { return m_truncated; }
    // Callbacks that found the ring empty while the voice should sound.
    std::uint64_t Underruns() const { return m_underruns.load(std::memory_order_relaxed); }

    // --- disk thread (the UI thread on a virtual clock) ---
    // Tops the ring up; posts ReadFailed when the file gives out early.
    void Fill(EngineEvents& events);

    // --- audio callback ---
    // True when the voice may be rendered; every Enter is paired with Leave.
    bool Enter();
    void Leave() { m_busy.store(false, std::memory_order_release); }
    // Asked to sound and not ended; Waiting is that but held behind the other voice.
    bool Playing() const;
    bool Waiting() const { return Playing() && m_rtChained && !m_rtReleased; }
    // Lets a waiting voice sound from now on, without a fade, and posts Started.
    void Release(EngineEvents& events);
    // Adds up to frames of the voice into bus (interleaved stereo). When the voice plays its
    // last frame here, posts Ended and returns the frame it ended at.
    std::optional<int> Render(float* bus, int frames, EngineEvents& events);

private:
    void Park();
    void Reset();
    void ApplyRenderState();
    void GlideTo(float target);
    float NextGain();

    const int m_id;
    const int m_sampleRate;
    const float m_declickStep;
    const int m_glideFrames;

    // UI thread
    bool m_prepared = false;
    bool m_truncated = false;
    QString m_fileName;
    int m_startMs = 0;
    int m_stopMs = 0;
    int m_originMs = 0;

    // UI thread and disk thread, under m_sourceMutex
    std::mutex m_sourceMutex;
    std::unique_ptr<SoundDecoder> m_decoder;
    std::vector<float> m_block;

    // shared
    SpscRing<float> m_ring;
    std::atomic<bool> m_attached{false};
    std::atomic<bool> m_busy{false};
    std::atomic<bool> m_run{false};
    std::atomic<bool> m_chained{false};
    std::atomic<bool> m_loop{false};
    std::atomic<bool> m_complete{false};
    std::atomic<float> m_gain{1};
    std::atomic<std::uint32_t> m_generation{0};
    std::atomic<std::int64_t> m_consumed{0};
    std::atomic<std::uint64_t> m_underruns{0};

    // audio callback
    std::vector<float> m_take;
    std::uint32_t m_rtGeneration = 0;
    bool m_rtRun = false;
    bool m_rtEnded = false;
    bool m_rtChained = false;
    bool m_rtReleased = false;
    float m_rtFade = 0;
    float m_rtGain = 1;
    float m_rtTarget = 1;
    float m_rtStep = 0;
    int m_rtGlideLeft = 0;
};
