#pragma once
#include "foundation/db/DatabaseRecipe.h"
#include "kernel/RecalculationOutcome.h"
#include <QString>
#include <atomic>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

// The thread of a family's recalculation. It opens its own connection to the catalogue (the
// recipe of the kernel's), runs a RecalculationPass over the family and closes the connection
// before it ends; it touches no kernel object. The outcomes of the carts wait under a mutex
// until the owner takes them. Wake is called on the worker's thread when outcomes arrive in an
// empty list and when the worker has finished, so that the owner need not poll.
class RecalculationWorker
{
public:
    RecalculationWorker(DatabaseRecipe catalogue, const QString& familyID, const QString& soundFolder, bool accurate,
                        std::function<void()> wake);
    // Stops and waits for the thread.
    ~RecalculationWorker();
    RecalculationWorker(const RecalculationWorker&) = delete;
    RecalculationWorker& operator=(const RecalculationWorker&) = delete;

    // The files not measured yet are left alone; those measured are still written.
    void Stop();
    // Blocks until the thread has ended and closed its connection.
    void Wait();
    std::vector<RecalculationOutcome> TakeOutcomes();
    // The thread has ended; outcomes may still wait to be taken.
    bool Finished() const;
    // Why the run ended early (the catalogue failed); empty otherwise. Read once Finished.
    QString Failure() const;

private:
    void Run();
    void Report(std::vector<RecalculationOutcome> outcomes);

    const DatabaseRecipe m_catalogue;
    const QString m_familyID;
    const QString m_soundFolder;
    const bool m_accurate;
    const std::function<void()> m_wake;
    std::atomic<bool> m_stop{false};
    mutable std::mutex m_mutex;
    std::vector<RecalculationOutcome> m_outcomes;
    QString m_failure;
    bool m_finished = false;
    std::thread m_thread;
};
