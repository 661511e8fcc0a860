#include "shell/Artwork.h"
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>
#include <cmath>

namespace Artwork {
namespace {
// A stylised waveform across the emblem: a few decaying sine bursts.
QPainterPath Wave(const QRectF& area)
{
    QPainterPath path;
    const int steps = 160;
    for (int i = 0; i <= steps; ++i) {
        const double t = double(i) / steps;
        const double envelope = std::sin(t * M_PI) * (0.55 + 0.45 * std::sin(t * 7.0));
        const double y = area.center().y() - envelope * area.height() / 2 * std::sin(t * 38.0);
        const QPointF point(area.left() + t * area.width(), y);
        i == 0 ? path.moveTo(point) : path.lineTo(point);
    }
    return path;
}
}

QPixmap Logo(const QSize& size)
{
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area = QRectF(QPointF(0, 0), QSizeF(size)).adjusted(6, 6, -6, -6);

    QRadialGradient glow(area.center(), area.width() / 1.6);
    glow.setColorAt(0, QColor(40, 70, 120));
    glow.setColorAt(1, QColor(12, 18, 32));
    painter.setBrush(glow);
    painter.setPen(QPen(QColor(70, 110, 170), 1.5));
    painter.drawRoundedRect(area, 10, 10);

    painter.setPen(QPen(QColor(255, 170, 40), 2.2));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(Wave(QRectF(area.left() + 14, area.top() + area.height() * 0.18, area.width() - 28, area.height() * 0.38)));

    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(int(area.height() * 0.16));
    font.setBold(true);
    font.setLetterSpacing(QFont::PercentageSpacing, 115);
    painter.setFont(font);
    painter.setPen(QColor(230, 236, 245));
    painter.drawText(QRectF(area.left(), area.top() + area.height() * 0.6, area.width(), area.height() * 0.22),
                     Qt::AlignCenter, QStringLiteral("KORVANE"));
    font.setPixelSize(int(area.height() * 0.075));
    font.setBold(false);
    painter.setFont(font);
    painter.setPen(QColor(150, 170, 200));
    painter.drawText(QRectF(area.left(), area.top() + area.height() * 0.8, area.width(), area.height() * 0.14),
                     Qt::AlignCenter, QStringLiteral("STUDIO WORKSTATION"));
    return pixmap;
}

QPixmap Backdrop(const QSize& size)
{
    QPixmap pixmap(size);
    QPainter painter(&pixmap);
    QLinearGradient gradient(0, 0, 0, size.height());
    gradient.setColorAt(0, QColor(28, 32, 40));
    gradient.setColorAt(1, QColor(14, 16, 21));
    painter.fillRect(pixmap.rect(), gradient);
    painter.setPen(QColor(255, 255, 255, 10));
    for (int y = 0; y < size.height(); y += 4)
        painter.drawLine(0, y, size.width(), y);
    return pixmap;
}

namespace {
const QColor Ink(220, 228, 240);
const QColor Accent(255, 170, 40);

void DrawKey(QPainter& p, const QRectF& r)
{
    p.setPen(QPen(Accent, r.width() * 0.08, Qt::SolidLine, Qt::RoundCap));
    p.drawEllipse(QRectF(r.left() + r.width() * 0.12, r.top() + r.height() * 0.3, r.width() * 0.36, r.height() * 0.36));
    const double y = r.center().y() - r.height() * 0.02;
    p.drawLine(QPointF(r.left() + r.width() * 0.48, y), QPointF(r.right() - r.width() * 0.1, y));
    p.drawLine(QPointF(r.right() - r.width() * 0.2, y), QPointF(r.right() - r.width() * 0.2, y + r.height() * 0.16));
    p.drawLine(QPointF(r.right() - r.width() * 0.32, y), QPointF(r.right() - r.width() * 0.32, y + r.height() * 0.12));
}

void DrawTable(QPainter& p, const QRectF& r)
{
    const QRectF box = r.adjusted(r.width() * 0.12, r.height() * 0.18, -r.width() * 0.12, -r.height() * 0.18);
    p.setPen(QPen(Ink, 3));
    p.drawRoundedRect(box, 4, 4);
    p.setPen(QPen(Ink, 2));
    for (int i = 1; i < 4; ++i)
        p.drawLine(QPointF(box.left(), box.top() + box.height() * i / 4), QPointF(box.right(), box.top() + box.height() * i / 4));
    p.setPen(QPen(Accent, 2));
    p.drawLine(QPointF(box.left() + box.width() * 0.35, box.top()), QPointF(box.left() + box.width() * 0.35, box.bottom()));
}

void DrawSpeaker(QPainter& p, const QRectF& r)
{
    QPolygonF cone;
    cone << QPointF(r.left() + r.width() * 0.15, r.center().y() - r.height() * 0.12)
         << QPointF(r.left() + r.width() * 0.32, r.center().y() - r.height() * 0.12)
         << QPointF(r.left() + r.width() * 0.52, r.top() + r.height() * 0.18)
         << QPointF(r.left() + r.width() * 0.52, r.bottom() - r.height() * 0.18)
         << QPointF(r.left() + r.width() * 0.32, r.center().y() + r.height() * 0.12)
         << QPointF(r.left() + r.width() * 0.15, r.center().y() + r.height() * 0.12);
    p.setPen(Qt::NoPen);
    p.setBrush(Ink);
    p.drawPolygon(cone);
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(Accent, r.width() * 0.05, Qt::SolidLine, Qt::RoundCap));
    for (int i = 1; i <= 2; ++i) {
        const double radius = r.width() * (0.1 + 0.12 * i);
        p.drawArc(QRectF(r.left() + r.width() * 0.52 - radius, r.center().y() - radius, radius * 2, radius * 2), -45 * 16, 90 * 16);
    }
}

void DrawDatabase(QPainter& p, const QRectF& r)
{
    const QRectF body = r.adjusted(r.width() * 0.2, r.height() * 0.15, -r.width() * 0.2, -r.height() * 0.15);
    const double cap = body.height() * 0.2;
    p.setPen(QPen(Ink, 3));
    for (int i = 0; i < 3; ++i)
        p.drawEllipse(QRectF(body.left(), body.top() + i * (body.height() - cap) / 2, body.width(), cap));
    p.drawLine(body.topLeft() + QPointF(0, cap / 2), body.bottomLeft() - QPointF(0, cap / 2));
    p.drawLine(body.topRight() + QPointF(0, cap / 2), body.bottomRight() - QPointF(0, cap / 2));
    p.setPen(QPen(Accent, 3));
    p.drawArc(QRectF(body.left(), body.bottom() - cap, body.width(), cap), 180 * 16, 180 * 16);
}

void DrawFolder(QPainter& p, const QRectF& r)
{
    QPainterPath folder;
    const QRectF box = r.adjusted(r.width() * 0.12, r.height() * 0.25, -r.width() * 0.12, -r.height() * 0.2);
    folder.moveTo(box.bottomLeft());
    folder.lineTo(box.left(), box.top());
    folder.lineTo(box.left() + box.width() * 0.35, box.top());
    folder.lineTo(box.left() + box.width() * 0.45, box.top() + box.height() * 0.15);
    folder.lineTo(box.right(), box.top() + box.height() * 0.15);
    folder.lineTo(box.bottomRight());
    folder.closeSubpath();
    p.setPen(QPen(Ink, 3));
    p.setBrush(QColor(255, 170, 40, 70));
    p.drawPath(folder);
}

void DrawBack(QPainter& p, const QRectF& r)
{
    p.setPen(QPen(Accent, r.width() * 0.09, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const double y = r.center().y();
    p.drawLine(QPointF(r.left() + r.width() * 0.22, y), QPointF(r.right() - r.width() * 0.2, y));
    p.drawLine(QPointF(r.left() + r.width() * 0.22, y), QPointF(r.left() + r.width() * 0.45, y - r.height() * 0.22));
    p.drawLine(QPointF(r.left() + r.width() * 0.22, y), QPointF(r.left() + r.width() * 0.45, y + r.height() * 0.22));
}

void DrawGlobe(QPainter& p, const QRectF& r)
{
    const QRectF globe = r.adjusted(r.width() * 0.15, r.height() * 0.15, -r.width() * 0.15, -r.height() * 0.15);
    p.setPen(QPen(Ink, 3));
    p.drawEllipse(globe);
    p.setPen(QPen(Accent, 2));
    p.drawEllipse(globe.adjusted(globe.width() * 0.28, 0, -globe.width() * 0.28, 0));
    p.drawLine(QPointF(globe.left(), globe.center().y()), QPointF(globe.right(), globe.center().y()));
    p.drawLine(QPointF(globe.center().x(), globe.top()), QPointF(globe.center().x(), globe.bottom()));
}
}

QPixmap ConfigIcon(int index, const QSize& size)
{
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area(QPointF(0, 0), QSizeF(size));
    switch (index) {
    case 0: DrawKey(painter, area); break;
    case 1: DrawTable(painter, area); break;
    case 3: DrawSpeaker(painter, area); break;
    case 4: DrawDatabase(painter, area); break;
    case 7: DrawFolder(painter, area); break;
    case 9: DrawBack(painter, area); break;
    case 10: DrawGlobe(painter, area); break;
    default: break;
    }
    return pixmap;
}
}
