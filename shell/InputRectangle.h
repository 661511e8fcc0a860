#pragma once
#include <QRect>
#include <QString>
#include <optional>

// Asks the user for a rectangle: left, top, width and height in twips, typed as four whole
// numbers ("600, 300, 4800, 1200") in an input box that proposes a rectangle. A text that is
// not four numbers with a positive width and height is asked again, with the proposal;
// cancelling gives nothing.
class InputRectangle
{
public:
    // The size proposed when the given proposal has none.
    static constexpr QSize DefaultSize{3000, 1500};

    static std::optional<QRect> Ask(const QString& title, const QRect& proposal);
    // The rectangle written in a text, or nothing when the text is not one.
    static std::optional<QRect> Parse(const QString& text);
    static QString Format(const QRect& rectangle);
};
