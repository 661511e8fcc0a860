#include "kernel/RecalculationPass.h"
#include "foundation/db/Database.h"
#include "kernel/CartID.h"
#include "kernel/Sound.h"
#include "kernel/SoundFile.h"
#include "kernelapi/KernelError.h"
#include <QElapsedTimer>
#include <exception>

RecalculationPass::RecalculationPass(std::shared_ptr<Database> db, const QString& familyID, const QString& soundFolder, bool accurate,
                                     std::function<bool()> stopping, Report report)
    : m_db(db), m_store(db), m_familyID(familyID), m_soundFolder(soundFolder), m_accurate(accurate),
      m_stopping(std::move(stopping)), m_report(std::move(report)), m_readAfter(familyID)
{
}

void RecalculationPass::Run()
{
    while (!m_stopping() && RunPage()) {
    }
    if (!m_stopping())
        WriteMacros();
}

bool RecalculationPass::RunPage()
{
    const std::vector<CartRecord> page = m_store.ReadFamilyPage(m_familyID, m_readAfter, PageSize);
    std::vector<Job> jobs;
    std::vector<RecalculationOutcome> outcomes;
    for (const CartRecord& record : page)
        Take(record, jobs, outcomes);
    if (!outcomes.empty())
        m_report(std::move(outcomes));
    MeasureAndWrite(jobs);
    return int(page.size()) == PageSize;
}

// A sound is measured, a macro waits for the sounds, any other cart has no length to measure.
void RecalculationPass::Take(const CartRecord& record, std::vector<Job>& jobs, std::vector<RecalculationOutcome>& outcomes)
{
    m_readAfter = record.id;
    switch (record.type) {
    case CartType::Sound: {
        const QString path = Sound(m_db, record.id, m_soundFolder).FileName();
        if (path.isEmpty())
            outcomes.push_back({RecalculationOutcome::Failed, record.id, QStringLiteral("the sound has no file to measure")});
        else
            jobs.push_back({record.id, path});
        break;
    }
    case CartType::Macro:
        m_macros << record.id;
        break;
    default:
        outcomes.push_back({RecalculationOutcome::Skipped, record.id, {}});
    }
}

// The files are measured outside any transaction; what was measured is written every BatchMs,
// at the end of the page, and when the run is stopped.
void RecalculationPass::MeasureAndWrite(const std::vector<Job>& jobs)
{
    std::vector<Measured> measured;
    QElapsedTimer clock;
    clock.start();
    for (const Job& job : jobs) {
        if (m_stopping())
            break;
        measured.push_back(Measure(job));
        if (clock.elapsed() >= BatchMs) {
            WriteBatch(measured, [this](const Measured& item) { return WriteSound(item); });
            measured.clear();
            clock.restart();
        }
    }
    WriteBatch(measured, [this](const Measured& item) { return WriteSound(item); });
}

RecalculationPass::Measured RecalculationPass::Measure(const Job& job) const
{
    Measured measured{job, std::nullopt, {}};
    try {
        measured.lengthMs = SoundFile::Measure(job.path, m_accurate);
    } catch (const KernelError& e) {
        measured.error = e.Description();
    } catch (const std::exception& e) {
        measured.error = QString::fromLocal8Bit(e.what());
    }
    return measured;
}

void RecalculationPass::WriteMacros()
{
    for (qsizetype first = 0; first < m_macros.size() && !m_stopping(); first += PageSize)
        WriteBatch(m_macros.mid(first, PageSize), [this](const QString& cartID) { return WriteMacro(cartID); });
}

template <typename Items, typename Write>
void RecalculationPass::WriteBatch(const Items& items, Write write)
{
    const std::size_t count = std::size_t(items.size());
    for (std::size_t first = 0; first < count;) {
        std::vector<RecalculationOutcome> outcomes;
        QElapsedTimer clock;
        // A busy database runs the body again: the outcomes are reported only once it committed.
        m_db->Transaction([&] {
            outcomes.clear();
            clock.start();
            for (std::size_t i = first; i < count && (outcomes.empty() || clock.elapsed() < TransactionMs); ++i)
                outcomes.push_back(write(items[i]));
        });
        first += outcomes.size();
        m_report(std::move(outcomes));
    }
}

RecalculationOutcome RecalculationPass::WriteSound(const Measured& measured)
{
    const QString& cartID = measured.job.cartID;
    const std::optional<CartRecord> record = m_store.Read(cartID);
    if (!record || record->type != CartType::Sound)
        return {RecalculationOutcome::Skipped, cartID, {}};
    if (!measured.lengthMs)
        return {RecalculationOutcome::Failed, cartID, measured.error};
    Sound sound(m_db, cartID, m_soundFolder);
    if (sound.FileName() != measured.job.path)
        return {RecalculationOutcome::Skipped, cartID, {}};
    sound.TakeLength(*measured.lengthMs);
    m_store.SetTime(cartID, std::max(0, sound.FileStop() - sound.FileStart()));
    return {RecalculationOutcome::Written, cartID, {}};
}

// A macro lasts as long as its steps together, as they stand in the catalogue.
RecalculationOutcome RecalculationPass::WriteMacro(const QString& cartID)
{
    const std::optional<CartRecord> record = m_store.Read(cartID);
    if (!record || record->type != CartType::Macro)
        return {RecalculationOutcome::Skipped, cartID, {}};
    qint32 ms = 0;
    for (const QString& step : m_store.Steps(cartID)) {
        if (!CartID::IsValid(step) || step == cartID)
            continue;
        if (const std::optional<CartRecord> stepRecord = m_store.Read(step))
            ms += stepRecord->time;
    }
    m_store.SetTime(cartID, ms);
    return {RecalculationOutcome::Written, cartID, {}};
}
