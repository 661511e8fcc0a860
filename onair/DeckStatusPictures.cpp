#include "onair/DeckStatusPictures.h"
#include "onair/DeckGlyphs.h"
#include <QPainter>
#include <QRadialGradient>

namespace DeckStatusPictures {
namespace {
QColor LampColour(const QString& key)
{
    if (key == QLatin1String("Playing"))
        return QColor(60, 220, 100);
    if (key == QLatin1String("Paused"))
        return QColor(255, 176, 40);
    if (key == QLatin1String("Cueing") || key == QLatin1String("Cued"))
        return QColor(90, 170, 255);
    if (key == QLatin1String("Expiring"))
        return QColor(255, 64, 64);
    if (key == QLatin1String("Sync"))
        return QColor(200, 120, 255);
    return QColor(96, 102, 112);
}

void DrawSign(QPainter& painter, const QString& key, const QRectF& inner)
{
    const QRectF sign = DeckGlyphs::Square(inner, 0.2);
    if (key == QLatin1String("Playing")) {
        DeckGlyphs::Triangle(painter, sign.adjusted(sign.width() * 0.15, 0, 0, 0));
    } else if (key == QLatin1String("Paused")) {
        DeckGlyphs::PauseBars(painter, sign.adjusted(sign.width() * 0.1, 0, -sign.width() * 0.1, 0));
    } else if (key == QLatin1String("Cueing")) {
        DeckGlyphs::Triangle(painter, QRectF(sign.left(), sign.top(), sign.width() / 2, sign.height()), false);
        DeckGlyphs::Triangle(painter, QRectF(sign.center().x(), sign.top(), sign.width() / 2, sign.height()), true);
    } else if (key == QLatin1String("Cued")) {
        const double bar = sign.width() * 0.2;
        DeckGlyphs::Bar(painter, QRectF(sign.left(), sign.top(), bar, sign.height()));
        DeckGlyphs::Triangle(painter, sign.adjusted(bar * 1.5, 0, 0, 0));
    } else if (key == QLatin1String("Expiring")) {
        const double bar = sign.width() * 0.22;
        const double x = sign.center().x() - bar / 2;
        DeckGlyphs::Bar(painter, QRectF(x, sign.top(), bar, sign.height() * 0.62));
        DeckGlyphs::Bar(painter, QRectF(x, sign.bottom() - bar, bar, bar));
    } else if (key == QLatin1String("Sync")) {
        DeckGlyphs::DoubleTriangle(painter, sign, true);
    } else {
        DeckGlyphs::Bar(painter, DeckGlyphs::Square(sign, 0.12));
    }
}
}

QStringList Names()
{
    return {QStringLiteral("Ready"),  QStringLiteral("Playing"),  QStringLiteral("Paused"), QStringLiteral("Cueing"),
            QStringLiteral("Cued"),   QStringLiteral("Expiring"), QStringLiteral("Sync")};
}

QPixmap Picture(const QString& key, int side)
{
    if (!Names().contains(key) || side <= 0)
        return {};
    QPixmap picture(side, side);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor lamp = LampColour(key);
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
    DrawSign(painter, key, inner);
    return picture;
}
}
