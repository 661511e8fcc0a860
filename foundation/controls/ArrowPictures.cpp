#include "foundation/controls/ArrowPictures.h"
#include <QPainter>
#include <QPolygonF>

namespace ArrowPictures {
namespace {
QColor FillFor(const QString& state)
{
    if (state == QLatin1String("D"))
        return QColor(255, 190, 60);
    if (state == QLatin1String("Disabled"))
        return QColor(96, 100, 108);
    return QColor(220, 226, 236);
}

QPolygonF Triangle(bool left, double side)
{
    const double m = side * 0.25;
    if (left)
        return QPolygonF({QPointF(side - m, m), QPointF(side - m, side - m), QPointF(m, side / 2)});
    return QPolygonF({QPointF(m, m), QPointF(m, side - m), QPointF(side - m, side / 2)});
}
}

QPixmap Picture(const QString& key, int side)
{
    const QString direction = key.section(QLatin1Char('_'), 0, 0);
    const QString state = key.section(QLatin1Char('_'), 1);
    if ((direction != QLatin1String("Left") && direction != QLatin1String("Right"))
        || (state != QLatin1String("U") && state != QLatin1String("D") && state != QLatin1String("Disabled"))
        || side <= 0)
        return {};
    QPixmap picture(side, side);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(20, 22, 26), 1));
    painter.setBrush(FillFor(state));
    painter.drawPolygon(Triangle(direction == QLatin1String("Left"), side));
    return picture;
}
}
