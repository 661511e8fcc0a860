// Feeds arbitrary bytes to the reader of a pad's stored colours: a text either reads as five
// colours that write back to the same digits (in upper case), or as nothing with a message.
#include "foundation/PadColorsText.h"
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const PadColorsText::Reading reading = PadColorsText::Read(text);
    if (reading.values.has_value() == !reading.error.isEmpty())
        std::abort(); // exactly one of values and message
    if (!reading.values)
        return 0;
    for (qint32 value : *reading.values)
        if (value < 0 || value > 0xFFFFFF)
            std::abort();
    if (PadColorsText::Write(*reading.values) != text.toUpper())
        std::abort();
    return 0;
}
