#include "editing/TapeWindow.h"
#include <algorithm>

TapeWindow::TapeWindow(QWidget* parent)
    : QLabel(parent)
{
    setAlignment(Qt::AlignCenter);
    setTextFormat(Qt::PlainText);
    ApplyLook();
}

void TapeWindow::SetColors(const QColor& back, const QColor& fore)
{
    if (back == m_back && fore == m_fore)
        return;
    m_back = back;
    m_fore = fore;
    ApplyLook();
}

void TapeWindow::resizeEvent(QResizeEvent* event)
{
    QLabel::resizeEvent(event);
    ApplyLook();
}

void TapeWindow::ApplyLook()
{
    const int pixels = std::max(7, qRound(height() * 0.42));
    setStyleSheet(QStringLiteral("QLabel { background: %1; color: %2; border: 1px solid #06070a; border-radius: 3px;"
                                 " font-family: 'DejaVu Sans'; font-weight: bold; font-size: %3px; padding: 0px 4px; }")
                      .arg(m_back.name(), m_fore.name())
                      .arg(pixels));
}
