// What the studio clock shows in each mode, its popup menu, and the once-an-hour rule, all
// without widgets.
#include "metering/ClockFace.h"
#include "metering/ClockMenu.h"
#include "metering/HourlySync.h"
#include <gtest/gtest.h>

namespace {
const QLocale English(QLocale::English, QLocale::UnitedKingdom);

QDateTime At(const QString& time)
{
    return QDateTime(QDate(2026, 3, 5), QTime::fromString(time, QStringLiteral("hh:mm:ss")));
}

QString Shown(qint32 mode, bool pressed, bool alternation, const QString& time = QStringLiteral("09:07:13"))
{
    return ClockFace::Text(mode, pressed, alternation, At(time), English);
}

QStringList Texts(const QVector<Dialogs::PopupLine>& lines)
{
    QStringList texts;
    for (const Dialogs::PopupLine& line : lines)
        texts.append(line.text);
    return texts;
}

QStringList CheckedKeys(const QVector<Dialogs::PopupLine>& lines)
{
    QStringList keys;
    for (const Dialogs::PopupLine& line : lines)
        if (line.checked)
            keys.append(line.key);
    return keys;
}
}

TEST(ClockFace, TimeAndDateTexts)
{
    EXPECT_EQ(ClockFace::TimeText(QTime(9, 7, 3)), QStringLiteral("09:07:03"));
    EXPECT_EQ(ClockFace::TimeText(QTime(23, 59, 59)), QStringLiteral("23:59:59"));
    EXPECT_EQ(ClockFace::DateText(QDate(2026, 3, 5), English), QStringLiteral("05 Mar 2026"));
    EXPECT_EQ(ClockFace::DateText(QDate(2026, 12, 31), QLocale(QLocale::German, QLocale::Germany)), QStringLiteral("31 Dez. 2026"));
}

TEST(ClockFace, EachModeWithAndWithoutTheButton)
{
    const QString time = QStringLiteral("09:07:13");
    const QString date = QStringLiteral("05 Mar 2026");
    EXPECT_EQ(Shown(ClockFace::TimeOnly, false, true), time);
    EXPECT_EQ(Shown(ClockFace::TimeOnly, true, false), date);
    EXPECT_EQ(Shown(ClockFace::DateOnly, false, true), date);
    EXPECT_EQ(Shown(ClockFace::DateOnly, true, false), time);
    EXPECT_EQ(Shown(ClockFace::Alternated, true, false), time);
    EXPECT_EQ(Shown(ClockFace::Alternated, false, true), date);
    EXPECT_EQ(Shown(ClockFace::TwoLines, true, true), time + QChar(13) + date);
    EXPECT_EQ(Shown(7, true, true), time);
    EXPECT_EQ(Shown(-1, false, false), time);
}

TEST(ClockFace, TheAlternationShowsTheDateThreeSecondsInTen)
{
    QString shownSeconds;
    for (int second = 0; second < 10; ++second)
        if (ClockFace::AlterFlag(QStringLiteral("12:00:1%1").arg(second)))
            shownSeconds += QString::number(second);
    EXPECT_EQ(shownSeconds, QStringLiteral("345"));
    EXPECT_FALSE(ClockFace::AlterFlag(QString()));
}

TEST(ClockMenu, LinesInOrderWithTheModeChecked)
{
    const QVector<Dialogs::PopupLine> lines = ClockMenu::Lines(2, 16);
    EXPECT_EQ(Texts(lines), QStringList({"-Clock", "-", "-Mode", "Time_h", "Date", "Time + Date (alternated)", "Time + Date (2 lines)", "-Size", "Tiny",
                                         "Small", "Medium", "Big", "Huge", "-", "Cancel"}));
    EXPECT_EQ(lines[5].key, QStringLiteral("IFClock.ClockMode=2"));
    EXPECT_EQ(lines[5].data.toInt(), 2);
    EXPECT_EQ(lines[12].key, QStringLiteral("IFClock.ClockSize=32"));
    EXPECT_EQ(lines[12].data.toInt(), 32);
    // The size is looked for among the mode keys, so no size item is ever checked.
    EXPECT_EQ(CheckedKeys(lines), QStringList({"IFClock.ClockMode=2"}));
    EXPECT_EQ(CheckedKeys(ClockMenu::Lines(0, 3)), QStringList({"IFClock.ClockMode=0", "IFClock.ClockMode=3"}));
}

TEST(ClockMenu, AChoiceChangesOnlyWhatItsKeySays)
{
    const QVector<Dialogs::PopupLine> lines = ClockMenu::Lines(0, 16);
    const ClockMenu::Change mode = ClockMenu::Choose(lines, QStringLiteral("IFClock.ClockMode=3"));
    EXPECT_EQ(mode.mode, 3);
    EXPECT_FALSE(mode.size);
    const ClockMenu::Change size = ClockMenu::Choose(lines, QStringLiteral("IFClock.ClockSize=23"));
    EXPECT_EQ(size.size, 23);
    EXPECT_FALSE(size.mode);
    for (const QString& nothing : {QStringLiteral("IFClock.Cancel"), QString(), QStringLiteral("IFClock.ClockMode=9")}) {
        const ClockMenu::Change change = ClockMenu::Choose(lines, nothing);
        EXPECT_FALSE(change.mode || change.size) << nothing.toStdString();
    }
}

TEST(HourlySync, OnceAnHourInMinute52AndClearedOnlyInMinute55)
{
    HourlySync sync;
    EXPECT_FALSE(sync.Tick(QStringLiteral("10:51:59")));
    EXPECT_TRUE(sync.Tick(QStringLiteral("10:52:00")));
    EXPECT_FALSE(sync.Tick(QStringLiteral("10:52:10")));
    EXPECT_FALSE(sync.Tick(QStringLiteral("10:54:50")));
    EXPECT_TRUE(sync.Done());
    EXPECT_FALSE(sync.Tick(QStringLiteral("10:55:00")));
    EXPECT_FALSE(sync.Done());
    EXPECT_TRUE(sync.Tick(QStringLiteral("11:52:05")));

    // A clock that jumps over minute 55 keeps the mark: no second synchronisation.
    EXPECT_FALSE(sync.Tick(QStringLiteral("12:52:05")));
    // The hour itself does not matter, only characters 4 and 5.
    EXPECT_FALSE(sync.Tick(QStringLiteral("52:00:00")));
}
