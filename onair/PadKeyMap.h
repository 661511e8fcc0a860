#pragma once
#include <QString>

// The keys of the 28 pads, row by row, four to a row: "1234" "QWER" "ASDF" "ZXCV" "5678"
// "TYUI" "GHJK". Character i is the shortcut of pad i.
namespace PadKeyMap {
inline constexpr int Rows = 7;
inline constexpr int Columns = 4;
inline constexpr int NumSlots = Rows * Columns;
inline const QString Keys = QStringLiteral("1234QWERASDFZXCV5678TYUIGHJK");

// The key of a pad; empty outside 0 to 27.
QString IndexToShortcut(int index);
// The pad of a key, in either case; -1 when no pad has it.
int ShortcutToIndex(QChar key);
}
