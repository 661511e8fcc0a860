// Setting the computer's clock through chrony: the programs and their arguments, the refusals,
// each failure's ERROR line and the success line, on a fake runner and a fake time; and the
// real runner on harmless programs. The test machine's clock is never touched.
#include "controls/RecordingLogger.h"
#include "metering/ProgramRunner.h"
#include "metering/TimeSynchronizer.h"
#include <QObject>
#include <QTest>
#include <deque>
#include <gtest/gtest.h>

namespace {
struct Call
{
    QString program;
    QStringList arguments;
    ProgramDone done;
};

class TimeSynchronizerTest : public ::testing::Test
{
protected:
    TimeSynchronizer sync{[this](const QString& program, const QStringList& arguments, const ProgramDone& done) {
                              calls.push_back({program, arguments, done});
                          },
                          [this] { return now; }};

    // Ends the oldest run still going, the clock having moved to newTime meanwhile.
    void End(ProgramOutcome outcome, const QTime& newTime = QTime(10, 52, 3))
    {
        ASSERT_FALSE(calls.empty());
        Call call = calls.front();
        calls.pop_front();
        now.setTime(newTime);
        call.done(outcome);
    }

    std::deque<Call> calls;
    QDateTime now{QDate(2026, 3, 5), QTime(10, 52, 0)};
    std::shared_ptr<RecordingLogger> log = RecordingLogger::Install();
};
}

TEST_F(TimeSynchronizerTest, ChronydStepsTheClockOnceAndTheLogTellsOldAndNew)
{
    ASSERT_TRUE(sync.Synchronize(QStringLiteral("ntp.example.org")));
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls.front().program, QStringLiteral("chronyd"));
    EXPECT_EQ(calls.front().arguments, QStringList({"-q", "-t", "20", "server ntp.example.org iburst"}));
    EXPECT_TRUE(sync.Running());
    EXPECT_FALSE(sync.Synchronize(QStringLiteral("ntp.example.org")));
    EXPECT_EQ(calls.size(), 1u);

    End({ProgramOutcome::Finished, 0, QStringLiteral("System clock wrong by 2.5 seconds (step)")}, QTime(10, 51, 58));
    EXPECT_FALSE(sync.Running());
    EXPECT_EQ(log->lines.last(), QStringLiteral("OK IFClock.LowLevelSynchronize: Time sync Old: 10:52:00 New: 10:51:58"));
    EXPECT_TRUE(log->Errors().isEmpty());
}

TEST_F(TimeSynchronizerTest, WhereChronydRunsChronycStepsTheClock)
{
    sync.Synchronize(QStringLiteral("192.168.1.10"));
    End({ProgramOutcome::Finished, 1, QStringLiteral("Fatal error : Another chronyd may already be running (pid=812)")});
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls.front().program, QStringLiteral("chronyc"));
    EXPECT_EQ(calls.front().arguments, QStringList({"makestep"}));
    EXPECT_TRUE(sync.Running());
    End({ProgramOutcome::Finished, 0, QStringLiteral("200 OK")});
    EXPECT_EQ(log->lines.last(), QStringLiteral("OK IFClock.LowLevelSynchronize: Time sync Old: 10:52:00 New: 10:52:03"));
}

TEST_F(TimeSynchronizerTest, EachFailureSaysWhichAndTheNextRunMayStart)
{
    const struct
    {
        ProgramOutcome outcome;
        QString line;
    } cases[] = {
        {{ProgramOutcome::NotStarted, -1, QStringLiteral("execvp: No such file or directory")},
         QStringLiteral("Time sync failed: the program chronyd is not installed or cannot be started (execvp: No such file or directory)")},
        {{ProgramOutcome::Finished, 1, QStringLiteral("2026-03-05T10:52:00Z chronyd version 4.3\nFatal error : Not superuser")},
         QStringLiteral("Time sync failed: no right to set the system clock (chronyd: Fatal error : Not superuser)")},
        {{ProgramOutcome::Finished, 1, QStringLiteral("adjtimex(0x8001) failed : Operation not permitted")},
         QStringLiteral("Time sync failed: no right to set the system clock (chronyd: adjtimex(0x8001) failed : Operation not permitted)")},
        {{ProgramOutcome::Finished, 1, QStringLiteral("No suitable source for synchronisation\nchronyd exiting")},
         QStringLiteral("Time sync failed: time server ntp.example.org could not be reached (chronyd: chronyd exiting)")},
        {{ProgramOutcome::Crashed, 9, QString()}, QStringLiteral("Time sync failed: time server ntp.example.org could not be reached")},
        {{ProgramOutcome::TimedOut, -1, QString()}, QStringLiteral("Time sync failed: time server ntp.example.org did not answer within 20 seconds")},
    };
    for (const auto& failure : cases) {
        log->lines.clear();
        ASSERT_TRUE(sync.Synchronize(QStringLiteral("ntp.example.org")));
        End(failure.outcome);
        EXPECT_EQ(log->lines, QStringList({QStringLiteral("ERROR IFClock.LowLevelSynchronize: ") + failure.line}));
        EXPECT_FALSE(sync.Running());
    }
    // chronyc without the daemon's permission is a missing right too.
    log->lines.clear();
    sync.Synchronize(QStringLiteral("ntp.example.org"));
    End({ProgramOutcome::Finished, 1, QStringLiteral("Another chronyd may already be running")});
    End({ProgramOutcome::Finished, 1, QStringLiteral("501 Not authorised")});
    EXPECT_EQ(log->lines, QStringList({"ERROR IFClock.LowLevelSynchronize: Time sync failed: no right to set the system clock (chronyc: 501 Not authorised)"}));
}

TEST_F(TimeSynchronizerTest, AServerNameThatIsNoHostNameNeverReachesAProgram)
{
    for (const QString& bad : {QString(), QStringLiteral("ntp.example.org; rm -rf /"), QStringLiteral("$(reboot)"), QStringLiteral("a b"),
                               QStringLiteral("-q"), QStringLiteral("host-.org"), QStringLiteral("a..b"), QStringLiteral("x\niburst"),
                               QString(64, u'a') + QStringLiteral(".org")}) {
        log->lines.clear();
        EXPECT_FALSE(sync.Synchronize(bad)) << bad.toStdString();
        ASSERT_EQ(log->Errors().size(), 1);
        EXPECT_TRUE(log->Errors().first().contains(QStringLiteral("is not a valid time server name")));
    }
    EXPECT_TRUE(calls.empty());
    for (const QString& good : {QStringLiteral("pool.ntp.org"), QStringLiteral("ntp1"), QStringLiteral("time.example.org."), QStringLiteral("10.0.0.1"),
                                QStringLiteral("2001:db8::1"), QStringLiteral("0.de.pool.ntp.org")})
        EXPECT_TRUE(TimeSynchronizer::IsServerName(good)) << good.toStdString();
}

TEST(ProcessRunner, RunsAProgramWithoutAShellAndReportsHowItEnded)
{
    QObject context;
    const ProgramRunner run = ProcessRunner(&context, 10000);
    std::vector<ProgramOutcome> outcomes;
    const ProgramDone keep = [&](const ProgramOutcome& outcome) { outcomes.push_back(outcome); };

    // Shell characters in an argument reach the program as they are.
    run(QStringLiteral("printf"), {QStringLiteral("%s"), QStringLiteral("a;b $(x) 'c'")}, keep);
    run(QStringLiteral("false"), {}, keep);
    run(QStringLiteral("korvane-no-such-program"), {}, keep);
    ASSERT_TRUE(QTest::qWaitFor([&] { return outcomes.size() == 3; }, 10000));
    std::sort(outcomes.begin(), outcomes.end(), [](const auto& a, const auto& b) { return a.exitCode > b.exitCode; });
    EXPECT_EQ(outcomes[0].kind, ProgramOutcome::Finished);
    EXPECT_EQ(outcomes[0].exitCode, 1);
    EXPECT_EQ(outcomes[1].kind, ProgramOutcome::Finished);
    EXPECT_EQ(outcomes[1].output, QStringLiteral("a;b $(x) 'c'"));
    EXPECT_EQ(outcomes[2].kind, ProgramOutcome::NotStarted);
}

TEST(ProcessRunner, AProgramThatHangsIsKilledAtTheTimeout)
{
    QObject context;
    std::optional<ProgramOutcome> outcome;
    ProcessRunner(&context, 50)(QStringLiteral("cat"), {}, [&](const ProgramOutcome& ended) { outcome = ended; });
    ASSERT_TRUE(QTest::qWaitFor([&] { return outcome.has_value(); }, 10000));
    EXPECT_EQ(outcome->kind, ProgramOutcome::TimedOut);
}
