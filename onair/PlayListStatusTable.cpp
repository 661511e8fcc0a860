#include "onair/PlayListStatusTable.h"
#include <QStringList>

namespace PlayListStatusTable {
namespace {
struct Words
{
    const char* onIcon;
    const char* onWord;
    const char* offIcon;
    const char* offWord;
};

constexpr Words Table[LineCount] = {
    {"STATUS_LOADED", "Loaded", "STATUS_UNLOADED", "Not Loaded"},
    {"STATUS_PLAYING", "Playing", "STATUS_STOPPED", "Stopped"},
    {"STATUS_MODIFIED", "Modified", "STATUS_UNMODIFIED", "Not Modified"},
    {"STATUS_CHAINED", "Chained", "STATUS_NOT_CHAINED", "Not Chained"},
    {"STATUS_AUTOCLOSE", "Autoclose", "STATUS_NOT_AUTOCLOSE", "Not Autoclose"},
};

bool IsOn(const Facts& facts, Line line)
{
    if (!facts.hasList)
        return false;
    switch (line) {
    case Loaded:
        return facts.loadState == 1;
    case Playing:
        return facts.playState == 1;
    case Modified:
        return facts.modified;
    case Chained:
        return facts.chained;
    default:
        return facts.autoClose;
    }
}
}

Shown Show(const Facts& facts, Line line)
{
    const Words& words = Table[line];
    if (IsOn(facts, line))
        return {QString::fromLatin1(words.onIcon), QString::fromLatin1(words.onWord)};
    return {QString::fromLatin1(words.offIcon), QString::fromLatin1(words.offWord)};
}

QStringList Keys()
{
    QStringList keys;
    for (const Words& words : Table)
        keys << QString::fromLatin1(words.onIcon) << QString::fromLatin1(words.offIcon);
    return keys;
}

QString CounterText(int count, int selectedPlace)
{
    if (count <= 0)
        return QStringLiteral("-");
    if (selectedPlace >= 1)
        return QStringLiteral("%1 / %2").arg(selectedPlace).arg(count);
    return QString::number(count);
}
}
