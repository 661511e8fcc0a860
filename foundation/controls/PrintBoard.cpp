#include "foundation/controls/PrintBoard.h"
#include <QFontMetrics>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

PrintBoard::PrintBoard(QWidget* parent)
    : QWidget(parent)
    , m_font(QStringLiteral("DejaVu Sans Mono"))
{
    m_font.setStyleHint(QFont::Monospace);
    m_font.setPixelSize(12);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void PrintBoard::SetColors(const QColor& text, const QColor& board)
{
    m_textColor = text;
    m_boardColor = board;
    update();
}

void PrintBoard::Print(const QString& text)
{
    m_printed.append({m_currentX, m_currentY, text});
    m_currentX = 0;
    m_currentY += TextHeight();
    update();
}

void PrintBoard::Cls()
{
    m_printed.clear();
    m_currentX = 0;
    m_currentY = 0;
    update();
}

double PrintBoard::TextWidth(const QString& text) const
{
    return QFontMetrics(m_font).horizontalAdvance(text) / static_cast<double>(std::max(width(), 1));
}

int PrintBoard::TextHeight() const
{
    return QFontMetrics(m_font).height();
}

void PrintBoard::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), m_boardColor);
    painter.setFont(m_font);
    painter.setPen(m_textColor);
    const int ascent = QFontMetrics(m_font).ascent();
    for (const PrintedText& line : m_printed)
        painter.drawText(QPointF(line.x * width(), line.y + ascent), line.text);
}

void PrintBoard::mousePressEvent(QMouseEvent* event)
{
    Q_EMIT PressedAt(event->position().x() / std::max(width(), 1));
}
