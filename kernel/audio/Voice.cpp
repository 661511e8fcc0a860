#include "kernel/audio/Voice.h"
#include "kernel/audio/SoundDecoder.h"
#include "kernelapi/KernelError.h"
#include <algorithm>
#include <cmath>
#include <thread>

Voice::Voice(int id, int sampleRate)
    : m_id(id), m_sampleRate(sampleRate), m_declickStep(1000.0f / (static_cast<float>(DeclickMs) * sampleRate)),
      m_glideFrames(std::max(1, GlideMs * sampleRate / 1000)), m_block(FillFrames * 2), m_ring(RingFrames * 2),
      m_take(MaxRenderFrames * 2)
{
}

Voice::~Voice() = default;

void Voice::Prepare(const PlaySource& source, int positionMs)
{
    // Everything that can fail happens before the voice is touched.
    auto decoder = std::make_unique<SoundDecoder>(source, positionMs, m_sampleRate);
    std::vector<float> first(PrebufferFrames * 2);
    const int made = decoder->Read(first.data(), PrebufferFrames, m_loop.load(std::memory_order_relaxed));
    if (decoder->Failed())
        throw KernelError(QStringLiteral("Sound file '%1' cannot be read").arg(source.fileName));

    std::lock_guard lock(m_sourceMutex);
    Reset();
    m_ring.Push(first.data(), static_cast<std::size_t>(made) * 2);
    m_complete.store(made < PrebufferFrames, std::memory_order_release);
    m_startMs = decoder->StartMs();
    m_stopMs = decoder->StopMs();
    m_originMs = decoder->OriginMs();
    m_truncated = decoder->Truncated();
    m_fileName = source.fileName;
    m_decoder = std::move(decoder);
    m_prepared = true;
    m_attached.store(true, std::memory_order_seq_cst);
}

void Voice::Clear()
{
    std::lock_guard lock(m_sourceMutex);
    Reset();
    m_decoder.reset();
    m_prepared = false;
}

// Called with m_sourceMutex held: parks the voice and empties it for a new preparation.
void Voice::Reset()
{
    Park();
    m_ring.Reset();
    m_run.store(false, std::memory_order_relaxed);
    m_chained.store(false, std::memory_order_relaxed);
    m_complete.store(false, std::memory_order_relaxed);
    m_consumed.store(0, std::memory_order_relaxed);
    m_generation.fetch_add(1, std::memory_order_release);
}

// After Park returns, the callback does not touch the voice until it is attached again: it
// either saw the voice detached, or the UI thread waited for it to leave.
void Voice::Park()
{
    m_attached.store(false, std::memory_order_seq_cst);
    while (m_busy.load(std::memory_order_seq_cst))
        std::this_thread::yield();
}

void Voice::Start(bool chained)
{
    m_chained.store(chained, std::memory_order_relaxed);
    m_run.store(true, std::memory_order_release);
}

void Voice::Halt()
{
    m_run.store(false, std::memory_order_release);
}

int Voice::PositionMs() const
{
    const std::int64_t reached = m_originMs + m_consumed.load(std::memory_order_acquire) * 1000 / m_sampleRate;
    if (reached < m_stopMs)
        return static_cast<int>(reached);
    if (!m_loop.load(std::memory_order_relaxed) || m_stopMs <= m_startMs)
        return m_stopMs;
    return m_startMs + static_cast<int>((reached - m_stopMs) % (m_stopMs - m_startMs));
}

void Voice::Fill(EngineEvents& events)
{
    std::lock_guard lock(m_sourceMutex);
    if (!m_decoder || m_complete.load(std::memory_order_relaxed))
        return;
    while (m_ring.Writable() >= m_block.size()) {
        const int made = m_decoder->Read(m_block.data(), FillFrames, m_loop.load(std::memory_order_relaxed));
        m_ring.Push(m_block.data(), static_cast<std::size_t>(made) * 2);
        if (made < FillFrames) {
            m_complete.store(true, std::memory_order_release);
            if (m_decoder->Failed())
                events.Push({EngineEvent::Kind::ReadFailed, m_id, Generation()});
            return;
        }
    }
}

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

// Takes over what the UI thread asked since the last callback.
void Voice::ApplyRenderState()
{
    const float gain = m_gain.load(std::memory_order_relaxed);
    const std::uint32_t generation = m_generation.load(std::memory_order_acquire);
    if (generation != m_rtGeneration) {
        m_rtGeneration = generation;
        m_rtEnded = false;
        m_rtReleased = false;
        m_rtFade = 0;
        m_rtGain = m_rtTarget = gain;
        m_rtGlideLeft = 0;
    }
    m_rtRun = m_run.load(std::memory_order_acquire);
    m_rtChained = m_chained.load(std::memory_order_relaxed);
    if (!m_rtRun)
        m_rtReleased = false;
    if (gain != m_rtTarget)
        GlideTo(gain);
}

bool Voice::Playing() const
{
    return m_rtRun && !m_rtEnded;
}

void Voice::Release(EngineEvents& events)
{
    m_rtReleased = true;
    m_rtFade = 1;
    events.Push({EngineEvent::Kind::Started, m_id, m_rtGeneration});
}

std::optional<int> Voice::Render(float* bus, int frames, EngineEvents& events)
{
    if (m_rtEnded || Waiting() || (!m_rtRun && m_rtFade <= 0))
        return std::nullopt;
    const bool complete = m_complete.load(std::memory_order_acquire);
    const int available = static_cast<int>(m_ring.Readable() / 2);
    int want = std::min(frames, MaxRenderFrames);
    if (!m_rtRun)
        want = std::min(want, static_cast<int>(std::ceil(m_rtFade / m_declickStep)));
    const int count = std::min(want, available);
    m_ring.Pop(m_take.data(), static_cast<std::size_t>(count) * 2);

    const float fadeStep = m_rtRun ? m_declickStep : -m_declickStep;
    const float* in = m_take.data();
    for (int i = 0; i < 2 * count; i += 2) {
        m_rtFade = std::clamp(m_rtFade + fadeStep, 0.0f, 1.0f);
        const float gain = NextGain() * m_rtFade;
        bus[i] += in[i] * gain;
        bus[i + 1] += in[i + 1] * gain;
    }
    m_consumed.store(m_consumed.load(std::memory_order_relaxed) + count, std::memory_order_release);

    if (m_rtRun && complete && count == available) {
        m_rtEnded = true;
        events.Push({EngineEvent::Kind::Ended, m_id, m_rtGeneration});
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
