#pragma once
#include <QChar>

// The single-byte Western code page of the catalogues' text: Latin-1 but for 0x80..0x9F,
// where it holds the euro sign, the typographic quotes and dashes and a few letters (Œ, Š,
// Ž, Ÿ...). Its five unassigned bytes there (0x81, 0x8D, 0x8F, 0x90, 0x9D) stand for the
// control characters of the same code, as the system's own conversion does. Qt converts this
// code page only when built with ICU, so the table is kept here.
namespace Windows1252 {
// The byte of a character, or -1 when the code page has none for it.
int ByteOf(QChar c);
// The character of a byte.
QChar CharOf(unsigned char byte);
}
