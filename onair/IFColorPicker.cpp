#include "onair/IFColorPicker.h"
#include "foundation/ui/SilenceDescendants.h"
#include <QGridLayout>
#include <QLabel>
#include <QScrollBar>

IFColorPicker::IFColorPicker(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("IFColorPicker"));
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(4, 4, 4, 4);
    ScrRed = MakeBar(QStringLiteral("ScrRed"), QStringLiteral("R"), 0);
    ScrGreen = MakeBar(QStringLiteral("ScrGreen"), QStringLiteral("G"), 1);
    ScrBlue = MakeBar(QStringLiteral("ScrBlue"), QStringLiteral("B"), 2);
    Swatch = new QWidget(this);
    Swatch->setObjectName(QStringLiteral("Swatch"));
    Swatch->setMinimumSize(48, 48);
    Swatch->setAutoFillBackground(true);
    grid->addWidget(Swatch, 0, 2, 3, 1);
    LblColor = new QLabel(this);
    LblColor->setObjectName(QStringLiteral("LblColor"));
    LblColor->setAlignment(Qt::AlignCenter);
    LblColor->setFont(QFont(QStringLiteral("DejaVu Sans Mono")));
    grid->addWidget(LblColor, 3, 0, 1, 3);
    grid->setColumnStretch(1, 1);
    ShowColor();
}

IFColorPicker::~IFColorPicker()
{
    SilenceDescendants(*this);
}

QScrollBar* IFColorPicker::MakeBar(const QString& name, const QString& letter, int row)
{
    auto* grid = static_cast<QGridLayout*>(layout());
    grid->addWidget(new QLabel(letter, this), row, 0);
    auto* bar = new QScrollBar(Qt::Horizontal, this);
    bar->setObjectName(name);
    bar->setRange(0, 255);
    bar->setPageStep(16);
    bar->setMinimumWidth(160);
    grid->addWidget(bar, row, 1);
    connect(bar, &QScrollBar::valueChanged, this, &IFColorPicker::Scr_Change);
    return bar;
}

void IFColorPicker::SetEnabled(bool enabled)
{
    m_enabled = enabled;
    for (QScrollBar* bar : {ScrRed, ScrGreen, ScrBlue})
        bar->setEnabled(enabled);
    ShowColor();
}

qint32 IFColorPicker::Color() const
{
    return ScrRed->value() | (ScrGreen->value() << 8) | (ScrBlue->value() << 16);
}

void IFColorPicker::SetColor(qint32 color)
{
    m_setting = true;
    ScrRed->setValue(color & 255);
    ScrGreen->setValue((color >> 8) & 255);
    ScrBlue->setValue((color >> 16) & 255);
    m_setting = false;
    ShowColor();
}

QString IFColorPicker::Caption() const
{
    return LblColor->text();
}

void IFColorPicker::Scr_Change()
{
    ShowColor();
    if (!m_setting && m_enabled)
        Q_EMIT Changed();
}

void IFColorPicker::ShowColor()
{
    const QColor colour = m_enabled ? QColor(ScrRed->value(), ScrGreen->value(), ScrBlue->value()) : QColor(Qt::black);
    const auto hex = [](int v) { return QStringLiteral("%1").arg(v, 2, 16, QLatin1Char('0')).toUpper(); };
    LblColor->setText(QStringLiteral("#") + hex(colour.red()) + hex(colour.green()) + hex(colour.blue()));
    QPalette palette = Swatch->palette();
    palette.setColor(QPalette::Window, colour);
    Swatch->setPalette(palette);
}
