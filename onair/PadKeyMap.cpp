#include "onair/PadKeyMap.h"

namespace PadKeyMap {
QString IndexToShortcut(int index)
{
    if (index < 0 || index >= NumSlots)
        return {};
    return Keys.mid(index, 1);
}

int ShortcutToIndex(QChar key)
{
    if (key.isNull())
        return -1;
    return int(Keys.indexOf(key.toUpper()));
}
}
