#include "editing/TapeButtonPictures.h"
#include "foundation/controls/KeyPicture.h"
#include "foundation/controls/TransportGlyphs.h"

namespace TapeButtonPictures {
namespace {
QColor SignColour(const QString& word)
{
    if (word == QLatin1String("Rec") || word == QLatin1String("Erase"))
        return QColor(255, 80, 72);
    if (word == QLatin1String("Pause"))
        return QColor(255, 184, 48);
    if (word == QLatin1String("Blank"))
        return QColor(120, 190, 255);
    return QColor(226, 232, 242);
}

void DrawSign(QPainter& painter, const QString& word, const QRectF& box)
{
    const QRectF square = TransportGlyphs::Square(box, 0.24);
    const QRectF wide = TransportGlyphs::Square(box, 0.1).adjusted(-box.width() * 0.1, 0, box.width() * 0.1, 0);
    if (word == QLatin1String("Rec")) {
        TransportGlyphs::Dot(painter, square);
    } else if (word == QLatin1String("Pause")) {
        TransportGlyphs::PauseBars(painter, square.adjusted(square.width() * 0.1, 0, -square.width() * 0.1, 0), 0.34);
    } else if (word == QLatin1String("Eject")) {
        TransportGlyphs::EjectSign(painter, square);
    } else if (word == QLatin1String("Blank")) {
        TransportGlyphs::Cassette(painter, wide, false);
    } else if (word == QLatin1String("Erase")) {
        TransportGlyphs::Cassette(painter, wide, true);
        TransportGlyphs::Stroke(painter, square);
    }
}
}

QStringList Words()
{
    return {QStringLiteral("Blank"), QStringLiteral("Rec"), QStringLiteral("Pause"), QStringLiteral("Eject"),
            QStringLiteral("Erase")};
}

QPixmap Picture(const QString& key, const QSize& size)
{
    const QString state = key.left(2);
    const QString word = key.mid(2);
    if (!Words().contains(word) || (state != QLatin1String("_U") && state != QLatin1String("_D")))
        return {};
    const bool down = state == QLatin1String("_D");
    return KeyPicture::Draw(size, SignColour(word), down,
                            [&word](QPainter& painter, const QRectF& box) { DrawSign(painter, word, box); });
}
}
