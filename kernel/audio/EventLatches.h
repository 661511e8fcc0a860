#pragma once
#include "kernel/audio/EngineEvent.h"
#include <array>
#include <atomic>
#include <cstdint>
#include <vector>

// The events of one voice, kept as latches instead of a queue, so that none can be lost to a
// full buffer: each kind holds the generation and stamp of its latest posting. Every kind
// happens at most once per preparation of the voice, so a posting is only ever replaced by one
// about a newer preparation, which makes the older one stale anyway. Posting is lock-free and
// may come from any thread; collecting is the UI thread's.
class EventLatches
{
public:
    // Any thread.
    void Post(EngineEvent::Kind kind, std::uint32_t generation);
    // UI thread: appends the events posted since the last call.
    void Collect(int voice, std::vector<EngineEvent>& events);
    // How many events were posted, and how many of them the UI thread collected: once every
    // thread is quiet, the difference counts postings replaced by a newer preparation's.
    std::uint64_t Posted() const { return m_postings.load(std::memory_order_relaxed); }
    std::uint64_t Collected() const { return m_collected; }

    // Whether stamp a was posted before stamp b (stamps wrap around).
    static bool Before(std::uint32_t a, std::uint32_t b) { return static_cast<std::int32_t>(a - b) < 0; }

private:
    static std::uint64_t Pack(std::uint32_t stamp, std::uint32_t generation)
    {
        return (static_cast<std::uint64_t>(stamp) << 32) | generation;
    }

    std::array<std::atomic<std::uint64_t>, EngineEvent::KindCount> m_posted{};
    std::array<std::uint64_t, EngineEvent::KindCount> m_seen{};
    std::atomic<std::uint64_t> m_postings{0};
    std::uint64_t m_collected = 0;
};
