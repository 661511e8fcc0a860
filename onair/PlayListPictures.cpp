#include "onair/PlayListPictures.h"
#include "browse/BrowserIcons.h"
#include "foundation/controls/TransportGlyphs.h"
#include "onair/DeckStatusPictures.h"
#include <QHash>
#include <QPainter>
#include <QRadialGradient>
#include <functional>

namespace PlayListPictures {
namespace {
constexpr int RowSide = 16;
using Drawing = std::function<void(QPainter&, const QRectF&)>;

QPixmap Draw(int side, const Drawing& draw)
{
    QPixmap picture(side, side);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    draw(painter, QRectF(0, 0, side, side));
    return picture;
}

void Arrow(QPainter& p, const QRectF& box, const QColor& fill)
{
    p.setPen(QPen(fill.darker(170), 1));
    p.setBrush(fill);
    TransportGlyphs::Triangle(p, TransportGlyphs::Square(box, 0.16));
}

void Ignored(QPainter& p, const QRectF& box)
{
    const QRectF ring = TransportGlyphs::Square(box, 0.16);
    p.setPen(QPen(QColor(200, 50, 50), box.width() * 0.13));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(ring);
    p.drawLine(ring.topLeft() + QPointF(ring.width() * 0.18, ring.height() * 0.18),
               ring.bottomRight() - QPointF(ring.width() * 0.18, ring.height() * 0.18));
}

void Modified(QPainter& p, const QRectF& box)
{
    const QRectF dot = TransportGlyphs::Square(box, 0.25);
    p.setPen(QPen(QColor(150, 80, 0), 1));
    p.setBrush(QColor(255, 150, 30));
    p.drawPolygon(QPolygonF({QPointF(dot.center().x(), dot.top()), QPointF(dot.right(), dot.center().y()),
                             QPointF(dot.center().x(), dot.bottom()), QPointF(dot.left(), dot.center().y())}));
}

void Blank(QPainter& p, const QRectF& box)
{
    p.setPen(QPen(QColor(150, 160, 175), 1, Qt::DashLine));
    p.drawLine(QPointF(box.left() + 2, box.center().y()), QPointF(box.right() - 2, box.center().y()));
}

QPixmap RowPicture(const QString& key)
{
    static const QHash<QString, QString> fromBrowser = {
        {QStringLiteral("SOUND"), QStringLiteral("0")},   {QStringLiteral("MACRO"), QStringLiteral("1")},
        {QStringLiteral("ACTION"), QStringLiteral("2")},  {QStringLiteral("UNKNOWN"), QStringLiteral("-1")},
        {QStringLiteral("GHOST"), QStringLiteral("Ghost")},
    };
    if (fromBrowser.contains(key))
        return BrowserIcons::Icon(fromBrowser.value(key)).pixmap(RowSide, RowSide);
    if (key == QLatin1String("WHITESPACE"))
        return Draw(RowSide, [](QPainter&, const QRectF&) {});
    if (key == QLatin1String("PLAYING"))
        return Draw(RowSide, [](QPainter& p, const QRectF& box) { Arrow(p, box, QColor(60, 200, 90)); });
    if (key == QLatin1String("NEXT"))
        return Draw(RowSide, [](QPainter& p, const QRectF& box) { Arrow(p, box, QColor(255, 176, 40)); });
    if (key == QLatin1String("MODIFIED"))
        return Draw(RowSide, Modified);
    if (key == QLatin1String("IGNORED"))
        return Draw(RowSide, Ignored);
    if (key == QLatin1String("LOOPED"))
        return Draw(RowSide, [](QPainter& p, const QRectF& box) { TransportGlyphs::RingArrow(p, box, QColor(40, 120, 240)); });
    if (key == QLatin1String("BLANK"))
        return Draw(RowSide, Blank);
    return {};
}

// A round lamp in a colour, lit or dark, with its sign drawn over it in the sign's colour.
QPixmap Lamp(int side, QColor colour, bool lit, const Drawing& sign)
{
    return Draw(side, [&](QPainter& p, const QRectF& box) {
        const QRectF outer = box.adjusted(0.5, 0.5, -0.5, -0.5);
        p.setPen(QPen(QColor(8, 9, 12), 1));
        p.setBrush(QColor(24, 26, 30));
        p.drawEllipse(outer);
        const double inset = side * 0.08;
        const QRectF inner = outer.adjusted(inset, inset, -inset, -inset);
        const QColor glassColour = lit ? colour : QColor(70, 74, 82);
        QRadialGradient glass(inner.center() - QPointF(inner.width() * 0.18, inner.height() * 0.22), inner.width() * 0.7);
        glass.setColorAt(0, glassColour.lighter(140));
        glass.setColorAt(0.6, glassColour);
        glass.setColorAt(1, glassColour.darker(220));
        p.setPen(Qt::NoPen);
        p.setBrush(glass);
        p.drawEllipse(inner);
        const QColor ink = lit ? QColor(12, 14, 18, 230) : QColor(150, 156, 166);
        p.setBrush(ink);
        p.setPen(Qt::NoPen);
        sign(p, TransportGlyphs::Square(inner, 0.24));
    });
}

void ListLines(QPainter& p, const QRectF& sign)
{
    const double bar = sign.height() * 0.18;
    for (int i = 0; i < 3; ++i)
        TransportGlyphs::Bar(p, QRectF(sign.left(), sign.top() + i * (sign.height() - bar) / 2, sign.width(), bar));
}

void Links(QPainter& p, const QRectF& sign)
{
    const QColor ink = p.brush().color();
    p.setPen(QPen(ink, sign.width() * 0.14));
    p.setBrush(Qt::NoBrush);
    const double w = sign.width() * 0.62;
    const double h = sign.height() * 0.42;
    p.drawRoundedRect(QRectF(sign.left(), sign.center().y() - h / 2, w, h), h / 2, h / 2);
    p.drawRoundedRect(QRectF(sign.right() - w, sign.center().y() - h / 2, w, h), h / 2, h / 2);
}

void Dot(QPainter& p, const QRectF& sign)
{
    p.drawEllipse(TransportGlyphs::Square(sign, 0.22));
}

void ReturnArrow(QPainter& p, const QRectF& sign)
{
    TransportGlyphs::RingArrow(p, sign, p.brush().color());
}

struct LampDesign
{
    const char* on;
    const char* off;
    QColor colour;
    Drawing sign;
};

const std::vector<LampDesign>& Lamps()
{
    static const std::vector<LampDesign> lamps = {
        {"STATUS_LOADED", "STATUS_UNLOADED", QColor(255, 190, 60), ListLines},
        {"STATUS_MODIFIED", "STATUS_UNMODIFIED", QColor(255, 120, 40), Dot},
        {"STATUS_CHAINED", "STATUS_NOT_CHAINED", QColor(90, 170, 255), Links},
        {"STATUS_AUTOCLOSE", "STATUS_NOT_AUTOCLOSE", QColor(200, 120, 255), ReturnArrow},
    };
    return lamps;
}
}

QStringList RowKeys()
{
    return {QStringLiteral("WHITESPACE"), QStringLiteral("PLAYING"), QStringLiteral("GHOST"),    QStringLiteral("BLANK"),
            QStringLiteral("NEXT"),       QStringLiteral("MODIFIED"), QStringLiteral("IGNORED"), QStringLiteral("LOOPED"),
            QStringLiteral("SOUND"),      QStringLiteral("MACRO"),    QStringLiteral("ACTION"),  QStringLiteral("UNKNOWN")};
}

const QIcon& RowIcon(const QString& key)
{
    static QHash<QString, QIcon> icons;
    static const QIcon none;
    const auto found = icons.constFind(key);
    if (found != icons.constEnd())
        return *found;
    const QPixmap picture = RowPicture(key);
    if (picture.isNull())
        return none;
    return *icons.insert(key, QIcon(picture));
}

QPixmap StatusPicture(const QString& key, int side)
{
    if (side <= 0)
        return {};
    if (key == QLatin1String("STATUS_PLAYING"))
        return DeckStatusPictures::Picture(QStringLiteral("Playing"), side);
    if (key == QLatin1String("STATUS_STOPPED"))
        return DeckStatusPictures::Picture(QStringLiteral("Ready"), side);
    for (const LampDesign& lamp : Lamps()) {
        if (key == QLatin1String(lamp.on))
            return Lamp(side, lamp.colour, true, lamp.sign);
        if (key == QLatin1String(lamp.off))
            return Lamp(side, lamp.colour, false, lamp.sign);
    }
    return {};
}

QPixmap WaitPicture(int side)
{
    if (side <= 0)
        return {};
    return Draw(side, [](QPainter& p, const QRectF& box) {
        const QRectF face = TransportGlyphs::Square(box, 0.06);
        p.setPen(QPen(QColor(40, 44, 52), 1.5));
        p.setBrush(QColor(255, 236, 170));
        p.drawEllipse(face);
        p.setPen(QPen(QColor(30, 32, 38), face.width() * 0.09, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(face.center(), face.center() - QPointF(0, face.height() * 0.32));
        p.drawLine(face.center(), face.center() + QPointF(face.width() * 0.24, 0));
    });
}
}
