#pragma once
#include <QDateTime>
#include <QLocale>
#include <QString>

// What the studio clock shows, without widgets. The time reads "hh:mm:ss" (24 hours), so that
// its last character is the last digit of the seconds and its characters 4 and 5 the minutes;
// the date reads "dd MMM yyyy" with the month's short name in the given locale.
namespace ClockFace {
enum Mode : qint32 { TimeOnly = 0, DateOnly = 1, Alternated = 2, TwoLines = 3 };

QString TimeText(const QTime& time);
QString DateText(const QDate& date, const QLocale& locale = QLocale());

// Set while the last digit of the seconds is 3, 4 or 5: three seconds out of ten.
bool AlterFlag(const QString& timeText);

// The label's text in a mode: mode 0 shows the time and the date while the left button is
// held, mode 1 the other way round, mode 2 the date while the alternation flag is set, mode 3
// the time and the date on two lines (parted by a carriage return). Any other mode shows the
// time.
QString Text(qint32 mode, bool pressed, bool alternation, const QDateTime& now, const QLocale& locale = QLocale());
}
