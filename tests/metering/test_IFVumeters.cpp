// The meter row: one meter per kernel channel, all driven by the shared meter clock, created by
// name through the registry.
#include "metering/IFVumeter.h"
#include "metering/IFVumeters.h"
#include "metering/MeterTest.h"
#include "metering/UCPipeOn.h"
#include "metering/UCSingleVumeter.h"
#include "metering/UCVumeter.h"
#include "shell/Registry.h"
#include <QLabel>
#include <memory>

namespace {
class IFVumetersTest : public MeterTest
{
protected:
    void SetUp() override
    {
        MeterTest::SetUp();
        a->SetLevels(-20, -22);
        b->SetLevels(-110, -110, false);
        rec->SetLevels(-35, -35);
        a->on = true;
        rec->on = true;
    }

    std::shared_ptr<FakeChannel> a = kernel->channels->Add(QStringLiteral("A"), 3);
    std::shared_ptr<FakeChannel> b = kernel->channels->Add(QStringLiteral("B"), 3);
    std::shared_ptr<FakeChannel> rec = kernel->channels->Add(QStringLiteral("Rec"), 1, 1);
};
}

TEST_F(IFVumetersTest, OneMeterPerChannelDrivenByTheSharedTick)
{
    std::unique_ptr<QWidget> created(Registry::Create(QStringLiteral("Korvane_Interface.IFVumeters")));
    auto* row = qobject_cast<IFVumeters*>(created.get());
    ASSERT_NE(row, nullptr);
    row->Init();
    ASSERT_EQ(row->MemberCount(), 3);
    EXPECT_EQ(row->Member(1)->Label1->text(), QStringLiteral("A"));
    EXPECT_EQ(row->Member(3)->Label1->text(), QStringLiteral("Rec"));
    EXPECT_EQ(row->Member(3)->Channel(), rec);
    EXPECT_EQ(row->Member(4), nullptr);

    // 45 ticks carry every meter through its opening sweep to the true levels.
    Ticks(45);
    EXPECT_FLOAT_EQ(row->Member(1)->UCVumeter1->VuLeft->Value(), -20);
    EXPECT_FLOAT_EQ(row->Member(1)->UCVumeter1->VuRight->Value(), -22);
    EXPECT_FLOAT_EQ(row->Member(2)->UCVumeter1->VuLeft->Value(), -110);
    EXPECT_FLOAT_EQ(row->Member(3)->UCVumeter1->VuLeft->Value(), -35);

    // The blink beat flips every 250 ms: lamps of running channels follow it, others stay off.
    const bool beat = row->Blink();
    UntilBeat(&MeterClock::BlinkTick);
    EXPECT_NE(row->Blink(), beat);
    const QString lit = row->Blink() ? QStringLiteral("On") : QStringLiteral("Off");
    EXPECT_EQ(row->Member(1)->UCPipeOn1->ShownPicture(), QStringLiteral("IPlay") + lit);
    EXPECT_EQ(row->Member(2)->UCPipeOn1->ShownPicture(), QStringLiteral("IPlayOff"));
    EXPECT_EQ(row->Member(3)->UCPipeOn1->ShownPicture(), QStringLiteral("IRec") + lit);

    // A change of channels is taken up by Regenerate.
    kernel->channels->channels.pop_back();
    row->Regenerate();
    EXPECT_EQ(row->MemberCount(), 2);
    EXPECT_TRUE(log->Errors().isEmpty());
}

TEST_F(IFVumetersTest, StartsOnlyWithAKernelAndOnlyOnce)
{
    Globals::SetKernel(nullptr);
    IFVumeters row;
    row.Init();
    EXPECT_EQ(row.MemberCount(), 0);
    EXPECT_TRUE(log->Errors().isEmpty());

    Globals::SetKernel(kernel);
    row.Init();
    row.Init();
    EXPECT_EQ(row.MemberCount(), 3);

    // A channel that fails to answer keeps its meter, and the failure is logged once.
    kernel->channels->channels.clear();
    kernel->channels->Add(QStringLiteral("A"), 3)->failing = true;
    row.Regenerate();
    for (int read = 0; read < 5; ++read)
        row.Timer1_Timer();
    EXPECT_EQ(row.MemberCount(), 1);
    ASSERT_EQ(log->Errors().size(), 1);
    EXPECT_TRUE(log->Errors().first().startsWith(QStringLiteral("ERROR UCVumeter.RefreshLevel")));
}
