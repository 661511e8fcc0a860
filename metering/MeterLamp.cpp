#include "metering/MeterLamp.h"
#include <QPainter>

MeterLamp::MeterLamp(const QColor& colour, QWidget* parent)
    : QWidget(parent)
    , m_colour(colour)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void MeterLamp::SetColor(const QColor& colour)
{
    if (colour == m_colour)
        return;
    m_colour = colour;
    update();
}

// A lens of the lamp's colour in a dark bezel, with a soft highlight in its upper half.
void MeterLamp::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), QColor(12, 12, 14));
    const QRect lens = rect().adjusted(1, 1, -1, -1);
    painter.fillRect(lens, m_colour);
    painter.fillRect(QRect(lens.left(), lens.top(), lens.width(), lens.height() / 3), m_colour.lighter(135));
}
