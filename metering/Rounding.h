#pragma once
#include <cmath>

// Rounds to the nearest whole number, halves going to the even neighbour (2.5 -> 2, 3.5 -> 4),
// as the meters' geometry is specified.
inline int RoundHalfEven(double value)
{
    return static_cast<int>(std::nearbyint(value));
}
