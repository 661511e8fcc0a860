// The channel monitor prints the state of "A", "B" and "Rec" on the 500 ms beat: whether the
// channel's device is open, its streams and its underruns.
#include "foundation/controls/IFBlackBoard.h"
#include "metering/IFChannelMonitor.h"
#include "metering/MeterTest.h"
#include "shell/Registry.h"
#include <memory>

TEST_F(MeterTest, ChannelMonitorPrintsTheThreeChannels)
{
    kernel->channels->Add(QStringLiteral("Rec"), 1, 1);
    auto a = kernel->channels->Add(QStringLiteral("A"), 3);
    auto b = kernel->channels->Add(QStringLiteral("B"), 2);
    b->active = false;

    std::unique_ptr<QWidget> created(Registry::Create(QStringLiteral("Korvane_Interface.IFChannelMonitor")));
    auto* monitor = qobject_cast<IFChannelMonitor*>(created.get());
    ASSERT_NE(monitor, nullptr);
    monitor->Init();
    UntilBeat(&MeterClock::PipeTick);
    EXPECT_EQ(monitor->IFBlackBoard1->PrintedLines(),
              QStringList({QStringLiteral("A: True - 3 - 0 underruns"), QStringLiteral("B: False - 2 - 0 underruns"),
                           QStringLiteral("Rec: True - 1 - 0 underruns")}));

    // Each beat prints afresh; a missing channel is left out and reported once.
    b->active = true;
    a->underruns = 12;
    kernel->channels->channels.erase(kernel->channels->channels.begin());
    UntilBeat(&MeterClock::PipeTick);
    UntilBeat(&MeterClock::PipeTick);
    EXPECT_EQ(monitor->IFBlackBoard1->PrintedLines(), QStringList({QStringLiteral("A: True - 3 - 12 underruns"), QStringLiteral("B: True - 2 - 0 underruns")}));
    ASSERT_EQ(log->Errors().size(), 1);
    EXPECT_EQ(log->Errors().first(), QStringLiteral("ERROR IFChannelMonitor.TmrChannelMonitor_Timer: No channel named Rec"));
}
