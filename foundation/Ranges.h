#pragma once

// Small comparisons shared by the screens.

// low when value is below it, high when above it, else value.
inline int Clamp(int value, int low, int high)
{
    return value < low ? low : (value > high ? high : value);
}

// low <= value <= high.
template <class T>
bool Between(const T& value, const T& low, const T& high)
{
    return low <= value && value <= high;
}

// The larger of two values; on a tie the second.
template <class T>
const T& MaxOf(const T& a, const T& b)
{
    return a > b ? a : b;
}

// The smaller of two values; on a tie the second.
template <class T>
const T& MinOf(const T& a, const T& b)
{
    return a < b ? a : b;
}
