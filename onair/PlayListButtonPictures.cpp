#include "onair/PlayListButtonPictures.h"
#include "foundation/controls/TransportGlyphs.h"
#include <QPainter>
#include <QPolygonF>

namespace PlayListButtonPictures {
namespace {
void Vertical(QPainter& p, const QRectF& box, bool up)
{
    const double tip = up ? box.top() : box.bottom();
    const double base = up ? box.bottom() : box.top();
    p.drawPolygon(QPolygonF({QPointF(box.left(), base), QPointF(box.right(), base), QPointF(box.center().x(), tip)}));
}

void Plus(QPainter& p, const QRectF& box)
{
    const double bar = box.width() * 0.24;
    p.drawRect(QRectF(box.center().x() - bar / 2, box.top(), bar, box.height()));
    p.drawRect(QRectF(box.left(), box.center().y() - bar / 2, box.width(), bar));
}

void Cross(QPainter& p, const QRectF& box)
{
    p.save();
    p.translate(box.center());
    p.rotate(45);
    Plus(p, QRectF(-box.width() / 2, -box.height() / 2, box.width(), box.height()));
    p.restore();
}

void Pencil(QPainter& p, const QRectF& box)
{
    p.save();
    p.translate(box.center());
    p.rotate(-45);
    const double w = box.width() * 0.28;
    const double h = box.height() * 1.1;
    p.drawRect(QRectF(-w / 2, -h / 2, w, h * 0.78));
    p.drawPolygon(QPolygonF({QPointF(-w / 2, h * 0.3), QPointF(w / 2, h * 0.3), QPointF(0, h / 2)}));
    p.restore();
}

void Disk(QPainter& p, const QRectF& box)
{
    p.drawRoundedRect(box, box.width() * 0.1, box.width() * 0.1);
    p.save();
    p.setBrush(QColor(30, 34, 42));
    p.drawRect(QRectF(box.left() + box.width() * 0.25, box.top(), box.width() * 0.5, box.height() * 0.32));
    p.drawRect(QRectF(box.left() + box.width() * 0.18, box.top() + box.height() * 0.55, box.width() * 0.64,
                      box.height() * 0.45));
    p.restore();
}

void Draw(QPainter& p, const QString& name, const QRectF& box, const QColor& ink)
{
    if (name == QLatin1String("Insert")) {
        TransportGlyphs::Bar(p, QRectF(box.left(), box.bottom() - box.height() * 0.2, box.width(), box.height() * 0.2));
        Plus(p, QRectF(box.left() + box.width() * 0.2, box.top(), box.width() * 0.6, box.height() * 0.6));
    } else if (name == QLatin1String("Delete")) {
        Cross(p, TransportGlyphs::Square(box, 0.08));
    } else if (name == QLatin1String("Up") || name == QLatin1String("Down")) {
        Vertical(p, TransportGlyphs::Square(box, 0.1), name == QLatin1String("Up"));
    } else if (name == QLatin1String("Edit")) {
        Pencil(p, box);
    } else if (name == QLatin1String("Refresh") || name == QLatin1String("Reload")) {
        TransportGlyphs::RingArrow(p, box, ink);
        if (name == QLatin1String("Reload"))
            TransportGlyphs::Bar(p, QRectF(box.left(), box.bottom() - box.height() * 0.12, box.width(), box.height() * 0.12));
    } else if (name == QLatin1String("Save")) {
        Disk(p, TransportGlyphs::Square(box, 0.04));
    } else {
        TransportGlyphs::Triangle(p, TransportGlyphs::Square(box, 0.06));
    }
}
}

QStringList Names()
{
    return {QStringLiteral("Insert"),  QStringLiteral("Delete"), QStringLiteral("Up"),
            QStringLiteral("Down"),    QStringLiteral("Edit"),   QStringLiteral("Refresh"),
            QStringLiteral("Reload"),  QStringLiteral("Save"),   QStringLiteral("Play")};
}

QPixmap Picture(const QString& key, int side)
{
    const QString name = key.section(QLatin1Char('_'), 0, 0);
    const QString state = key.section(QLatin1Char('_'), 1);
    if (!Names().contains(name) || (!state.isEmpty() && state != QLatin1String("Disabled")) || side <= 0)
        return {};
    QPixmap picture(side, side);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor ink = name == QLatin1String("Play") ? QColor(80, 220, 110) : QColor(225, 230, 238);
    if (name == QLatin1String("Delete"))
        ink = QColor(255, 110, 100);
    if (!state.isEmpty())
        ink = QColor(96, 100, 108);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    Draw(painter, name, QRectF(side * 0.2, side * 0.2, side * 0.6, side * 0.6), ink);
    return picture;
}
}
