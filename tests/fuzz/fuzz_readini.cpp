// Feeds arbitrary bytes to the reader of files of sections and keys, reads back every key it
// found, and checks that a key written into the same bytes reads back as written.
#include "foundation/Ini.h"
#include <cstdint>
#include <cstdlib>

namespace {
void ReadEverything(const IniFile& ini)
{
    for (const QString& section : ini.Sections()) {
        for (const QString& key : ini.Keys(section)) {
            if (ReadIni(ini, section, key, QStringLiteral("default")).isEmpty())
                std::abort(); // an empty read must give the default
        }
    }
}

void CheckWriteReadsBack(const QByteArray& content)
{
    const QString value = QStringLiteral("fuzz value");
    const IniFile edited = IniFile::Parse(IniFile::WithValue(content, QStringLiteral("Fuzz"), QStringLiteral("Key"), value));
    if (ReadIni(edited, QStringLiteral("fuzz"), QStringLiteral("KEY"), QString()) != value)
        std::abort();
}
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray content = QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    ReadEverything(IniFile::Parse(content));
    CheckWriteReadsBack(content);
    return 0;
}
