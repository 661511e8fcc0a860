// The bounded number box: limits, the Changing/Changed events, the arrows and typed entries.
#include "foundation/controls/UCButton.h"
#include "foundation/controls/UCNumericRestricted.h"
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace {
const QColor White(255, 255, 255);
const QColor Cream(255, 240, 200);

class NumberBox : public ::testing::Test
{
protected:
    void SetUp() override
    {
        box.SetLowerLimitIncluded(5);
        box.SetHigherLimitIncluded(20);
        box.resize(120, 26);
        box.show();
    }

    UCNumericRestricted box;
    QSignalSpy changing{&box, &UCNumericRestricted::Changing};
    QSignalSpy changed{&box, &UCNumericRestricted::Changed};
};
}

TEST_F(NumberBox, HoldsValuesToTheLimitsAndRaisesEventsOnlyOnAChange)
{
    box.SetValue(50);
    EXPECT_EQ(box.Value(), 20);
    EXPECT_EQ(box.TxtValue->text(), QStringLiteral("20"));
    EXPECT_EQ(changing.count(), 1);
    box.SetValue(21);
    EXPECT_EQ(changing.count(), 1);
    box.SetValue(-3);
    EXPECT_EQ(box.Value(), 5);
    EXPECT_EQ(changing.count(), 2);

    // A burst of changes: one Changing each, a single Changed when the delay runs out.
    EXPECT_TRUE(box.TmrDelay().isActive());
    EXPECT_EQ(box.TmrDelay().interval(), 50);
    EXPECT_EQ(changed.count(), 0);
    box.TmrDelay_Timer();
    EXPECT_EQ(changed.count(), 1);
    EXPECT_FALSE(box.TmrDelay().isActive());
}

TEST_F(NumberBox, ArrowsStepAndRepeatWithinTheLimits)
{
    box.SetValue(18);
    changing.clear();
    QTest::mousePress(box.CmdRight, Qt::LeftButton);
    EXPECT_EQ(box.Value(), 19);
    box.CmdRight->TmrAutoFire_Timer();
    EXPECT_EQ(box.Value(), 20);
    box.CmdRight->TmrAutoFire_Timer();
    EXPECT_EQ(box.Value(), 20);
    QTest::mouseRelease(box.CmdRight, Qt::LeftButton);
    EXPECT_EQ(changing.count(), 2);

    QTest::mousePress(box.CmdLeft, Qt::LeftButton);
    QTest::mouseRelease(box.CmdLeft, Qt::LeftButton);
    EXPECT_EQ(box.Value(), 19);

    // An arrow first accepts what was typed.
    box.TxtValue->setText(QStringLiteral("9"));
    QTest::mousePress(box.CmdRight, Qt::LeftButton);
    QTest::mouseRelease(box.CmdRight, Qt::LeftButton);
    EXPECT_EQ(box.Value(), 10);
}

TEST_F(NumberBox, TypedEntriesCountWhenAcceptedAndSnapBackWhenRefused)
{
    box.SetValue(12);
    box.TxtValue->setFocus();
    box.TxtValue->selectAll();
    QTest::keyClicks(box.TxtValue, QStringLiteral("abc"));
    EXPECT_EQ(box.BoxColor(), Cream);
    EXPECT_EQ(box.Value(), 12);
    QTest::keyClick(box.TxtValue, Qt::Key_Return);
    // "abc" counts 0, held to the lower limit.
    EXPECT_EQ(box.Value(), 5);
    EXPECT_EQ(box.TxtValue->text(), QStringLiteral("5"));
    EXPECT_EQ(box.BoxColor(), White);

    const auto accept = [this](const char* text) {
        box.TxtValue->setText(QString::fromLatin1(text));
        box.Accept();
        return box.Value();
    };
    EXPECT_EQ(accept("14.5"), 14);
    EXPECT_EQ(accept(" 15.5 dB"), 16);
    EXPECT_EQ(accept("99999999999999"), 20);
    EXPECT_EQ(accept("-99999999999999"), 5);
    EXPECT_EQ(box.TxtValue->text(), QStringLiteral("5"));

    // Code that writes the value leaves the box white.
    box.SetValue(7);
    EXPECT_EQ(box.BoxColor(), White);
}
