#include "kernel/EnergyScale.h"
#include <algorithm>
#include <cmath>

namespace {
const double LogBase = std::log(double(EnergyScale::FullByte + 1));
}

quint8 EnergyScale::Byte(int peak16)
{
    return quint8(std::min(FullByte, (std::max(0, peak16) * FullByte + 16384) >> 15));
}

double EnergyScale::Value(quint8 byte)
{
    const double value = std::log(double(byte) + 1.0) / LogBase;
    return value > 1.0 ? 0.0 : value;
}

double EnergyScale::Value(double peak)
{
    return std::log(1.0 + FullByte * std::clamp(peak, 0.0, 1.0)) / LogBase;
}
