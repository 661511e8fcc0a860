#include "onair/DeckLabel.h"
#include <QLinearGradient>
#include <QPainter>

DeckLabel::DeckLabel(QWidget* parent)
    : QWidget(parent)
{
}

void DeckLabel::SetText(const QString& text)
{
    if (text == m_text)
        return;
    m_text = text;
    update();
}

void DeckLabel::SetBackColor(const QColor& colour)
{
    if (colour == m_backColor)
        return;
    m_backColor = colour;
    update();
}

void DeckLabel::SetForeColor(const QColor& colour)
{
    if (colour == m_foreColor)
        return;
    m_foreColor = colour;
    update();
}

void DeckLabel::SetAlignment(Qt::Alignment alignment)
{
    m_alignment = alignment;
    update();
}

void DeckLabel::paintEvent(QPaintEvent*)
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
    if (!isEnabled())
        text.setAlpha(110);
    painter.setPen(text);
    painter.setFont(font());
    const int margin = std::max(3, height() / 5);
    painter.drawText(rect().adjusted(margin, 0, -margin, 0), static_cast<int>(m_alignment),
                     painter.fontMetrics().elidedText(m_text, Qt::ElideRight, width() - 2 * margin));
}
