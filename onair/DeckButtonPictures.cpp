#include "onair/DeckButtonPictures.h"
#include "foundation/controls/KeyPicture.h"
#include "foundation/controls/TransportGlyphs.h"

namespace DeckButtonPictures {
namespace {
const QColor Green(80, 230, 120);
const QColor Amber(255, 184, 48);
const QColor Blue(120, 190, 255);
const QColor White(226, 232, 242);
const QColor Red(255, 96, 96);

QColor SymbolColour(const QString& name)
{
    if (name == QLatin1String("Play") || name.startsWith(QLatin1String("PlayS")) || name == QLatin1String("PlayMid"))
        return Green;
    if (name == QLatin1String("Pause"))
        return Amber;
    if (name == QLatin1String("Cue") || name == QLatin1String("Recue"))
        return Blue;
    if (name == QLatin1String("FadeOut"))
        return Red;
    return White;
}

void DrawThirdsKey(QPainter& painter, const QRectF& area, int lit, const QColor& colour, bool down)
{
    const QRectF upper(area.left(), area.top(), area.width(), area.height() * 0.68);
    const QRectF play = TransportGlyphs::Square(upper, 0.12);
    TransportGlyphs::Triangle(painter, play);
    const QRectF line(area.left() + area.width() * 0.1, area.top() + area.height() * 0.78, area.width() * 0.8,
                      area.height() * 0.16);
    TransportGlyphs::Thirds(painter, line, lit, down ? QColor(255, 255, 255) : colour, QColor(90, 96, 108));
}

void DrawSymbol(QPainter& painter, const QString& name, const QRectF& area, const QColor& colour, bool down)
{
    const QRectF square = TransportGlyphs::Square(area, 0.22);
    const QRectF wide(area.center().x() - square.width() * 0.7, square.top(), square.width() * 1.4, square.height());
    if (name == QLatin1String("Play")) {
        TransportGlyphs::Triangle(painter, square.adjusted(square.width() * 0.1, 0, 0, 0));
    } else if (name == QLatin1String("Pause")) {
        TransportGlyphs::PauseBars(painter, square.adjusted(square.width() * 0.1, 0, -square.width() * 0.1, 0), 0.36);
    } else if (name == QLatin1String("Cue")) {
        const double bar = square.width() * 0.18;
        TransportGlyphs::Bar(painter, QRectF(square.left(), square.top(), bar, square.height()));
        TransportGlyphs::Triangle(painter, square.adjusted(bar * 1.6, 0, 0, 0), false);
    } else if (name == QLatin1String("Recue")) {
        TransportGlyphs::RingArrow(painter, square.adjusted(-2, -2, 2, 2), down ? QColor(255, 255, 255) : colour);
    } else if (name == QLatin1String("Skip")) {
        const double bar = square.width() * 0.16;
        const QRectF triangles(wide.left(), wide.top(), wide.width() - bar * 1.3, wide.height());
        TransportGlyphs::DoubleTriangle(painter, triangles, true);
        TransportGlyphs::Bar(painter, QRectF(wide.right() - bar, wide.top(), bar, wide.height()));
    } else if (name == QLatin1String("Eject")) {
        TransportGlyphs::EjectSign(painter, square);
    } else if (name == QLatin1String("Rew") || name == QLatin1String("FF")) {
        TransportGlyphs::DoubleTriangle(painter, wide, name == QLatin1String("FF"));
    } else if (name == QLatin1String("PlayStart") || name == QLatin1String("PlayMid") || name == QLatin1String("PlayStop")) {
        const int lit = name == QLatin1String("PlayStart") ? 0 : name == QLatin1String("PlayMid") ? 1 : 2;
        DrawThirdsKey(painter, TransportGlyphs::Square(area, 0.12), lit, colour, down);
    } else if (name == QLatin1String("FadeOut")) {
        TransportGlyphs::FadeWedge(painter, wide.adjusted(0, square.height() * 0.1, 0, -square.height() * 0.1));
    }
}
}

QStringList Names()
{
    return {QStringLiteral("Rew"),   QStringLiteral("FF"),        QStringLiteral("Cue"),     QStringLiteral("Play"),
            QStringLiteral("Skip"),  QStringLiteral("Pause"),     QStringLiteral("Eject"),   QStringLiteral("Recue"),
            QStringLiteral("PlayStart"), QStringLiteral("PlayMid"), QStringLiteral("PlayStop"), QStringLiteral("FadeOut")};
}

QPixmap Picture(const QString& key, const QSize& size)
{
    const QString name = key.section(QLatin1Char('_'), 0, 0);
    const QString state = key.section(QLatin1Char('_'), 1);
    if (!Names().contains(name) || (state != QLatin1String("U") && state != QLatin1String("D")))
        return {};
    const bool down = state == QLatin1String("D");
    const QColor colour = SymbolColour(name);
    return KeyPicture::Draw(size, colour, down, [&](QPainter& painter, const QRectF& box) {
        DrawSymbol(painter, name, box, colour, down);
    });
}
}
