#include "foundation/Globals.h"
#include "foundation/Strings.h"
#include "foundation/Windows1252.h"
#include "kernel/EmbeddedKernel.h"
#include "kernelapi/KernelError.h"
#include "support/TempStation.h"
#include <QStringDecoder>
#include <gtest/gtest.h>
#include <vector>

namespace {
// The text of single-byte codes in the Western code page (0x80 is the euro sign).
QString FromCodes(const std::vector<int>& codes)
{
    QString text;
    for (int code : codes)
        text += Windows1252::CharOf(static_cast<unsigned char>(code));
    return text;
}
}

TEST(StringsTest, NumbersNullsAndParentheses)
{
    EXPECT_EQ(TrimStr(42), "42");
    EXPECT_EQ(TrimStr(-7), "-7");
    EXPECT_EQ(TrimStr(qint64(9007199254740993)), "9007199254740993");
    EXPECT_EQ(TrimStr(1.5), "1.5");

    EXPECT_EQ(NullToEmpty(QVariant()), "");
    EXPECT_EQ(NullToEmpty(QVariant(QMetaType::fromType<QString>())), ""); // a Null field
    EXPECT_EQ(NullToEmpty(QVariant(QStringLiteral("  Jingle  "))), "Jingle");
    EXPECT_EQ(NullToEmpty(QVariant(QStringLiteral("\tTab "))), "\tTab"); // only blanks are trimmed
    EXPECT_EQ(NullToEmpty(QVariant(12)), "12");

    EXPECT_EQ(Parenthesize(""), "");
    EXPECT_EQ(Parenthesize("Mono"), " (Mono)");
}

TEST(StringsTest, WordWalkTrimsAndCollapsesBlanks)
{
    EXPECT_EQ(WordCount("", " "), 1);
    EXPECT_EQ(WordCount("   ", " "), 1);
    EXPECT_EQ(WordCount("  news   at  ten ", " "), 3);
    EXPECT_EQ(WordCount("a,b,,c", ","), 4);
    EXPECT_EQ(WordCount("a,b,", ","), 3);
    EXPECT_EQ(WordCount("x - y - z", " - "), 3);

    EXPECT_EQ(GetWord(1, "  news   at  ten ", " "), "news");
    EXPECT_EQ(GetWord(3, "  news   at  ten ", " "), "ten");
    EXPECT_EQ(GetWord(4, "  news   at  ten ", " "), "");
    EXPECT_EQ(GetWord(2, " JIN0001 , Morning  show ,x", ","), "Morning  show");
    EXPECT_EQ(GetWord(2, "a,,c", ","), "");
    EXPECT_EQ(GetWord(2, "x - y - z", " - "), "y");

    EXPECT_THROW(WordCount("a b", ""), KernelError);
    EXPECT_THROW(GetWord(1, "a b", ""), KernelError);
}

TEST(StringsTest, WordCountOverflowsLikeA16BitInteger)
{
    EXPECT_EQ(WordCount(QString(32766, QLatin1Char(',')), ","), 32767);
    try {
        WordCount(QString(32767, QLatin1Char(',')), ",");
        FAIL() << "no overflow";
    } catch (const KernelError& e) {
        EXPECT_EQ(e.Description(), "Overflow");
    }
}

TEST(StringsTest, CaseAndQuoting)
{
    EXPECT_EQ(Capitalize("hELLO"), "Hello");
    EXPECT_EQ(Capitalize(""), "");
    EXPECT_EQ(Capitalize(QStringLiteral("éTÉ")), QStringLiteral("Été"));
    EXPECT_EQ(ProperCase("  the  QUICK fox "), "The Quick Fox");
    EXPECT_EQ(ProperCase(""), "");

    EXPECT_EQ(SqlQuote("O'Brien"), "'O' & chr(39) & 'Brien'");
    EXPECT_EQ(SqlQuote(""), "''");
    EXPECT_EQ(SqlQuote("'"), "'' & chr(39) & ''");
    EXPECT_EQ(SqlQuote("Rock"), "'Rock'");
}

TEST(StringsTest, MatchesAnywhereOrAtStart)
{
    EXPECT_TRUE(Matches("ock", "Rock", 0));
    EXPECT_FALSE(Matches("ock", "Rock", 1));
    EXPECT_TRUE(Matches("Ro", "Rock", -1));
    EXPECT_FALSE(Matches("rock", "Rock", 0)); // case counts
}

TEST(StringsTest, UrlEncodeEscapesEveryCharacterUnpadded)
{
    EXPECT_EQ(UrlEncode("A b1"), "%41%20%62%31");
    EXPECT_EQ(UrlEncode(""), "");
    EXPECT_EQ(UrlEncodeChar(QLatin1Char('\n')), "%A");
    EXPECT_EQ(UrlEncodeChar(QChar(0xE9)), "%E9");
    EXPECT_EQ(UrlEncodeChar(QChar(0x20AC)), "%80"); // the euro sign's byte in the code page
    EXPECT_EQ(UrlEncodeChar(QChar(0x0080)), "%3F"); // outside the code page: "?"
    EXPECT_EQ(UrlEncodeChar(QChar(0x4E2D)), "%3F");
}

TEST(StringsTest, FoldAccentsOnlyGraveAcuteDiaeresisAndTwoLetters)
{
    EXPECT_EQ(FoldAccents(QStringLiteral("Àlex Ñandú Çà Über ëï")), "Alex Nandu Ca Uber ei");
    EXPECT_EQ(FoldAccents(QStringLiteral("âêîôû ãõ ß")), QStringLiteral("âêîôû ãõ ß"));
    EXPECT_EQ(FoldAccentChar(QChar(0xD3)), "O");
    EXPECT_EQ(FoldAccentChar(QLatin1Char('x')), "x");

    EXPECT_EQ(RelaxedSearch(QStringLiteral("Música"), true), "Musica");
    EXPECT_EQ(RelaxedSearch(QStringLiteral("Música"), false), QStringLiteral("Música"));
}

TEST(StringsTest, RelaxedSearchFollowsTheSharedSwitch)
{
    const auto previous = Globals::Kernel();
    Globals::SetKernel(nullptr);
    EXPECT_EQ(RelaxedSearch(QStringLiteral("Música")), QStringLiteral("Música")); // no kernel: off

    TempStation station;
    const auto kernel = EmbeddedKernel::Open(station.Folder(), nullptr);
    Globals::SetKernel(kernel);
    kernel->SetConfig("RelaxedSearch", "YES");
    EXPECT_EQ(RelaxedSearch(QStringLiteral("Música")), "Musica");
    kernel->SetConfig("RelaxedSearch", "yes please");
    EXPECT_EQ(RelaxedSearch(QStringLiteral("Música")), QStringLiteral("Música"));
    Globals::SetKernel(previous);
}

TEST(StringsTest, PaddingKeepsLongNumbersWhole)
{
    EXPECT_EQ(PadZero(7, 3), "007");
    EXPECT_EQ(PadZero(12345, 3), "12345");
    EXPECT_EQ(PadZero(0, 0), "0");
    EXPECT_EQ(PadZero(-7, 3), "-07");
    EXPECT_EQ(Pad2(5), "05");
    EXPECT_EQ(Pad2(123), "123");
    EXPECT_EQ(Pad4(42), "0042");
    EXPECT_EQ(Pad4(-32768), "-32768");
}

TEST(StringsTest, ValTakesTheLeadingNumber)
{
    EXPECT_EQ(Val(u"12ab"), 12);
    EXPECT_EQ(Val(u"  -3.5x"), -3.5);
    EXPECT_EQ(Val(u".5"), 0.5);
    EXPECT_EQ(Val(u"5."), 5);
    EXPECT_EQ(Val(u"x1"), 0);
    EXPECT_EQ(Val(u"-"), 0);
    EXPECT_EQ(Val(u""), 0);
}

TEST(StringsTest, ScramblePasswordMatchesStoredForms)
{
    // Forms as the users table holds them, each character a code 0..255.
    EXPECT_EQ(ScramblePassword("secret"), FromCodes({101, 73, 33, 42, 11, 240, 186, 144, 230, 252}));
    EXPECT_EQ(ScramblePassword("1234567890"), FromCodes({159, 110, 57, 140, 83, 34, 245, 72, 39, 252}));
    EXPECT_EQ(ScramblePassword(QStringLiteral("pässwörd")), FromCodes({35, 66, 138, 63, 232, 4, 55, 252, 203, 30}));
    EXPECT_EQ(ScramblePassword(""), QString(10, QLatin1Char(' ')));
    // Only the first ten characters count.
    EXPECT_EQ(ScramblePassword("abcdefghijklmnop"), ScramblePassword("abcdefghij"));
    // A character outside the code page counts as '?'.
    EXPECT_EQ(ScramblePassword(QStringLiteral("中")), ScramblePassword("?"));

    EXPECT_NE(ScramblePassword("secret"), ScramblePassword("Secret"));
    const QString form = ScramblePassword(QStringLiteral("Ñandú"));
    EXPECT_EQ(form.size(), 10);
    for (QChar c : form)
        EXPECT_GE(Windows1252::ByteOf(c), 0) << "survives a single-byte column";
}

TEST(StringsTest, ScramblePasswordTakesTheCodesOfTheWesternCodePageBeyondLatin1)
{
    // The euro sign, the ligature and the curly quotes have codes 0x80..0x9F there, and the
    // bytes 0x80..0x9F of a form come out as the code page's characters ("korvane" gives ‡).
    EXPECT_EQ(ScramblePassword(QStringLiteral("€uro")), FromCodes({178, 17, 228, 167, 218, 12, 126, 176, 226, 212}));
    EXPECT_EQ(ScramblePassword(QStringLiteral("Œuvre")), FromCodes({142, 113, 112, 122, 111, 44, 46, 48, 50, 52}));
    EXPECT_EQ(ScramblePassword(QStringLiteral("“quoted”")), FromCodes({91, 225, 45, 79, 156, 213, 28, 212, 40, 240}));
    EXPECT_EQ(ScramblePassword(QStringLiteral("‘x’")), FromCodes({51, 60, 116, 168, 10, 236, 78, 48, 146, 116}));
    EXPECT_EQ(ScramblePassword("korvane"), FromCodes({135, 183, 182, 198, 253, 230, 17, 64, 108, 24}));
    EXPECT_EQ(ScramblePassword("korvane").at(0), QChar(0x2021));
}

TEST(Windows1252Test, EveryByteHasOneCharacterAndBack)
{
    EXPECT_EQ(Windows1252::CharOf(0x80), QChar(0x20AC));
    EXPECT_EQ(Windows1252::CharOf(0x8C), QChar(0x0152));
    EXPECT_EQ(Windows1252::CharOf(0x93), QChar(0x201C));
    EXPECT_EQ(Windows1252::CharOf(0x81), QChar(0x0081)) << "an unassigned byte keeps its code";
    EXPECT_EQ(Windows1252::CharOf(0xE9), QChar(0x00E9));
    for (int byte = 0; byte < 256; ++byte)
        EXPECT_EQ(Windows1252::ByteOf(Windows1252::CharOf(static_cast<unsigned char>(byte))), byte) << byte;
    EXPECT_EQ(Windows1252::ByteOf(QChar(0x0080)), -1) << "a control character the page replaced";
    EXPECT_EQ(Windows1252::ByteOf(QChar(0x0100)), -1);

    // Where Qt converts the code page (built with ICU), both agree on the 27 assigned bytes.
    QStringDecoder system("windows-1252");
    if (!system.isValid())
        return;
    int assigned = 0;
    for (int byte = 0x80; byte < 0xA0; ++byte) {
        const QString decoded = system.decode(QByteArray(1, static_cast<char>(byte)));
        if (decoded.size() != 1 || decoded.at(0) == QChar::ReplacementCharacter || decoded.at(0).unicode() <= 0x9F)
            continue;
        ++assigned;
        EXPECT_EQ(Windows1252::CharOf(static_cast<unsigned char>(byte)), decoded.at(0)) << byte;
    }
    EXPECT_EQ(assigned, 27);
}
