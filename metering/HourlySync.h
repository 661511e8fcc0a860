#pragma once
#include <QString>

// When the clock sets the computer's time: once an hour, in minute 52. The clock asks every ten
// seconds with the time's text ("hh:mm:ss"); the first ask in minute 52 is due and marks the
// hour done, and minute 55 clears the mark for the next hour. A clock that skips minute 55
// keeps the mark, so an hour never gets two synchronisations. One mark serves the whole
// program (Shared), so two clocks on screen synchronise once between them.
class HourlySync
{
public:
    static HourlySync& Shared();

    // True when a synchronisation is due now.
    bool Tick(const QString& timeText);
    bool Done() const { return m_done; }

private:
    bool m_done = false;
};
