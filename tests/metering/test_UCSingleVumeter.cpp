// One LED bar: the parabola through the calibration points, the LED colours and what a new
// value repaints. Expected values are worked out by hand from the calibration.
#include "metering/MeterTest.h"
#include "metering/UCSingleVumeter.h"
#include <QCoreApplication>
#include <QImage>
#include <QPaintEvent>
#include <QRegion>

namespace {
const QColor Background(34, 36, 40);
const QColor Green(0, 255, 200);
const QColor Amber(255, 200, 0);
const QColor Red(255, 0, 100);
const QColor ZeroMark(160, 90, 0);
const QColor PeakDot(255, 0, 200);

// A bar 112 pixels high holds (112 - 12) / 4 = 25 LEDs above LED 0.
void Calibrate(UCSingleVumeter& bar, float zeroPercent, float tenPercent, float work, float noise, int height = 112)
{
    bar.resize(20, height);
    bar.LevelZeroPercent = zeroPercent;
    bar.LevelTenPercent = tenPercent;
    bar.WorkLevel = work;
    bar.SetNoiseLevel(noise);
    bar.CalculateFormula();
}

// Collects the regions that a widget is asked to paint.
class PaintSpy : public QObject
{
public:
    explicit PaintSpy(QWidget* widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            painted += static_cast<QPaintEvent*>(event)->region();
        return false;
    }
    QRegion painted;
};
}

TEST(UCSingleVumeter, FitsTheParabolaThroughTheThreeCalibrationPoints)
{
    UCSingleVumeter bar;
    // Work level -12 dB at 80 % of 25 LEDs (LED 20), -22 dB at 60 % (LED 15), floor -60 dB at
    // LED 0. By hand: a = 1/456, b = 0.5 + 34a, c = 20 - 144a + 12b.
    Calibrate(bar, 80, 60, -12, -60);
    ASSERT_EQ(bar.LedCount(), 25);
    const UCSingleVumeter::Parabola p = bar.Coefficients();
    EXPECT_NEAR(p.a, 0.00219298, 1e-7);
    EXPECT_NEAR(p.b, 0.57456140, 1e-6);
    EXPECT_NEAR(p.c, 26.5789474, 1e-5);
    EXPECT_NEAR(bar.ToPower(0), -60, 1e-3);
    EXPECT_NEAR(bar.ToPower(15), -22, 1e-3);
    EXPECT_NEAR(bar.ToPower(20), -12, 1e-3);
    EXPECT_NEAR(bar.ToPower(25), -2.7778, 1e-3);
    EXPECT_NEAR(bar.Slope(), 110.0 / 26, 1e-5);

    // Halves round to the even neighbour: 24.5 LEDs make 24, 25.5 make 26; and 50 % of 25
    // LEDs (12.5) puts the work level at LED 12.
    Calibrate(bar, 80, 60, -12, -60, 110);
    EXPECT_EQ(bar.LedCount(), 24);
    Calibrate(bar, 80, 60, -12, -60, 114);
    EXPECT_EQ(bar.LedCount(), 26);
    Calibrate(bar, 50, 30, -12, -60);
    EXPECT_NEAR(bar.ToPower(12), -12, 1e-3);
    EXPECT_NEAR(bar.ToPower(8), -22, 1e-3);
}

TEST(UCSingleVumeter, LightsLedsInTheColourOfTheirLevel)
{
    UCSingleVumeter bar;
    Calibrate(bar, 80, 60, -12, -60);
    // By hand: -30 dB stands at LED 11.3, -10 dB at LED 21.05, -5 dB at 23.76, -3 dB at 24.88.
    bar.SetValue(-5, -3);
    for (int led = 0; led <= 11; ++led)
        EXPECT_EQ(bar.LedColor(led), Green) << "LED " << led;
    for (int led = 12; led <= 21; ++led)
        EXPECT_EQ(bar.LedColor(led), Amber) << "LED " << led;
    for (int led = 22; led <= 23; ++led)
        EXPECT_EQ(bar.LedColor(led), Red) << "LED " << led;
    EXPECT_EQ(bar.LedColor(24), PeakDot);
    EXPECT_EQ(bar.LedColor(25), Background);
    EXPECT_TRUE(bar.Saturation());

    // Silence with the peak at -40 dB (LED 7.1 by hand): only the dot shows.
    bar.SetValue(-110, -40);
    EXPECT_EQ(bar.LedColor(7), PeakDot);
    EXPECT_EQ(bar.LedColor(6), Background);
    EXPECT_EQ(bar.LedColor(0), Background);
    EXPECT_FALSE(bar.Saturation());

    // With 0 dB inside the scale (work level at half height), the LED that holds it shows
    // the dim mark while unlit. By hand: 0 dB stands at LED 17.84.
    Calibrate(bar, 50, 30, -12, -60);
    bar.SetValue(-40, -40);
    EXPECT_EQ(bar.LedColor(17), ZeroMark);
    EXPECT_EQ(bar.LedColor(16), Background);
    EXPECT_EQ(bar.LedColor(18), Background);
}

TEST(UCSingleVumeter, DegenerateCalibrationShowsNothing)
{
    UCSingleVumeter bar;
    Calibrate(bar, 80, 60, -12, -22);
    const UCSingleVumeter::Parabola p = bar.Coefficients();
    EXPECT_EQ(p.a, 0);
    EXPECT_EQ(p.b, 0);
    EXPECT_EQ(p.c, 0);
    bar.SetValue(-20, -10);
    for (int led = 0; led <= bar.LedCount(); ++led) {
        EXPECT_EQ(bar.ToPower(led), 0);
        EXPECT_EQ(bar.LedColor(led), Background) << "LED " << led;
    }

    // Too low for any LED: nothing to paint, nothing to fail.
    Calibrate(bar, 80, 60, -12, -60, 4);
    EXPECT_LT(bar.LedCount(), 0);
    bar.SetValue(0, 0);
    EXPECT_FALSE(bar.LedColor(0).isValid());
}

TEST(UCSingleVumeter, PaintsLedsWhereTheyStandAndRepaintsOnlyWhatChanged)
{
    UCSingleVumeter bar;
    Calibrate(bar, 80, 60, -12, -60);
    bar.SetValue(-20, -20);
    bar.show();
    QCoreApplication::processEvents();

    // LED 0 is the bottom pair of lines, 3 pixels in from each side.
    const QImage shot = bar.grab().toImage();
    EXPECT_EQ(QColor(shot.pixel(3, 25 * 4 + 6)), Green);
    EXPECT_EQ(QColor(shot.pixel(16, 25 * 4 + 7)), Green);
    EXPECT_EQ(QColor(shot.pixel(2, 25 * 4 + 6)), Background);
    EXPECT_EQ(QColor(shot.pixel(3, 25 * 4 + 8)), Background);
    EXPECT_EQ(QColor(shot.pixel(10, 6)), Background);

    PaintSpy spy(&bar);
    bar.SetValue(-20.1f, -20);
    QCoreApplication::processEvents();
    EXPECT_TRUE(spy.painted.isEmpty());

    // From -20 dB to -5 dB: LEDs 16 to 23 light up; nothing else is painted.
    bar.SetValue(-5, -5);
    QCoreApplication::processEvents();
    EXPECT_EQ(spy.painted.boundingRect(), bar.LedRect(23).united(bar.LedRect(15)));
}

TEST(UCSingleVumeter, AHorizontalBarCountsItsWidthAndLightsFromTheLeft)
{
    UCSingleVumeter bar;
    bar.SetOrientation(Qt::Horizontal);
    Calibrate(bar, 80, 60, -12, -60);
    bar.resize(112, 12);
    bar.CalculateFormula();
    ASSERT_EQ(bar.LedCount(), 25) << "the LEDs of the width, as a vertical bar counts its height";
    EXPECT_NEAR(bar.ToPower(20), -12, 1e-3);
    bar.SetValue(-20, -20);
    bar.show();
    QCoreApplication::processEvents();

    // LED 0 is the leftmost pair of lines, 3 pixels in from the top and the bottom.
    EXPECT_EQ(bar.LedRect(0), QRect(6, 3, 2, 7));
    EXPECT_EQ(bar.LedRect(25), QRect(106, 3, 2, 7));
    const QImage shot = bar.grab().toImage();
    EXPECT_EQ(QColor(shot.pixel(6, 3)), Green);
    EXPECT_EQ(QColor(shot.pixel(7, 9)), Green);
    EXPECT_EQ(QColor(shot.pixel(6, 10)), Background);
    EXPECT_EQ(QColor(shot.pixel(106, 6)), Background) << "the loud end, to the right, is dark";
}
