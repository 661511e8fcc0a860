// Shout: a notice reaches every workstation of the station at its watcher's next tick, the
// sender at once; on the station's SQLite files and on the test server.
#include "KernelTest.h"
#include "kernel/StoreWatcher.h"
#include "kernelapi/iUsers.h"
#include "support/TestServer.h"
#include <QSignalSpy>
#include <QTemporaryDir>

namespace {
QStringList Heard(const QSignalSpy& spy)
{
    QStringList heard;
    for (const QList<QVariant>& call : spy)
        heard << call.at(0).toString() + QStringLiteral(": ") + call.at(1).toString();
    return heard;
}

// Two workstations, one shouting: both hear it, each once.
void ShoutBetween(EmbeddedKernel& sender, EmbeddedKernel& receiver, const QString& from)
{
    QSignalSpy sent(&sender, &CKernel::Shouted);
    QSignalSpy received(&receiver, &CKernel::Shouted);
    sender.Shout(QStringLiteral("  Studio 2 is on air in five minutes  "));
    EXPECT_EQ(Heard(sent), QStringList({from + ": Studio 2 is on air in five minutes"})) << "the sender hears it at once";
    receiver.Watcher().Tick();
    EXPECT_EQ(Heard(received), Heard(sent));
    receiver.Watcher().Tick();
    sender.Watcher().Tick();
    EXPECT_EQ(received.count(), 1) << "a notice is heard once";
    EXPECT_EQ(sent.count(), 1);
}
}

TEST_F(KernelTest, AShoutReachesEveryWorkstationOfTheStationOnce)
{
    const auto other = Reopen();
    const QString id = kernel->StationID();
    ShoutBetween(*kernel, *other, id);

    ASSERT_TRUE(kernel->Users()->Login(QStringLiteral("ADMIN"), QStringLiteral("korvane")));
    QSignalSpy received(other.get(), &CKernel::Shouted);
    kernel->Shout(QString());
    other->Watcher().Tick();
    ASSERT_EQ(received.count(), 1);
    EXPECT_EQ(received.at(0).at(0).toString(), id + QStringLiteral(" (ADMIN)"));
    EXPECT_EQ(received.at(0).at(1).toString(), id + QStringLiteral(" (ADMIN) calls every workstation"))
        << "an empty text names the sender";

    const auto late = Reopen();
    QSignalSpy lateSpy(late.get(), &CKernel::Shouted);
    late->Watcher().Tick();
    EXPECT_EQ(lateSpy.count(), 0) << "a workstation that starts later hears no old notices";
    EXPECT_EQ(LogLinesWith(QStringLiteral("Notice sent")).size(), 2);
}

TEST_F(KernelTest, AStationWithoutTheNoticeTableGetsItAtTheFirstShout)
{
    Run("Kernel.MDB", QStringLiteral("DROP TABLE Notice"));
    const auto here = Reopen();
    const auto there = Reopen();
    there->Watcher().Tick(); // no table yet: nothing to hear, nothing fails
    ShoutBetween(*here, *there, here->StationID());
}

TEST(ShoutOnServer, ANoticeReachesTheOtherWorkstationOfAServerCatalogue)
{
    const QString location = FreshServerStation();
    if (location.isEmpty())
        GTEST_SKIP() << NoTestServer;
    CreateServerCatalogue(location);
    QTemporaryDir oneDir, twoDir;
    const auto one = EmbeddedKernel::Open(ServerStationFolder(oneDir, QStringLiteral("ONE"), location), nullptr);
    const auto two = EmbeddedKernel::Open(ServerStationFolder(twoDir, QStringLiteral("TWO"), location), nullptr);
    ShoutBetween(*one, *two, QStringLiteral("ONE"));
    ShoutBetween(*two, *one, QStringLiteral("TWO"));
}
