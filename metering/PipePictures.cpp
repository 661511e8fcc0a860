#include "metering/PipePictures.h"
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>
#include <algorithm>

namespace PipePictures {
namespace {
QPainterPath Glyph(bool record, const QRectF& box)
{
    QPainterPath path;
    if (record) {
        path.addEllipse(box);
    } else {
        path.moveTo(box.left(), box.top());
        path.lineTo(box.right(), box.center().y());
        path.lineTo(box.left(), box.bottom());
        path.closeSubpath();
    }
    return path;
}
}

QPixmap Picture(const QString& name, const QSize& size)
{
    const bool record = name.startsWith(QLatin1String("IRec"));
    const bool lit = name.endsWith(QLatin1String("On"));
    if ((!record && !name.startsWith(QLatin1String("IPlay"))) || (!lit && !name.endsWith(QLatin1String("Off"))) || size.isEmpty())
        return {};
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const double side = std::min(size.width(), size.height()) * 0.6;
    const QRectF box(QPointF((size.width() - side) / 2, (size.height() - side) / 2), QSizeF(side, side));
    if (lit) {
        QRadialGradient glow(box.center(), side);
        glow.setColorAt(0, QColor(255, 255, 255, 150));
        glow.setColorAt(1, QColor(255, 255, 255, 0));
        painter.fillRect(picture.rect(), glow);
    }
    painter.setPen(QPen(QColor(0, 0, 0, 160), 1));
    painter.setBrush(lit ? QColor(255, 255, 230) : QColor(0, 0, 0, 110));
    painter.drawPath(Glyph(record, box));
    return picture;
}
}
