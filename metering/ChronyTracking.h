#pragma once
#include <QDateTime>
#include <QString>
#include <optional>

// What `chronyc tracking` says about the clock's synchronisation: the source (the name in the
// Reference ID line, empty when there is none), the offset of the system time from true time
// in seconds (positive when fast), when the source last updated the clock, and whether chrony
// counts the clock synchronised (its leap status is not "Not synchronised").
struct ChronyTracking
{
    QString source;
    double offsetSeconds = 0;
    QDateTime referenceTime;
    bool synchronised = false;

    // Nothing when the text lacks the Reference ID, System time or Leap status line or one of
    // them cannot be read.
    static std::optional<ChronyTracking> Parse(const QString& text);
};
