// The information line of the Live screen: help texts chosen by the panel under the pointer
// (and not repainted while the pointer stays in one), a hovered cart's description, and
// alerts, which hold the line until they are cleared.
#include "LiveTest.h"
#include "foundation/Strings.h"
#include "metering/IFVumeters.h"
#include <QFrame>
#include <QLabel>
#include <QMouseEvent>

namespace {
void MoveOver(QWidget* widget)
{
    const QPointF at = widget->rect().center();
    QMouseEvent move(QEvent::MouseMove, at, widget->mapToGlobal(at), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &move);
}

QColor Back(const QLabel* label) { return label->palette().color(QPalette::Window); }
QColor Fore(const QLabel* label) { return label->palette().color(QPalette::WindowText); }
}

TEST_F(LiveTest, ThePanelUnderThePointerChoosesTheHelpTextOnceUntilTheIndexChanges)
{
    Directe& screen = Live();
    MoveOver(screen.Cartutxeres[1]);
    EXPECT_EQ(screen.CurrentInfo(), 1);
    EXPECT_EQ(screen.Estat->text(), QStringLiteral("CARTPLAYERS\nMakes it playback"));
    MoveOver(screen.Estat);
    EXPECT_EQ(screen.Estat->text(), QStringLiteral("INFORMATION BOARD\nLook it often"));
    MoveOver(screen.List);
    EXPECT_EQ(screen.CurrentInfo(), 6);
    ASSERT_NE(screen.LevelPannel, nullptr);
    MoveOver(screen.LevelPannel);
    EXPECT_EQ(screen.Estat->text(), QStringLiteral("LEVELS INDICATORS\nRecording / A Channel / B Channel"));

    // The same index again does not repaint the line.
    screen.Estat->setText(QStringLiteral("painted elsewhere"));
    MoveOver(screen.LevelPannel);
    EXPECT_EQ(screen.Estat->text(), QStringLiteral("painted elsewhere"));
    screen.SetInfo(13);
    EXPECT_EQ(screen.Estat->text(), QStringLiteral("LINK LISTS UP\nON = successive sounds, OFF = separated sounds"));

    screen.SetInfoSay(QStringLiteral("DECK 2"), QStringLiteral("Loaded"));
    EXPECT_EQ(screen.Estat->text(), QStringLiteral("DECK 2\nLoaded"));
    EXPECT_EQ(screen.CurrentInfo(), -1);
    EXPECT_EQ(Back(screen.Estat), screen.InfoBack(Directe::NormalColour));
    EXPECT_EQ(screen.InfoBack(Directe::RedColour), QColor(240, 0, 0));
    EXPECT_EQ(screen.InfoBack(Directe::AmberColour), QColor(200, 150, 0));
}

TEST_F(LiveTest, AHoveredCartIsDescribedByItsTypeLengthDescriptionAndComment)
{
    Directe& screen = Live();
    screen.SetInfoSound(QStringLiteral("JIN0001"));
    const QStringList sound = screen.Estat->text().split('\n');
    ASSERT_EQ(sound.size(), 2);
    EXPECT_EQ(sound[0], QStringLiteral("Cart: JIN0001 / Tipus: So / Duració: ") + MsToHuman(Cart(QStringLiteral("JIN0001"))->Time()));
    EXPECT_TRUE(sound[1].startsWith(QStringLiteral("Station ID \"Korvane FM\""))) << sound[1].toStdString();

    screen.SetInfoSound(QStringLiteral("MES0001"));
    EXPECT_TRUE(screen.Estat->text().startsWith(QStringLiteral("Cart: MES0001 / Tipus: Macro / Duració: ")));
    screen.SetInfoSound(QStringLiteral("CON0001"));
    EXPECT_TRUE(screen.Estat->text().startsWith(QStringLiteral("Cart: CON0001 / Duració: "))) << "a control has no type text";
    screen.SetInfoSound(QStringLiteral("ZZZ9999"));
    EXPECT_EQ(screen.Estat->text(), QStringLiteral("No hi ha informació disponible de\nZZZ9999"));
    EXPECT_EQ(screen.CurrentInfo(), -1);
    EXPECT_TRUE(Errors().isEmpty()) << Errors().join('\n').toStdString();
}

TEST_F(LiveTest, AnAlertHoldsTheLineAndClearingOneOfTwoFreesItWhileTheOtherStaysOnShow)
{
    Directe& screen = Live();
    const QString alert = QStringLiteral("INVALID RECORDING FORMAT\nCall the SuperUser for reconfigure the sound parameters.");
    screen.SetInfoAlert(1, true);
    EXPECT_EQ(screen.Estat->text(), alert);
    EXPECT_EQ(Back(screen.Estat), QColor(200, 150, 0));
    EXPECT_EQ(Fore(screen.Estat), QColor(Qt::white));

    // Neither hover nor help nor free text changes it.
    screen.SetInfo(8);
    screen.SetInfoSay(QStringLiteral("title"), QStringLiteral("text"));
    screen.SetInfoSound(QStringLiteral("JIN0001"));
    EXPECT_EQ(screen.Estat->text(), alert);

    // A second alert without a text of its own shows nothing new; clearing it frees the line
    // while the first alert stays on show.
    screen.SetInfoAlert(2, true);
    EXPECT_EQ(screen.Estat->text(), alert);
    screen.SetInfoAlert(2, false);
    EXPECT_FALSE(screen.AlertShowing());
    EXPECT_EQ(screen.AlertFlags(), 1);
    EXPECT_EQ(screen.Estat->text(), alert);
    EXPECT_EQ(Back(screen.Estat), QColor(200, 150, 0));
    screen.SetInfo(1);
    EXPECT_EQ(screen.Estat->text(), QStringLiteral("CARTPLAYERS\nMakes it playback"));

    // The last alert cleared: the normal colours come back and the text stands.
    screen.SetInfoAlert(1, true);
    screen.SetInfoAlert(1, false);
    EXPECT_EQ(screen.AlertFlags(), 0);
    EXPECT_EQ(screen.Estat->text(), alert);
    EXPECT_EQ(Back(screen.Estat), screen.InfoBack(Directe::NormalColour));
    EXPECT_EQ(Fore(screen.Estat), screen.InfoFore(Directe::NormalColour));
}
