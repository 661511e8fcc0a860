#include "kernel/RecalculationWorker.h"
#include "foundation/db/Database.h"
#include "kernel/RecalculationPass.h"
#include "kernelapi/KernelError.h"
#include <exception>

RecalculationWorker::RecalculationWorker(DatabaseRecipe catalogue, const QString& familyID, const QString& soundFolder,
                                         bool accurate, std::function<void()> wake)
    : m_catalogue(std::move(catalogue)), m_familyID(familyID), m_soundFolder(soundFolder), m_accurate(accurate),
      m_wake(std::move(wake)), m_thread([this] { Run(); })
{
}

RecalculationWorker::~RecalculationWorker()
{
    Stop();
    Wait();
}

void RecalculationWorker::Stop()
{
    m_stop = true;
}

void RecalculationWorker::Wait()
{
    if (m_thread.joinable())
        m_thread.join();
}

std::vector<RecalculationOutcome> RecalculationWorker::TakeOutcomes()
{
    std::lock_guard lock(m_mutex);
    return std::exchange(m_outcomes, {});
}

bool RecalculationWorker::Finished() const
{
    std::lock_guard lock(m_mutex);
    return m_finished;
}

QString RecalculationWorker::Failure() const
{
    std::lock_guard lock(m_mutex);
    return m_failure;
}

// The connection is made, used and closed on this thread, and closed before Finished is told.
void RecalculationWorker::Run()
{
    QString failure;
    try {
        const std::shared_ptr<Database> db = m_catalogue.Open();
        RecalculationPass pass(db, m_familyID, m_soundFolder, m_accurate, [this] { return m_stop.load(); },
                               [this](std::vector<RecalculationOutcome> outcomes) { Report(std::move(outcomes)); });
        pass.Run();
    } catch (const KernelError& e) {
        failure = e.Description();
    } catch (const std::exception& e) {
        failure = QString::fromLocal8Bit(e.what());
    }
    {
        std::lock_guard lock(m_mutex);
        m_failure = failure;
        m_finished = true;
    }
    m_wake();
}

void RecalculationWorker::Report(std::vector<RecalculationOutcome> outcomes)
{
    bool wasEmpty = false;
    {
        std::lock_guard lock(m_mutex);
        wasEmpty = m_outcomes.empty();
        for (RecalculationOutcome& outcome : outcomes)
            m_outcomes.push_back(std::move(outcome));
    }
    if (wasEmpty)
        m_wake();
}
