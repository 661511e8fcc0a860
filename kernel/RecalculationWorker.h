#pragma once
#include <QString>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

// The thread that measures sound files for a recalculation: it decodes them, writes their
// energy files and reads their lengths, one file after another, away from the UI thread. It
// touches no catalogue and no kernel object: jobs come in as paths and leave as lengths or
// reasons. Wake is called on the worker's thread when results arrive in an empty list and
// when the worker is finished, so that the owner need not poll.
class RecalculationWorker
{
public:
    struct Job
    {
        QString cartID;
        QString path;
    };
    struct Result
    {
        QString cartID;
        QString path;
        std::optional<qint32> lengthMs; // empty when the file could not be measured
        QString error;
    };

    RecalculationWorker(bool accurate, std::function<void()> wake);
    // Stops and waits for the file being measured.
    ~RecalculationWorker();
    RecalculationWorker(const RecalculationWorker&) = delete;
    RecalculationWorker& operator=(const RecalculationWorker&) = delete;

    void Add(std::vector<Job> jobs);
    // No job will be added: the worker finishes once the queue is empty.
    void NoMoreJobs();
    // Drops the queued jobs; the file being measured is finished.
    void Stop();
    std::vector<Result> TakeResults();
    // No job left and none being measured; results may still wait to be taken.
    bool Finished() const;

private:
    void Loop();
    Result Measure(const Job& job) const;

    const bool m_accurate;
    const std::function<void()> m_wake;
    mutable std::mutex m_mutex;
    std::condition_variable m_jobsArrived;
    std::deque<Job> m_jobs;
    std::vector<Result> m_results;
    bool m_noMoreJobs = false;
    bool m_finished = false;
    std::thread m_thread;
};
