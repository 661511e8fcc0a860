#include "shell/KernelButtonPictures.h"
#include "foundation/controls/KeyPicture.h"
#include "foundation/controls/TransportGlyphs.h"
#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>

namespace KernelButtonPictures {
namespace {
const QColor Ink(226, 232, 242);
const QColor ShoutInk(255, 184, 48);

void ImportSign(QPainter& painter, const QRectF& box)
{
    const double w = box.width();
    const double h = box.height();
    // The arrow: a shaft and a head falling into the tray.
    painter.drawRect(QRectF(box.left() + w * 0.42, box.top(), w * 0.16, h * 0.38));
    painter.drawPolygon(QPolygonF({QPointF(box.left() + w * 0.2, box.top() + h * 0.34), QPointF(box.right() - w * 0.2, box.top() + h * 0.34),
                                   QPointF(box.center().x(), box.top() + h * 0.66)}));
    // The tray: a floor and two low walls.
    const double wall = w * 0.12;
    painter.drawRect(QRectF(box.left(), box.bottom() - wall, w, wall));
    painter.drawRect(QRectF(box.left(), box.top() + h * 0.6, wall, h * 0.4));
    painter.drawRect(QRectF(box.right() - wall, box.top() + h * 0.6, wall, h * 0.4));
}

void ShoutSign(QPainter& painter, const QRectF& box)
{
    const double w = box.width();
    const double h = box.height();
    // The horn opens to the right from a small mouthpiece.
    QPainterPath horn;
    horn.moveTo(box.left() + w * 0.08, box.top() + h * 0.38);
    horn.lineTo(box.left() + w * 0.3, box.top() + h * 0.38);
    horn.lineTo(box.left() + w * 0.72, box.top() + h * 0.08);
    horn.lineTo(box.left() + w * 0.72, box.top() + h * 0.92);
    horn.lineTo(box.left() + w * 0.3, box.top() + h * 0.62);
    horn.lineTo(box.left() + w * 0.08, box.top() + h * 0.62);
    horn.closeSubpath();
    painter.drawPath(horn);
    // Two waves of sound in front of it.
    painter.save();
    painter.setPen(QPen(painter.brush().color(), std::max(1.0, w * 0.08), Qt::SolidLine, Qt::RoundCap));
    painter.setBrush(Qt::NoBrush);
    for (const double reach : {0.2, 0.36}) {
        const QRectF arc(box.left() + w * (0.72 - reach), box.top() + h * (0.5 - reach * 1.3), w * reach * 2, h * reach * 2.6);
        painter.drawArc(arc, -45 * 16, 90 * 16);
    }
    painter.restore();
}

void Sign(QPainter& painter, const QString& sign, const QRectF& box, const QColor& colour)
{
    if (sign == QLatin1String("Refresh"))
        TransportGlyphs::RingArrow(painter, box, colour);
    else if (sign == QLatin1String("Import"))
        ImportSign(painter, box);
    else
        ShoutSign(painter, box);
}

// The caption's font: bold, filling about a third of the key's height.
QFont CaptionFont(const QSize& size)
{
    QFont font;
    font.setBold(true);
    font.setPixelSize(std::clamp(int(size.height() * 0.36), 8, 14));
    return font;
}

void DrawFace(QPainter& painter, const QString& sign, const QString& caption, const QRectF& key, const QColor& colour)
{
    const double side = std::min(key.height() * 0.56, key.width() * 0.5);
    const QFont font = CaptionFont(key.size().toSize());
    const double textWidth = QFontMetricsF(font).horizontalAdvance(caption);
    const double gap = side * 0.3;
    // The caption goes beside the sign only when both fit with a margin on either side.
    const bool withCaption = !caption.isEmpty() && side + gap + textWidth <= key.width() - key.height() * 0.3;
    const double total = withCaption ? side + gap + textWidth : side;
    const double left = key.left() + (key.width() - total) / 2;
    Sign(painter, sign, QRectF(left, key.center().y() - side / 2, side, side), colour);
    if (!withCaption)
        return;
    painter.setFont(font);
    painter.setPen(painter.brush().color());
    painter.drawText(QRectF(left + side + gap, key.top(), textWidth + 1, key.height()), Qt::AlignVCenter | Qt::AlignLeft, caption);
}
}

QPixmap Picture(const QString& sign, const QString& caption, const QSize& size, bool down)
{
    static const QStringList signs{QStringLiteral("Refresh"), QStringLiteral("Import"), QStringLiteral("Shout")};
    if (!signs.contains(sign))
        return {};
    const QColor colour = sign == QLatin1String("Shout") ? ShoutInk : Ink;
    return KeyPicture::Draw(size, colour, down, [&](QPainter& painter, const QRectF& key) {
        DrawFace(painter, sign, caption, key, down ? QColor(255, 255, 255) : colour);
    });
}
}
