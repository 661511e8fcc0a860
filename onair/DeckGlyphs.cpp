#include "onair/DeckGlyphs.h"
#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>
#include <algorithm>

namespace DeckGlyphs {
void Triangle(QPainter& painter, const QRectF& box, bool right)
{
    const double tip = right ? box.right() : box.left();
    const double base = right ? box.left() : box.right();
    painter.drawPolygon(QPolygonF({QPointF(base, box.top()), QPointF(base, box.bottom()), QPointF(tip, box.center().y())}));
}

void Bar(QPainter& painter, const QRectF& box)
{
    painter.drawRect(box);
}

void PauseBars(QPainter& painter, const QRectF& box)
{
    const double bar = box.width() * 0.36;
    Bar(painter, QRectF(box.left(), box.top(), bar, box.height()));
    Bar(painter, QRectF(box.right() - bar, box.top(), bar, box.height()));
}

void DoubleTriangle(QPainter& painter, const QRectF& box, bool right)
{
    const double half = box.width() / 2;
    Triangle(painter, QRectF(box.left(), box.top(), half, box.height()), right);
    Triangle(painter, QRectF(box.left() + half, box.top(), half, box.height()), right);
}

void EjectSign(QPainter& painter, const QRectF& box)
{
    const double bar = box.height() * 0.2;
    const double gap = box.height() * 0.12;
    const QRectF roof(box.left(), box.top(), box.width(), box.height() - bar - gap);
    painter.drawPolygon(QPolygonF({QPointF(roof.left(), roof.bottom()), QPointF(roof.right(), roof.bottom()),
                                   QPointF(roof.center().x(), roof.top())}));
    Bar(painter, QRectF(box.left(), box.bottom() - bar, box.width(), bar));
}

void Thirds(QPainter& painter, const QRectF& box, int lit, const QColor& on, const QColor& off)
{
    const double gap = std::max(1.0, box.width() * 0.06);
    const double third = (box.width() - 2 * gap) / 3;
    painter.save();
    painter.setPen(Qt::NoPen);
    for (int i = 0; i < 3; ++i) {
        painter.setBrush(i == lit ? on : off);
        painter.drawRect(QRectF(box.left() + i * (third + gap), box.top(), third, box.height()));
    }
    painter.restore();
}

void RingArrow(QPainter& painter, const QRectF& box, const QColor& colour)
{
    const double pen = box.width() * 0.16;
    const QRectF ring = box.adjusted(pen, pen, -pen, -pen);
    painter.save();
    painter.setPen(QPen(colour, pen, Qt::SolidLine, Qt::FlatCap));
    painter.setBrush(Qt::NoBrush);
    painter.drawArc(ring, 100 * 16, 290 * 16);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    // The head at the upper end of the ring, pointing back to the start.
    const QPointF end(ring.center().x() - ring.width() * 0.17, ring.top());
    const double head = pen * 1.6;
    painter.drawPolygon(QPolygonF({QPointF(end.x() - head, end.y()), QPointF(end.x() + head * 0.4, end.y() - head),
                                   QPointF(end.x() + head * 0.4, end.y() + head)}));
    painter.restore();
}

void FadeWedge(QPainter& painter, const QRectF& box)
{
    painter.drawPolygon(QPolygonF({box.topLeft(), box.bottomLeft(), box.bottomRight()}));
}

QRectF Square(const QRectF& box, double inset)
{
    const double side = std::min(box.width(), box.height());
    const QRectF square(box.center().x() - side / 2, box.center().y() - side / 2, side, side);
    const double margin = side * inset;
    return square.adjusted(margin, margin, -margin, -margin);
}
}
