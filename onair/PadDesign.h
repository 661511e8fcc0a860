#pragma once
#include <QColor>
#include <array>

// The pads as drawn: the colours a pad wears before anyone chose its own or stored defaults,
// the room kept for the grid's scroll bar, and the proportions of a pad's face.
namespace PadDesign {
// Background, description, comment, shortcut and time, in that order.
inline const std::array<QColor, 5> FactoryColors{
    QColor(34, 44, 62),    // a dark slate behind the texts
    QColor(245, 245, 235), // the title, the brightest text
    QColor(160, 176, 196), // the comment, quieter than the title
    QColor(255, 200, 64),  // the key, in amber, to be found at a glance
    QColor(150, 230, 150), // the length, in the deck's green
};
// Twips kept at the grid's right for the scroll bar.
constexpr int ScrollRoomTwips = 230;
// The border between pads, in pixels.
constexpr int Gap = 2;
inline const QColor Frame(12, 14, 20);
inline const QColor FreeBack(28, 30, 36);
}
