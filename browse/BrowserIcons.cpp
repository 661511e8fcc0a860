#include "browse/BrowserIcons.h"
#include <QHash>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <functional>

namespace BrowserIcons {
namespace {
constexpr int Side = 16;
using Drawing = std::function<void(QPainter&)>;

QIcon Draw(const Drawing& draw)
{
    QPixmap pixmap(Side, Side);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    draw(p);
    return QIcon(pixmap);
}

// A rounded tile with a letter: the kind of a cart at a glance.
Drawing Tile(QColor fill, QChar letter)
{
    return [fill, letter](QPainter& p) {
        p.setPen(QPen(fill.darker(160), 1));
        p.setBrush(fill);
        p.drawRoundedRect(QRectF(1.5, 1.5, 13, 13), 3, 3);
        QFont font = p.font();
        font.setPixelSize(10);
        font.setBold(true);
        p.setFont(font);
        p.setPen(Qt::white);
        p.drawText(QRect(1, 1, 14, 14), Qt::AlignCenter, QString(letter));
    };
}

Drawing Arrow(QColor fill)
{
    return [fill](QPainter& p) {
        QPainterPath path;
        path.moveTo(2, 5);
        path.lineTo(8, 5);
        path.lineTo(8, 1.5);
        path.lineTo(14.5, 8);
        path.lineTo(8, 14.5);
        path.lineTo(8, 11);
        path.lineTo(2, 11);
        path.closeSubpath();
        p.setPen(QPen(fill.darker(170), 1));
        p.setBrush(fill);
        p.drawPath(path);
    };
}

Drawing Separator()
{
    return [](QPainter& p) {
        p.setPen(QPen(QColor(120, 128, 140), 2));
        p.drawLine(QPointF(1, 8), QPointF(15, 8));
    };
}

Drawing Ghost()
{
    return [](QPainter& p) {
        p.setPen(QPen(QColor(150, 160, 175), 1, Qt::DotLine));
        p.setBrush(Qt::NoBrush);
        p.drawRoundedRect(QRectF(1.5, 1.5, 13, 13), 3, 3);
        p.drawLine(QPointF(8, 5), QPointF(8, 11));
        p.drawLine(QPointF(5, 8), QPointF(11, 8));
    };
}

// A folder tab whose colour says the rights of the user on a family.
Drawing Folder(QColor fill, bool locked)
{
    return [fill, locked](QPainter& p) {
        p.setPen(QPen(fill.darker(170), 1));
        p.setBrush(fill);
        QPainterPath path;
        path.moveTo(1.5, 4);
        path.lineTo(6, 4);
        path.lineTo(7.5, 2.5);
        path.lineTo(14.5, 2.5);
        path.lineTo(14.5, 13.5);
        path.lineTo(1.5, 13.5);
        path.closeSubpath();
        p.drawPath(path);
        if (locked) {
            p.setPen(QPen(Qt::white, 1.6));
            p.drawLine(QPointF(5, 6), QPointF(11, 12));
            p.drawLine(QPointF(11, 6), QPointF(5, 12));
        }
    };
}

QHash<QString, Drawing> Drawings()
{
    return {
        {QStringLiteral("0"), Tile(QColor(46, 160, 90), u'S')},
        {QStringLiteral("1"), Tile(QColor(214, 140, 30), u'M')},
        {QStringLiteral("2"), Tile(QColor(130, 90, 200), u'C')},
        {QStringLiteral("3"), Tile(QColor(110, 118, 130), u'R')},
        {QStringLiteral("4"), Separator()},
        {QStringLiteral("-1"), Tile(QColor(200, 50, 50), u'?')},
        {QStringLiteral("Blank"), [](QPainter&) {}},
        {QStringLiteral("_Blank"), [](QPainter&) {}},
        {QStringLiteral("Ghost"), Ghost()},
        {QStringLiteral("BlueArrow"), Arrow(QColor(40, 120, 240))},
        {QStringLiteral("RedArrow"), Arrow(QColor(225, 40, 40))},
        {QStringLiteral("ArrowBlue"), Arrow(QColor(40, 120, 240))},
        {QStringLiteral("ArrowRed"), Arrow(QColor(225, 40, 40))},
        {QStringLiteral("ArrowGreen"), Arrow(QColor(40, 190, 70))},
        {QStringLiteral("ArrowYellow"), Arrow(QColor(245, 205, 30))},
        {QStringLiteral("ArrowGray"), Arrow(QColor(140, 140, 140))},
        {QStringLiteral("Family1"), Folder(QColor(120, 120, 120), true)},
        {QStringLiteral("Family2"), Folder(QColor(70, 130, 200), false)},
        {QStringLiteral("Family3"), Folder(QColor(46, 160, 90), false)},
        {QStringLiteral("Family4"), Folder(QColor(214, 140, 30), false)},
        {QStringLiteral("Family5"), Folder(QColor(200, 50, 50), false)},
    };
}
}

const QIcon& Icon(const QString& key)
{
    static QHash<QString, QIcon> icons;
    static const QHash<QString, Drawing> drawings = Drawings();
    static const QIcon none;
    const auto found = icons.constFind(key);
    if (found != icons.constEnd())
        return *found;
    const auto drawing = drawings.constFind(key);
    if (drawing == drawings.constEnd())
        return none;
    return *icons.insert(key, Draw(*drawing));
}
}
