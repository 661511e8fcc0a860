#pragma once
#include <QObject>
#include <QSet>
#include <QTimer>

// The one tick that drives every meter of the workstation, so that all of them read and
// repaint together instead of each waking on a timer of its own. LevelTick comes every
// 40 ms; BlinkTick each time 250 ms have passed and PipeTick each time 500 ms have passed,
// counted in ticks, so the slower beats stay in step with the levels. The timer runs only
// while some listener has joined.
class MeterClock : public QObject
{
    Q_OBJECT
public:
    static constexpr int TickMs = 40;
    static constexpr int BlinkMs = 250;
    static constexpr int PipeMs = 500;

    static MeterClock& Instance();

    // A listener keeps the timer running until it leaves or is destroyed.
    void Join(QObject* listener);
    void Leave(QObject* listener);
    // While suspended the timer stays off and only explicit calls of Tick advance the meters
    // (a hidden screen, a test, a benchmark).
    void Suspend(bool suspended);
    bool IsRunning() const { return m_timer.isActive(); }

    // One tick of 40 ms.
    void Tick();

Q_SIGNALS:
    void LevelTick();
    void BlinkTick();
    void PipeTick();

private:
    MeterClock();
    void StartOrStop();

    QTimer m_timer;
    QSet<QObject*> m_listeners;
    qint64 m_elapsedMs = 0;
    bool m_suspended = false;
};
