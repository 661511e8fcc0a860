#include "foundation/PadColorsText.h"

namespace PadColorsText {
namespace {
int HexDigit(QChar c)
{
    const char16_t u = c.unicode();
    if (u >= u'0' && u <= u'9')
        return u - u'0';
    if (u >= u'A' && u <= u'F')
        return u - u'A' + 10;
    if (u >= u'a' && u <= u'f')
        return u - u'a' + 10;
    return -1;
}

// A group read digit by digit: QString::toInt would take a sign or blanks.
std::optional<qint32> ReadGroup(QStringView group)
{
    qint32 value = 0;
    for (QChar c : group) {
        const int digit = HexDigit(c);
        if (digit < 0)
            return std::nullopt;
        value = value * 16 + digit;
    }
    return value;
}
}

QString Serial(qint32 value)
{
    const QString hex = QString::number(quint32(value), 16).toUpper();
    return hex.rightJustified(GroupLength, QLatin1Char('0')).right(GroupLength);
}

QString Write(const Values& values)
{
    QString text;
    text.reserve(Length);
    for (qint32 value : values)
        text += Serial(value);
    return text;
}

Reading Read(const QString& text)
{
    if (text.size() != Length)
        return {std::nullopt, QStringLiteral("A colour set holds %1 characters, not %2").arg(Length).arg(text.size())};
    Values values{};
    for (int i = 0; i < Count; ++i) {
        const QStringView group = QStringView(text).mid(i * GroupLength, GroupLength);
        const std::optional<qint32> value = ReadGroup(group);
        if (!value)
            return {std::nullopt, QStringLiteral("Colour %1 of the set is not six hexadecimal digits: '%2'").arg(i + 1).arg(group)};
        values[size_t(i)] = *value;
    }
    return {values, QString()};
}
}
