// The Live screen's loader and the decks it binds: the steps are logged in order, a failing
// step says so in one box and the steps after it still run, and the decks follow the kernel's
// channels and streams.
#include "LiveTest.h"
#include "browse/BrowserRowModel.h"
#include "browse/IFBrowserCart.h"
#include "editing/IFCartRecorder.h"
#include "foundation/controls/VolmarPannel.h"
#include "kernelapi/iChannel.h"
#include "kernelapi/iChannels.h"
#include "kernelapi/iStream.h"
#include "kernelapi/iStreams.h"
#include "metering/IFClock.h"
#include "metering/IFVumeters.h"
#include "onair/FrmPautador.h"
#include "onair/IFShortCuts.h"
#include "onair/UCChannelStreamSelector.h"
#include <QLabel>

namespace {
std::shared_ptr<iCartPlayer> PlayerOf(const QString& channel, int stream)
{
    return Globals::Kernel()->Channels()->Item(channel)->Streams()->Item(stream)->CartPlayer();
}
}

TEST_F(LiveTest, TheLoaderWaitsASecondThenRunsEveryStepAndBindsTheDecks)
{
    Directe screen;
    screen.resize(1280, 720);
    screen.show();
    QApplication::processEvents();
    EXPECT_TRUE(log->lines.contains(QStringLiteral("OK Directe.Form_Load: Loading.")));
    EXPECT_TRUE(log->lines.contains(QStringLiteral("OK Directe.Form_Load: Loaded.")));
    ASSERT_TRUE(screen.TmrLoader.isActive()) << "the screen paints before the heavy work";
    EXPECT_EQ(screen.TmrLoader.interval(), 1000);
    EXPECT_EQ(screen.IFCartPlayer1[0]->CartPlayer(), nullptr);
    EXPECT_EQ(screen.LevelPannel, nullptr);

    screen.TmrLoader_Timer();
    EXPECT_FALSE(screen.TmrLoader.isActive());
    const QStringList steps = log->lines.filter(QStringLiteral("OK Directe.TmrLoader_Timer: Step "));
    ASSERT_EQ(steps.size(), 14);
    for (int n = 1; n <= 14; ++n)
        EXPECT_EQ(steps[n - 1], QStringLiteral("OK Directe.TmrLoader_Timer: Step %1").arg(n));

    EXPECT_NE(screen.IFKernel1, nullptr);
    EXPECT_TRUE(dialogs->boxes.isEmpty());
    EXPECT_TRUE(Errors().isEmpty()) << Errors().join('\n').toStdString();
    ASSERT_NE(screen.LevelPannel, nullptr);
    EXPECT_EQ(screen.LevelPannel->objectName(), QStringLiteral("LevelPannel"));
    ASSERT_NE(screen.IFClock1, nullptr);
    EXPECT_EQ(screen.IFClock1->parentWidget(), screen.StatusPannel);
    EXPECT_EQ(screen.Estat->text(), QStringLiteral("*** VOLMAR KORVANE ***\n*** ALL RIGHT ***"));
    EXPECT_EQ(screen.IFShortCuts1->Slots(), 23);
    EXPECT_TRUE(screen.IFBrowserCart1->SignalArrowsEnabled());
    EXPECT_TRUE(screen.IFBrowserCart1->Grayed());
    EXPECT_FALSE(screen.IFBrowserCart1->AllowMultipleSelection());

    // Both channels of the demo station, three streams each: every deck bound to its stream.
    for (int i = 0; i < Directe::DecksPerChannel; ++i) {
        EXPECT_EQ(screen.IFCartPlayer1[i]->CartPlayer(), PlayerOf(QStringLiteral("A"), i + 1));
        EXPECT_EQ(screen.IFCartPlayer2[i]->CartPlayer(), PlayerOf(QStringLiteral("B"), i + 1));
        EXPECT_FALSE(screen.IFCartPlayer1[i]->isHidden());
        EXPECT_FALSE(screen.IFCartPlayer2[i]->isHidden());
    }
    EXPECT_FALSE(screen.CartLabel[0]->isHidden());
    EXPECT_FALSE(screen.CartLabel[1]->isHidden());
    EXPECT_EQ(screen.CartRecorderPannel->Caption(), QStringLiteral("Cart Recorder"));
    EXPECT_NE(screen.IFCartRecorder1->CartRecorder(), nullptr);
}

TEST_F(LiveTest, AFailingStepSaysSoAndTheStepsAfterItStillRun)
{
    Directe screen;
    screen.show();
    QApplication::processEvents();
    // Without a kernel the channels cannot be read: the step that binds decks fails.
    Globals::SetKernel(nullptr);
    screen.TmrLoader_Timer();
    Globals::SetKernel(kernel);
    EXPECT_FALSE(log->Errors().filter(QStringLiteral("ERROR Directe.TmrLoader_Timer: There is no kernel")).isEmpty())
        << log->Errors().join('\n').toStdString();
    EXPECT_GE(dialogs->boxes.size(), 1);
    for (const Dialogs::Box& box : dialogs->boxes)
        EXPECT_EQ(box.text, QStringLiteral("Errors while loading"));
    EXPECT_EQ(log->lines.filter(QStringLiteral("OK Directe.TmrLoader_Timer: Step ")).size(), 14);
    EXPECT_EQ(screen.IFShortCuts1->Slots(), 23) << "a later step ran";
    EXPECT_TRUE(screen.IFBrowserCart1->Grayed());
}

class LiveWithOneChannel : public LiveTest
{
protected:
    // Channel A with two streams, and no channel B.
    void SetUp() override
    {
        EditKernelIni(QStringLiteral("[Channel_A]\nDevice=null\nStreams=3"), QStringLiteral("[Channel_A]\nDevice=null\nStreams=2"));
        EditKernelIni(QStringLiteral("[Channel_B]"), QStringLiteral("[Spare_B]"));
        LiveTest::SetUp();
    }
};

TEST_F(LiveWithOneChannel, AMissingChannelHidesItsCaptionAndDecksAndFewerStreamsShowFewerDecks)
{
    ASSERT_FALSE(kernel->Channels()->Exists(QStringLiteral("B")));
    Directe& screen = Live();
    EXPECT_FALSE(screen.CartLabel[0]->isHidden());
    EXPECT_TRUE(screen.CartLabel[1]->isHidden());
    for (IFCartPlayer* deck : screen.IFCartPlayer2)
        EXPECT_TRUE(deck->isHidden());
    EXPECT_FALSE(screen.IFCartPlayer1[0]->isHidden());
    EXPECT_FALSE(screen.IFCartPlayer1[1]->isHidden());
    EXPECT_TRUE(screen.IFCartPlayer1[2]->isHidden()) << "only two streams to bind";
    EXPECT_EQ(screen.IFCartPlayer1[1]->CartPlayer(), PlayerOf(QStringLiteral("A"), 2));
    EXPECT_TRUE(Errors().isEmpty()) << Errors().join('\n').toStdString();
}

TEST_F(LiveTest, ThePreparationScreenBindsItsDeckToTheChosenStreamAndFillsItsFirstBrowser)
{
    FrmPautador screen;
    screen.resize(1280, 720);
    screen.show();
    QApplication::processEvents();
    screen.UCChannelStreamSelector1->SetChannelName(QStringLiteral("B"));
    screen.UCChannelStreamSelector1->SetStreamIndex(2);
    EXPECT_EQ(screen.IFCartPlayer1->CartPlayer(), PlayerOf(QStringLiteral("B"), 2));
    EXPECT_TRUE(screen.IFBrowserCart[0]->SignalArrowsEnabled());
    EXPECT_TRUE(screen.NewMacro->AllowMultipleSelection());
    screen.IFBrowserFamily1_Changed(QStringLiteral("JIN"));
    for (int k = 0; k < 100 && screen.IFBrowserCart[0]->Rows().rowCount() == 0; ++k)
        QApplication::processEvents();
    EXPECT_GT(screen.IFBrowserCart[0]->Rows().rowCount(), 0);
    EXPECT_TRUE(Errors().isEmpty()) << Errors().join('\n').toStdString();
}
