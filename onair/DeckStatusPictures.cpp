#include "onair/DeckStatusPictures.h"
#include "foundation/controls/LampPicture.h"
#include "foundation/controls/TransportGlyphs.h"

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
    const QRectF sign = TransportGlyphs::Square(inner, 0.2);
    if (key == QLatin1String("Playing")) {
        TransportGlyphs::Triangle(painter, sign.adjusted(sign.width() * 0.15, 0, 0, 0));
    } else if (key == QLatin1String("Paused")) {
        TransportGlyphs::PauseBars(painter, sign.adjusted(sign.width() * 0.1, 0, -sign.width() * 0.1, 0), 0.36);
    } else if (key == QLatin1String("Cueing")) {
        const double half = sign.width() / 2;
        TransportGlyphs::Triangle(painter, QRectF(sign.left(), sign.top(), half, sign.height()), false);
        TransportGlyphs::Triangle(painter, QRectF(sign.center().x(), sign.top(), half, sign.height()), true);
    } else if (key == QLatin1String("Cued")) {
        const double bar = sign.width() * 0.2;
        TransportGlyphs::Bar(painter, QRectF(sign.left(), sign.top(), bar, sign.height()));
        TransportGlyphs::Triangle(painter, sign.adjusted(bar * 1.5, 0, 0, 0));
    } else if (key == QLatin1String("Expiring")) {
        TransportGlyphs::Exclamation(painter, sign);
    } else if (key == QLatin1String("Sync")) {
        TransportGlyphs::DoubleTriangle(painter, sign, true);
    } else {
        TransportGlyphs::Bar(painter, TransportGlyphs::Square(sign, 0.12));
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
    if (!Names().contains(key))
        return {};
    return LampPicture::Draw(side, LampColour(key),
                             [&key](QPainter& painter, const QRectF& glass) { DrawSign(painter, key, glass); });
}
}
