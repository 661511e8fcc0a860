#include "foundation/Windows1252.h"
#include <array>

namespace {
constexpr unsigned char First = 0x80;

// The characters of the bytes 0x80..0x9F; an unassigned byte keeps its own code.
constexpr std::array<char16_t, 32> High = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, // 80..87
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F, // 88..8F
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, // 90..97
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178, // 98..9F
};

bool InHighRange(char16_t code)
{
    return code >= First && code < First + High.size();
}
}

namespace Windows1252 {
int ByteOf(QChar c)
{
    const char16_t code = c.unicode();
    for (size_t k = 0; k < High.size(); ++k)
        if (High[k] == code)
            return static_cast<int>(First + k);
    // The other control characters of 0x80..0x9F have no byte; the rest is Latin-1.
    return code <= 0xFF && !InHighRange(code) ? code : -1;
}

QChar CharOf(unsigned char byte)
{
    return QChar(InHighRange(byte) ? High[byte - First] : char16_t(byte));
}
}
