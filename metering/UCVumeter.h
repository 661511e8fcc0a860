#pragma once
#include "metering/CVumeter.h"
#include "metering/TickGuard.h"
#include <QWidget>
#include <memory>

class MeterLamp;
class UCSingleVumeter;
class iChannel;

// A stereo level meter: two LED bars (VuLeft, VuRight) under two overload lamps (PeakL,
// PeakR), fed by one CVumeter. A lamp turns red when its side reads above −6 dB and stays
// red for five reads after the last overload, then dark until the next one. A click on either
// bar restarts the sweep from full scale.
class UCVumeter : public QWidget
{
    Q_OBJECT
public:
    explicit UCVumeter(QWidget* parent = nullptr);
    ~UCVumeter() override;

    std::shared_ptr<iChannel> Channel() const { return m_vumeter.Channel(); }
    // Binds the channel and calibrates both bars from the meter settings.
    void SetChannel(std::shared_ptr<iChannel> channel);
    // One read of the level into the bars and lamps; a failing source leaves them as they were.
    void RefreshLevel();

    CVumeter& Vumeter() { return m_vumeter; }

    UCSingleVumeter* VuLeft;
    UCSingleVumeter* VuRight;
    MeterLamp* PeakL;
    MeterLamp* PeakR;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void Calibrate(UCSingleVumeter* bar);
    static void ProcessSaturation(const UCSingleVumeter* bar, MeterLamp* lamp, int& counter);

    CVumeter m_vumeter;
    int m_saturationLeft = 0;
    int m_saturationRight = 0;
    TickGuard m_refreshGuard;
};
