#include "foundation/Colors.h"

RgbComponents ColorToRGB(qint32 colour)
{
    RgbComponents rgb;
    rgb.red = static_cast<qint16>(colour & 255);
    rgb.green = static_cast<qint16>((colour & 65280) / 256);
    rgb.blue = static_cast<qint16>((colour & 16711680) / 65536);
    return rgb;
}
