#include "browse/DataPicture.h"
#include <QFontMetrics>
#include <QPainter>

namespace {
constexpr int Margin = 3;
}

DataPicture::DataPicture(QWidget* parent)
    : QWidget(parent)
    , m_font(QStringLiteral("DejaVu Sans Mono"))
{
    m_font.setStyleHint(QFont::Monospace);
    m_font.setPixelSize(12);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void DataPicture::Show(DataSheet sheet)
{
    m_sheet = std::move(sheet);
    update();
}

void DataPicture::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), BoardColor);
    painter.setFont(m_font);
    const QFontMetrics metrics(m_font);
    int baseline = Margin + metrics.ascent();
    for (const DataSheet::Line& line : m_sheet.Lines()) {
        painter.setPen(LabelColor);
        painter.drawText(QPoint(Margin, baseline), line.label);
        painter.setPen(ValueColor);
        painter.drawText(QPoint(Margin + metrics.horizontalAdvance(line.label), baseline), line.value);
        baseline += metrics.height();
    }
}
