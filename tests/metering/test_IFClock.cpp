// The studio clock on screen: the label in each mode and under the left button, the popup
// menu, the size, and the hourly synchronisation on a fake time that never reaches a real
// program; and its pictures.
#include "foundation/controls/VolmarPannel.h"
#include "foundation/ui/ScriptedDialogs.h"
#include "metering/ClockFace.h"
#include "metering/HourlySync.h"
#include "metering/IFClock.h"
#include "metering/MeterTest.h"
#include "shell/Registry.h"
#include "support/Photograph.h"
#include <QApplication>
#include <QLabel>
#include <QTest>
#include <memory>

namespace {
class ClockTest : public MeterTest
{
protected:
    void SetUp() override
    {
        MeterTest::SetUp();
        dialogs = new ScriptedDialogs;
        previousDialogs = Dialogs::SetHandler(std::unique_ptr<Dialogs::Handler>(dialogs));
        created.reset(Registry::Create(QStringLiteral("Korvane_Interface.IFClock")));
        clock = qobject_cast<IFClock*>(created.get());
        ASSERT_NE(clock, nullptr);
        clock->SetTimeSource([this] { return now; });
        clock->SetProgramRunner([this](const QString& program, const QStringList& arguments, const ProgramDone& done) {
            runs.append(program + QLatin1Char(' ') + arguments.join(QLatin1Char('|')));
            done({ProgramOutcome::Finished, 0, QString()});
        });
        clock->Init();
    }

    void TearDown() override
    {
        created.reset();
        Dialogs::SetHandler(std::move(previousDialogs));
        MeterTest::TearDown();
    }

    void At(const QString& time)
    {
        now.setTime(QTime::fromString(time, QStringLiteral("hh:mm:ss")));
    }

    QString Date() const { return ClockFace::DateText(now.date()); }

    QString Label() const { return clock->LblClock->text(); }

    // The fake kernel has no station, so reading the settings file is an error of its own.
    QStringList ClockErrors() const { return log->Errors().filter(QStringLiteral(" IFClock.")); }

    QStringList TrustLines() const { return log->lines.filter(QStringLiteral("IFClock.TmrTrust_Timer")); }

    QDateTime now{QDate(2026, 3, 5), QTime(9, 7, 16)};
    std::unique_ptr<QWidget> created;
    IFClock* clock = nullptr;
    ScriptedDialogs* dialogs = nullptr;
    std::unique_ptr<Dialogs::Handler> previousDialogs;
    QStringList runs;
};
}

TEST_F(ClockTest, TheLeftButtonShowsTheOtherReadingUntilReleased)
{
    EXPECT_TRUE(clock->Timer1.isActive());
    EXPECT_EQ(clock->Timer1.interval(), 250);
    EXPECT_EQ(clock->ClockMode(), 0);
    EXPECT_EQ(Label(), QStringLiteral("09:07:16"));
    QTest::mousePress(clock->LblClock, Qt::LeftButton);
    EXPECT_EQ(Label(), Date());
    QTest::mouseRelease(clock->LblClock, Qt::LeftButton);
    EXPECT_EQ(Label(), QStringLiteral("09:07:16"));

    clock->SetClockMode(1);
    EXPECT_EQ(Label(), Date());
    QTest::mousePress(clock->LblClock, Qt::LeftButton);
    EXPECT_EQ(Label(), QStringLiteral("09:07:16"));
    QTest::mouseRelease(clock->LblClock, Qt::LeftButton);
    EXPECT_EQ(Label(), Date());
}

TEST_F(ClockTest, AlternatedAndTwoLineModesFollowTheTicks)
{
    clock->SetClockMode(2);
    At(QStringLiteral("09:07:13"));
    clock->Timer1_Timer();
    clock->Timer1_Timer();
    EXPECT_EQ(Label(), Date());
    At(QStringLiteral("09:07:16"));
    clock->Timer1_Timer();
    clock->Timer1_Timer();
    EXPECT_EQ(Label(), QStringLiteral("09:07:16"));

    clock->SetClockMode(3);
    EXPECT_EQ(clock->Text(), QStringLiteral("09:07:16") + QChar(13) + Date());
    EXPECT_EQ(Label(), QStringLiteral("09:07:16\n") + Date());
}

TEST_F(ClockTest, ThePopupMenuSetsModeAndSizeAndCancelChangesNothing)
{
    clock->SetClockSize(16);
    dialogs->popupChoices = {QStringLiteral("IFClock.ClockMode=1"), QStringLiteral("IFClock.ClockSize=32"), QStringLiteral("IFClock.Cancel"), QString()};
    QTest::mousePress(clock->LblClock, Qt::RightButton);
    EXPECT_EQ(clock->ClockMode(), 1);
    EXPECT_EQ(Label(), Date());
    ASSERT_EQ(dialogs->menus.size(), 1);
    EXPECT_EQ(dialogs->menus[0][3].text, QStringLiteral("Time_h"));
    EXPECT_TRUE(dialogs->menus[0][3].checked);

    clock->Selector_MouseDown(QPoint());
    EXPECT_EQ(clock->ClockSize(), 32);
    EXPECT_EQ(clock->LblClock->font().pointSize(), 32);
    EXPECT_TRUE(dialogs->menus[1][4].checked);

    clock->Selector_MouseDown(QPoint());
    clock->Selector_MouseDown(QPoint());
    EXPECT_EQ(clock->ClockMode(), 1);
    EXPECT_EQ(clock->ClockSize(), 32);
    EXPECT_TRUE(ClockErrors().isEmpty());
}

TEST_F(ClockTest, CaptionIsThePanels)
{
    EXPECT_EQ(clock->Caption(), QStringLiteral("Clock"));
    clock->SetCaption(QStringLiteral("Studio 2"));
    EXPECT_EQ(clock->VolmarPannel1->Caption(), QStringLiteral("Studio 2"));
}

TEST_F(ClockTest, WithoutAKernelTheClockReadsDesign)
{
    Globals::SetKernel(nullptr);
    IFClock design;
    design.Init();
    EXPECT_EQ(design.LblClock->text(), QStringLiteral("Design"));
    EXPECT_FALSE(design.Timer1.isActive());
    EXPECT_TRUE(design.TmrSync.isActive());
}

TEST_F(ClockTest, TheClockIsSetOnceInMinute52WhenTheStationAsksExactlyYes)
{
    kernel->config.insert(QStringLiteral("TimeSyncServer"), QStringLiteral("ntp.example.org"));
    EXPECT_EQ(clock->TmrSync.interval(), 10000);
    At(QStringLiteral("10:55:00"));
    clock->TmrSync_Timer();

    kernel->config.insert(QStringLiteral("TimeSync"), QStringLiteral("yes"));
    At(QStringLiteral("10:52:00"));
    clock->TmrSync_Timer();
    EXPECT_TRUE(runs.isEmpty());
    EXPECT_TRUE(HourlySync::Shared().Done());

    kernel->config.insert(QStringLiteral("TimeSync"), QStringLiteral("Yes"));
    for (const QString& time : {QStringLiteral("10:52:10"), QStringLiteral("10:55:00"), QStringLiteral("11:51:50"), QStringLiteral("11:52:00"),
                                QStringLiteral("11:52:10")}) {
        At(time);
        clock->TmrSync_Timer();
    }
    EXPECT_EQ(runs, QStringList({"chronyd -q|-t|20|server ntp.example.org iburst"}));
    EXPECT_EQ(log->lines.last(), QStringLiteral("OK IFClock.LowLevelSynchronize: Time sync Old: 11:52:00 New: 11:52:00"));

    // A server name with shell characters is refused; the clock keeps running.
    kernel->config.insert(QStringLiteral("TimeSyncServer"), QStringLiteral("ntp.example.org && reboot"));
    clock->LowLevelSynchronize();
    EXPECT_EQ(runs.size(), 1);
    EXPECT_EQ(ClockErrors().size(), 1);
    clock->Timer1_Timer();
    EXPECT_EQ(Label(), QStringLiteral("11:52:10"));
}

TEST_F(ClockTest, PicturesOfEachMode)
{
    clock->resize(260, 100);
    clock->show();
    At(QStringLiteral("14:52:07"));
    clock->SetClockSize(23);
    const std::pair<qint32, const char*> modes[] = {{0, "clock-time"}, {1, "clock-date"}, {3, "clock-two-lines"}};
    for (const auto& [mode, name] : modes) {
        clock->SetClockMode(mode);
        QApplication::processEvents();
        EXPECT_TRUE(Photograph(clock, QLatin1String(name)));
    }
    clock->SetClockSize(8);
    clock->SetClockMode(0);
    QApplication::processEvents();
    EXPECT_TRUE(Photograph(clock, QStringLiteral("clock-tiny")));
}

TEST_F(ClockTest, TheTrustLampFollowsChronyAndEachLossAndReturnIsLogged)
{
    QString answer = QStringLiteral("506 Cannot talk to daemon");
    int exitCode = 1;
    clock->SetProgramRunner([&](const QString& program, const QStringList& arguments, const ProgramDone& done) {
        runs.append(program + QLatin1Char(' ') + arguments.join(QLatin1Char('|')));
        done({ProgramOutcome::Finished, exitCode, answer});
    });
    now = QDateTime(QDate(2026, 11, 23), QTime(16, 21, 0), Qt::UTC);
    clock->TmrTrust_Timer();
    EXPECT_EQ(runs, QStringList({"chronyc tracking"}));
    EXPECT_TRUE(clock->LblTrust->styleSheet().contains(QStringLiteral("#dc281e")));
    EXPECT_EQ(TrustLines(), QStringList({"ERROR IFClock.TmrTrust_Timer: Time not synchronised: chronyc tracking gave no answer: 506 Cannot talk to daemon"}));

    answer = QStringLiteral("Reference ID    : C0A80101 (ntp.example.org)\n"
                            "Ref time (UTC)  : Mon Nov 23 16:20:00 2026\n"
                            "System time     : 0.000012345 seconds fast of NTP time\n"
                            "Leap status     : Normal\n");
    exitCode = 0;
    clock->TmrTrust_Timer();
    clock->TmrTrust_Timer();
    EXPECT_TRUE(clock->LblTrust->styleSheet().contains(QStringLiteral("#28c846")));
    EXPECT_EQ(clock->LblTrust->toolTip(), QStringLiteral("ntp.example.org: offset 0.012 ms, updated 60 s ago"));
    EXPECT_EQ(TrustLines().size(), 2);
    EXPECT_EQ(TrustLines().last(), QStringLiteral("OK IFClock.TmrTrust_Timer: Time synchronised again with ntp.example.org"));

    answer.replace(QStringLiteral("Normal"), QStringLiteral("Not synchronised"));
    clock->TmrTrust_Timer();
    EXPECT_EQ(TrustLines().last(), QStringLiteral("ERROR IFClock.TmrTrust_Timer: Time not synchronised: chrony has no usable source"));
    EXPECT_EQ(clock->Text(), QStringLiteral("09:07:16"));
}

TEST_F(ClockTest, WithoutATimeServiceTheLampIsGreyAndOneWarningSaysSo)
{
    clock->SetProgramRunner([&](const QString&, const QStringList&, const ProgramDone& done) {
        done({ProgramOutcome::NotStarted, -1, QStringLiteral("execvp: No such file or directory")});
    });
    clock->TmrTrust_Timer();
    clock->TmrTrust_Timer();
    EXPECT_TRUE(clock->LblTrust->styleSheet().contains(QStringLiteral("grey")));
    EXPECT_EQ(TrustLines(), QStringList({"WARN IFClock.TmrTrust_Timer: No time service: the program chronyc is not installed or cannot be started"}));
}
