#include "kernel/RecalculationWorker.h"
#include "kernel/SoundFile.h"
#include "kernelapi/KernelError.h"
#include <exception>

RecalculationWorker::RecalculationWorker(bool accurate, std::function<void()> wake)
    : m_accurate(accurate), m_wake(std::move(wake)), m_thread([this] { Loop(); })
{
}

RecalculationWorker::~RecalculationWorker()
{
    Stop();
    m_thread.join();
}

void RecalculationWorker::Add(std::vector<Job> jobs)
{
    if (jobs.empty())
        return;
    {
        std::lock_guard lock(m_mutex);
        if (m_noMoreJobs)
            return;
        for (Job& job : jobs)
            m_jobs.push_back(std::move(job));
    }
    m_jobsArrived.notify_one();
}

void RecalculationWorker::NoMoreJobs()
{
    {
        std::lock_guard lock(m_mutex);
        m_noMoreJobs = true;
    }
    m_jobsArrived.notify_one();
}

void RecalculationWorker::Stop()
{
    {
        std::lock_guard lock(m_mutex);
        m_noMoreJobs = true;
        m_jobs.clear();
    }
    m_jobsArrived.notify_one();
}

std::vector<RecalculationWorker::Result> RecalculationWorker::TakeResults()
{
    std::lock_guard lock(m_mutex);
    return std::exchange(m_results, {});
}

bool RecalculationWorker::Finished() const
{
    std::lock_guard lock(m_mutex);
    return m_finished;
}

void RecalculationWorker::Loop()
{
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_jobsArrived.wait(lock, [this] { return !m_jobs.empty() || m_noMoreJobs; });
        if (m_jobs.empty())
            break;
        const Job job = std::move(m_jobs.front());
        m_jobs.pop_front();
        lock.unlock();
        Result result = Measure(job);
        lock.lock();
        const bool wasEmpty = m_results.empty();
        m_results.push_back(std::move(result));
        if (wasEmpty) {
            lock.unlock();
            m_wake();
            lock.lock();
        }
    }
    m_finished = true;
    lock.unlock();
    m_wake();
}

RecalculationWorker::Result RecalculationWorker::Measure(const Job& job) const
{
    Result result{job.cartID, job.path, std::nullopt, {}};
    try {
        result.lengthMs = SoundFile::Measure(job.path, m_accurate);
    } catch (const KernelError& e) {
        result.error = e.Description();
    } catch (const std::exception& e) {
        result.error = QString::fromLocal8Bit(e.what());
    }
    return result;
}
