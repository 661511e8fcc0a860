#include "onair/DeckBackground.h"
#include <QLinearGradient>
#include <QPainter>

namespace {
// The share of the state colour in the body; the rest is the dark of the casing, so that the
// lit windows and keys keep their contrast in every state.
constexpr double Tint = 0.32;
const QColor Casing(22, 24, 29);

QColor Mix(const QColor& a, const QColor& b, double share)
{
    return QColor::fromRgbF(static_cast<float>(a.redF() * (1 - share) + b.redF() * share),
                            static_cast<float>(a.greenF() * (1 - share) + b.greenF() * share),
                            static_cast<float>(a.blueF() * (1 - share) + b.blueF() * share));
}
}

DeckBackground::DeckBackground(QWidget* parent)
    : QWidget(parent)
{
}

void DeckBackground::SetBackColor(const QColor& colour)
{
    if (colour == m_backColor)
        return;
    m_backColor = colour;
    update();
}

void DeckBackground::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF outer = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    const double radius = std::min(8.0, height() * 0.04);
    painter.setPen(QPen(QColor(4, 5, 6), 1));
    painter.setBrush(m_backColor);
    painter.drawRoundedRect(outer, radius, radius);

    const double rim = std::max(2.0, height() * 0.012);
    const QRectF body = outer.adjusted(rim, rim, -rim, -rim);
    const QColor tinted = Mix(Casing, m_backColor, Tint);
    QLinearGradient metal(body.topLeft(), body.bottomLeft());
    metal.setColorAt(0, tinted.lighter(135));
    metal.setColorAt(0.08, tinted);
    metal.setColorAt(1, tinted.darker(140));
    painter.setPen(QPen(QColor(0, 0, 0, 160), 1));
    painter.setBrush(metal);
    painter.drawRoundedRect(body, radius * 0.7, radius * 0.7);
}
