#include "editing/TapeStatePictures.h"
#include "editing/TapeGlyphs.h"
#include <QPainter>
#include <QRadialGradient>

namespace TapeStatePictures {
namespace {
QColor LampColour(const QString& key)
{
    if (key == QLatin1String("Recording") || key == QLatin1String("Erasing") || key == QLatin1String("Expiring"))
        return QColor(235, 60, 56);
    if (key == QLatin1String("Paused") || key == QLatin1String("Proposed"))
        return QColor(255, 176, 40);
    if (key == QLatin1String("Loaded") || key == QLatin1String("Ready"))
        return QColor(60, 200, 100);
    return QColor(96, 102, 112);
}

void DrawSign(QPainter& painter, const QString& key, const QRectF& inner)
{
    const QRectF sign = TapeGlyphs::Square(inner, 0.22);
    if (key == QLatin1String("Recording"))
        TapeGlyphs::Dot(painter, TapeGlyphs::Square(sign, 0.1));
    else if (key == QLatin1String("Paused"))
        TapeGlyphs::PauseBars(painter, sign.adjusted(sign.width() * 0.1, 0, -sign.width() * 0.1, 0));
    else if (key == QLatin1String("Stop"))
        TapeGlyphs::Block(painter, TapeGlyphs::Square(sign, 0.1));
    else if (key == QLatin1String("Free") || key == QLatin1String("Proposed") || key == QLatin1String("Ready"))
        TapeGlyphs::Cassette(painter, TapeGlyphs::Square(inner, 0.12), false);
    else if (key == QLatin1String("Loaded"))
        TapeGlyphs::Cassette(painter, TapeGlyphs::Square(inner, 0.12), true);
    else if (key == QLatin1String("NoBlankTape")) {
        TapeGlyphs::Cassette(painter, TapeGlyphs::Square(inner, 0.12), false);
        TapeGlyphs::Stroke(painter, sign);
    } else if (key == QLatin1String("Erasing")) {
        TapeGlyphs::Cassette(painter, TapeGlyphs::Square(inner, 0.12), true);
        TapeGlyphs::Stroke(painter, sign);
    } else if (key == QLatin1String("Expiring"))
        TapeGlyphs::Exclamation(painter, sign);
}
}

QStringList Names()
{
    return {QStringLiteral("Free"),        QStringLiteral("Proposed"), QStringLiteral("Loaded"),
            QStringLiteral("Stop"),        QStringLiteral("Recording"), QStringLiteral("Paused"),
            QStringLiteral("NoBlankTape"), QStringLiteral("Ready"),     QStringLiteral("Erasing"),
            QStringLiteral("Expiring")};
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
