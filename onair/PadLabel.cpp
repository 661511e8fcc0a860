#include "onair/PadLabel.h"
#include <QPainter>
#include <QTextLayout>
#include <algorithm>

PadLabel::PadLabel(const QString& name, QWidget* parent)
    : QWidget(parent)
{
    setObjectName(name);
    setAttribute(Qt::WA_TranslucentBackground);
    setMouseTracking(true);
}

void PadLabel::SetText(const QString& text)
{
    if (text == m_text)
        return;
    m_text = text;
    update();
}

void PadLabel::SetForeColor(const QColor& colour)
{
    m_color = colour;
    update();
}

void PadLabel::SetAlignment(Qt::Alignment alignment)
{
    m_alignment = alignment;
    update();
}

void PadLabel::SetWrap(bool wrap)
{
    m_wrap = wrap;
    update();
}

void PadLabel::SetPixelSize(int size)
{
    m_pixelSize = std::max(6, size);
    update();
}

// Wrapped text fills the lines that fit and ends the last one with an ellipsis.
void PadLabel::paintEvent(QPaintEvent*)
{
    if (m_text.isEmpty())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::TextAntialiasing);
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setBold(true);
    font.setPixelSize(m_pixelSize);
    painter.setFont(font);
    painter.setPen(m_color);
    const QFontMetrics metrics(font);
    if (!m_wrap) {
        painter.drawText(rect(), int(m_alignment), metrics.elidedText(m_text, Qt::ElideRight, width()));
        return;
    }
    const int lines = std::max(1, height() / metrics.lineSpacing());
    QTextLayout layout(m_text, font);
    layout.beginLayout();
    QStringList shown;
    for (int i = 0; i < lines; ++i) {
        QTextLine line = layout.createLine();
        if (!line.isValid())
            break;
        line.setLineWidth(width());
        const bool last = i == lines - 1;
        shown << (last ? metrics.elidedText(m_text.mid(line.textStart()), Qt::ElideRight, width())
                       : m_text.mid(line.textStart(), line.textLength()).trimmed());
    }
    layout.endLayout();
    const int blockHeight = int(shown.size()) * metrics.lineSpacing();
    int top = (m_alignment & Qt::AlignTop) ? 0 : (height() - blockHeight) / 2;
    for (const QString& text : shown) {
        painter.drawText(QRect(0, top, width(), metrics.lineSpacing()), int(m_alignment & Qt::AlignHorizontal_Mask) | Qt::AlignVCenter,
                         text);
        top += metrics.lineSpacing();
    }
}
