#include "foundation/controls/TransportGlyphs.h"
#include <QPainter>
#include <QPolygonF>
#include <algorithm>

namespace TransportGlyphs {
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

void Dot(QPainter& painter, const QRectF& box)
{
    painter.drawEllipse(box);
}

void PauseBars(QPainter& painter, const QRectF& box, double barShare)
{
    const double bar = box.width() * barShare;
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

void Exclamation(QPainter& painter, const QRectF& box)
{
    const double bar = box.width() * 0.22;
    const double x = box.center().x() - bar / 2;
    Bar(painter, QRectF(x, box.top(), bar, box.height() * 0.62));
    Bar(painter, QRectF(x, box.bottom() - bar, bar, bar));
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

void Cassette(QPainter& painter, const QRectF& box, bool loaded)
{
    // A cassette is about 1.6 times as wide as it is high.
    const double height = std::min(box.height(), box.width() / 1.6);
    const QRectF shell(box.center().x() - height * 0.8, box.center().y() - height / 2, height * 1.6, height);
    const QColor ink = painter.brush().color();
    const double pen = std::max(1.0, height * 0.07);
    painter.save();
    painter.setPen(QPen(ink, pen));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(shell.adjusted(pen / 2, pen / 2, -pen / 2, -pen / 2), height * 0.08, height * 0.08);
    const QRectF window(shell.left() + shell.width() * 0.2, shell.top() + shell.height() * 0.24, shell.width() * 0.6,
                        shell.height() * 0.36);
    painter.drawRoundedRect(window, window.height() * 0.45, window.height() * 0.45);
    const double reel = window.height() * (loaded ? 0.78 : 0.42);
    for (const double x : {window.left() + window.width() * 0.24, window.left() + window.width() * 0.76}) {
        const QPointF centre(x, window.center().y());
        if (loaded) {
            painter.setBrush(ink);
            painter.drawEllipse(centre, reel / 2, reel / 2);
            painter.setBrush(Qt::NoBrush);
        } else {
            painter.drawEllipse(centre, reel / 2, reel / 2);
        }
    }
    // The trapezoid at the foot where the tape shows.
    const double foot = shell.bottom() - pen;
    painter.drawPolyline(QPolygonF({QPointF(shell.left() + shell.width() * 0.2, foot),
                                    QPointF(shell.left() + shell.width() * 0.26, shell.top() + shell.height() * 0.74),
                                    QPointF(shell.right() - shell.width() * 0.26, shell.top() + shell.height() * 0.74),
                                    QPointF(shell.right() - shell.width() * 0.2, foot)}));
    painter.restore();
}

void Stroke(QPainter& painter, const QRectF& box)
{
    painter.save();
    painter.setPen(QPen(painter.brush().color(), std::max(1.5, box.width() * 0.12), Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(box.bottomLeft(), box.topRight());
    painter.restore();
}

QRectF Square(const QRectF& box, double inset)
{
    const double side = std::min(box.width(), box.height());
    const QRectF square(box.center().x() - side / 2, box.center().y() - side / 2, side, side);
    const double margin = side * inset;
    return square.adjusted(margin, margin, -margin, -margin);
}
}
