#pragma once
#include <algorithm>
#include <atomic>
#include <bit>
#include <cstddef>
#include <vector>

// A ring of T between exactly one producer thread and one consumer thread. Neither side ever
// waits, locks or allocates, so the audio callback may be either end. The capacity is rounded
// up to a power of two. Reset may only run while neither side is using the ring.
template <typename T>
class SpscRing
{
public:
    explicit SpscRing(std::size_t capacity)
        : m_items(std::bit_ceil(std::max<std::size_t>(capacity, 2))), m_mask(m_items.size() - 1)
    {
    }

    std::size_t Capacity() const { return m_items.size(); }

    // Items the consumer can pop now.
    std::size_t Readable() const
    {
        return m_write.load(std::memory_order_acquire) - m_read.load(std::memory_order_relaxed);
    }

    // Room the producer can fill now.
    std::size_t Writable() const
    {
        return Capacity() - (m_write.load(std::memory_order_relaxed) - m_read.load(std::memory_order_acquire));
    }

    // Producer: copies up to count items in; returns how many went in.
    std::size_t Push(const T* items, std::size_t count)
    {
        const std::size_t write = m_write.load(std::memory_order_relaxed);
        count = std::min(count, Writable());
        for (std::size_t i = 0; i < count; ++i)
            m_items[(write + i) & m_mask] = items[i];
        m_write.store(write + count, std::memory_order_release);
        return count;
    }

    bool Push(const T& item) { return Push(&item, 1) == 1; }

    // Consumer: copies up to count items out; returns how many came out.
    std::size_t Pop(T* items, std::size_t count)
    {
        const std::size_t read = m_read.load(std::memory_order_relaxed);
        count = std::min(count, Readable());
        for (std::size_t i = 0; i < count; ++i)
            items[i] = m_items[(read + i) & m_mask];
        m_read.store(read + count, std::memory_order_release);
        return count;
    }

    bool Pop(T& item) { return Pop(&item, 1) == 1; }

    // Consumer: the oldest item, left in the ring.
    bool Peek(T& item) const
    {
        if (Readable() == 0)
            return false;
        item = m_items[m_read.load(std::memory_order_relaxed) & m_mask];
        return true;
    }

    // Empties the ring; only while neither side touches it.
    void Reset()
    {
        m_read.store(0, std::memory_order_relaxed);
        m_write.store(0, std::memory_order_release);
    }

private:
    std::vector<T> m_items;
    const std::size_t m_mask;
    alignas(64) std::atomic<std::size_t> m_write{0};
    alignas(64) std::atomic<std::size_t> m_read{0};
};
