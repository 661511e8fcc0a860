#include "editing/TapeButtonPictures.h"
#include "editing/TapeGlyphs.h"
#include <QLinearGradient>
#include <QPainter>

namespace TapeButtonPictures {
namespace {
QColor SignColour(const QString& word)
{
    if (word == QLatin1String("Rec") || word == QLatin1String("Erase"))
        return QColor(255, 80, 72);
    if (word == QLatin1String("Pause"))
        return QColor(255, 184, 48);
    if (word == QLatin1String("Blank"))
        return QColor(120, 190, 255);
    return QColor(226, 232, 242);
}

// The key: a rounded cap, dark and raised when released, lit in the sign's colour when pressed.
void DrawKey(QPainter& painter, const QRectF& box, const QColor& sign, bool down)
{
    const double radius = std::min(box.width(), box.height()) * 0.14;
    QLinearGradient face(box.topLeft(), box.bottomLeft());
    if (down) {
        face.setColorAt(0, sign.darker(230));
        face.setColorAt(1, sign.darker(400));
    } else {
        face.setColorAt(0, QColor(70, 77, 90));
        face.setColorAt(0.5, QColor(46, 51, 61));
        face.setColorAt(1, QColor(30, 33, 40));
    }
    painter.setPen(QPen(QColor(8, 9, 12), 1));
    painter.setBrush(face);
    painter.drawRoundedRect(box.adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    painter.setPen(QPen(down ? sign.lighter(120) : QColor(110, 118, 134), 1));
    painter.drawLine(QPointF(box.left() + radius, box.top() + 1.5), QPointF(box.right() - radius, box.top() + 1.5));
}

void DrawSign(QPainter& painter, const QString& word, const QRectF& box)
{
    const QRectF square = TapeGlyphs::Square(box, 0.24);
    painter.setPen(Qt::NoPen);
    if (word == QLatin1String("Rec")) {
        TapeGlyphs::Dot(painter, square);
    } else if (word == QLatin1String("Pause")) {
        TapeGlyphs::PauseBars(painter, square.adjusted(square.width() * 0.1, 0, -square.width() * 0.1, 0));
    } else if (word == QLatin1String("Eject")) {
        TapeGlyphs::EjectSign(painter, square);
    } else if (word == QLatin1String("Blank")) {
        TapeGlyphs::Cassette(painter, TapeGlyphs::Square(box, 0.1).adjusted(-box.width() * 0.1, 0, box.width() * 0.1, 0), false);
    } else if (word == QLatin1String("Erase")) {
        const QRectF wide = TapeGlyphs::Square(box, 0.1).adjusted(-box.width() * 0.1, 0, box.width() * 0.1, 0);
        TapeGlyphs::Cassette(painter, wide, true);
        TapeGlyphs::Stroke(painter, square);
    }
}
}

QStringList Words()
{
    return {QStringLiteral("Blank"), QStringLiteral("Rec"), QStringLiteral("Pause"), QStringLiteral("Eject"),
            QStringLiteral("Erase")};
}

QPixmap Picture(const QString& key, const QSize& size)
{
    const QString state = key.left(2);
    const QString word = key.mid(2);
    if (!Words().contains(word) || (state != QLatin1String("_U") && state != QLatin1String("_D")) || size.isEmpty())
        return {};
    const bool down = state == QLatin1String("_D");
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF box(QPointF(0, 0), QSizeF(size));
    const QColor colour = SignColour(word);
    DrawKey(painter, box, colour, down);
    painter.setBrush(down ? QColor(255, 255, 255) : colour);
    DrawSign(painter, word, box);
    return picture;
}
}
