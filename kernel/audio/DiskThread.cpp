#include "kernel/audio/DiskThread.h"
#include "kernel/audio/Voice.h"
#include <chrono>

DiskThread::DiskThread(std::vector<Voice*> voices) : m_voices(std::move(voices)), m_events(256)
{
}

DiskThread::~DiskThread()
{
    {
        std::lock_guard lock(m_mutex);
        m_stop = true;
    }
    m_wake.notify_one();
    if (m_thread.joinable())
        m_thread.join();
}

void DiskThread::Start()
{
    m_thread = std::thread([this] { Loop(); });
}

void DiskThread::Wake()
{
    {
        std::lock_guard lock(m_mutex);
        m_woken = true;
    }
    m_wake.notify_one();
}

void DiskThread::FillAll()
{
    for (Voice* voice : m_voices)
        voice->Fill(m_events);
}

void DiskThread::Loop()
{
    std::unique_lock lock(m_mutex);
    while (!m_stop) {
        m_woken = false;
        lock.unlock();
        FillAll();
        lock.lock();
        m_wake.wait_for(lock, std::chrono::milliseconds(PassMs), [this] { return m_woken || m_stop; });
    }
}
