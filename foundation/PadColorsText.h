#pragma once
#include <QString>
#include <array>
#include <optional>

// The stored form of a pad's five colours: exactly 30 characters, five groups of six
// hexadecimal digits in the order background, description, comment, shortcut, time. Each
// group is a colour value (red in the low byte) written in hexadecimal, padded on the left
// with zeroes and cut to its last six digits, so the digits read blue, green, red.
//
// Pure functions without widgets or kernel, so that the fuzzing build reaches the reader.
namespace PadColorsText {
inline constexpr int Count = 5;
inline constexpr int GroupLength = 6;
inline constexpr int Length = Count * GroupLength;
using Values = std::array<qint32, Count>;

// What a text reads as: the five values, or why it reads as nothing.
struct Reading
{
    std::optional<Values> values;
    QString error;
};

// Six upper-case hexadecimal digits of a value.
QString Serial(qint32 value);
// The 30 characters of five values.
QString Write(const Values& values);
// Reads a text: a text of any other length than 30, or a group holding anything but
// hexadecimal digits, reads as no values and a message saying why.
Reading Read(const QString& text);
}
