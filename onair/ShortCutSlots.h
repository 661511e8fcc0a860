#pragma once
#include <QString>

// The arithmetic of a shortcut container apart from its widgets: how many pads it may have,
// how many macro entries reach them, and the registry name of each pad.
namespace ShortCutSlots {
inline constexpr int Minimum = 1;
inline constexpr int Default = 8;
// A count of pads as the container takes it: never below one.
int Clamp(int slots);
// The entries of a macro of `count` entries that are shown on `slots` pads; the others stay in
// the macro until the next save.
int Shown(int slots, int count);
// The registry name of pad `index` of the container `control`: "Name.FC(3)", so that the pads
// of several containers stay apart.
QString PadName(const QString& control, int index);
}
