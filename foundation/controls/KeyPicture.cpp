#include "foundation/controls/KeyPicture.h"
#include <QLinearGradient>
#include <QPainter>
#include <algorithm>

namespace KeyPicture {
namespace {
void DrawCap(QPainter& painter, const QRectF& box, const QColor& sign, bool down)
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
    // A thin light edge along the top, where studio light catches the cap.
    painter.setPen(QPen(down ? sign.lighter(120) : QColor(110, 118, 134), 1));
    painter.drawLine(QPointF(box.left() + radius, box.top() + 1.5), QPointF(box.right() - radius, box.top() + 1.5));
}
}

QPixmap Draw(const QSize& size, const QColor& signColour, bool down, const Sign& sign)
{
    if (size.isEmpty())
        return {};
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF box(QPointF(0, 0), QSizeF(size));
    DrawCap(painter, box, signColour, down);
    painter.setPen(Qt::NoPen);
    painter.setBrush(down ? QColor(255, 255, 255) : signColour);
    sign(painter, box);
    return picture;
}
}
