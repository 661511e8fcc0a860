#pragma once
#include <QColor>
#include <QWidget>
#include <vector>

// One LED bar of a level meter, bottom to top, or left to right when horizontal. A level L
// in dB stands at LED
// y = a·L² + b·L + c, the parabola through three calibration points: NoiseLevel at LED 0,
// WorkLevel − 10 dB at LevelTenPercent of the height and WorkLevel at LevelZeroPercent.
// LEDs are 2 pixel lines across the bar every 4 pixels along it; lit ones are green up to −30 dB, amber up to −10 dB
// and red above; the LED of the peak shows the peak dot, the LED of 0 dB a dim mark.
// A new value repaints only the LEDs whose colour changed.
class UCSingleVumeter : public QWidget
{
    Q_OBJECT
public:
    struct Parabola
    {
        float a = 0;
        float b = 0;
        float c = 0;
    };

    explicit UCSingleVumeter(QWidget* parent = nullptr);

    // Calibration, set by the owner before CalculateFormula.
    float LevelZeroPercent = 0;
    float LevelTenPercent = 0;
    float WorkLevel = 0;

    Qt::Orientation Orientation() const { return m_orientation; }
    // Vertical, the default, counts the LEDs of the height; horizontal those of the width.
    void SetOrientation(Qt::Orientation orientation);

    float NoiseLevel() const { return m_noiseLevel; }
    void SetNoiseLevel(float level) { m_noiseLevel = level; }
    float Value() const { return m_value; }
    // Shows the level, repainting what changed.
    void SetValue(float value);
    // The peak is held at the floor at least.
    void SetValue(float value, float peak);
    bool Saturation() const;
    float Slope() const;

    // Counts the LEDs that the length holds and fits the parabola to them and the calibration.
    void CalculateFormula();
    void Refresh();

    Parabola Coefficients() const { return m_parabola; }
    // The level in dB at which an LED begins: the inverse of the parabola.
    float ToPower(int led) const;
    // The LEDs are numbered 0 to LedCount(), from the bottom (from the left when horizontal).
    int LedCount() const { return m_ledCount; }
    QColor LedColor(int led) const;
    QRect LedRect(int led) const;

Q_SIGNALS:
    void Click();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QRgb SelectRegion(float A, float W) const;
    void ComputeLedLevels();

    Qt::Orientation m_orientation = Qt::Vertical;
    float m_noiseLevel = 0;
    float m_value = -110;
    float m_peak = -110;
    Parabola m_parabola;
    // The terms of the inverse: −b, b², 4a, c, 2a.
    float m_minusB = 0;
    float m_bSquared = 0;
    float m_fourA = 0;
    float m_c = 0;
    float m_twoA = 0;
    int m_ledCount = 0;
    // Where the LED lines end across the bar: the right end, or the bottom when horizontal.
    int m_lineEnd = 0;
    QRgb m_background;
    // Where each LED begins, in dB (one more than the LEDs, for the width of the last), and
    // the colour each LED was last given.
    std::vector<float> m_ledLevels;
    std::vector<QRgb> m_ledColors;
};
