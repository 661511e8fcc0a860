#include "kernel/audio/Capture.h"
#include "kernel/audio/Take.h"
#include "kernel/audio/Voice.h"
#include <algorithm>

namespace {
constexpr std::size_t BlockFrames = 16384;
}

Capture::Capture(int sampleRate)
    : m_ring(static_cast<std::size_t>(sampleRate) * RingSeconds * 2), m_stereo(Voice::MaxRenderFrames * 2), m_block(BlockFrames * 2)
{
}

Capture::~Capture() = default;

// The busy flag goes up before the mode is read, and every access is sequentially
// consistent, so a SetMode that finds the flag down knows that no later push can come from a
// reading of the old mode.
void Capture::Receive(const float* input, int channels, int frames)
{
    m_busy.store(true);
    if (m_mode.load() == Mode::Running) {
        const int second = channels > 1 ? 1 : 0;
        for (int i = 0; i < frames; ++i) {
            m_stereo[static_cast<std::size_t>(i) * 2] = input ? input[i * channels] : 0.0f;
            m_stereo[static_cast<std::size_t>(i) * 2 + 1] = input ? input[i * channels + second] : 0.0f;
        }
        const std::size_t wanted = static_cast<std::size_t>(frames) * 2;
        const std::size_t pushed = m_ring.Push(m_stereo.data(), wanted);
        m_captured.fetch_add(pushed / 2, std::memory_order_relaxed);
        if (pushed < wanted)
            m_overruns.fetch_add((wanted - pushed) / 2, std::memory_order_relaxed);
    }
    m_busy.store(false);
}

void Capture::SetMode(Mode mode)
{
    m_mode.store(mode);
    while (m_busy.load())
        ; // a callback is copying one period into memory: a matter of microseconds
}

void Capture::Begin(std::unique_ptr<Take> take)
{
    const std::lock_guard lock(m_takeMutex);
    Discard();
    m_captured.store(0, std::memory_order_relaxed);
    m_take = std::move(take);
    m_failed.store(false, std::memory_order_release);
    m_hasTake.store(m_take != nullptr, std::memory_order_release);
}

std::unique_ptr<Take> Capture::End()
{
    const std::lock_guard lock(m_takeMutex);
    WriteLocked(0);
    m_failed.store(false, std::memory_order_release);
    m_hasTake.store(false, std::memory_order_release);
    return std::move(m_take);
}

void Capture::Restart()
{
    const std::lock_guard lock(m_takeMutex);
    Discard();
    m_captured.store(0, std::memory_order_relaxed);
    if (m_take)
        m_take->Restart();
    m_failed.store(m_take && m_take->Failed(), std::memory_order_release);
}

QString Capture::Failure() const
{
    const std::lock_guard lock(m_takeMutex);
    return m_take ? m_take->Failure() : QString();
}

void Capture::Write(std::size_t minFrames)
{
    const std::lock_guard lock(m_takeMutex);
    WriteLocked(minFrames);
}

// Once the take has failed, what comes in is dropped: the file keeps what was written.
void Capture::WriteLocked(std::size_t minFrames)
{
    if (!m_take || m_ring.Readable() / 2 < std::max<std::size_t>(minFrames, 1))
        return;
    while (const std::size_t items = m_ring.Pop(m_block.data(), m_block.size())) {
        if (!m_take->Failed())
            m_take->Append(m_block.data(), static_cast<qint64>(items / 2));
    }
    if (m_take->Failed())
        m_failed.store(true, std::memory_order_release);
}

// The consumer's side empties the ring; the callback may push meanwhile only when running.
void Capture::Discard()
{
    while (m_ring.Pop(m_block.data(), m_block.size()) > 0)
        ;
}
