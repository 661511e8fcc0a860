#pragma once
#include "foundation/ui/Dialogs.h"
#include <QVector>
#include <optional>

// The clock's popup menu, without widgets: its lines for the present mode and size, and what a
// chosen key changes. Texts pass through the translator.
namespace ClockMenu {
inline constexpr const char* ModeKey = "IFClock.ClockMode=";
inline constexpr const char* SizeKey = "IFClock.ClockSize=";
inline constexpr const char* CancelKey = "IFClock.Cancel";

// The font sizes in points that the menu offers, in order: Tiny, Small, Medium, Big, Huge.
inline constexpr qint32 Sizes[] = {8, 11, 16, 23, 32};

// "Clock", the four modes under "Mode", the five sizes under "Size", "Cancel". The mode item
// of the present mode is checked; the size check is looked for among the mode keys with the
// present size as the number, so no size item is ever checked and a size from 0 to 3 checks
// that mode's item.
QVector<Dialogs::PopupLine> Lines(qint32 mode, qint32 size);

struct Change
{
    std::optional<qint32> mode;
    std::optional<qint32> size;
};

// What choosing the line with this key changes (nothing for Cancel, an empty or unknown key).
Change Choose(const QVector<Dialogs::PopupLine>& lines, const QString& key);
}
