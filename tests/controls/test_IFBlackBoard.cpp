// The text board: caption and borders, colours, and where lines are printed.
#include "foundation/controls/IFBlackBoard.h"
#include "foundation/controls/PrintBoard.h"
#include "foundation/controls/VolmarPannel.h"
#include <QTest>
#include <gtest/gtest.h>

TEST(IFBlackBoard, CaptionGoesToTheOuterBorderOrTheInnerOne)
{
    IFBlackBoard board;
    board.resize(200, 120);
    board.show();
    EXPECT_EQ(board.Border->Caption(), QStringLiteral("Title"));
    EXPECT_EQ(board.Border2->Caption(), QString());
    EXPECT_EQ(board.Border2->parentWidget(), board.Border);
    EXPECT_EQ(board.Border2->geometry(), board.Border->Rectangle());
    EXPECT_EQ(board.Board->geometry(), board.Border2->Rectangle());

    board.SetDoubleBorder(false);
    EXPECT_FALSE(board.Border->isVisible());
    EXPECT_EQ(board.Border2->parentWidget(), board.BackGround);
    EXPECT_EQ(board.Border2->geometry(), QRect(0, 0, 200, 120));
    EXPECT_EQ(board.Border2->Caption(), QStringLiteral("Title"));
    EXPECT_EQ(board.Border->Caption(), QString());
    EXPECT_EQ(board.Border2->BorderCaption(), 16);
    board.SetCaption(QString());
    EXPECT_EQ(board.Border2->BorderCaption(), 6);

    board.SetCaption(QStringLiteral("Info"));
    board.SetDoubleBorder(true);
    EXPECT_TRUE(board.Border->isVisible());
    EXPECT_EQ(board.Border2->parentWidget(), board.Border);
    EXPECT_EQ(board.Border2->geometry(), board.Border->Rectangle());
    EXPECT_EQ(board.Border->Caption(), QStringLiteral("Info"));
    EXPECT_EQ(board.Border2->Caption(), QString());
}

TEST(IFBlackBoard, ColoursComeFromTheFiveSchemes)
{
    IFBlackBoard board;
    EXPECT_EQ(board.Board->TextColor(), QColor(128, 192, 255));
    EXPECT_EQ(board.Board->BoardColor(), QColor(0, 0, 64));
    board.SetColor(3);
    EXPECT_EQ(board.Board->TextColor(), QColor(255, 96, 96));
    EXPECT_EQ(board.Board->BoardColor(), QColor(64, 0, 0));
    board.SetColor(5);
    board.SetColor(-1);
    EXPECT_EQ(board.Color(), -1);
    EXPECT_EQ(board.Board->BoardColor(), QColor(64, 0, 0));
}

TEST(IFBlackBoard, PrintsLinesColumnsAndCentredText)
{
    IFBlackBoard board;
    board.resize(300, 200);
    board.show();
    PrintBoard& surface = *board.Board;
    const int line = surface.TextHeight();

    board.PrintText(QStringLiteral("first"));
    board.PrintText2(QStringLiteral("Left"), QStringLiteral("Right"));
    ASSERT_EQ(surface.Printed().size(), 3);
    EXPECT_EQ(surface.Printed()[1].y, line);
    EXPECT_EQ(surface.Printed()[2].y, line);
    EXPECT_DOUBLE_EQ(surface.Printed()[2].x, 0.3);
    EXPECT_EQ(surface.CurrentY(), 2 * line);
    EXPECT_EQ(board.PrintedLines(), QStringList({QStringLiteral("first"), QStringLiteral("Left\tRight")}));

    // A press on the board moves the second column for every later line.
    QTest::mouseClick(&surface, Qt::LeftButton, {}, QPoint(surface.width() / 2, 5));
    board.PrintText2(QStringLiteral("a"), QStringLiteral("b"));
    board.PrintText2(QStringLiteral("c"), QStringLiteral("d"));
    EXPECT_NEAR(surface.Printed()[4].x, 0.5, 0.01);
    EXPECT_NEAR(surface.Printed()[6].x, 0.5, 0.01);

    board.Cls();
    EXPECT_TRUE(surface.Printed().isEmpty());
    EXPECT_EQ(surface.CurrentY(), 0);
    board.PrintText(QStringLiteral("middle"), true, true);
    const PrintBoard::PrintedText centred = surface.Printed().first();
    EXPECT_NEAR(centred.x + surface.TextWidth(QStringLiteral("middle")) / 2, 0.5, 1e-9);
    EXPECT_EQ(centred.y, surface.height() / 2 - line / 2);
}
