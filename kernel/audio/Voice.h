#pragma once
#include "kernel/audio/EventLatches.h"
#include "kernel/audio/PlaySource.h"
#include "kernel/audio/SpscRing.h"
#include <QString>
#include <atomic>
#include <cstdint>
#include <limits>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

class SoundDecoder;

// One sound being played on a stream, shared by three threads: the UI thread asks for a
// source and starts and halts it; a disk worker opens the source, decodes its start and keeps
// the ring of decoded audio full; the audio callback takes the audio out, fades it in and out,
// and glides its volume. Nobody waits on anybody: the UI thread only writes requests, and a
// new source is installed by the worker only once the callback reports the voice quiet, so
// that what it sounded before always fades out instead of being cut.
class Voice
{
public:
    static constexpr int RingFrames = 65536;     // about 1.4 s at 48 kHz
    static constexpr int PrebufferFrames = 8192; // decoded before the voice is ready
    static constexpr int FillFrames = 4096;      // one step of a disk worker
    static constexpr int DeclickMs = 3;          // fade at start, pause and stop
    static constexpr int GlideMs = 20;           // a volume change glides over this time
    static constexpr int MaxRenderFrames = 2048; // the most one Render call takes
    static constexpr int MaxWraps = 64;          // loop passes decoded ahead at most
    static constexpr std::int64_t Never = std::numeric_limits<std::int64_t>::max();

    // What the UI thread learns when a source is installed: the marks in force and where
    // reading began, in ms of the file.
    struct Preparation
    {
        QString fileName;
        int startMs = 0;
        int stopMs = 0;
        int originMs = 0;
        bool truncated = false; // the file holds less audio than its header announces
    };

    // index: the voice's place in its stream, by which another voice is chained behind it.
    Voice(int id, int index, int sampleRate);
    ~Voice();
    Voice(const Voice&) = delete;
    Voice& operator=(const Voice&) = delete;

    int Id() const { return m_id; }
    int Index() const { return m_index; }
    EventLatches& Events() { return m_events; }

    // --- UI thread ---
    // Asks for the source from positionMs (ms of the file); silent until Start. A disk worker
    // opens it and decodes its start (Prepared or PrepareFailed follows), or, synchronous,
    // the calling thread does, throwing KernelError and leaving the voice as it was when the
    // source cannot be read. Returns whether the voice is ready now (see Accept).
    bool Prepare(const PlaySource& source, int positionMs, bool synchronous);
    // Fades out what sounds and drops the source: its file is closed once the voice is quiet.
    void Clear();
    // chained: sound only once the voice of the stream at index `behind` has ended.
    void Start(bool chained = false, int behind = -1);
    // Fades out and stops; Start goes on from there.
    void Halt();
    void SetGain(float gain) { m_gain.store(gain, std::memory_order_relaxed); }
    void SetLoop(bool loop);
    // Counts the requests; events carry it so that stale ones can be told apart.
    std::uint32_t Generation() const { return m_generation; }
    // Takes over what was installed for that generation, once: true when it is the current
    // one and the voice became ready by this call.
    bool Accept(std::uint32_t generation);
    // Installed and accepted for the current request.
    bool Ready() const { return m_ready; }
    // Asked for a source that is not ready yet.
    bool Pending() const { return m_requested && !m_ready; }
    const Preparation& Info() const { return m_info; }
    // Why the preparation of that generation failed; empty when it did not.
    QString Failure(std::uint32_t generation);
    // The callback reports the voice silent, and it cannot sound again until it is started.
    bool Quiet() const { return m_quiet.load(std::memory_order_acquire); }
    // The ms of the file reached by what has sounded.
    int PositionMs() const;
    // Callbacks that found the ring empty while the voice should sound.
    std::uint64_t Underruns() const { return m_underruns.load(std::memory_order_relaxed); }
    // Decoded audio waiting in the ring.
    int BufferedFrames() const { return static_cast<int>(m_ring.Readable() / 2); }

    // --- disk workers (the UI thread on a virtual clock) ---
    // One worker at a time works on a voice.
    bool TryClaim() { return !m_claimed.test_and_set(std::memory_order_acquire); }
    void Unclaim() { m_claimed.clear(std::memory_order_release); }
    // Opens and installs a requested source, or tops the ring up.
    void Work();

    // --- audio callback ---
    // True when the voice may be rendered; every Enter is paired with Leave.
    bool Enter();
    void Leave();
    // Asked to sound and not ended; Waiting is that but held behind another voice.
    bool Playing() const;
    bool Waiting() const { return Playing() && m_rtChained && !m_rtReleased; }
    // The place in the stream of the voice a waiting voice follows.
    int Behind() const { return m_rtBehind; }
    // Lets a waiting voice sound from now on, without a fade, and posts Started.
    void Release();
    // Adds up to frames of the voice into bus (interleaved stereo). When the voice plays its
    // last frame here, posts Ended and returns the frame it ended at.
    std::optional<int> Render(float* bus, int frames);

private:
    struct Request
    {
        std::uint32_t generation = 0;
        bool hasSource = false;
        PlaySource source;
        int positionMs = 0;
    };
    // A source opened and started by a worker, waiting to be installed.
    struct Opened
    {
        std::uint32_t generation = 0;
        QString fileName;
        std::unique_ptr<SoundDecoder> decoder;
        std::vector<float> first;
        int frames = 0;
        QString failure;
    };

    // UI thread
    void Ask(const Request& request);
    void Command(bool run, bool chained, int behind);

    // worker
    Request TakeRequest();
    Opened Open(const Request& request) const;
    bool Install(Opened& opened);
    void Park();
    void Fill();
    void PassWraps();
    bool LoopAfterEnd();

    // callback
    void ApplyRenderState();
    void NewGeneration(std::uint32_t generation);
    std::int64_t EndOfSound();
    void PublishQuiet();
    void GlideTo(float target);
    float NextGain();

    const int m_id;
    const int m_index;
    const int m_sampleRate;
    const float m_declickStep;
    const int m_glideFrames;
    EventLatches m_events;

    // UI thread
    std::uint32_t m_generation = 0;
    bool m_requested = false;
    bool m_ready = false;
    Preparation m_info;

    // UI thread and workers, under m_mailbox: the latest request and the latest result
    std::mutex m_mailbox;
    Request m_request;
    std::uint32_t m_resultGeneration = 0;
    Preparation m_result;
    QString m_failure;

    // workers
    std::atomic_flag m_claimed;
    std::uint32_t m_installed = 0;
    std::unique_ptr<SoundDecoder> m_decoder;
    std::optional<Opened> m_opened;
    std::int64_t m_pushed = 0;
    std::int64_t m_lastWrap = 0; // the latest pass start handed to the callback
    std::vector<float> m_block;

    // shared
    SpscRing<float> m_ring;
    SpscRing<std::int64_t> m_wraps; // where loop passes begin, in frames of this generation
    std::atomic<std::uint32_t> m_ringGeneration{0};
    std::atomic<std::uint64_t> m_command{0};
    std::atomic<bool> m_attached{false};
    std::atomic<bool> m_busy{false};
    std::atomic<bool> m_quiet{true};
    std::atomic<bool> m_loop{false};
    std::atomic<float> m_gain{1};
    std::atomic<std::int64_t> m_endAt{Never};   // where the decoded sound ends (worker)
    std::atomic<std::int64_t> m_endedAt{Never}; // where it ended (callback)
    std::atomic<std::int64_t> m_consumed{0};
    std::atomic<std::uint64_t> m_underruns{0};

    // audio callback
    std::vector<float> m_take;
    std::uint32_t m_rtGeneration = 0;
    std::int64_t m_rtConsumed = 0;
    bool m_rtRun = false;
    bool m_rtEnded = false;
    bool m_rtChained = false;
    int m_rtBehind = -1;
    bool m_rtReleased = false;
    float m_rtFade = 0;
    float m_rtGain = 1;
    float m_rtTarget = 1;
    float m_rtStep = 0;
    int m_rtGlideLeft = 0;
};
