#pragma once
#include <QtGlobal>

// The components of a colour value that holds red in its low byte, green in the next and
// blue in the third (the serial form of colours in tables and settings).
struct RgbComponents
{
    qint16 red = 0;
    qint16 green = 0;
    qint16 blue = 0;
};

RgbComponents ColorToRGB(qint32 colour);
