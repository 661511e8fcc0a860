#include "kernel/audio/EventLatches.h"

namespace {
// One count for the whole process, so that events of different voices and threads sort into
// the order they happened in. 0 is never handed out: it marks a latch that was never posted.
std::atomic<std::uint32_t> NextStamp{1};

std::uint32_t TakeStamp()
{
    std::uint32_t stamp = NextStamp.fetch_add(1, std::memory_order_relaxed);
    while (stamp == 0)
        stamp = NextStamp.fetch_add(1, std::memory_order_relaxed);
    return stamp;
}
}

void EventLatches::Post(EngineEvent::Kind kind, std::uint32_t generation)
{
    m_posted[static_cast<std::size_t>(kind)].store(Pack(TakeStamp(), generation), std::memory_order_release);
    m_postings.fetch_add(1, std::memory_order_relaxed);
}

void EventLatches::Collect(int voice, std::vector<EngineEvent>& events)
{
    for (int k = 0; k < EngineEvent::KindCount; ++k) {
        const std::uint64_t posted = m_posted[static_cast<std::size_t>(k)].load(std::memory_order_acquire);
        if (posted == m_seen[static_cast<std::size_t>(k)])
            continue;
        m_seen[static_cast<std::size_t>(k)] = posted;
        ++m_collected;
        events.push_back({static_cast<EngineEvent::Kind>(k), voice, static_cast<std::uint32_t>(posted),
                          static_cast<std::uint32_t>(posted >> 32)});
    }
}
