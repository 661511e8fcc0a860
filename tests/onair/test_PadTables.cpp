// The pieces of the pads that need no widget and no kernel: the stored form of the colours,
// the key map and the face of a pad in each mode.
#include "controls/RecordingLogger.h"
#include "foundation/PadColorsText.h"
#include "onair/CFastCartColors.h"
#include "onair/PadFace.h"
#include "onair/PadKeyMap.h"
#include <QColor>
#include <QSignalSpy>
#include <gtest/gtest.h>

TEST(PadColorsText, FiveColoursWriteAsThirtyDigitsBlueGreenRedAndReadBack)
{
    const PadColorsText::Values values{0x0000FF, 0x00FF00, 0xFF0000, 0x123456, 0};
    const QString text = PadColorsText::Write(values);
    EXPECT_EQ(text, QStringLiteral("0000FF00FF00FF0000123456000000")) << "red 255 is 0000FF";
    EXPECT_EQ(PadColorsText::Read(text).values, values);
    EXPECT_EQ(PadColorsText::Serial(0x7F123456), QStringLiteral("123456")) << "cut to its last six digits";
    EXPECT_EQ(PadColorsText::Read(text.toLower()).values, values) << "digits in either case";
}

TEST(PadColorsText, TextsThatAreNoColourSetReadAsNothingWithAReason)
{
    const QString good = QStringLiteral("0000FF00FF00FF0000123456000000");
    for (const QString& bad : {good.left(29), good + QLatin1Char('0'), QString(), QStringLiteral("-00001") + good.mid(6),
                               good.left(24) + QStringLiteral(" 12345"), good.left(6) + QStringLiteral("0x1234") + good.mid(12),
                               good.left(24) + QStringLiteral("GGGGGG"), good.left(24) + QStringLiteral("12345é")}) {
        const PadColorsText::Reading reading = PadColorsText::Read(bad);
        EXPECT_FALSE(reading.values) << bad.toStdString();
        EXPECT_FALSE(reading.error.isEmpty()) << bad.toStdString();
    }
}

TEST(CFastCartColors, AWrongLengthIsIgnoredSilentlyAndMalformedDigitsWithAnErrorLine)
{
    const auto log = RecordingLogger::Install();
    CFastCartColors colors;
    QSignalSpy changed(&colors, &CFastCartColors::Changed);
    const QString before = colors.SerializedColors();

    colors.SetSerializedColors(QStringLiteral("0000FF00FF00FF0000123456000"));
    colors.SetSerializedColors(before.left(29));
    EXPECT_EQ(colors.SerializedColors(), before);
    EXPECT_TRUE(log->lines.isEmpty());

    colors.SetSerializedColors(before.left(24) + QStringLiteral("XYZXYZ"));
    EXPECT_EQ(colors.SerializedColors(), before);
    EXPECT_EQ(log->Errors().size(), 1);
    EXPECT_EQ(changed.count(), 0);

    colors.SetSerializedColors(QStringLiteral("0000FF00FF00FF0000123456000000"));
    EXPECT_EQ(changed.count(), 1) << "one event for the five colours";
    EXPECT_EQ(colors.BackGround(), 0x0000FF);
    EXPECT_EQ(colors.Color(CFastCartColors::BackGroundPart), QColor(255, 0, 0));
    Log::SetLogger(nullptr);
}

TEST(CFastCartColors, WithoutAKernelDefaultsAreLeftAloneAndAReferenceIsCopied)
{
    CFastCartColors colors;
    colors.SetSerializedColors(QStringLiteral("111111222222333333444444555555"));
    colors.ReturnToDefaults();
    EXPECT_EQ(colors.SerializedColors(), QStringLiteral("111111222222333333444444555555"));
    CFastCartColors other;
    colors.ReturnToReference(&other);
    EXPECT_EQ(colors.SerializedColors(), other.SerializedColors());
    colors.ReturnToReference(nullptr);
    EXPECT_EQ(colors.SerializedColors(), other.SerializedColors());
}

TEST(PadKeyMap, KeysNameThePadsRowByRowInEitherCase)
{
    EXPECT_EQ(PadKeyMap::ShortcutToIndex(QLatin1Char('Q')), 4);
    EXPECT_EQ(PadKeyMap::ShortcutToIndex(QLatin1Char('q')), 4);
    EXPECT_EQ(PadKeyMap::ShortcutToIndex(QLatin1Char('1')), 0);
    EXPECT_EQ(PadKeyMap::ShortcutToIndex(QLatin1Char('4')), 3);
    EXPECT_EQ(PadKeyMap::ShortcutToIndex(QLatin1Char('5')), 16) << "5 to 8 are row 4";
    EXPECT_EQ(PadKeyMap::ShortcutToIndex(QLatin1Char('8')), 19);
    EXPECT_EQ(PadKeyMap::ShortcutToIndex(QLatin1Char('k')), 27);
    for (QChar unmapped : {QChar(u'9'), QChar(u'0'), QChar(u'L'), QChar(u' '), QChar()})
        EXPECT_EQ(PadKeyMap::ShortcutToIndex(unmapped), -1) << int(unmapped.unicode());
    EXPECT_EQ(PadKeyMap::IndexToShortcut(12), QStringLiteral("Z"));
    EXPECT_EQ(PadKeyMap::IndexToShortcut(-1), QString());
    EXPECT_EQ(PadKeyMap::IndexToShortcut(28), QString());
    for (int i = 0; i < PadKeyMap::NumSlots; ++i)
        EXPECT_EQ(PadKeyMap::ShortcutToIndex(PadKeyMap::IndexToShortcut(i).at(0)), i);
}

TEST(PadFace, APadShowsFiveThingsAndASingleLineOneOnlyWithACart)
{
    const PadFace::Cart cart{true, 0, QStringLiteral("JIN0001"), QStringLiteral("Station ID"), QStringLiteral("loud"), 3500};
    const PadFace::Face pad = PadFace::Make(PadFace::Pad, cart, QStringLiteral("Q"), QStringLiteral("Not Loaded"));
    EXPECT_FALSE(pad.description1Visible);
    EXPECT_TRUE(pad.description2Visible && pad.commentVisible && pad.shortcutVisible && pad.timeVisible && pad.iconVisible);
    EXPECT_EQ(pad.description2, QStringLiteral("Station ID"));
    EXPECT_EQ(pad.comment, QStringLiteral("loud"));
    EXPECT_EQ(pad.time, QStringLiteral("00:00:03.50"));
    EXPECT_EQ(pad.icon, QStringLiteral("SOUND"));

    const PadFace::Face line = PadFace::Make(PadFace::SingleLine, cart, QStringLiteral("Q"), QStringLiteral("Not Loaded"));
    EXPECT_TRUE(line.description1Visible);
    EXPECT_FALSE(line.description2Visible || line.commentVisible || line.shortcutVisible || line.timeVisible);
    EXPECT_EQ(line.description1, QStringLiteral("JIN0001  Station ID"));

    const PadFace::Face free = PadFace::Make(PadFace::SingleLine, PadFace::Cart{}, QStringLiteral("Q"), QStringLiteral("Not Loaded"));
    EXPECT_FALSE(free.description1Visible);
    EXPECT_EQ(free.description1, QStringLiteral("Not Loaded"));
    EXPECT_EQ(free.icon, QStringLiteral("BLANK"));
    EXPECT_EQ(PadFace::IconKey(1), QStringLiteral("MACRO"));
    EXPECT_EQ(PadFace::IconKey(2), QStringLiteral("ACTION"));
    EXPECT_EQ(PadFace::IconKey(4), QStringLiteral("UNKNOWN"));
}
