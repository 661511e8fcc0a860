#pragma once
#include <QRect>

// Positions and sizes of the screens are given in twips: 15 twips to a pixel at 96 dpi.
namespace Twips {
inline constexpr int PerPixel = 15;
inline int ToPixels(double twips) { return static_cast<int>(twips / PerPixel + 0.5); }
inline double FromPixels(int pixels) { return static_cast<double>(pixels) * PerPixel; }
inline QRect Rect(double left, double top, double width, double height)
{
    return QRect(ToPixels(left), ToPixels(top), ToPixels(width), ToPixels(height));
}
}
