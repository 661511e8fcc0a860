#pragma once
#include <cmath>

// Rounds to the nearest whole number, halves going to the even neighbour (2.5 -> 2, 3.5 -> 4),
// so that the meters keep the same LED geometry on every machine.
inline int RoundHalfEven(double value)
{
    return static_cast<int>(std::nearbyint(value));
}
