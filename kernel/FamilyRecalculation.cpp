#include "kernel/FamilyRecalculation.h"
#include "foundation/db/Database.h"
#include "kernel/CartID.h"
#include "kernel/CartWorld.h"
#include "kernel/Sound.h"
#include "kernelapi/KernelError.h"

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
    : m_world(std::move(world)), m_familyID(familyID), m_accurate(accurate)
{
    m_soundFolder = m_world->SoundFolder();
    m_total = m_world->Store().CountFamily(m_familyID);
    m_slice.setSingleShot(true);
    m_slice.setInterval(0);
    connect(&m_slice, &QTimer::timeout, this, &FamilyRecalculation::Slice);
    m_worker = std::make_unique<RecalculationWorker>(accurate, [this] {
        QMetaObject::invokeMethod(this, [this] { Schedule(); }, Qt::QueuedConnection);
    });
    // The first slice runs from the event loop, after the caller has connected to the signals.
    Schedule();
}

FamilyRecalculation::~FamilyRecalculation()
{
    m_worker.reset();
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
    Schedule();
}

void FamilyRecalculation::Schedule()
{
    if (m_running && !m_slice.isActive())
        m_slice.start();
}

// One slice of work on the kernel's thread; the next one is asked for while this side has work,
// otherwise the worker's results ask for it.
void FamilyRecalculation::Slice()
{
    m_inSlice = true;
    m_sliceClock.start();
    try {
        RunSlice();
    } catch (const KernelError& e) {
        m_world->Log().Error(Object, Procedure, QStringLiteral("Family %1: %2").arg(m_familyID, e.Description()));
        m_stop = true;
        m_allRead = true;
        m_worker->Stop();
        m_results.clear();
        Schedule();
    }
    m_inSlice = false;
    if (m_released) {
        // Let go by a handler of this slice's signals: deleted from the event loop, not under
        // the timer that is calling this slot.
        m_slice.stop();
        deleteLater();
    }
}

void FamilyRecalculation::RunSlice()
{
    if (ReadingLeft())
        ReadPage();
    for (RecalculationWorker::Result& result : m_worker->TakeResults())
        m_results.push_back(std::move(result));
    if (!m_results.empty()) {
        WriteResults();
    } else if (m_worker->Finished() && !ReadingLeft()) {
        if (m_stop || m_nextMacro >= m_macros.size()) {
            Finish();
            return;
        }
        WriteMacros();
    }
    if (m_done != m_reported) {
        m_reported = m_done;
        Q_EMIT Progress(m_done, m_total, m_current);
    }
    if (ReadingLeft() || !m_results.empty() || m_worker->Finished())
        Schedule();
}

void FamilyRecalculation::ReadPage()
{
    const QString after = m_readAfter.isEmpty() ? m_familyID : m_readAfter;
    const std::vector<CartRecord> page = m_world->Store().ReadFamilyPage(m_familyID, after, PageSize);
    std::vector<RecalculationWorker::Job> jobs;
    for (const CartRecord& record : page)
        Take(record, jobs);
    m_seen += int(page.size());
    m_total = std::max(m_total, m_seen);
    m_worker->Add(std::move(jobs));
    if (int(page.size()) < PageSize) {
        m_allRead = true;
        m_total = m_seen; // carts deleted or added since the count
        m_worker->NoMoreJobs();
    }
}

// A sound goes to the worker, a macro waits for the sounds, any other cart has no length to
// measure.
void FamilyRecalculation::Take(const CartRecord& record, std::vector<RecalculationWorker::Job>& jobs)
{
    m_readAfter = record.id;
    switch (record.type) {
    case CartType::Sound: {
        const QString path = Sound(m_world->Db(), record.id, m_soundFolder).FileName();
        if (path.isEmpty())
            Count({Outcome::Failed, record.id, QStringLiteral("the sound has no file to measure")});
        else
            jobs.push_back({record.id, path});
        break;
    }
    case CartType::Macro:
        m_macros << record.id;
        break;
    default:
        Count({Outcome::Skipped, record.id, {}});
    }
}

void FamilyRecalculation::WriteResults()
{
    const std::size_t written = WriteSome(m_results, 0, [this](const RecalculationWorker::Result& result) { return WriteSound(result); });
    m_results.erase(m_results.begin(), m_results.begin() + std::ptrdiff_t(written));
}

void FamilyRecalculation::WriteMacros()
{
    m_nextMacro += qsizetype(WriteSome(m_macros, std::size_t(m_nextMacro), [this](const QString& cartID) { return WriteMacro(cartID); }));
}

template <typename Items, typename Write>
std::size_t FamilyRecalculation::WriteSome(const Items& items, std::size_t first, Write write)
{
    std::vector<Outcome> outcomes;
    // A busy database runs the body again: the outcomes are counted only once it committed.
    m_world->Db()->Transaction([&] {
        outcomes.clear();
        for (std::size_t i = first; i < std::size_t(items.size()); ++i) {
            if (!outcomes.empty() && m_sliceClock.elapsed() >= SliceMs)
                break;
            outcomes.push_back(write(items[i]));
        }
    });
    for (const Outcome& outcome : outcomes)
        Count(outcome);
    return outcomes.size();
}

FamilyRecalculation::Outcome FamilyRecalculation::WriteSound(const RecalculationWorker::Result& result) const
{
    const std::optional<CartRecord> record = m_world->Store().Read(result.cartID);
    if (!record || record->type != CartType::Sound)
        return {Outcome::Skipped, result.cartID, {}};
    if (!result.lengthMs)
        return {Outcome::Failed, result.cartID, result.error};
    Sound sound(m_world->Db(), result.cartID, m_soundFolder);
    if (sound.FileName() != result.path)
        return {Outcome::Skipped, result.cartID, {}};
    sound.TakeLength(*result.lengthMs);
    m_world->Store().SetTime(result.cartID, std::max(0, sound.FileStop() - sound.FileStart()));
    return {Outcome::Written, result.cartID, {}};
}

// A macro lasts as long as its steps together, as they stand in the catalogue.
FamilyRecalculation::Outcome FamilyRecalculation::WriteMacro(const QString& cartID) const
{
    const std::optional<CartRecord> record = m_world->Store().Read(cartID);
    if (!record || record->type != CartType::Macro)
        return {Outcome::Skipped, cartID, {}};
    qint32 ms = 0;
    for (const QString& step : m_world->Store().Steps(cartID)) {
        if (!CartID::IsValid(step) || step == cartID)
            continue;
        if (const std::optional<CartRecord> stepRecord = m_world->Store().Read(step))
            ms += stepRecord->time;
    }
    m_world->Store().SetTime(cartID, ms);
    return {Outcome::Written, cartID, {}};
}

void FamilyRecalculation::Count(const Outcome& outcome)
{
    ++m_done;
    m_current = outcome.cartID;
    if (outcome.kind == Outcome::Failed) {
        ++m_failed;
        m_world->Log().Error(Object, Procedure, QStringLiteral("%1: %2").arg(outcome.cartID, outcome.reason));
    } else if (outcome.kind == Outcome::Written) {
        m_world->RewrittenInBatch(outcome.cartID);
    }
}

void FamilyRecalculation::Finish()
{
    m_running = false;
    m_world->Log().Ok(Object, Procedure,
                      QStringLiteral("Family %1 %2 %3 of %4 carts, %5 failed")
                          .arg(m_familyID, m_stop ? QStringLiteral("stopped after") : QStringLiteral("recalculated"))
                          .arg(m_done)
                          .arg(m_total)
                          .arg(m_failed));
    m_world->FamilyRewritten(m_familyID);
    Q_EMIT Progress(m_done, m_total, m_current);
    Q_EMIT Finished(m_failed);
}
