#include "metering/UCVumeter.h"
#include "foundation/ui/SilenceDescendants.h"
#include "foundation/ErrorGuard.h"
#include "metering/MeterLamp.h"
#include "metering/Rounding.h"
#include "metering/UCSingleVumeter.h"
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>

namespace {
const QString Object = QStringLiteral("UCVumeter");
constexpr int Margin = 4;
constexpr int ReadsLitAfterOverload = 4;
constexpr float NoSignal = -110;
const QColor LampOff(64, 0, 0);
const QColor LampOn(255, 0, 0);
const QColor Ground(14, 15, 18);
}

UCVumeter::UCVumeter(QWidget* parent)
    : QWidget(parent)
    , VuLeft(new UCSingleVumeter(this))
    , VuRight(new UCSingleVumeter(this))
    , PeakL(new MeterLamp(LampOff, this))
    , PeakR(new MeterLamp(LampOff, this))
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    VuLeft->setObjectName(QStringLiteral("VuLeft"));
    VuRight->setObjectName(QStringLiteral("VuRight"));
    PeakL->setObjectName(QStringLiteral("PeakL"));
    PeakR->setObjectName(QStringLiteral("PeakR"));
    for (UCSingleVumeter* bar : {VuLeft, VuRight})
        connect(bar, &UCSingleVumeter::Click, this, [this] { m_vumeter.LevelReset(); });
}

UCVumeter::~UCVumeter()
{
    SilenceDescendants(*this);
}

void UCVumeter::SetChannel(std::shared_ptr<iChannel> channel)
{
    Guarded(Object, QStringLiteral("Channel_Set"), [&] {
        m_vumeter.SetChannel(std::move(channel));
        m_vumeter.SetVumeterType(0);
        Calibrate(VuLeft);
        Calibrate(VuRight);
    });
}

void UCVumeter::Calibrate(UCSingleVumeter* bar)
{
    bar->LevelZeroPercent = m_vumeter.LevelZeroPercent();
    bar->LevelTenPercent = m_vumeter.LevelTenPercent();
    bar->WorkLevel = m_vumeter.WorkLevel();
    bar->SetNoiseLevel(m_vumeter.NoiseLevel());
    bar->CalculateFormula();
}

void UCVumeter::RefreshLevel()
{
    m_refreshGuard.Run(Object, QStringLiteral("RefreshLevel"), [this] {
        const CVumeter::Reading reading = m_vumeter.Level();
        if (reading.valid) {
            VuLeft->SetValue(reading.left, reading.leftPeak);
            VuRight->SetValue(reading.right, reading.rightPeak);
        } else {
            VuLeft->SetValue(NoSignal, NoSignal);
            VuRight->SetValue(NoSignal, NoSignal);
        }
        ProcessSaturation(VuLeft, PeakL, m_saturationLeft);
        ProcessSaturation(VuRight, PeakR, m_saturationRight);
    });
}

// The counter runs from the last overload; past four reads the lamp goes dark and the
// counter rests at −1 until the next overload.
void UCVumeter::ProcessSaturation(const UCSingleVumeter* bar, MeterLamp* lamp, int& counter)
{
    if (counter >= 0)
        ++counter;
    if (counter > ReadsLitAfterOverload) {
        lamp->SetColor(LampOff);
        counter = -1;
    }
    if (bar->Saturation()) {
        lamp->SetColor(LampOn);
        counter = 0;
    }
}

void UCVumeter::resizeEvent(QResizeEvent*)
{
    const int w = width();
    const int h = height();
    const int barWidth = RoundHalfEven(std::max((w - 3.0 * Margin) / 2, 0.0));
    const int rightX = std::max(w - Margin - barWidth, 0);
    const int barHeight = std::max(h - 3 * Margin - barWidth, 0);
    const int barTop = std::max(h - Margin - barHeight, 0);
    PeakL->setGeometry(Margin, Margin, barWidth + 1, barWidth + 1);
    PeakR->setGeometry(rightX, Margin, barWidth + 1, barWidth + 1);
    VuLeft->setGeometry(Margin, barTop, barWidth, barHeight);
    VuRight->setGeometry(rightX, barTop, barWidth, barHeight);
}

void UCVumeter::paintEvent(QPaintEvent* event)
{
    QPainter(this).fillRect(event->rect(), Ground);
}
