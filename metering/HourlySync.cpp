#include "metering/HourlySync.h"

HourlySync& HourlySync::Shared()
{
    static HourlySync shared;
    return shared;
}

bool HourlySync::Tick(const QString& timeText)
{
    const QString minutes = timeText.mid(3, 2);
    if (minutes == QStringLiteral("52") && !m_done) {
        m_done = true;
        return true;
    }
    if (minutes == QStringLiteral("55"))
        m_done = false;
    return false;
}
