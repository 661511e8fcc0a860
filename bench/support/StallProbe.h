#pragma once
#include <QElapsedTimer>
#include <QTimer>

// The longest time the event loop waited between two of its passes while work ran: a
// zero-interval timer ticks at every pass, and the first and last gaps count too.
class StallProbe
{
public:
    StallProbe();
    double FinishMs();

private:
    void Tick();

    QTimer m_timer;
    QElapsedTimer m_clock;
    qint64 m_last = 0;
    qint64 m_longest = 0;
};
