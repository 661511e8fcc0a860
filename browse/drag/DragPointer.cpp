#include "browse/drag/DragPointer.h"
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

QCursor DragPointer()
{
    QPixmap picture(32, 32);
    picture.fill(Qt::transparent);
    QPainter p(&picture);
    p.setRenderHint(QPainter::Antialiasing);
    // The arrow, black with a white rim, tip at the hot spot.
    QPainterPath arrow;
    arrow.moveTo(1, 1);
    arrow.lineTo(1, 17);
    arrow.lineTo(5, 13);
    arrow.lineTo(8, 20);
    arrow.lineTo(11, 19);
    arrow.lineTo(8, 12);
    arrow.lineTo(13, 12);
    arrow.closeSubpath();
    p.setPen(QPen(Qt::white, 1.5));
    p.setBrush(Qt::black);
    p.drawPath(arrow);
    // The cart: a cartridge with its label and tape window.
    const QRectF cart(13, 17, 17, 12);
    p.setPen(QPen(QColor(20, 20, 20), 1));
    p.setBrush(QColor(230, 160, 40));
    p.drawRoundedRect(cart, 2, 2);
    p.setBrush(QColor(250, 245, 225));
    p.drawRect(QRectF(15.5, 19, 12, 3.5));
    p.setBrush(QColor(40, 40, 40));
    p.drawRect(QRectF(18.5, 24.5, 6, 2.5));
    p.end();
    return QCursor(picture, 1, 1);
}
