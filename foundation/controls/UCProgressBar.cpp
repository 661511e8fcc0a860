#include "foundation/controls/UCProgressBar.h"
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace {
const QColor Ground(192, 224, 255);
constexpr int StripePitch = 3;
}

UCProgressBar::UCProgressBar(QWidget* parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void UCProgressBar::SetPercent(float percent)
{
    m_percent = percent;
    update();
}

// Held to the width, so that a value out of range (or not a number) draws nothing beyond it.
int UCProgressBar::StripeEnd() const
{
    const double end = std::floor(width() * static_cast<double>(m_percent) / 100.0);
    return std::isnan(end) ? 0 : static_cast<int>(std::clamp(end, 0.0, static_cast<double>(width())));
}

void UCProgressBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Ground);
    painter.setPen(Qt::black);
    const int end = StripeEnd();
    for (int x = 1; x <= end; x += StripePitch)
        painter.drawLine(x, 0, x, height() - 1);
}
