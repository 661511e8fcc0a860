#include "onair/ShortCutSlots.h"
#include <algorithm>

namespace ShortCutSlots {
int Clamp(int slots)
{
    return std::max(slots, Minimum);
}

int Shown(int slots, int count)
{
    return std::max(0, std::min(slots, count));
}

QString PadName(const QString& control, int index)
{
    return control + QStringLiteral(".FC(") + QString::number(index) + QLatin1Char(')');
}
}
