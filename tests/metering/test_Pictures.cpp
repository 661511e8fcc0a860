// Pictures of the meter row at silence, at work level and in overload, and of the small
// controls, written to build/screenshots for a person to look at.
#include "foundation/controls/ArrowPictures.h"
#include "foundation/controls/IFBlackBoard.h"
#include "foundation/controls/UCButton.h"
#include "foundation/controls/UCNumericRestricted.h"
#include "foundation/controls/UCProgressBar.h"
#include "foundation/controls/VolmarPannel.h"
#include "metering/IFChannelMonitor.h"
#include "metering/IFVumeters.h"
#include "metering/MeterTest.h"
#include "shell/Theme.h"
#include "support/Photograph.h"
#include <QApplication>

namespace {
class Pictures : public MeterTest
{
protected:
    void SetUp() override
    {
        MeterTest::SetUp();
        Theme::Apply(*qApp);
    }

    void TearDown() override
    {
        qApp->setStyleSheet(QString());
        MeterTest::TearDown();
    }

    void SetLevels(float a, float b, float rec)
    {
        channelA->SetLevels(a, a - 0.7f);
        channelB->SetLevels(b, b + 0.9f);
        channelRec->SetLevels(rec, rec - 1.3f);
    }

    std::shared_ptr<FakeChannel> channelA = kernel->channels->Add(QStringLiteral("A"), 3);
    std::shared_ptr<FakeChannel> channelB = kernel->channels->Add(QStringLiteral("B"), 3);
    std::shared_ptr<FakeChannel> channelRec = kernel->channels->Add(QStringLiteral("Rec"), 1, 1);
};
}

TEST_F(Pictures, MeterRowAtSilenceWorkLevelAndOverload)
{
    IFVumeters row;
    row.resize(240, 320);
    row.Init();
    row.show();
    channelA->on = true;
    channelRec->on = true;
    for (const auto& channel : kernel->channels->channels)
        channel->SetLevels(-110, -110, false);
    Ticks(50);
    while (!row.Blink())
        Ticks(1);
    QApplication::processEvents();
    EXPECT_TRUE(Photograph(&row, QStringLiteral("meters-silence")));

    SetLevels(-12, -14, -20);
    Ticks(50);
    QApplication::processEvents();
    EXPECT_TRUE(Photograph(&row, QStringLiteral("meters-work-level")));

    // Loud passages, then a drop: the peak dots hang above the bars and the lamps stay lit.
    SetLevels(-1.5f, -4, -8);
    Ticks(20);
    SetLevels(-14, -18, -22);
    Ticks(3);
    QApplication::processEvents();
    EXPECT_TRUE(Photograph(&row, QStringLiteral("meters-overload")));
}

TEST_F(Pictures, SmallControls)
{
    QWidget sheet;
    sheet.resize(520, 300);
    sheet.setStyleSheet(QStringLiteral("QWidget#sheet { background: rgb(24, 28, 35); }"));
    sheet.setObjectName(QStringLiteral("sheet"));

    auto* panel = new VolmarPannel(&sheet, QStringLiteral("Transport"));
    panel->setGeometry(10, 10, 240, 90);
    panel->SetVisibleGuide(false);
    panel->SetForeColor(Qt::white);
    auto* strip = new QWidget(panel);
    for (int i = 0; i < 4; ++i) {
        auto* button = new UCButton(strip);
        const QString direction = i % 2 ? QStringLiteral("Right") : QStringLiteral("Left");
        button->SetPicture(ArrowPictures::Picture(direction + QStringLiteral("_U"), 28));
        button->SetPictureDown(ArrowPictures::Picture(direction + QStringLiteral("_D"), 28));
        button->SetPressed(i == 1);
        button->setGeometry(8 + i * 52, 6, 44, 44);
    }
    panel->SetActiveOnce(true);

    auto* number = new UCNumericRestricted(&sheet);
    number->setGeometry(10, 112, 140, 28);
    number->SetHigherLimitIncluded(500);
    number->SetValue(125);
    auto* disabled = new UCNumericRestricted(&sheet);
    disabled->setGeometry(160, 112, 90, 28);
    disabled->setEnabled(false);

    auto* bar = new UCProgressBar(&sheet);
    bar->setGeometry(10, 152, 240, 18);
    bar->SetPercent(62.5f);

    auto* info = new IFBlackBoard(&sheet);
    info->setGeometry(10, 182, 240, 108);
    info->SetCaption(QStringLiteral("Cart"));
    info->SetColor(2);

    auto* monitor = new IFChannelMonitor(&sheet);
    monitor->setGeometry(262, 10, 248, 130);
    monitor->Init();
    UntilBeat(&MeterClock::PipeTick);

    auto* single = new IFBlackBoard(&sheet);
    single->setGeometry(262, 152, 248, 138);
    single->SetDoubleBorder(false);
    single->SetCaption(QStringLiteral("Notes"));
    single->SetColor(0);

    // Centring needs the board's size: print once it is on screen.
    sheet.show();
    QApplication::processEvents();
    info->PrintText2(QStringLiteral("ID"), QStringLiteral("MUS0042"));
    info->PrintText2(QStringLiteral("Length"), QStringLiteral("03:12.45"));
    info->PrintText(QStringLiteral("Ready"), true);
    single->PrintText(QStringLiteral("Single border"));
    single->PrintText(QStringLiteral("centred"), true, true);
    QApplication::processEvents();
    EXPECT_TRUE(Photograph(&sheet, QStringLiteral("controls")));
}
