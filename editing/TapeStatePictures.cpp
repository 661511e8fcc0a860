#include "editing/TapeStatePictures.h"
#include "foundation/controls/LampPicture.h"
#include "foundation/controls/TransportGlyphs.h"

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
    const QRectF sign = TransportGlyphs::Square(inner, 0.22);
    if (key == QLatin1String("Recording"))
        TransportGlyphs::Dot(painter, TransportGlyphs::Square(sign, 0.1));
    else if (key == QLatin1String("Paused"))
        TransportGlyphs::PauseBars(painter, sign.adjusted(sign.width() * 0.1, 0, -sign.width() * 0.1, 0), 0.34);
    else if (key == QLatin1String("Stop"))
        TransportGlyphs::Bar(painter, TransportGlyphs::Square(sign, 0.1));
    else if (key == QLatin1String("Free") || key == QLatin1String("Proposed") || key == QLatin1String("Ready"))
        TransportGlyphs::Cassette(painter, TransportGlyphs::Square(inner, 0.12), false);
    else if (key == QLatin1String("Loaded"))
        TransportGlyphs::Cassette(painter, TransportGlyphs::Square(inner, 0.12), true);
    else if (key == QLatin1String("NoBlankTape")) {
        TransportGlyphs::Cassette(painter, TransportGlyphs::Square(inner, 0.12), false);
        TransportGlyphs::Stroke(painter, sign);
    } else if (key == QLatin1String("Erasing")) {
        TransportGlyphs::Cassette(painter, TransportGlyphs::Square(inner, 0.12), true);
        TransportGlyphs::Stroke(painter, sign);
    } else if (key == QLatin1String("Expiring"))
        TransportGlyphs::Exclamation(painter, sign);
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
    if (!Names().contains(key))
        return {};
    return LampPicture::Draw(side, LampColour(key),
                             [&key](QPainter& painter, const QRectF& glass) { DrawSign(painter, key, glass); });
}
}
