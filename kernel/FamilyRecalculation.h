#pragma once
#include "kernel/RecalculationOutcome.h"
#include "kernel/RecalculationWorker.h"
#include "kernelapi/iRecalculation.h"
#include <QElapsedTimer>
#include <QTimer>
#include <deque>
#include <memory>

class CartWorld;

// The recalculation of one family. The catalogue work runs on a RecalculationWorker thread
// over its own connection (see RecalculationPass): reading the family's pages, measuring the
// files and writing the lengths, then the macros. The kernel's thread only takes in what
// became of each cart, in slices of at most SliceMs driven by the worker's queued wake-ups: it
// counts the carts, logs the failures, tells the live carts of a written ID to read their row
// again and raises Progress; at the end it tells the family once. Meanwhile the family's
// rechecks by the store watcher are held, since the worker's writes look like another
// writer's. Made by Create: the object goes away once its holders let go and no slice of it
// is running; the kernel's closing stops it and waits for its thread.
class FamilyRecalculation : public iRecalculation
{
    Q_OBJECT
public:
    static constexpr int SliceMs = 4;

    static std::shared_ptr<iRecalculation> Create(std::shared_ptr<CartWorld> world, const QString& familyID, bool accurate);
    ~FamilyRecalculation() override;

    int Done() const override { return m_done; }
    int Total() const override { return std::max(m_total, m_done); }
    QString CurrentCartID() const override { return m_current; }
    int Failed() const override { return m_failed; }
    bool Running() const override { return m_running; }
    void Stop() override;

private:
    FamilyRecalculation(std::shared_ptr<CartWorld> world, const QString& familyID, bool accurate);
    // The holders let go: deleted now, or after the slice that is running.
    void Release();
    // The kernel closes: the worker ends and closes its connection before this returns.
    void Close();
    void Schedule();
    void Slice();
    // Counts outcomes taken from the worker until the slice's time is up.
    void CountSome();
    void Count(const RecalculationOutcome& outcome);
    void Finish();

    std::shared_ptr<CartWorld> m_world;
    const QString m_familyID;
    int m_total = 0;
    int m_done = 0;
    int m_failed = 0;
    int m_reported = -1;
    QString m_current;
    bool m_running = true;
    bool m_stop = false;
    bool m_inSlice = false;
    bool m_released = false;
    std::deque<RecalculationOutcome> m_outcomes;
    QElapsedTimer m_sliceClock;
    QTimer m_slice;
    std::unique_ptr<RecalculationWorker> m_worker;
};
