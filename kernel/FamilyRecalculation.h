#pragma once
#include "kernel/RecalculationWorker.h"
#include "kernelapi/iRecalculation.h"
#include <QElapsedTimer>
#include <QStringList>
#include <QTimer>
#include <deque>
#include <memory>

class CartWorld;
struct CartRecord;

// The recalculation of one family. Sound files are measured by a RecalculationWorker; the
// catalogue is read and written on the kernel's thread in slices of at most SliceMs, each
// slice's writes in one transaction, so the event loop never waits long: a slice reads the
// next page of the family's carts and hands their files to the worker, then writes the
// lengths measured so far (marks fitted to the length, the cart's time). Macros follow once
// every sound is written, each the sum of its steps. A cart deleted or given another file
// meanwhile is skipped; a file that cannot be measured is an ERROR line naming the cart, and
// its rows stay as they were. Made by Create: the object goes away once its holders let go
// and no slice of it is running.
class FamilyRecalculation : public iRecalculation
{
    Q_OBJECT
public:
    static constexpr int SliceMs = 4;
    static constexpr int PageSize = 50;

    static std::shared_ptr<iRecalculation> Create(std::shared_ptr<CartWorld> world, const QString& familyID, bool accurate);
    ~FamilyRecalculation() override;

    int Done() const override { return m_done; }
    int Total() const override { return m_total; }
    QString CurrentCartID() const override { return m_current; }
    int Failed() const override { return m_failed; }
    bool Running() const override { return m_running; }
    void Stop() override;

private:
    // What became of one cart.
    struct Outcome
    {
        enum Kind { Written, Skipped, Failed } kind;
        QString cartID;
        QString reason;
    };

    FamilyRecalculation(std::shared_ptr<CartWorld> world, const QString& familyID, bool accurate);
    // The holders let go: deleted now, or after the slice that is running.
    void Release();
    void Schedule();
    void Slice();
    void RunSlice();
    bool ReadingLeft() const { return !m_allRead && !m_stop; }
    void ReadPage();
    void Take(const CartRecord& record, std::vector<RecalculationWorker::Job>& jobs);
    void WriteResults();
    void WriteMacros();
    // Runs write for items from the front of a list, as many as the slice has time for, in
    // one transaction, and counts their outcomes once it is committed; returns how many.
    template <typename Items, typename Write>
    std::size_t WriteSome(const Items& items, std::size_t first, Write write);
    Outcome WriteSound(const RecalculationWorker::Result& result) const;
    Outcome WriteMacro(const QString& cartID) const;
    void Count(const Outcome& outcome);
    void Finish();

    std::shared_ptr<CartWorld> m_world;
    const QString m_familyID;
    const bool m_accurate;
    QString m_soundFolder;
    int m_total = 0;
    int m_seen = 0;
    int m_done = 0;
    int m_failed = 0;
    int m_reported = -1;
    QString m_current;
    bool m_running = true;
    bool m_stop = false;
    bool m_allRead = false;
    bool m_inSlice = false;
    bool m_released = false;
    QString m_readAfter;
    std::deque<RecalculationWorker::Result> m_results;
    QStringList m_macros;
    qsizetype m_nextMacro = 0;
    QElapsedTimer m_sliceClock;
    QTimer m_slice;
    std::unique_ptr<RecalculationWorker> m_worker;
};
