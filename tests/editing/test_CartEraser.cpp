// The eraser: its status table, the five-second hold that deletes a cart through the kernel,
// the release that saves it, and the ejection five seconds after a release. The timers are
// driven by their ticks and a clock the test sets.
#include "EditingTest.h"
#include "editing/EraserStatusTable.h"
#include "editing/IFCartEraser.h"
#include "foundation/controls/DisplayLabel.h"
#include "foundation/controls/UCButton.h"
#include "foundation/controls/UCProgressBar.h"
#include "shell/components/CComponent.h"
#include <QTest>

namespace {
const QColor GreenBack(0, 64, 0), GreenFore(192, 255, 192), RedBack(64, 0, 0), RedFore(255, 192, 192);

class EraserTest : public EditingTest
{
protected:
    void SetUp() override
    {
        EditingTest::SetUp();
        eraser = std::make_unique<IFCartEraser>();
        eraser->resize(eraser->sizeHint());
        eraser->SetClock([this] { return now; });
        eraser->show();
    }
    void TearDown() override
    {
        eraser.reset();
        EditingTest::TearDown();
    }

    QString StatusText() const { return eraser->LblStatus->Text(); }
    void Press() const { QTest::mousePress(eraser->CmdErase, Qt::LeftButton); }
    void Release() const { QTest::mouseRelease(eraser->CmdErase, Qt::LeftButton); }
    // Moves the clock on and gives each running timer the tick it would have had.
    void Pass(qint64 ms)
    {
        now += ms;
        if (eraser->TmrErase().isActive())
            eraser->TmrErase_Timer();
        if (eraser->TmrFlash().isActive())
            eraser->TmrFlash_Timer();
    }

    qint64 now = 1'000'000;
    std::unique_ptr<IFCartEraser> eraser;
};
}

TEST(EraserStatusTableRows, EachStatusAndTheUnknownOnes)
{
    using Title = EraserStatusTable::Title;
    using Switch = EraserStatusTable::Switch;
    const auto& none = EraserStatusTable::Find(0);
    EXPECT_EQ(none.title, Title::Empty);
    EXPECT_STREQ(none.picture, "NoBlankTape");
    const auto& ready = EraserStatusTable::Find(1);
    EXPECT_EQ(ready.title, Title::CartID);
    EXPECT_STREQ(ready.statusText, "Erase?");
    const auto& erasing = EraserStatusTable::Find(2);
    EXPECT_TRUE(erasing.red);
    EXPECT_EQ(erasing.eraseTimer, Switch::On);
    const auto& expiring = EraserStatusTable::Find(3);
    EXPECT_FALSE(expiring.statusChanges) << "the release's own text stays on show";
    EXPECT_TRUE(expiring.flash);
    EXPECT_EQ(expiring.eraseTimer, Switch::Off);
    for (const qint32 odd : {-1, 4, 1000}) {
        const auto& unknown = EraserStatusTable::Find(odd);
        EXPECT_STREQ(unknown.statusText, "Unknown");
        EXPECT_FALSE(unknown.pictureChanges);
        EXPECT_EQ(unknown.eraseTimer, Switch::Unchanged);
        EXPECT_FALSE(unknown.progressToZero);
    }
}

TEST_F(EraserTest, ADroppedCartWaitsAndEjectEmptiesThePanel)
{
    EXPECT_EQ(eraser->Status(), 0);
    EXPECT_EQ(eraser->StatusPicture(), QStringLiteral("NoBlankTape"));
    Press();
    Release();
    EXPECT_EQ(eraser->Status(), 0) << "nothing to erase";

    eraser->Drop(QStringLiteral("MUS0001"));
    EXPECT_EQ(eraser->Status(), 1);
    EXPECT_EQ(eraser->LblTitle->Text(), QStringLiteral("MUS0001"));
    EXPECT_EQ(StatusText(), QStringLiteral("Erase?"));
    EXPECT_EQ(eraser->LblStatus->BackColor(), GreenBack);
    EXPECT_EQ(eraser->LblStatus->ForeColor(), GreenFore);
    EXPECT_EQ(eraser->StatusPicture(), QStringLiteral("Ready"));
    EXPECT_FALSE(eraser->Flash());

    QTest::mouseClick(eraser->CmdEject, Qt::LeftButton);
    EXPECT_EQ(eraser->Status(), 0);
    EXPECT_EQ(eraser->Cart(), nullptr);
    EXPECT_EQ(eraser->LblTitle->Text(), QString());
    EXPECT_EQ(StatusText(), QString());
    EXPECT_TRUE(Exists(QStringLiteral("MUS0001")));
}

TEST_F(EraserTest, ReleasedBeforeFiveSecondsTheCartStaysAndIsEjectedFiveSecondsLater)
{
    eraser->Drop(QStringLiteral("MUS0001"));
    Press();
    EXPECT_EQ(eraser->Status(), 2);
    EXPECT_EQ(StatusText(), QStringLiteral("Erasing"));
    EXPECT_EQ(eraser->LblStatus->BackColor(), RedBack);
    EXPECT_EQ(eraser->LblStatus->ForeColor(), RedFore);
    EXPECT_TRUE(eraser->TmrErase().isActive());
    Pass(2500);
    EXPECT_FLOAT_EQ(eraser->Progress->Percent(), 50);
    Pass(2400);
    EXPECT_FLOAT_EQ(eraser->Progress->Percent(), 98);

    Release();
    EXPECT_EQ(eraser->Status(), 3);
    EXPECT_EQ(StatusText(), QStringLiteral("Not Erased"));
    EXPECT_EQ(eraser->StatusPicture(), QStringLiteral("Expiring"));
    EXPECT_FALSE(eraser->TmrErase().isActive());
    EXPECT_FLOAT_EQ(eraser->Progress->Percent(), 0);
    EXPECT_TRUE(eraser->Flash());
    EXPECT_TRUE(eraser->TmrFlash().isActive());
    EXPECT_TRUE(Exists(QStringLiteral("MUS0001")));

    const bool lit = eraser->HighLight();
    const QColor back = eraser->LblStatus->BackColor();
    Pass(250);
    EXPECT_NE(eraser->HighLight(), lit) << "the panel flashes";
    EXPECT_NE(eraser->LblStatus->BackColor(), back);
    Pass(4750);
    EXPECT_EQ(eraser->Status(), 3) << "five seconds exactly: still there";
    Pass(250);
    EXPECT_EQ(eraser->Status(), 0);
    EXPECT_EQ(eraser->Cart(), nullptr);
    EXPECT_FALSE(eraser->TmrFlash().isActive());
    EXPECT_TRUE(eraser->HighLight());
    EXPECT_EQ(eraser->LblStatus->BackColor(), GreenBack);
    EXPECT_TRUE(Exists(QStringLiteral("MUS0001")));
}

TEST_F(EraserTest, HeldPastFiveSecondsTheKernelDeletesTheCartOnce)
{
    eraser->Drop(QStringLiteral("JIN0001"));
    Press();
    Pass(5000);
    EXPECT_TRUE(Exists(QStringLiteral("JIN0001"))) << "five seconds is not yet past";
    Pass(100);
    EXPECT_FALSE(Exists(QStringLiteral("JIN0001")));
    EXPECT_EQ(StatusText(), QStringLiteral("Erased"));
    EXPECT_EQ(eraser->Status(), 2) << "the status waits for the release";
    Pass(100);
    Pass(100);
    EXPECT_TRUE(log->Errors().isEmpty()) << log->Errors().join('\n').toStdString();
    EXPECT_TRUE(log->lines.filter(QStringLiteral("WARN")).isEmpty()) << log->lines.join('\n').toStdString();

    Release();
    EXPECT_EQ(eraser->Status(), 3);
    EXPECT_EQ(StatusText(), QStringLiteral("Erased")) << "the cart is gone; the release does not say otherwise";
    Pass(5250);
    EXPECT_EQ(eraser->Status(), 0);
}

TEST_F(EraserTest, AReleaseOutsideTheButtonEndsTheHoldAndAnUnknownStatusSaysSo)
{
    eraser->Drop(QStringLiteral("MUS0001"));
    Press();
    QTest::mouseRelease(eraser->CmdErase, Qt::LeftButton, {}, QPoint(-20, -20));
    EXPECT_EQ(eraser->Status(), 3) << "a hand sliding off the button still lets go";
    eraser->SetStatus(9);
    EXPECT_EQ(StatusText(), QStringLiteral("Unknown"));
    EXPECT_EQ(eraser->StatusPicture(), QStringLiteral("Expiring")) << "the picture stays";
}

TEST_F(EraserTest, ACartDraggedOntoThePanelWaitsToBeErased)
{
    auto source = std::make_shared<CComponent>();
    source->SetShareType(CComponent::ShareCart);
    source->SetSharedObject(Cart(QStringLiteral("MUS0001")));
    eraser->Component()->RaiseEventDragDrop(source);
    EXPECT_EQ(eraser->Status(), 1);
    EXPECT_EQ(eraser->LblTitle->Text(), QStringLiteral("MUS0001"));
    source->SetShareType(CComponent::ShareFamily);
    eraser->CmdEject_Click();
    eraser->Component()->RaiseEventDragDrop(source);
    EXPECT_EQ(eraser->Status(), 0) << "only a cart is taken";
}
