#include "metering/ClockTrust.h"
#include "foundation/StationSettings.h"
#include <cmath>

namespace {
const QString Section = QStringLiteral("IFClock");

double ReadNumber(const QString& key, double defaultValue)
{
    bool ok = false;
    const double value = StationSettings::Read(Section, key, QString::number(defaultValue)).toDouble(&ok);
    return ok && value > 0 ? value : defaultValue;
}
}

ClockTrust::Limits ClockTrust::ReadLimits()
{
    const Limits defaults;
    Limits limits;
    limits.amberOffsetMs = ReadNumber(QStringLiteral("AmberOffsetMs"), defaults.amberOffsetMs);
    limits.redOffsetMs = ReadNumber(QStringLiteral("RedOffsetMs"), defaults.redOffsetMs);
    limits.amberAgeSeconds = qint64(ReadNumber(QStringLiteral("AmberAgeSeconds"), double(defaults.amberAgeSeconds)));
    limits.redAgeSeconds = qint64(ReadNumber(QStringLiteral("RedAgeSeconds"), double(defaults.redAgeSeconds)));
    return limits;
}

ClockTrust::Level ClockTrust::Judge(const std::optional<ChronyTracking>& tracking, const QDateTime& now, const Limits& limits)
{
    if (!tracking || !tracking->synchronised || !tracking->referenceTime.isValid())
        return Red;
    const double offsetMs = std::abs(tracking->offsetSeconds) * 1000;
    const qint64 age = tracking->referenceTime.secsTo(now);
    if (offsetMs >= limits.redOffsetMs || age >= limits.redAgeSeconds)
        return Red;
    if (offsetMs >= limits.amberOffsetMs || age >= limits.amberAgeSeconds)
        return Amber;
    return Green;
}

QColor ClockTrust::Colour(Level level)
{
    switch (level) {
    case Green: return QColor(40, 200, 70);
    case Amber: return QColor(255, 176, 0);
    case Red: break;
    }
    return QColor(220, 40, 30);
}
