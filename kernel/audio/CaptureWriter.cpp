#include "kernel/audio/CaptureWriter.h"
#include "kernel/audio/Capture.h"
#include <algorithm>
#include <chrono>

CaptureWriter::CaptureWriter(std::vector<Capture*> captures, int passMs, bool threaded)
    : m_captures(std::move(captures)), m_passMs(passMs)
{
    if (threaded && !m_captures.empty())
        m_thread = std::thread([this] { Loop(); });
}

CaptureWriter::~CaptureWriter()
{
    {
        const std::lock_guard lock(m_mutex);
        m_stop = true;
    }
    m_wake.notify_one();
    if (m_thread.joinable())
        m_thread.join();
}

void CaptureWriter::WriteAll(std::size_t minFrames)
{
    for (Capture* capture : m_captures)
        capture->Write(minFrames);
}

void CaptureWriter::Wake()
{
    {
        const std::lock_guard lock(m_mutex);
        ++m_wakes;
    }
    m_wake.notify_one();
}

bool CaptureWriter::AnyBusy() const
{
    return std::any_of(m_captures.begin(), m_captures.end(), [](const Capture* capture) { return capture->Busy(); });
}

void CaptureWriter::Loop()
{
    std::unique_lock lock(m_mutex);
    while (!m_stop) {
        const unsigned wakes = m_wakes;
        lock.unlock();
        WriteAll(0);
        const int waitMs = AnyBusy() ? m_passMs : IdleMs;
        lock.lock();
        m_wake.wait_for(lock, std::chrono::milliseconds(waitMs), [&] { return m_stop || m_wakes != wakes; });
    }
}
