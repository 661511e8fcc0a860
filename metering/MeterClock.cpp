#include "metering/MeterClock.h"

MeterClock& MeterClock::Instance()
{
    static MeterClock clock;
    return clock;
}

MeterClock::MeterClock()
{
    m_timer.setInterval(TickMs);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &MeterClock::Tick);
}

void MeterClock::Join(QObject* listener)
{
    if (!m_listeners.contains(listener)) {
        m_listeners.insert(listener);
        connect(listener, &QObject::destroyed, this, [this, listener] { Leave(listener); });
    }
    StartOrStop();
}

void MeterClock::Leave(QObject* listener)
{
    if (m_listeners.remove(listener))
        disconnect(listener, &QObject::destroyed, this, nullptr);
    StartOrStop();
}

void MeterClock::Suspend(bool suspended)
{
    m_suspended = suspended;
    StartOrStop();
}

void MeterClock::StartOrStop()
{
    if (!m_suspended && !m_listeners.isEmpty())
        m_timer.start();
    else
        m_timer.stop();
}

void MeterClock::Tick()
{
    const qint64 before = m_elapsedMs;
    m_elapsedMs += TickMs;
    Q_EMIT LevelTick();
    if (m_elapsedMs / BlinkMs != before / BlinkMs)
        Q_EMIT BlinkTick();
    if (m_elapsedMs / PipeMs != before / PipeMs)
        Q_EMIT PipeTick();
}
