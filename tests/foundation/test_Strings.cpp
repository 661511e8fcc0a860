#include "foundation/Globals.h"
#include "foundation/Strings.h"
#include "kernel/EmbeddedKernel.h"
#include "kernelapi/KernelError.h"
#include "support/TempStation.h"
#include <gtest/gtest.h>
#include <vector>

namespace {
QString FromCodes(const std::vector<int>& codes)
{
    QString text;
    for (int code : codes)
        text += QChar(static_cast<char16_t>(code));
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
    EXPECT_EQ(UrlEncodeChar(QChar(0x20AC)), "%3F"); // outside the code page: "?"
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
    EXPECT_EQ(ScramblePassword(QStringLiteral("€")), ScramblePassword("?"));

    EXPECT_NE(ScramblePassword("secret"), ScramblePassword("Secret"));
    const QString form = ScramblePassword(QStringLiteral("Ñandú"));
    EXPECT_EQ(form.size(), 10);
    EXPECT_EQ(QString::fromLatin1(form.toLatin1()), form); // survives a single-byte column
}
