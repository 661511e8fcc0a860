#include "metering/UCSingleVumeter.h"
#include "metering/Rounding.h"
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <cmath>

namespace {
constexpr int LedPitch = 4;
constexpr int LedThickness = 2;
constexpr int Margin = 3;
constexpr float AmberBoundary = -30;
constexpr float RedBoundary = -10;
constexpr float ReferenceLevel = 0;

const QRgb LitLow = qRgb(0, 255, 200);
const QRgb LitMiddle = qRgb(255, 200, 0);
const QRgb LitHigh = qRgb(255, 0, 100);
const QRgb ZeroMark = qRgb(160, 90, 0);
const QRgb PeakDot = qRgb(255, 0, 200);
const QColor Ground(34, 36, 40);

// The determinant of a 3×3 matrix given row by row.
double Determinant(double m1, double m2, double m3, double m4, double m5, double m6, double m7, double m8, double m9)
{
    return m1 * m5 * m9 + m2 * m6 * m7 + m3 * m4 * m8 - m3 * m5 * m7 - m1 * m6 * m8 - m2 * m4 * m9;
}
}

UCSingleVumeter::UCSingleVumeter(QWidget* parent)
    : QWidget(parent)
{
    // The bar paints its whole ground itself, so that no style sheet can change it.
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_background = Ground.rgb();
}

void UCSingleVumeter::SetOrientation(Qt::Orientation orientation)
{
    if (orientation == m_orientation)
        return;
    m_orientation = orientation;
    CalculateFormula();
}

void UCSingleVumeter::SetValue(float value)
{
    m_value = value;
    Refresh();
}

void UCSingleVumeter::SetValue(float value, float peak)
{
    m_peak = peak < m_noiseLevel ? m_noiseLevel : peak;
    SetValue(value);
}

bool UCSingleVumeter::Saturation() const
{
    return m_value > ReferenceLevel - 6;
}

float UCSingleVumeter::Slope() const
{
    return (ReferenceLevel + 110) / static_cast<float>(m_ledCount + 1);
}

void UCSingleVumeter::resizeEvent(QResizeEvent*)
{
    CalculateFormula();
}

// The number of LEDs follows the present length of the bar. The curve comes by Cramer's rule over the
// system whose rows are the squares of the three levels, the levels and three ones; a
// singular system (two points at one level) leaves the curve flat at 0.
void UCSingleVumeter::CalculateFormula()
{
    const bool vertical = m_orientation == Qt::Vertical;
    m_ledCount = RoundHalfEven(((vertical ? height() : width()) - 4.0 * Margin) / LedPitch);
    m_lineEnd = (vertical ? width() : height()) - Margin;
    const double l1 = m_noiseLevel;
    const double l2 = WorkLevel - 10.0;
    const double l3 = WorkLevel;
    const double y1 = 0;
    const double y2 = RoundHalfEven(LevelTenPercent / 100.0 * m_ledCount);
    const double y3 = RoundHalfEven(LevelZeroPercent / 100.0 * m_ledCount);
    const double d = Determinant(l1 * l1, l2 * l2, l3 * l3, l1, l2, l3, 1, 1, 1);
    m_parabola = {};
    if (d != 0) {
        m_parabola.a = static_cast<float>(Determinant(y1, y2, y3, l1, l2, l3, 1, 1, 1) / d);
        m_parabola.b = static_cast<float>(Determinant(l1 * l1, l2 * l2, l3 * l3, y1, y2, y3, 1, 1, 1) / d);
        m_parabola.c = static_cast<float>(Determinant(l1 * l1, l2 * l2, l3 * l3, l1, l2, l3, y1, y2, y3) / d);
    }
    m_minusB = -m_parabola.b;
    m_bSquared = m_parabola.b * m_parabola.b;
    m_fourA = 4 * m_parabola.a;
    m_c = m_parabola.c;
    m_twoA = 2 * m_parabola.a;
    ComputeLedLevels();
}

float UCSingleVumeter::ToPower(int led) const
{
    const float d = m_bSquared - (m_c - static_cast<float>(led)) * m_fourA;
    if (m_twoA == 0)
        return 0;
    if (d < 0)
        return m_minusB / m_twoA;
    return (m_minusB + std::sqrt(d)) / m_twoA;
}

// The inverse is worked out once per LED whenever the curve or the length changes; every
// LED is then painted afresh.
void UCSingleVumeter::ComputeLedLevels()
{
    const int leds = std::max(m_ledCount + 1, 0);
    m_ledLevels.resize(leds > 0 ? leds + 1 : 0);
    for (int i = 0; i < static_cast<int>(m_ledLevels.size()); ++i)
        m_ledLevels[i] = ToPower(i);
    m_ledColors.assign(leds, m_background);
    Refresh();
    update();
}

QRgb UCSingleVumeter::SelectRegion(float A, float W) const
{
    if (m_peak - W < A && A <= m_peak)
        return PeakDot;
    if (A <= m_value) {
        if (A <= AmberBoundary)
            return LitLow;
        if (A <= RedBoundary)
            return LitMiddle;
        return LitHigh;
    }
    if (ReferenceLevel - W < A && A <= ReferenceLevel)
        return ZeroMark;
    return m_background;
}

void UCSingleVumeter::Refresh()
{
    for (int i = 0; i < static_cast<int>(m_ledColors.size()); ++i) {
        const float A = m_ledLevels[i];
        const QRgb colour = SelectRegion(A, m_ledLevels[i + 1] - A);
        if (colour != m_ledColors[i]) {
            m_ledColors[i] = colour;
            update(LedRect(i));
        }
    }
}

QColor UCSingleVumeter::LedColor(int led) const
{
    return led >= 0 && led < static_cast<int>(m_ledColors.size()) ? QColor(m_ledColors[led]) : QColor();
}

QRect UCSingleVumeter::LedRect(int led) const
{
    const int across = m_lineEnd - Margin + 1;
    if (m_orientation == Qt::Horizontal)
        return QRect(led * LedPitch + 2 * Margin, Margin, LedThickness, across);
    return QRect(Margin, (m_ledCount - led) * LedPitch + 2 * Margin, across, LedThickness);
}

void UCSingleVumeter::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.fillRect(event->rect(), QColor(m_background));
    for (int i = 0; i < static_cast<int>(m_ledColors.size()); ++i) {
        const QRect led = LedRect(i);
        if (event->rect().intersects(led))
            painter.fillRect(led, QColor(m_ledColors[i]));
    }
}

void UCSingleVumeter::mouseReleaseEvent(QMouseEvent* event)
{
    if (rect().contains(event->position().toPoint()))
        Q_EMIT Click();
}
