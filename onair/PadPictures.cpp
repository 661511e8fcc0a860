#include "onair/PadPictures.h"
#include "foundation/controls/TransportGlyphs.h"
#include <QPainter>
#include <QPainterPath>

namespace PadPictures {
namespace {
QPixmap Blank(const QSize& size)
{
    QPixmap picture(size.expandedTo(QSize(1, 1)));
    picture.fill(Qt::transparent);
    return picture;
}

void SoundSign(QPainter& painter, const QRectF& box)
{
    // A note: a round head and a stem with a flag.
    const double w = box.width();
    painter.drawEllipse(QRectF(box.left() + w * 0.1, box.bottom() - w * 0.38, w * 0.46, w * 0.36));
    painter.drawRect(QRectF(box.left() + w * 0.46, box.top() + w * 0.08, w * 0.1, box.height() * 0.72));
    painter.drawRect(QRectF(box.left() + w * 0.46, box.top() + w * 0.08, w * 0.38, w * 0.12));
}

void MacroSign(QPainter& painter, const QRectF& box)
{
    // Three lines, a list of steps.
    const double h = box.height() / 5;
    for (int i = 0; i < 3; ++i)
        painter.drawRect(QRectF(box.left(), box.top() + h * (2 * i), box.width(), h * 0.9));
}

void ActionSign(QPainter& painter, const QRectF& box)
{
    // A lightning bolt.
    QPainterPath bolt;
    const double w = box.width(), h = box.height();
    bolt.moveTo(box.left() + w * 0.6, box.top());
    bolt.lineTo(box.left() + w * 0.15, box.top() + h * 0.58);
    bolt.lineTo(box.left() + w * 0.48, box.top() + h * 0.58);
    bolt.lineTo(box.left() + w * 0.36, box.bottom());
    bolt.lineTo(box.left() + w * 0.85, box.top() + h * 0.4);
    bolt.lineTo(box.left() + w * 0.52, box.top() + h * 0.4);
    bolt.closeSubpath();
    painter.drawPath(bolt);
}

QColor SignColour(const QString& key)
{
    if (key == QLatin1String("SOUND"))
        return QColor(110, 200, 255);
    if (key == QLatin1String("MACRO"))
        return QColor(255, 190, 90);
    if (key == QLatin1String("ACTION"))
        return QColor(255, 110, 110);
    return QColor(150, 150, 160);
}

void KeysSign(QPainter& painter, const QRectF& box)
{
    // Two rows of key caps.
    const double w = box.width() / 4, h = box.height() / 2;
    for (int row = 0; row < 2; ++row)
        for (int col = 0; col < 4; ++col)
            painter.drawRoundedRect(QRectF(box.left() + col * w + 1, box.top() + row * h + 1, w - 2, h - 2), 1.5, 1.5);
}

void MouseSign(QPainter& painter, const QRectF& box)
{
    const QRectF body = TransportGlyphs::Square(box, 0.05).adjusted(box.height() * 0.18, 0, -box.height() * 0.18, 0);
    painter.drawRoundedRect(body, body.width() * 0.45, body.width() * 0.45);
    painter.setPen(QPen(QColor(0, 0, 0, 150), std::max(1.0, body.width() * 0.08)));
    painter.drawLine(QPointF(body.center().x(), body.top()), QPointF(body.center().x(), body.top() + body.height() * 0.4));
}
}

QPixmap Icon(const QString& key, int side)
{
    QPixmap picture = Blank(QSize(side, side));
    if (key == QLatin1String("BLANK"))
        return picture;
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(SignColour(key));
    const QRectF box = TransportGlyphs::Square(QRectF(0, 0, side, side), 0.12);
    if (key == QLatin1String("SOUND"))
        SoundSign(painter, box);
    else if (key == QLatin1String("MACRO"))
        MacroSign(painter, box);
    else if (key == QLatin1String("ACTION"))
        ActionSign(painter, box);
    else {
        painter.setPen(QPen(SignColour(key), std::max(1.0, side * 0.1)));
        painter.setBrush(Qt::NoBrush);
        painter.drawEllipse(box);
    }
    return picture;
}

QPixmap Switch(bool clicked, const QString& sign, const QSize& size)
{
    QPixmap picture = Blank(size);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF face = QRectF(picture.rect()).adjusted(1, 1, -1, -1);
    painter.setPen(QPen(QColor(10, 10, 14), 1));
    painter.setBrush(clicked ? QColor(40, 150, 70) : QColor(58, 60, 68));
    painter.drawRoundedRect(face, 3, 3);
    painter.setPen(Qt::NoPen);
    painter.setBrush(clicked ? QColor(210, 255, 210) : QColor(120, 124, 134));
    const QRectF box = TransportGlyphs::Square(face, 0.22);
    if (sign == QLatin1String("Keys"))
        KeysSign(painter, box);
    else
        MouseSign(painter, box);
    return picture;
}
}
