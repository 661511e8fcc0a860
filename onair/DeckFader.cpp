#include "onair/DeckFader.h"
#include <QLinearGradient>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionSlider>

namespace {
// Marks of the scale, the 0 dB one stronger.
constexpr int ScaleMarks[] = {18, 12, 6, 0, -6, -12, -20, -30, -40, -60};
}

DeckFader::DeckFader(QWidget* parent)
    : QScrollBar(Qt::Vertical, parent)
{
    setRange(Bottom, Top);
    setSingleStep(1);
    setPageStep(3);
    // The bottom of the scale lies at the bottom, as on a console.
    setInvertedAppearance(true);
    setInvertedControls(false);
    setValue(0);
    // No arrows: the whole height is the travel of the cap.
    setStyleSheet(QStringLiteral("QScrollBar:vertical { background: transparent; border: none; margin: 0; }"
                                 "QScrollBar::add-line:vertical, QScrollBar::sub-line:vertical { height: 0; border: none; }"
                                 "QScrollBar::add-page:vertical, QScrollBar::sub-page:vertical { background: none; }"
                                 "QScrollBar::handle:vertical { min-height: 18px; background: transparent; }"));
}

QRect DeckFader::CapRect() const
{
    QStyleOptionSlider option;
    initStyleOption(&option);
    return style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, this);
}

int DeckFader::PositionOf(int value) const
{
    const QRect cap = CapRect();
    const int span = height() - cap.height();
    return QStyle::sliderPositionFromValue(minimum(), maximum(), value, span, invertedAppearance()) + cap.height() / 2;
}

void DeckFader::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRect groove = rect();
    DrawScale(painter, groove);
    DrawCap(painter, CapRect());
}

void DeckFader::DrawScale(QPainter& painter, const QRect& groove) const
{
    const double centre = groove.center().x() + 0.5;
    const int top = PositionOf(Top);
    const int bottom = PositionOf(Bottom);
    // The slot the cap runs in.
    const double slot = std::max(3.0, width() * 0.1);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(4, 5, 7));
    painter.drawRoundedRect(QRectF(centre - slot / 2, top - 2, slot, bottom - top + 4), slot / 2, slot / 2);
    for (const int mark : ScaleMarks) {
        const double y = PositionOf(mark) + 0.5;
        const bool zero = mark == 0;
        const double length = width() * (zero ? 0.42 : 0.3);
        painter.setPen(QPen(zero ? QColor(255, 190, 80) : QColor(150, 160, 176), zero ? 2 : 1));
        painter.drawLine(QPointF(centre - slot, y), QPointF(centre - slot - length + slot, y));
        painter.drawLine(QPointF(centre + slot, y), QPointF(centre + slot + length - slot, y));
    }
}

void DeckFader::DrawCap(QPainter& painter, const QRect& cap) const
{
    const QRectF body = QRectF(cap).adjusted(1.5, 1.5, -1.5, -1.5);
    QLinearGradient metal(body.topLeft(), body.bottomLeft());
    metal.setColorAt(0, QColor(200, 205, 214));
    metal.setColorAt(0.45, QColor(120, 126, 138));
    metal.setColorAt(0.55, QColor(70, 75, 86));
    metal.setColorAt(1, QColor(150, 156, 168));
    painter.setPen(QPen(QColor(10, 11, 14), 1));
    painter.setBrush(metal);
    painter.drawRoundedRect(body, 2, 2);
    // The line that reads the scale.
    painter.setPen(QPen(QColor(255, 255, 255), 2));
    const double y = body.center().y();
    painter.drawLine(QPointF(body.left() + 2, y), QPointF(body.right() - 2, y));
}
