#pragma once
#include "kernel/CartStore.h"
#include "kernel/RecalculationOutcome.h"
#include <QStringList>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class Database;

// The work of a family's recalculation, done on its worker thread over the worker's own
// connection: the family's carts are read a page at a time, each sound's file is measured
// (decoded and its energy file written, or its header read when the run is fast and the
// energy file current), and the lengths measured are written in short transactions: marks
// fitted to the length as Sound::TakeLength does, and the cart's Time. Once every sound is
// written the macros follow, each the sum of its steps. A cart deleted, retyped or given
// another file since its page was read is skipped. What became of the carts is handed to
// report after the transaction that wrote them committed, in the order they were handled.
class RecalculationPass
{
public:
    static constexpr int PageSize = 50;
    // Measuring goes on for at most this long before what was measured is written, so that
    // progress shows while long files are measured.
    static constexpr int BatchMs = 250;
    // A transaction takes in no more carts once it has run this long, so that a write of the
    // UI thread waiting for the catalogue (SQLite's busy timeout) never waits long.
    static constexpr int TransactionMs = 5;

    using Report = std::function<void(std::vector<RecalculationOutcome>)>;

    RecalculationPass(std::shared_ptr<Database> db, const QString& familyID, const QString& soundFolder, bool accurate,
                      std::function<bool()> stopping, Report report);

    // Runs to the end of the family, or until stopping answers true: the files measured by then
    // are written, the rest is left alone. Throws KernelError when the catalogue fails; what was
    // reported stays written.
    void Run();

private:
    struct Job
    {
        QString cartID;
        QString path;
    };
    struct Measured
    {
        Job job;
        std::optional<qint32> lengthMs; // empty when the file could not be measured
        QString error;
    };

    // Handles the next page; false once the family has no more.
    bool RunPage();
    void Take(const CartRecord& record, std::vector<Job>& jobs, std::vector<RecalculationOutcome>& outcomes);
    void MeasureAndWrite(const std::vector<Job>& jobs);
    Measured Measure(const Job& job) const;
    void WriteMacros();
    // Writes items in as few transactions of at most TransactionMs as it takes, and reports
    // the outcomes of each once it committed.
    template <typename Items, typename Write>
    void WriteBatch(const Items& items, Write write);
    RecalculationOutcome WriteSound(const Measured& measured);
    RecalculationOutcome WriteMacro(const QString& cartID);

    std::shared_ptr<Database> m_db;
    CartStore m_store;
    const QString m_familyID;
    const QString m_soundFolder;
    const bool m_accurate;
    const std::function<bool()> m_stopping;
    const Report m_report;
    QString m_readAfter;
    QStringList m_macros;
};
