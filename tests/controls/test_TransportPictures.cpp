// The lamp and the key drawn in code: what the callers' signs are given to draw with, the
// colours of the glass and the cap, and the null pictures of empty sizes.
#include "foundation/controls/KeyPicture.h"
#include "foundation/controls/LampPicture.h"
#include "foundation/controls/TransportGlyphs.h"
#include <QImage>
#include <QPainter>
#include <functional>
#include <gtest/gtest.h>

namespace {
struct SignCall
{
    int calls = 0;
    QRectF box;
    QColor brush;
    Qt::PenStyle pen = Qt::SolidLine;
};

// A sign that draws nothing and notes what it was given.
std::function<void(QPainter&, const QRectF&)> Noting(SignCall& call)
{
    return [&call](QPainter& painter, const QRectF& box) {
        ++call.calls;
        call.box = box;
        call.brush = painter.brush().color();
        call.pen = painter.pen().style();
    };
}
}

TEST(LampPicture, DrawsTheGlassInTheLampsColourAndHandsItsBoxToTheSign)
{
    SignCall call;
    const QPixmap lamp = LampPicture::Draw(40, QColor(60, 220, 100), Noting(call));
    ASSERT_EQ(lamp.size(), QSize(40, 40));
    EXPECT_EQ(call.calls, 1);
    EXPECT_TRUE(QRectF(0, 0, 40, 40).contains(call.box));
    EXPECT_LT(call.box.width(), 40 * 0.9) << "the rim is left round the glass";
    EXPECT_EQ(call.pen, Qt::NoPen);
    EXPECT_EQ(call.brush.alpha(), 230) << "the sign is drawn in a dark, nearly solid ink";

    const QImage image = lamp.toImage();
    EXPECT_EQ(qAlpha(image.pixel(0, 0)), 0) << "the corners stay clear";
    const QColor glass = image.pixelColor(20, 8);
    EXPECT_GT(glass.green(), glass.red());
    EXPECT_GT(glass.green(), glass.blue());
}

TEST(LampPicture, AnEmptySideGivesANullPictureWithoutDrawingTheSign)
{
    SignCall call;
    const auto sign = Noting(call);
    EXPECT_TRUE(LampPicture::Draw(0, Qt::red, sign).isNull());
    EXPECT_TRUE(LampPicture::Draw(-3, Qt::red, sign).isNull());
    EXPECT_EQ(call.calls, 0);
}

TEST(KeyPicture, AReleasedKeyIsDarkWithTheSignInItsColourAPressedOneLitWithAWhiteSign)
{
    const QColor amber(255, 184, 48);
    SignCall call;
    const auto sign = Noting(call);
    const QImage up = KeyPicture::Draw(QSize(60, 30), amber, false, sign).toImage();
    EXPECT_EQ(call.box, QRectF(0, 0, 60, 30));
    EXPECT_EQ(call.brush, amber);
    EXPECT_EQ(call.pen, Qt::NoPen);

    const QImage down = KeyPicture::Draw(QSize(60, 30), amber, true, sign).toImage();
    EXPECT_EQ(call.brush, QColor(Qt::white));
    const QColor upFace = up.pixelColor(30, 15), downFace = down.pixelColor(30, 15);
    EXPECT_LT(upFace.red(), upFace.blue()) << "a released cap is a cool grey";
    EXPECT_GT(downFace.red(), downFace.blue()) << "a pressed cap glows in the sign's colour";
    EXPECT_TRUE(KeyPicture::Draw(QSize(0, 30), amber, false, sign).isNull());
}

TEST(TransportGlyphs, SquareIsTheLargestCentredSquareShrunkAtEachEdge)
{
    EXPECT_EQ(TransportGlyphs::Square(QRectF(0, 0, 100, 40), 0), QRectF(30, 0, 40, 40));
    EXPECT_EQ(TransportGlyphs::Square(QRectF(10, 0, 20, 60), 0.25), QRectF(15, 25, 10, 10));
}
