#include "foundation/Strings.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/Windows1252.h"
#include "kernelapi/KernelError.h"
#include <QStringList>
#include <array>
#include <cmath>
#include <limits>

namespace {
constexpr QChar Blank = QLatin1Char(' ');

// The value as an integer of type T; beyond its range the error every integer of that
// width raises.
template <typename T>
T Narrow(qint64 value)
{
    if (value < std::numeric_limits<T>::min() || value > std::numeric_limits<T>::max())
        throw KernelError(QStringLiteral("Overflow"));
    return static_cast<T>(value);
}

QStringView TrimBlanks(QStringView text)
{
    qsizetype first = 0;
    qsizetype last = text.size();
    while (first < last && text[first] == Blank)
        ++first;
    while (last > first && text[last - 1] == Blank)
        --last;
    return text.mid(first, last - first);
}

// One step of the word walk: cuts everything up to and including the next separator and
// trims what is left. False (and rest untouched) when no separator follows.
bool CutWord(QStringView& rest, QStringView separator)
{
    const qsizetype at = rest.indexOf(separator);
    if (at < 0)
        return false;
    rest = TrimBlanks(rest.mid(at + separator.size()));
    return true;
}

void RequireSeparator(const QString& separator)
{
    if (separator.isEmpty())
        throw KernelError(QStringLiteral("The word separator is empty"));
}

// The character's code in the single-byte Western code page.
// The character's code in the single-byte Western code page; '?' for one it lacks, as the
// conversion to that page gives.
int WesternCode(QChar c)
{
    const int byte = Windows1252::ByteOf(c);
    return byte < 0 ? '?' : byte;
}

struct ClockParts
{
    qint64 hours, minutes, seconds, milliseconds;
};

ClockParts SplitClock(qint64 ms)
{
    qint64 a = ms < 0 ? -ms : ms;
    ClockParts parts{};
    parts.milliseconds = a % 1000;
    a /= 1000;
    parts.seconds = a % 60;
    a /= 60;
    parts.minutes = a % 60;
    parts.hours = a / 60;
    return parts;
}

int ValInt(QStringView text)
{
    // Whole numbers are taken as a 16-bit field is assigned: rounded half to even.
    return static_cast<int>(std::nearbyint(Val(text)));
}
}

QString TrimStr(qint64 number)
{
    return QString::number(number);
}

QString TrimStr(double number)
{
    return QString::number(number, 'g', 15);
}

QString NullToEmpty(const QVariant& value)
{
    if (value.isNull())
        return {};
    return TrimBlanks(value.toString()).toString();
}

QString Parenthesize(const QString& text)
{
    return text.isEmpty() ? QString() : QStringLiteral(" (") + text + QLatin1Char(')');
}

qint16 WordCount(const QString& text, const QString& separator)
{
    RequireSeparator(separator);
    QStringView rest = TrimBlanks(text);
    qint64 count = 1;
    while (CutWord(rest, separator))
        count = Narrow<qint16>(count + 1);
    return static_cast<qint16>(count);
}

QString GetWord(int index, const QString& text, const QString& separator)
{
    RequireSeparator(separator);
    QStringView rest = TrimBlanks(text);
    for (int i = 1; i < index; ++i) {
        if (!CutWord(rest, separator))
            return {};
    }
    const qsizetype at = rest.indexOf(separator);
    return TrimBlanks(at < 0 ? rest : rest.left(at)).toString();
}

QString Capitalize(const QString& word)
{
    return word.left(1).toUpper() + word.mid(1).toLower();
}

QString ProperCase(const QString& text)
{
    QStringList words = text.split(Blank, Qt::SkipEmptyParts);
    for (QString& word : words)
        word = Capitalize(word);
    return words.join(Blank);
}

QString SqlQuote(const QString& text)
{
    QString quoted = text;
    quoted.replace(QLatin1Char('\''), QStringLiteral("' & chr(39) & '"));
    return QLatin1Char('\'') + quoted + QLatin1Char('\'');
}

bool Matches(const QString& needle, const QString& text, int flag)
{
    return flag == 0 ? text.contains(needle) : text.startsWith(needle);
}

QString UrlEncode(const QString& text)
{
    QString encoded;
    encoded.reserve(text.size() * 3);
    for (QChar c : text)
        encoded += UrlEncodeChar(c);
    return encoded;
}

QString UrlEncodeChar(QChar c)
{
    return QLatin1Char('%') + QString::number(WesternCode(c), 16).toUpper();
}

QString RelaxedSearch(const QString& text)
{
    return RelaxedSearch(text, Globals::ConfigIsYes(QStringLiteral("RelaxedSearch")));
}

QString RelaxedSearch(const QString& text, bool relaxed)
{
    return relaxed ? FoldAccents(text) : text;
}

QString FoldAccents(const QString& text)
{
    QString folded;
    folded.reserve(text.size());
    for (QChar c : text)
        folded += FoldAccentChar(c);
    return folded;
}

QString FoldAccentChar(QChar c)
{
    static const QString from = QStringLiteral("ÀÁÄàáäÈÉËèéëÌÍÏìíïÒÓÖòóöÙÚÜùúüÇçÑñ");
    static const QString to = QStringLiteral("AAAaaaEEEeeeIIIiiiOOOoooUUUuuuCcNn");
    const qsizetype at = from.indexOf(c);
    return QString(at < 0 ? c : to[at]);
}

QString PadZero(qint64 value, int width)
{
    const QString digits = QString::number(value < 0 ? -static_cast<quint64>(value) : static_cast<quint64>(value));
    const QString sign = value < 0 ? QStringLiteral("-") : QString();
    return sign + digits.rightJustified(width - sign.size(), QLatin1Char('0'));
}

QString Pad2(qint16 value)
{
    return PadZero(value, 2);
}

QString Pad4(qint16 value)
{
    return PadZero(value, 4);
}

QString ScramblePassword(const QString& password)
{
    constexpr int Cells = 10;
    std::array<QString, Cells> cell;
    for (int i = 0; i < Cells; ++i)
        cell[i] = password.mid(i, 1);

    // The largest sum is 10 * 9 + 10 * 255, so S * (S mod 27) and i * S fit easily.
    qint64 s = 0;
    for (int i = 1; i <= Cells; ++i) {
        s += ValInt(cell[Cells - i]);
        if (!cell[i - 1].isEmpty())
            s += WesternCode(cell[i - 1][0]);
    }
    s *= s % 27;

    QString scrambled;
    for (int i = 1; i <= Cells; ++i) {
        const qint64 a = WesternCode((cell[i - 1] + Blank)[0]);
        scrambled += Windows1252::CharOf(static_cast<unsigned char>((a ^ (i * s)) % 256));
    }
    return scrambled;
}

double Val(QStringView text)
{
    qsizetype i = 0;
    while (i < text.size() && text[i] == Blank)
        ++i;
    const qsizetype start = i;
    if (i < text.size() && (text[i] == QLatin1Char('+') || text[i] == QLatin1Char('-')))
        ++i;
    const auto skipDigits = [&] {
        while (i < text.size() && text[i] >= QLatin1Char('0') && text[i] <= QLatin1Char('9'))
            ++i;
    };
    skipDigits();
    if (i < text.size() && text[i] == QLatin1Char('.')) {
        ++i;
        skipDigits();
    }
    bool ok = false;
    const double value = text.mid(start, i - start).toDouble(&ok);
    return ok ? value : 0.0;
}

TimeParts SplitMilliseconds(qint32 ms)
{
    const ClockParts clock = SplitClock(ms);
    TimeParts parts;
    parts.sign = ms < 0 ? -1 : (ms > 0 ? 1 : 0);
    parts.hundredths = static_cast<int>(clock.milliseconds / 10);
    parts.seconds = static_cast<int>(clock.seconds);
    parts.minutes = static_cast<int>(clock.minutes);
    parts.hours = static_cast<int>(clock.hours);
    return parts;
}

qint32 JoinMilliseconds(int hours, int minutes, int seconds, int hundredths)
{
    return Narrow<qint32>(qint64(hours) * 3600000 + qint64(minutes) * 60000 + qint64(seconds) * 1000 + qint64(hundredths) * 10);
}

QString FormatHuman(int sign, int hours, int minutes, int seconds, int hundredths)
{
    return (sign < 0 ? QStringLiteral("-") : QString()) + Pad2(Narrow<qint16>(hours)) + QLatin1Char(':')
        + Pad2(Narrow<qint16>(minutes)) + QLatin1Char(':') + Pad2(Narrow<qint16>(seconds)) + QLatin1Char('.')
        + Pad2(Narrow<qint16>(hundredths));
}

QString MsToHuman(qint32 ms)
{
    const TimeParts parts = SplitMilliseconds(ms);
    return FormatHuman(parts.sign, parts.hours, parts.minutes, parts.seconds, parts.hundredths);
}

QString MsToClock(qint32 ms)
{
    const ClockParts clock = SplitClock(ms);
    return PadZero(clock.hours, 3) + QLatin1Char(':') + PadZero(clock.minutes, 2) + QLatin1Char(':')
        + PadZero(clock.seconds, 2) + QLatin1Char('.') + PadZero(clock.milliseconds, 3);
}

QString FrameToHuman(qint32 frames)
{
    QString human;
    Guarded(QStringLiteral("Strings"), QStringLiteral("FrameToHuman"), [&] {
        const qint16 minutes = Narrow<qint16>(frames / 4500);
        const auto seconds = static_cast<qint16>((frames - minutes * 4500) / 75);
        const auto rest = static_cast<qint16>(frames % 75);
        human = Pad2(minutes) + QStringLiteral("m ") + Pad2(seconds) + QStringLiteral("s ") + Pad2(rest)
            + QLatin1Char('f');
    });
    return human;
}

DateTimeFields ParseDateTime(const QString& text)
{
    DateTimeFields fields;
    fields.hasDate = !TrimBlanks(QStringView(text).left(8)).isEmpty();
    if (fields.hasDate) {
        fields.year = ValInt(QStringView(text).mid(0, 4));
        fields.month = ValInt(QStringView(text).mid(4, 2));
        fields.day = ValInt(QStringView(text).mid(6, 2));
    }
    fields.hasTime = !TrimBlanks(QStringView(text).right(6)).isEmpty();
    if (fields.hasTime) {
        fields.hours = ValInt(QStringView(text).mid(8, 2));
        fields.minutes = ValInt(QStringView(text).mid(10, 2));
        fields.seconds = ValInt(QStringView(text).mid(12, 2));
    }
    return fields;
}

bool IsValidDateTime(const QString& text)
{
    if (text.size() != 14)
        return false;
    const DateTimeFields f = ParseDateTime(text);
    return f.month >= 1 && f.month <= 12 && f.day >= 1 && f.day <= DaysInMonth(f.month) && f.hours >= 0
        && f.hours <= 23 && f.minutes >= 0 && f.minutes <= 59 && f.seconds >= 0 && f.seconds <= 59;
}

qint16 DaysInMonth(int month)
{
    static constexpr std::array<qint16, 12> days{31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (month < 1 || month > 12)
        throw KernelError(QStringLiteral("No such month: %1").arg(month));
    return days[month - 1];
}
