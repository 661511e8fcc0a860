#include "support/StallProbe.h"
#include <algorithm>

StallProbe::StallProbe()
{
    QObject::connect(&m_timer, &QTimer::timeout, [this] { Tick(); });
    m_timer.start(0);
    m_clock.start();
}

double StallProbe::FinishMs()
{
    Tick();
    m_timer.stop();
    return m_longest / 1e6;
}

void StallProbe::Tick()
{
    const qint64 now = m_clock.nsecsElapsed();
    m_longest = std::max(m_longest, now - m_last);
    m_last = now;
}
