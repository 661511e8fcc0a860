// The picture button: its events in order, auto-repeat driven through its timer's slot, and
// the picture shown for the state.
#include "foundation/controls/UCButton.h"
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>

namespace {
// Records the button's events by name, in the order they come.
QStringList* Record(UCButton& button)
{
    auto* events = new QStringList;
    QObject::connect(&button, &QObject::destroyed, [events] { delete events; });
    QObject::connect(&button, &UCButton::Pressed, [events] { events->append(QStringLiteral("Pressed")); });
    QObject::connect(&button, &UCButton::Clicked, [events] { events->append(QStringLiteral("Clicked")); });
    QObject::connect(&button, &UCButton::AutoFired, [events] { events->append(QStringLiteral("AutoFired")); });
    return events;
}
}

TEST(UCButton, WithoutAutoFireRaisesPressedAndClickedOnly)
{
    UCButton button;
    button.resize(40, 40);
    button.show();
    QStringList* events = Record(button);
    QTest::mousePress(&button, Qt::LeftButton);
    EXPECT_FALSE(button.TmrAutoFire().isActive());
    EXPECT_TRUE(button.Button(1)->isVisible());
    QTest::mouseRelease(&button, Qt::LeftButton);
    EXPECT_EQ(*events, QStringList({QStringLiteral("Pressed"), QStringLiteral("Clicked")}));
    EXPECT_TRUE(button.Button(0)->isVisible());

    // Released outside the button: pressed, but no click.
    events->clear();
    QTest::mousePress(&button, Qt::LeftButton);
    QTest::mouseRelease(&button, Qt::LeftButton, {}, QPoint(80, 80));
    EXPECT_EQ(*events, QStringList({QStringLiteral("Pressed")}));
}

TEST(UCButton, AutoFireRepeatsAfter500MsThenEvery25MsUntilRelease)
{
    UCButton button;
    button.resize(40, 40);
    button.SetAutoFire(true);
    button.show();
    QStringList* events = Record(button);
    QTest::mousePress(&button, Qt::LeftButton);
    ASSERT_TRUE(button.TmrAutoFire().isActive());
    EXPECT_EQ(button.TmrAutoFire().interval(), 500);
    for (int repeat = 0; repeat < 3; ++repeat) {
        button.TmrAutoFire_Timer();
        EXPECT_EQ(button.TmrAutoFire().interval(), 25);
    }
    QTest::mouseRelease(&button, Qt::LeftButton);
    EXPECT_FALSE(button.TmrAutoFire().isActive());
    EXPECT_EQ(*events, QStringList({QStringLiteral("Pressed"), QStringLiteral("AutoFired"), QStringLiteral("AutoFired"),
                                    QStringLiteral("AutoFired"), QStringLiteral("Clicked")}));

    // The next press starts again with the long delay; disabling while held stops the repeat.
    QTest::mousePress(&button, Qt::LeftButton);
    EXPECT_EQ(button.TmrAutoFire().interval(), 500);
    button.setEnabled(false);
    EXPECT_FALSE(button.TmrAutoFire().isActive());
    EXPECT_TRUE(button.Button(0)->isVisible());
    EXPECT_FALSE(button.Button(0)->isEnabled());
}

TEST(UCButton, LatchedStateShowsThePressedPicture)
{
    UCButton button;
    QPixmap up(16, 16);
    up.fill(Qt::white);
    QPixmap down(16, 16);
    down.fill(Qt::black);
    button.SetPicture(up);
    button.SetPictureDown(down);
    button.show();
    EXPECT_TRUE(button.Button(0)->isVisible());
    button.SetPressed(true);
    EXPECT_TRUE(button.IsPressed());
    EXPECT_TRUE(button.Button(1)->isVisible());
    EXPECT_FALSE(button.Button(0)->isVisible());
    EXPECT_EQ(button.PictureDown().toImage(), down.toImage());
}
