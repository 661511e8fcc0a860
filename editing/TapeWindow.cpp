#include "editing/TapeWindow.h"
#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPainter>
#include <algorithm>

TapeWindow::TapeWindow(QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

void TapeWindow::SetColors(const QColor& back, const QColor& fore)
{
    if (back == m_back && fore == m_fore)
        return;
    m_back = back;
    m_fore = fore;
    update();
}

QFont TapeWindow::FittingFont(int room) const
{
    QFont type(QStringLiteral("DejaVu Sans"));
    type.setBold(true);
    const int pixels = std::max(7, qRound(height() * 0.42));
    type.setPixelSize(pixels);
    const double wide = QFontMetricsF(type).horizontalAdvance(text());
    if (wide > room && wide > 0)
        type.setPixelSize(std::max(6, static_cast<int>(pixels * std::max(2.0 / 3.0, room / wide))));
    return type;
}

void TapeWindow::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF box = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    const double radius = std::min(3.0, height() * 0.12);
    // The window sits a little below the panel: a dark rim and a darker top edge.
    QLinearGradient glass(box.topLeft(), box.bottomLeft());
    glass.setColorAt(0, m_back.darker(160));
    glass.setColorAt(0.25, m_back);
    glass.setColorAt(1, m_back.darker(115));
    painter.setPen(QPen(QColor(6, 7, 9), 1));
    painter.setBrush(glass);
    painter.drawRoundedRect(box, radius, radius);
    const int margin = std::max(3, height() / 6);
    const int room = width() - 2 * margin;
    painter.setFont(FittingFont(room));
    painter.setPen(m_fore);
    painter.drawText(rect().adjusted(margin, 0, -margin, 0), Qt::AlignCenter,
                     painter.fontMetrics().elidedText(text(), Qt::ElideRight, room));
}
