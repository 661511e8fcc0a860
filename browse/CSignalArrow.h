#pragma once
#include <QString>

// A row of the cart browser marked by colour while its cart is about to play. It keeps the
// row's own icon to show between flashes.
class CSignalArrow
{
public:
    enum Colors : qint32 { Blue = 0, Red = 1, Green = 2, Yellow = 3, Gray = 4 };

    CSignalArrow(const QString& cartID, qint32 color, const QString& savedIcon);

    QString CartID() const { return m_cartID; }
    qint32 Color() const { return m_color; }
    QString SavedIcon() const { return m_savedIcon; }
    // "Blue", "Red", "Green", "Yellow" or "Gray"; empty for another value.
    QString ColorName() const;
    // The icon key of the arrow: "Arrow" and the colour name.
    QString ArrowIcon() const;

private:
    QString m_cartID;
    qint32 m_color;
    QString m_savedIcon;
};
