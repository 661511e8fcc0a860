// The bevelled panel: the guide rectangle, its first contained control, the colour presets,
// the bevel and the mouse events of its caption.
#include "controls/RecordingLogger.h"
#include "foundation/controls/VolmarPannel.h"
#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

TEST(VolmarPannel, MovesItsFirstControlOntoTheGuideRectangle)
{
    auto log = RecordingLogger::Install();
    VolmarPannel panel(nullptr, QStringLiteral("Frame1"));
    EXPECT_EQ(panel.Caption(), QStringLiteral("Frame1"));
    panel.resize(200, 100);
    panel.show();
    EXPECT_EQ(panel.Rectangle(), QRect(6, 16, 188, 78));
    EXPECT_EQ(panel.lblLabel->pos(), QPoint(0, 0));
    EXPECT_EQ(panel.lblLabel->width(), 200);

    auto* first = new QWidget(&panel);
    auto* second = new QWidget(&panel);
    second->setGeometry(1, 2, 3, 4);
    panel.SetBorderAssymetry(4);
    EXPECT_EQ(first->geometry(), QRect(10, 16, 180, 78));
    EXPECT_EQ(second->geometry(), QRect(1, 2, 3, 4));
    panel.SetBorder(2);
    panel.SetBorderCaption(20);
    EXPECT_EQ(first->geometry(), QRect(6, 20, 188, 78));

    // Too small for its margins: an empty rectangle, never a negative one.
    panel.resize(10, 10);
    EXPECT_EQ(panel.Rectangle(), QRect(6, 20, 0, 0));
    EXPECT_FALSE(panel.ActiveOnce());
    EXPECT_TRUE(log->lines.isEmpty());
    Log::SetLogger(nullptr);
}

TEST(VolmarPannel, AContentThatCannotMoveIsLoggedAndTheRestGoesOn)
{
    auto log = RecordingLogger::Install();
    QWidget form;
    auto* panel = new VolmarPannel(&form);
    new QTimer(panel);
    panel->resize(100, 60);
    panel->SetActiveOnce(true);
    ASSERT_FALSE(log->Errors().isEmpty());
    EXPECT_EQ(log->Errors().last(), QStringLiteral("ERROR VolmarPannel.AlignControl: Contained control doesn't implement the move() method. Tracking: C-bis - Object Type: QTimer - Parent Type: QWidget"));
    EXPECT_EQ(panel->Rectangle(), QRect(6, 16, 88, 38));
    Log::SetLogger(nullptr);
}

TEST(VolmarPannel, PresetsPaintAndBevel)
{
    VolmarPannel panel;
    panel.resize(60, 40);
    panel.SetPresetColor(1);
    EXPECT_EQ(panel.BackColor(), QColor(128, 128, 128));
    EXPECT_EQ(panel.ForeColor(), QColor(255, 255, 255));
    panel.SetPresetColor(2);
    EXPECT_EQ(panel.BackColor(), QColor(192, 192, 192));
    panel.SetPresetColor(3);
    EXPECT_EQ(panel.ForeColor(), QColor(0, 0, 0));
    panel.SetPresetColor(0);
    EXPECT_EQ(panel.ForeColor(), QColor(0, 0, 0));
    EXPECT_EQ(panel.PresetColor(), 0);

    panel.SetBackColor(QColor(40, 40, 40));
    const QImage image = panel.grab().toImage();
    EXPECT_EQ(QColor(image.pixel(1, 30)), QColor(255, 255, 255));
    EXPECT_EQ(QColor(image.pixel(2, 30)), QColor(128, 128, 128));
    EXPECT_EQ(QColor(image.pixel(59, 30)), QColor(128, 128, 128));
    EXPECT_EQ(QColor(image.pixel(58, 30)), QColor(255, 255, 255));
    EXPECT_EQ(QColor(image.pixel(30, 39)), QColor(128, 128, 128));
    EXPECT_EQ(QColor(image.pixel(0, 30)), QColor(40, 40, 40));
}

TEST(VolmarPannel, TheCaptionRaisesTheMouseEventsOfThePanel)
{
    VolmarPannel panel;
    panel.resize(100, 60);
    panel.show();
    QSignalSpy down(&panel, &VolmarPannel::MouseDown);
    QSignalSpy up(&panel, &VolmarPannel::MouseUp);
    QTest::mousePress(panel.lblLabel, Qt::LeftButton, Qt::ShiftModifier, QPoint(12, 5));
    QTest::mouseRelease(panel.lblLabel, Qt::LeftButton, Qt::ShiftModifier, QPoint(12, 5));
    QTest::mousePress(&panel, Qt::RightButton, Qt::ControlModifier, QPoint(30, 40));
    ASSERT_EQ(down.count(), 2);
    EXPECT_EQ(down.at(0), QVariantList({1, 1, 12.0f, 5.0f}));
    EXPECT_EQ(down.at(1), QVariantList({2, 2, 30.0f, 40.0f}));
    ASSERT_EQ(up.count(), 1);
    EXPECT_EQ(up.at(0), QVariantList({1, 1, 12.0f, 5.0f}));
}
