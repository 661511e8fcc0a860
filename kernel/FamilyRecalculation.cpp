#include "kernel/FamilyRecalculation.h"
#include "foundation/db/Database.h"
#include "kernel/CartWorld.h"

namespace {
const QString Object = QStringLiteral("iFamily");
const QString Procedure = QStringLiteral("Recalculate");
}

std::shared_ptr<iRecalculation> FamilyRecalculation::Create(std::shared_ptr<CartWorld> world, const QString& familyID, bool accurate)
{
    auto* recalculation = new FamilyRecalculation(std::move(world), familyID, accurate);
    return std::shared_ptr<iRecalculation>(recalculation, [recalculation](iRecalculation*) { recalculation->Release(); });
}

FamilyRecalculation::FamilyRecalculation(std::shared_ptr<CartWorld> world, const QString& familyID, bool accurate)
    : m_world(std::move(world)), m_familyID(familyID)
{
    m_total = m_world->Store().CountFamily(m_familyID);
    m_slice.setSingleShot(true);
    m_slice.setInterval(0);
    connect(&m_slice, &QTimer::timeout, this, &FamilyRecalculation::Slice);
    connect(m_world.get(), &CartWorld::Closing, this, &FamilyRecalculation::Close);
    m_world->HoldRechecks(m_familyID);
    m_worker = std::make_unique<RecalculationWorker>(m_world->Db()->Recipe(), m_familyID, m_world->SoundFolder(), accurate, [this] {
        QMetaObject::invokeMethod(this, [this] { Schedule(); }, Qt::QueuedConnection);
    });
    // The first slice runs from the event loop, after the caller has connected to the signals.
    Schedule();
}

FamilyRecalculation::~FamilyRecalculation()
{
    m_worker.reset();
    if (m_running) {
        // Let go mid-run: the worker wrote carts that nobody counted. The family hears of it
        // from the event loop, not from under its holder's destructor.
        m_world->ReleaseRechecks(m_familyID);
        QMetaObject::invokeMethod(
            m_world.get(), [world = m_world, id = m_familyID] { world->FamilyRewritten(id); }, Qt::QueuedConnection);
    }
}

void FamilyRecalculation::Release()
{
    m_released = true;
    if (m_inSlice)
        return; // the slice deletes the object when it ends
    delete this;
}

void FamilyRecalculation::Stop()
{
    if (!m_running || m_stop)
        return;
    m_stop = true;
    m_worker->Stop();
}

void FamilyRecalculation::Close()
{
    Stop();
    m_worker->Wait();
    Schedule();
}

void FamilyRecalculation::Schedule()
{
    if (m_running && !m_slice.isActive())
        m_slice.start();
}

// One slice on the kernel's thread; the next is asked for while outcomes are left, otherwise
// the worker's wake-ups ask for it.
void FamilyRecalculation::Slice()
{
    m_inSlice = true;
    m_sliceClock.start();
    const bool workerDone = m_worker->Finished(); // before taking: no outcome comes after it
    CountSome();
    if (m_done != m_reported) {
        m_reported = m_done;
        Q_EMIT Progress(m_done, Total(), m_current);
    }
    if (!m_outcomes.empty())
        Schedule();
    else if (workerDone)
        Finish();
    m_inSlice = false;
    if (m_released) {
        // Let go by a handler of this slice's signals: deleted from the event loop, not under
        // the timer that is calling this slot.
        m_slice.stop();
        deleteLater();
    }
}

void FamilyRecalculation::CountSome()
{
    for (RecalculationOutcome& outcome : m_worker->TakeOutcomes())
        m_outcomes.push_back(std::move(outcome));
    while (!m_outcomes.empty() && m_sliceClock.elapsed() < SliceMs) {
        Count(m_outcomes.front());
        m_outcomes.pop_front();
    }
}

void FamilyRecalculation::Count(const RecalculationOutcome& outcome)
{
    ++m_done;
    m_current = outcome.cartID;
    if (outcome.kind == RecalculationOutcome::Failed) {
        ++m_failed;
        m_world->Log().Error(Object, Procedure, QStringLiteral("%1: %2").arg(outcome.cartID, outcome.reason));
    } else if (outcome.kind == RecalculationOutcome::Written) {
        m_world->RewrittenInBatch(outcome.cartID);
    }
}

void FamilyRecalculation::Finish()
{
    m_running = false;
    const QString failure = m_worker->Failure();
    if (!failure.isEmpty())
        m_world->Log().Error(Object, Procedure, QStringLiteral("Family %1: %2").arg(m_familyID, failure));
    else if (!m_stop)
        m_total = m_done; // carts deleted or added since the count
    m_world->Log().Ok(Object, Procedure,
                      QStringLiteral("Family %1 %2 %3 of %4 carts, %5 failed")
                          .arg(m_familyID, m_stop || !failure.isEmpty() ? QStringLiteral("stopped after") : QStringLiteral("recalculated"))
                          .arg(m_done)
                          .arg(Total())
                          .arg(m_failed));
    m_world->ReleaseRechecks(m_familyID);
    m_world->FamilyRewritten(m_familyID);
    Q_EMIT Progress(m_done, Total(), m_current);
    Q_EMIT Finished(m_failed);
}
