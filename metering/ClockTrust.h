#pragma once
#include "metering/ChronyTracking.h"
#include <QColor>

// How far the clock can be trusted, from chrony's tracking: green while synchronised with an
// offset and an age of the last update under the amber limits, amber past either, red past a
// red limit, when not synchronised or when nothing could be read. The limits come from the
// station's settings, section IFClock (AmberOffsetMs, RedOffsetMs, AmberAgeSeconds,
// RedAgeSeconds), each with a default.
class ClockTrust
{
public:
    enum Level { Green, Amber, Red };

    struct Limits
    {
        double amberOffsetMs = 100;
        double redOffsetMs = 1000;
        qint64 amberAgeSeconds = 3600;
        qint64 redAgeSeconds = 86400;
    };

    static Limits ReadLimits();
    static Level Judge(const std::optional<ChronyTracking>& tracking, const QDateTime& now, const Limits& limits);
    static QColor Colour(Level level);
};
