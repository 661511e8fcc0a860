#include "metering/ClockFace.h"

namespace ClockFace {
QString TimeText(const QTime& time)
{
    return time.toString(QStringLiteral("hh:mm:ss"));
}

QString DateText(const QDate& date, const QLocale& locale)
{
    return locale.toString(date, QStringLiteral("dd MMM yyyy"));
}

bool AlterFlag(const QString& timeText)
{
    if (timeText.isEmpty())
        return false;
    const QChar digit = timeText.back();
    return digit == u'3' || digit == u'4' || digit == u'5';
}

QString Text(qint32 mode, bool pressed, bool alternation, const QDateTime& now, const QLocale& locale)
{
    const QString time = TimeText(now.time());
    const QString date = DateText(now.date(), locale);
    switch (mode) {
    case TimeOnly: return pressed ? date : time;
    case DateOnly: return pressed ? time : date;
    case Alternated: return alternation ? date : time;
    case TwoLines: return time + QChar(13) + date;
    default: return time;
    }
}
}
