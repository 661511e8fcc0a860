#include "foundation/controls/LampPicture.h"
#include <QPainter>
#include <QRadialGradient>

namespace LampPicture {
QPixmap Draw(int side, const QColor& lamp, const Sign& sign)
{
    if (side <= 0)
        return {};
    QPixmap picture(side, side);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF outer(0.5, 0.5, side - 1.0, side - 1.0);
    painter.setPen(QPen(QColor(8, 9, 12), 1));
    painter.setBrush(QColor(24, 26, 30));
    painter.drawEllipse(outer);
    const QRectF inner = outer.adjusted(side * 0.08, side * 0.08, -side * 0.08, -side * 0.08);
    QRadialGradient glass(inner.center() - QPointF(inner.width() * 0.18, inner.height() * 0.22), inner.width() * 0.7);
    glass.setColorAt(0, lamp.lighter(140));
    glass.setColorAt(0.6, lamp);
    glass.setColorAt(1, lamp.darker(220));
    painter.setPen(Qt::NoPen);
    painter.setBrush(glass);
    painter.drawEllipse(inner);
    painter.setBrush(QColor(12, 14, 18, 230));
    sign(painter, inner);
    return picture;
}
}
