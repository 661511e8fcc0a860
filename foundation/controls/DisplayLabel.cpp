#include "foundation/controls/DisplayLabel.h"
#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPainter>
#include <algorithm>

DisplayLabel::DisplayLabel(QWidget* parent)
    : QWidget(parent)
{
}

void DisplayLabel::SetText(const QString& text)
{
    if (text == m_text)
        return;
    m_text = text;
    update();
}

void DisplayLabel::SetBackColor(const QColor& colour)
{
    if (colour == m_backColor)
        return;
    m_backColor = colour;
    update();
}

void DisplayLabel::SetForeColor(const QColor& colour)
{
    if (colour == m_foreColor)
        return;
    m_foreColor = colour;
    update();
}

void DisplayLabel::SetColors(const QColor& back, const QColor& fore)
{
    if (back == m_backColor && fore == m_foreColor)
        return;
    m_backColor = back;
    m_foreColor = fore;
    update();
}

void DisplayLabel::SetAlignment(Qt::Alignment alignment)
{
    m_alignment = alignment;
    update();
}

void DisplayLabel::SetTextFont(const QFont& font)
{
    m_font = font;
    update();
}

void DisplayLabel::SetTypeHeight(double share)
{
    m_typeHeight = share;
    update();
}

void DisplayLabel::SetActive(bool active)
{
    if (active == m_active)
        return;
    m_active = active;
    update();
}

// A text too wide for the window is set smaller, down to two thirds of its size; beyond that
// it is cut with an ellipsis.
QFont DisplayLabel::FittingFont(int room) const
{
    QFont font = m_font;
    if (m_typeHeight > 0)
        font.setPixelSize(std::max(7, qRound(height() * m_typeHeight)));
    const double wide = QFontMetricsF(font).horizontalAdvance(m_text);
    if (wide > room && wide > 0 && font.pixelSize() > 0) {
        const double share = std::max(2.0 / 3.0, room / wide);
        font.setPixelSize(std::max(6, static_cast<int>(font.pixelSize() * share)));
    }
    return font;
}

void DisplayLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF box = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    const double radius = std::min(3.0, height() * 0.12);
    // The window sits a little below the panel: dark rim, darker top edge, then the glass.
    QLinearGradient glass(box.topLeft(), box.bottomLeft());
    glass.setColorAt(0, m_backColor.darker(160));
    glass.setColorAt(0.25, m_backColor);
    glass.setColorAt(1, m_backColor.darker(115));
    painter.setPen(QPen(QColor(6, 7, 9), 1));
    painter.setBrush(glass);
    painter.drawRoundedRect(box, radius, radius);

    QColor text = m_foreColor;
    if (!m_active)
        text.setAlpha(110);
    painter.setPen(text);
    const int margin = std::max(3, height() / 6);
    const int room = width() - 2 * margin;
    painter.setFont(FittingFont(room));
    painter.drawText(rect().adjusted(margin, 0, -margin, 0), static_cast<int>(m_alignment),
                     painter.fontMetrics().elidedText(m_text, Qt::ElideRight, room));
}
