#pragma once
#include <QtGlobal>

// The scale of energy values. An energy byte holds the peak of a step as a fraction of full
// scale times 127; it reads back as log(byte + 1) / log(128), so that 0 is silence, 127 is
// full scale and the drawn height follows the level in decibels over about 42 dB. Bytes from
// 128 up read as silence.
class EnergyScale
{
public:
    static constexpr int FullByte = 127;

    // The byte of a 16-bit peak (0 to 32768).
    static quint8 Byte(int peak16);
    // The value, 0 to 1, that a byte reads as.
    static double Value(quint8 byte);
    // The value of a peak given as a fraction of full scale, without the rounding of a byte.
    static double Value(double peak);
};
