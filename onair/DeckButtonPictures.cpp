#include "onair/DeckButtonPictures.h"
#include "onair/DeckGlyphs.h"
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

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

// The key itself: a rounded cap, dark and raised when released, lit in the symbol's colour
// when pressed.
void DrawKey(QPainter& painter, const QRectF& box, const QColor& symbol, bool down)
{
    const double radius = std::min(box.width(), box.height()) * 0.14;
    QLinearGradient face(box.topLeft(), box.bottomLeft());
    if (down) {
        face.setColorAt(0, symbol.darker(230));
        face.setColorAt(1, symbol.darker(400));
    } else {
        face.setColorAt(0, QColor(70, 77, 90));
        face.setColorAt(0.5, QColor(46, 51, 61));
        face.setColorAt(1, QColor(30, 33, 40));
    }
    painter.setPen(QPen(QColor(8, 9, 12), 1));
    painter.setBrush(face);
    painter.drawRoundedRect(box.adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    // A thin light edge along the top, where studio light catches the cap.
    painter.setPen(QPen(down ? symbol.lighter(120) : QColor(110, 118, 134), 1));
    painter.drawLine(QPointF(box.left() + radius, box.top() + 1.5), QPointF(box.right() - radius, box.top() + 1.5));
}

void DrawThirdsKey(QPainter& painter, const QRectF& area, int lit, const QColor& colour, bool down)
{
    const QRectF play = DeckGlyphs::Square(QRectF(area.left(), area.top(), area.width(), area.height() * 0.68), 0.12);
    DeckGlyphs::Triangle(painter, play);
    const QRectF line(area.left() + area.width() * 0.1, area.top() + area.height() * 0.78, area.width() * 0.8,
                      area.height() * 0.16);
    DeckGlyphs::Thirds(painter, line, lit, down ? QColor(255, 255, 255) : colour, QColor(90, 96, 108));
}

void DrawSymbol(QPainter& painter, const QString& name, const QRectF& area, const QColor& colour, bool down)
{
    const QRectF square = DeckGlyphs::Square(area, 0.22);
    const QRectF wide(area.center().x() - square.width() * 0.7, square.top(), square.width() * 1.4, square.height());
    if (name == QLatin1String("Play")) {
        DeckGlyphs::Triangle(painter, square.adjusted(square.width() * 0.1, 0, 0, 0));
    } else if (name == QLatin1String("Pause")) {
        DeckGlyphs::PauseBars(painter, square.adjusted(square.width() * 0.1, 0, -square.width() * 0.1, 0));
    } else if (name == QLatin1String("Cue")) {
        const double bar = square.width() * 0.18;
        DeckGlyphs::Bar(painter, QRectF(square.left(), square.top(), bar, square.height()));
        DeckGlyphs::Triangle(painter, square.adjusted(bar * 1.6, 0, 0, 0), false);
    } else if (name == QLatin1String("Recue")) {
        DeckGlyphs::RingArrow(painter, square.adjusted(-2, -2, 2, 2), down ? QColor(255, 255, 255) : colour);
    } else if (name == QLatin1String("Skip")) {
        const double bar = square.width() * 0.16;
        DeckGlyphs::DoubleTriangle(painter, QRectF(wide.left(), wide.top(), wide.width() - bar * 1.3, wide.height()), true);
        DeckGlyphs::Bar(painter, QRectF(wide.right() - bar, wide.top(), bar, wide.height()));
    } else if (name == QLatin1String("Eject")) {
        DeckGlyphs::EjectSign(painter, square);
    } else if (name == QLatin1String("Rew") || name == QLatin1String("FF")) {
        DeckGlyphs::DoubleTriangle(painter, wide, name == QLatin1String("FF"));
    } else if (name == QLatin1String("PlayStart") || name == QLatin1String("PlayMid") || name == QLatin1String("PlayStop")) {
        const int lit = name == QLatin1String("PlayStart") ? 0 : name == QLatin1String("PlayMid") ? 1 : 2;
        DrawThirdsKey(painter, DeckGlyphs::Square(area, 0.12), lit, colour, down);
    } else if (name == QLatin1String("FadeOut")) {
        DeckGlyphs::FadeWedge(painter, wide.adjusted(0, square.height() * 0.1, 0, -square.height() * 0.1));
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
    if (!Names().contains(name) || (state != QLatin1String("U") && state != QLatin1String("D")) || size.isEmpty())
        return {};
    const bool down = state == QLatin1String("D");
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF box(QPointF(0, 0), QSizeF(size));
    const QColor colour = SymbolColour(name);
    DrawKey(painter, box, colour, down);
    painter.setPen(Qt::NoPen);
    painter.setBrush(down ? QColor(255, 255, 255) : colour);
    DrawSymbol(painter, name, box, colour, down);
    return picture;
}
}
