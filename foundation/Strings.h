#pragma once
#include <QString>
#include <QStringView>
#include <QVariant>
#include <concepts>

// Text and time routines shared by every screen. All are pure functions, except RelaxedSearch
// (reads the kernel's shared store) and FrameToHuman (logs its own failure).
//
// Trimming removes blanks (spaces) only: a tab or a line feed is data.
// Values declared qint16 behave as 16-bit integers: a result beyond that range throws
// KernelError("Overflow"), which the caller's error handler catches.
// Character codes are those of the single-byte Western code page (Latin-1); a character
// outside it counts as "?", as a conversion to that code page gives.

// Text

// The number in decimal, with no blanks around: 42 -> "42", -7 -> "-7", 1.5 -> "1.5".
QString TrimStr(qint64 number);
QString TrimStr(double number);
template <std::integral T>
QString TrimStr(T number) { return TrimStr(static_cast<qint64>(number)); }

// A null or invalid value gives empty text, anything else its text trimmed.
QString NullToEmpty(const QVariant& value);
// Empty gives empty; else " (" text ")".
QString Parenthesize(const QString& text);

// The number of words of the trimmed text, cutting after each separator and trimming what is
// left: "" has one word, and blanks in a row count once when the separator is a blank.
// An empty separator throws KernelError.
qint16 WordCount(const QString& text, const QString& separator);
// The word at a 1-based index by the same walk, trimmed; empty past the last word.
QString GetWord(int index, const QString& text, const QString& separator);

QString Capitalize(const QString& word);
// Each blank-separated word capitalised, joined with single blanks.
QString ProperCase(const QString& text);
// The text as a quoted SQL literal of the catalogue dialect: each apostrophe becomes
// "' & chr(39) & '" (never doubled), so O'Brien gives 'O' & chr(39) & 'Brien'.
QString SqlQuote(const QString& text);
// flag 0: the needle occurs anywhere in the text; any other flag: the text starts with it.
bool Matches(const QString& needle, const QString& text, int flag);

// Every character, letters and digits too, through UrlEncodeChar.
QString UrlEncode(const QString& text);
// "%" and the character's code in the single-byte Western code page, in upper-case
// hexadecimal, unpadded: '\n' -> "%A", '€' -> "%80".
QString UrlEncodeChar(QChar c);

// The text for comparing user text with catalogue text: accents folded when the shared
// configuration key "RelaxedSearch" is "yes", else unchanged.
QString RelaxedSearch(const QString& text);
QString RelaxedSearch(const QString& text, bool relaxed);
// Vowels with grave, acute or diaeresis become the bare vowel (case kept), Ç and Ñ become
// C and N; every other character, circumflex and tilde vowels too, stays.
QString FoldAccents(const QString& text);
QString FoldAccentChar(QChar c);

// The value in decimal with zeros in front up to the width (after the sign of a negative
// value); a longer number is kept whole: PadZero(7, 3) == "007", PadZero(-7, 3) == "-07".
QString PadZero(qint64 value, int width);
QString Pad2(qint16 value);
QString Pad4(qint16 value);

// The one-way form of a password that the users table stores: always ten characters, worked
// out on the single-byte Western code page (Windows-1252) of the password's characters and
// given as that page's characters, so that forms stored by earlier programs stay valid.
// Equal passwords give equal forms.
QString ScramblePassword(const QString& password);

// The numeric value of the leading decimal number of a text (leading blanks, optional sign,
// digits, optional decimal point and digits); text without one counts 0.
double Val(QStringView text);

// Time. Milliseconds are 32-bit; disc positions are frames, 75 to the second.

struct TimeParts
{
    int hours = 0;
    int minutes = 0;
    int seconds = 0;
    int hundredths = 0;
    int sign = 0; // -1, 0 or 1
};

// Splits the absolute value of ms; hundredths are cut, never rounded.
TimeParts SplitMilliseconds(qint32 ms);
// h * 3600000 + m * 60000 + s * 1000 + c * 10; a result beyond 32 bits throws KernelError.
qint32 JoinMilliseconds(int hours, int minutes, int seconds, int hundredths);
// "-01:02:03.45": the sign only when negative, each field at least two digits.
QString FormatHuman(int sign, int hours, int minutes, int seconds, int hundredths);
QString MsToHuman(qint32 ms);
// "000:00:00.000", the milliseconds kept whole. The value is expected to be at least 0: a
// negative one shows its magnitude.
QString MsToClock(qint32 ms);
// "03m 12s 45f". Beyond 32767 minutes the failure is logged and the result is empty.
QString FrameToHuman(qint32 frames);

struct DateTimeFields
{
    int year = 0;
    int month = 0;
    int day = 0;
    int hours = 0;
    int minutes = 0;
    int seconds = 0;
    bool hasDate = false; // the first eight characters are not blank
    bool hasTime = false; // the last six characters are not blank
};

// Reads a "YYYYMMDDHHMMSS" text; a field that is not a number counts 0.
DateTimeFields ParseDateTime(const QString& text);
// Exactly 14 characters with month, day and time of day in range. The year is not tested
// and 29 February is valid in every year.
bool IsValidDateTime(const QString& text);
// 31, 29, 31, 30, ... for months 1 to 12 (February always 29); another month throws KernelError.
qint16 DaysInMonth(int month);
