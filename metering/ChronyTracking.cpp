#include "metering/ChronyTracking.h"
#include <QHash>
#include <QLocale>
#include <QRegularExpression>

namespace {
// "Name   : value" lines by name.
QHash<QString, QString> Fields(const QString& text)
{
    QHash<QString, QString> fields;
    for (const QString& line : text.split(u'\n')) {
        const qsizetype colon = line.indexOf(QStringLiteral(" : "));
        if (colon > 0)
            fields.insert(line.left(colon).trimmed(), line.mid(colon + 3).trimmed());
    }
    return fields;
}

std::optional<double> Offset(const QString& value)
{
    static const QRegularExpression form(QStringLiteral("^(\\d+(?:\\.\\d+)?) seconds (fast|slow) of NTP time$"));
    const QRegularExpressionMatch match = form.match(value);
    if (!match.hasMatch())
        return std::nullopt;
    const double seconds = match.captured(1).toDouble();
    return match.captured(2) == QStringLiteral("fast") ? seconds : -seconds;
}

QString Source(const QString& value)
{
    static const QRegularExpression form(QStringLiteral("\\(([^)]*)\\)"));
    return form.match(value).captured(1);
}

QDateTime ReferenceTime(const QString& value)
{
    QDateTime time = QLocale::c().toDateTime(value.simplified(), QStringLiteral("ddd MMM d HH:mm:ss yyyy"));
    time.setTimeSpec(Qt::UTC);
    return time;
}
}

std::optional<ChronyTracking> ChronyTracking::Parse(const QString& text)
{
    const QHash<QString, QString> fields = Fields(text);
    const QString reference = fields.value(QStringLiteral("Reference ID"));
    const QString leap = fields.value(QStringLiteral("Leap status"));
    const std::optional<double> offset = Offset(fields.value(QStringLiteral("System time")));
    if (reference.isEmpty() || leap.isEmpty() || !offset)
        return std::nullopt;
    ChronyTracking tracking;
    tracking.source = Source(reference);
    tracking.offsetSeconds = *offset;
    tracking.referenceTime = ReferenceTime(fields.value(QStringLiteral("Ref time (UTC)")));
    tracking.synchronised = leap != QStringLiteral("Not synchronised");
    return tracking;
}
