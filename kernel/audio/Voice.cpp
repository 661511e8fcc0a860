#include "kernel/audio/Voice.h"
#include "kernel/audio/SoundDecoder.h"
#include "kernelapi/KernelError.h"
#include <algorithm>
#include <cmath>
#include <thread>

namespace {
// The UI thread's command, one word so that the callback reads it whole: the generation it
// is about, whether to sound, and the voice a chained start waits behind.
constexpr std::uint64_t RunBit = std::uint64_t{1} << 32;
constexpr std::uint64_t ChainedBit = std::uint64_t{1} << 33;
constexpr int BehindShift = 34;

std::uint64_t PackCommand(std::uint32_t generation, bool run, bool chained, int behind)
{
    return generation | (run ? RunBit : 0) | (chained ? ChainedBit : 0)
           | (static_cast<std::uint64_t>(behind + 1) << BehindShift);
}
}

Voice::Voice(int id, int index, int sampleRate)
    : m_id(id), m_index(index), m_sampleRate(sampleRate),
      m_declickStep(1000.0f / (static_cast<float>(DeclickMs) * sampleRate)),
      m_glideFrames(std::max(1, GlideMs * sampleRate / 1000)), m_block(FillFrames * 2), m_ring(RingFrames * 2),
      m_wraps(MaxWraps), m_take(MaxRenderFrames * 2)
{
}

Voice::~Voice() = default;

// --- UI thread ---

bool Voice::Prepare(const PlaySource& source, int positionMs, bool synchronous)
{
    const Request request{m_generation + 1, true, source, positionMs};
    if (!synchronous) {
        Ask(request);
        return false;
    }
    // Everything that can fail happens before the voice is touched.
    Opened opened = Open(request);
    if (!opened.failure.isEmpty())
        throw KernelError(opened.failure);
    Ask(request);
    m_opened = std::move(opened);
    Work(); // installs it now when the voice is quiet, else on a later pass
    return Accept(request.generation);
}

void Voice::Clear()
{
    if (m_requested)
        Ask(Request{m_generation + 1, false, {}, 0});
}

// The command moves to the new generation before a worker can see the request, so that the
// callback never starts the old sound again once the new one is on its way.
void Voice::Ask(const Request& request)
{
    m_generation = request.generation;
    m_requested = request.hasSource;
    m_ready = false;
    m_info = Preparation();
    Command(false, false, -1);
    std::lock_guard lock(m_mailbox);
    m_request = request;
}

void Voice::Command(bool run, bool chained, int behind)
{
    m_command.store(PackCommand(m_generation, run, chained, behind), std::memory_order_release);
}

void Voice::Start(bool chained, int behind)
{
    Command(true, chained, chained ? behind : -1);
}

void Voice::Halt()
{
    Command(false, false, -1);
}

void Voice::SetLoop(bool loop)
{
    m_loop.store(loop, std::memory_order_relaxed);
}

bool Voice::Accept(std::uint32_t generation)
{
    if (generation != m_generation || !m_requested || m_ready)
        return false;
    std::lock_guard lock(m_mailbox);
    if (m_resultGeneration != generation || !m_failure.isEmpty())
        return false;
    m_info = m_result;
    m_ready = true;
    return true;
}

QString Voice::Failure(std::uint32_t generation)
{
    std::lock_guard lock(m_mailbox);
    return m_resultGeneration == generation ? m_failure : QString();
}

int Voice::PositionMs() const
{
    if (!m_ready)
        return 0;
    const std::int64_t consumed = m_consumed.load(std::memory_order_acquire);
    if (consumed >= std::min(m_endedAt.load(std::memory_order_acquire), m_endAt.load(std::memory_order_acquire)))
        return m_info.stopMs;
    const std::int64_t reached = m_info.originMs + consumed * 1000 / m_sampleRate;
    if (reached < m_info.stopMs)
        return static_cast<int>(reached);
    const int length = m_info.stopMs - m_info.startMs;
    if (length <= 0)
        return m_info.stopMs;
    return m_info.startMs + static_cast<int>((reached - m_info.stopMs) % length);
}

// --- disk workers ---

void Voice::Work()
{
    const Request request = TakeRequest();
    if (request.generation == m_installed) {
        Fill();
        return;
    }
    if (!m_opened || m_opened->generation != request.generation) {
        m_opened = Open(request);
        if (TakeRequest().generation != request.generation)
            return; // asked again while the file opened
    }
    // What the voice sounds now fades out first; the next pass tries again.
    if (Quiet() && Install(*m_opened))
        m_opened.reset();
}

Voice::Request Voice::TakeRequest()
{
    std::lock_guard lock(m_mailbox);
    return m_request;
}

// Opens the source and decodes its start, without touching the voice.
Voice::Opened Voice::Open(const Request& request) const
{
    Opened opened;
    opened.generation = request.generation;
    opened.fileName = request.source.fileName;
    if (!request.hasSource)
        return opened;
    try {
        opened.decoder = std::make_unique<SoundDecoder>(request.source, request.positionMs, m_sampleRate);
        opened.first.resize(PrebufferFrames * 2);
        opened.frames = opened.decoder->Read(opened.first.data(), PrebufferFrames, m_loop.load(std::memory_order_relaxed));
        if (opened.decoder->Failed())
            throw KernelError(QStringLiteral("Sound file '%1' cannot be read").arg(request.source.fileName));
    } catch (const KernelError& e) {
        opened.decoder.reset();
        opened.failure = e.Description();
    }
    return opened;
}

// With the voice quiet: empties it, puts the new source in, and tells the UI thread. The voice
// is quiet for sure only once the callback has left it: if its last render made sound after
// all, the voice goes back to the callback and the next pass tries again.
bool Voice::Install(Opened& opened)
{
    const bool wasAttached = m_attached.load(std::memory_order_relaxed);
    Park();
    if (!Quiet()) {
        m_attached.store(wasAttached, std::memory_order_seq_cst);
        return false;
    }
    m_ring.Reset();
    m_wraps.Reset();
    m_consumed.store(0, std::memory_order_relaxed);
    m_endAt.store(Never, std::memory_order_relaxed);
    m_endedAt.store(Never, std::memory_order_relaxed);
    m_decoder = std::move(opened.decoder);
    m_installed = opened.generation;
    m_pushed = 0;
    {
        std::lock_guard lock(m_mailbox);
        m_resultGeneration = opened.generation;
        m_failure = opened.failure;
        m_result = Preparation();
        if (m_decoder)
            m_result = {opened.fileName, m_decoder->StartMs(), m_decoder->StopMs(), m_decoder->OriginMs(),
                        m_decoder->Truncated()};
    }
    if (!m_decoder) {
        if (!opened.failure.isEmpty())
            m_events.Post(EngineEvent::Kind::PrepareFailed, opened.generation);
        return true; // a cleared voice stays parked: the callback never looks at it
    }
    m_ring.Push(opened.first.data(), static_cast<std::size_t>(opened.frames) * 2);
    m_pushed = opened.frames;
    m_lastWrap = 0;
    PassWraps();
    if (opened.frames < PrebufferFrames)
        m_endAt.store(m_pushed, std::memory_order_release);
    m_ringGeneration.store(opened.generation, std::memory_order_release);
    m_attached.store(true, std::memory_order_seq_cst);
    m_events.Post(EngineEvent::Kind::Prepared, opened.generation);
    return true;
}

// After Park returns, the callback does not touch the voice until it is attached again: it
// either saw the voice detached, or the worker waited for it to leave (one render at most).
void Voice::Park()
{
    m_attached.store(false, std::memory_order_seq_cst);
    while (m_busy.load(std::memory_order_seq_cst))
        std::this_thread::yield();
}

void Voice::Fill()
{
    if (!m_decoder)
        return;
    const bool loop = m_loop.load(std::memory_order_relaxed);
    if (m_decoder->Finished() && !LoopAfterEnd())
        return;
    // Looping stopped with a pass decoded ahead: the sound ends where that pass begins, and
    // nothing after it is needed once it is in the ring.
    if (!loop && m_wraps.Readable() > 0 && m_lastWrap <= m_pushed)
        return;
    while (m_ring.Writable() >= m_block.size() && m_wraps.Writable() > 0) {
        const int made = m_decoder->Read(m_block.data(), FillFrames, loop);
        m_ring.Push(m_block.data(), static_cast<std::size_t>(made) * 2);
        m_pushed += made;
        PassWraps();
        if (made < FillFrames) {
            m_endAt.store(m_pushed, std::memory_order_release);
            if (m_decoder->Failed())
                m_events.Post(EngineEvent::Kind::ReadFailed, m_installed);
            return;
        }
    }
}

void Voice::PassWraps()
{
    std::int64_t wrap = 0;
    while (m_wraps.Writable() > 0 && m_decoder->TakeWrap(wrap)) {
        m_wraps.Push(wrap);
        m_lastWrap = wrap;
    }
}

// Looping was turned on after the whole sound was decoded: reading goes on from the start
// mark, unless the voice has already played its end.
bool Voice::LoopAfterEnd()
{
    if (!m_loop.load(std::memory_order_relaxed) || m_decoder->Failed() || m_endedAt.load(std::memory_order_acquire) != Never)
        return false;
    m_decoder->Resume();
    PassWraps();
    m_endAt.store(Never, std::memory_order_release);
    return !m_decoder->Failed();
}

// --- audio callback ---

bool Voice::Enter()
{
    m_busy.store(true, std::memory_order_seq_cst);
    if (!m_attached.load(std::memory_order_seq_cst)) {
        m_busy.store(false, std::memory_order_release);
        return false;
    }
    ApplyRenderState();
    return true;
}

void Voice::Leave()
{
    PublishQuiet();
    m_busy.store(false, std::memory_order_release);
}

// Takes over what the UI thread asked since the last callback. A command about another
// generation than the one in the ring means "stop": the old sound fades out.
void Voice::ApplyRenderState()
{
    const std::uint32_t generation = m_ringGeneration.load(std::memory_order_acquire);
    if (generation != m_rtGeneration)
        NewGeneration(generation);
    const std::uint64_t command = m_command.load(std::memory_order_acquire);
    m_rtRun = (command & RunBit) && static_cast<std::uint32_t>(command) == generation;
    m_rtChained = m_rtRun && (command & ChainedBit);
    m_rtBehind = static_cast<int>(command >> BehindShift) - 1;
    if (!m_rtRun)
        m_rtReleased = false;
    const float gain = m_gain.load(std::memory_order_relaxed);
    if (gain != m_rtTarget)
        GlideTo(gain);
}

void Voice::NewGeneration(std::uint32_t generation)
{
    m_rtGeneration = generation;
    m_rtConsumed = 0;
    m_rtEnded = false;
    m_rtReleased = false;
    m_rtFade = 0;
    m_rtGain = m_rtTarget = m_gain.load(std::memory_order_relaxed);
    m_rtGlideLeft = 0;
}

bool Voice::Playing() const
{
    return m_rtRun && !m_rtEnded;
}

void Voice::Release()
{
    m_rtReleased = true;
    m_rtFade = 1;
    m_events.Post(EngineEvent::Kind::Started, m_rtGeneration);
}

// Where the sound ends, in frames of this generation: the end of the decoded sound, or, when
// looping has been turned off, the start of the next pass decoded ahead. Passes already
// played are forgotten.
std::int64_t Voice::EndOfSound()
{
    std::int64_t wrap = 0;
    while (m_wraps.Peek(wrap) && wrap < m_rtConsumed)
        m_wraps.Pop(wrap);
    const bool loop = m_loop.load(std::memory_order_relaxed);
    if (loop && m_wraps.Peek(wrap) && wrap == m_rtConsumed)
        m_wraps.Pop(wrap);
    const std::int64_t end = m_endAt.load(std::memory_order_acquire);
    return !loop && m_wraps.Peek(wrap) ? std::min(end, wrap) : end;
}

std::optional<int> Voice::Render(float* bus, int frames)
{
    if (m_rtEnded || Waiting() || (!m_rtRun && m_rtFade <= 0))
        return std::nullopt;
    const std::int64_t end = EndOfSound();
    const int available = static_cast<int>(m_ring.Readable() / 2);
    int want = std::min(frames, MaxRenderFrames);
    if (!m_rtRun)
        want = std::min(want, static_cast<int>(std::ceil(m_rtFade / m_declickStep)));
    const int count = static_cast<int>(std::min<std::int64_t>({want, available, end - m_rtConsumed}));
    m_ring.Pop(m_take.data(), static_cast<std::size_t>(count) * 2);

    const float fadeStep = m_rtRun ? m_declickStep : -m_declickStep;
    const float* in = m_take.data();
    for (int i = 0; i < 2 * count; i += 2) {
        m_rtFade = std::clamp(m_rtFade + fadeStep, 0.0f, 1.0f);
        const float gain = NextGain() * m_rtFade;
        bus[i] += in[i] * gain;
        bus[i + 1] += in[i + 1] * gain;
    }
    m_rtConsumed += count;
    m_consumed.store(m_rtConsumed, std::memory_order_release);

    if (m_rtConsumed >= end) {
        if (!m_rtRun) {
            m_rtFade = 0; // halted at its end: it ends when it is started again
            return std::nullopt;
        }
        m_rtEnded = true;
        m_endedAt.store(m_rtConsumed, std::memory_order_release);
        m_events.Post(EngineEvent::Kind::Ended, m_rtGeneration);
        return count;
    }
    if (count < want) {
        // Sound that comes back after a gap fades in again instead of clicking.
        m_rtFade = 0;
        if (m_rtRun)
            m_underruns.fetch_add(1, std::memory_order_relaxed);
    }
    return std::nullopt;
}

void Voice::PublishQuiet()
{
    m_quiet.store(m_rtEnded || (!m_rtRun && m_rtFade <= 0), std::memory_order_release);
}

void Voice::GlideTo(float target)
{
    m_rtTarget = target;
    m_rtGlideLeft = m_glideFrames;
    m_rtStep = (target - m_rtGain) / static_cast<float>(m_glideFrames);
}

float Voice::NextGain()
{
    if (m_rtGlideLeft > 0 && --m_rtGlideLeft == 0)
        m_rtGain = m_rtTarget;
    else if (m_rtGlideLeft > 0)
        m_rtGain += m_rtStep;
    return m_rtGain;
}
