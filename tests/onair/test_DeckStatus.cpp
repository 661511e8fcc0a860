// The deck's display follows the kernel player's status through the fixed table: texts,
// colours, icon, the button on top of each shared place, and the panel's colour.
#include "DeckTest.h"
#include "foundation/Strings.h"
#include "metering/UCSingleVumeter.h"
#include "onair/DeckBackground.h"
#include "onair/OnAirControls.h"
#include <QLabel>

using namespace DeckStatus;

namespace {
const QColor GreenBack(0, 64, 0), GreenFore(192, 255, 192), RedBack(64, 0, 0), RedFore(255, 192, 192);

QColor Background(const IFCartPlayer& deck)
{
    return deck.findChild<DeckBackground*>(QStringLiteral("ElaBackground"))->BackColor();
}
}

TEST_F(DeckTest, ReadyCuedPlayingPausedAndBackWalkTheStatusTable)
{
    IFCartPlayer& deck = Deck();
    DisplayLabel* status = Label("LblStatus");
    DisplayLabel* title = Label("LblTitle");
    EXPECT_EQ(status->Text(), QString());
    EXPECT_EQ(deck.StatusIcon(), QStringLiteral("Ready"));
    EXPECT_EQ(Background(deck), QColor(64, 64, 64));
    EXPECT_FALSE(status->IsActive());
    EXPECT_FALSE(title->IsActive());
    EXPECT_EQ(QStringList({OnTop("CmdCue"), OnTop("CmdPlay"), OnTop("CmdSkip")}),
              QStringList({"CmdCue", "CmdPlay", "CmdSkip"}));
    EXPECT_FALSE(Button("CmdRew")->isVisible());
    EXPECT_FALSE(Button("CmdEject")->isVisible());
    const QRect wideStatus = status->geometry();
    const QRect wideTitle = title->geometry();

    Player()->Load(Cart(QStringLiteral("MUS0001")));
    EXPECT_EQ(status->Text(), MsToClock(Player()->CueRemaining()));
    EXPECT_EQ(title->Text(), Cart(QStringLiteral("MUS0001"))->Title());
    EXPECT_EQ(deck.StatusIcon(), QStringLiteral("Cued"));
    EXPECT_EQ(Background(deck), QColor(192, 192, 192));
    EXPECT_TRUE(status->IsActive());
    EXPECT_EQ(OnTop("CmdPlay"), QStringLiteral("CmdPlay"));
    EXPECT_EQ(OnTop("CmdCue"), QStringLiteral("CmdCue")) << "cued at the start: Cue, not Recue";
    EXPECT_TRUE(Button("CmdRew")->isVisible());
    EXPECT_TRUE(Button("CmdFF")->isVisible());
    EXPECT_TRUE(Button("CmdEject")->isVisible());
    EXPECT_GT(status->geometry().left(), wideStatus.left()) << "the status line makes room for the winding keys";
    EXPECT_LT(status->geometry().width(), wideStatus.width());
    EXPECT_GT(title->geometry().left(), wideTitle.left()) << "the title makes room for Eject";

    Press(Button("CmdPlay"));
    EXPECT_EQ(status->Text(), QStringLiteral("Playing"));
    AdvanceMs(150);
    EXPECT_EQ(Player()->Status(), Playing);
    EXPECT_EQ(deck.StatusIcon(), QStringLiteral("Playing"));
    EXPECT_EQ(status->BackColor(), RedBack);
    EXPECT_EQ(status->ForeColor(), RedFore);
    EXPECT_TRUE(status->Text().startsWith(QLatin1Char('-'))) << "the time to go: " << status->Text().toStdString();
    EXPECT_EQ(Background(deck), QColor(128, 192, 128));
    EXPECT_EQ(OnTop("CmdPlay"), QStringLiteral("CmdPause"));
    EXPECT_FALSE(Button("CmdRew")->isVisible());
    EXPECT_FALSE(Button("CmdEject")->isVisible());
    EXPECT_EQ(status->geometry(), wideStatus);

    Press(Button("CmdPause"));
    AdvanceMs(20);
    EXPECT_EQ(Player()->Status(), Paused);
    EXPECT_EQ(deck.StatusIcon(), QStringLiteral("Paused"));
    EXPECT_TRUE(status->Text().startsWith(QStringLiteral("000:00:00."))) << "the time left, as a clock";
    EXPECT_EQ(status->BackColor(), GreenBack);
    EXPECT_EQ(OnTop("CmdPlay"), QStringLiteral("CmdPlay"));
    EXPECT_TRUE(Button("CmdEject")->isVisible());
    EXPECT_TRUE(Button("CmdFF")->isVisible());

    Press(Button("CmdPlay"));
    AdvanceMs(1000);
    EXPECT_EQ(Player()->Status(), Ready) << "the cart ended";
    EXPECT_EQ(status->Text(), QString());
    EXPECT_EQ(Background(deck), QColor(64, 64, 64));
    EXPECT_FALSE(title->IsActive());
    EXPECT_EQ(Child<UCSingleVumeter>("UCSingleVumeter1")->Value(), -110) << "Ready clears the meter";
    EXPECT_TRUE(log->Errors().isEmpty()) << log->Errors().join('\n').toStdString();
}

TEST_F(DeckTest, ACueAwayFromTheStartShowsRecueAndWindingShowsCueing)
{
    IFCartPlayer& deck = Deck();
    Player()->Load(Cart(QStringLiteral("JIN0002")));
    QTest::mousePress(Button("CmdFF"), Qt::LeftButton);
    EXPECT_EQ(Player()->Status(), Cueing);
    EXPECT_EQ(deck.StatusIcon(), QStringLiteral("Cueing"));
    EXPECT_EQ(OnTop("CmdPlay"), QStringLiteral("CmdPause"));
    EXPECT_TRUE(Button("CmdSkip")->isVisible());
    EXPECT_TRUE(Button("CmdFF")->isVisible()) << "the winding keys stay while cueing";
    EXPECT_FALSE(Button("CmdEject")->isVisible());
    QTest::mouseRelease(Button("CmdFF"), Qt::LeftButton);

    AdvanceMs(300);
    EXPECT_EQ(Player()->Status(), Cued);
    EXPECT_GT(Player()->CuePosition(), 0);
    EXPECT_EQ(OnTop("CmdCue"), QStringLiteral("CmdRecue"));
    EXPECT_EQ(OnTop("CmdPlay"), QStringLiteral("CmdPlay"));
    Press(Button("CmdRecue"));
    EXPECT_EQ(Player()->CuePosition(), 0);
}

TEST_F(ExpiringDeckTest, ExpiringFlashesTheLabelsAndSyncAndUnknownStatusesHaveTheirWords)
{
    IFCartPlayer& deck = Deck();
    deck.PlayByID(QStringLiteral("JIN0001"));
    AdvanceMs(30);
    ASSERT_EQ(Player()->Status(), Expiring) << "a short cart is at its end at once";
    EXPECT_TRUE(deck.Flash());
    EXPECT_TRUE(deck.TmrFlash().isActive());
    EXPECT_FALSE(deck.HighLight());
    EXPECT_EQ(Label("LblTitle")->ForeColor(), QColor(192, 192, 128));
    EXPECT_EQ(Label("LblStatus")->ForeColor(), QColor(128, 192, 128));
    deck.TmrFlash_Timer();
    EXPECT_TRUE(deck.HighLight());
    EXPECT_EQ(Label("LblTitle")->ForeColor(), QColor(255, 255, 192));
    EXPECT_EQ(Button("CmdEject")->isVisible(), true);

    AdvanceMs(1000);
    EXPECT_FALSE(deck.Flash());
    EXPECT_FALSE(deck.TmrFlash().isActive());

    // The embedded kernel never syncs and has no other states: the events are raised here.
    deck.iCartPlayer_StatusChanged(Sync);
    EXPECT_EQ(Label("LblStatus")->Text(), QStringLiteral("Sync"));
    EXPECT_EQ(deck.StatusIcon(), QStringLiteral("Sync"));
    deck.iCartPlayer_StatusChanged(42);
    EXPECT_EQ(Label("LblStatus")->Text(), QStringLiteral("Unknown"));
    EXPECT_EQ(deck.StatusIcon(), QStringLiteral("Sync")) << "an unknown status keeps the icon";
    EXPECT_FALSE(Label("LblStatus")->IsActive());
    EXPECT_EQ(Background(deck), QColor(64, 64, 64));
}

TEST_F(DeckTest, TheTimeTextFollowsTheToggleThatAClickOnTheStatusLineFlips)
{
    IFCartPlayer& deck = Deck();
    EXPECT_TRUE(deck.TimeToggle());
    deck.iCartPlayer_DisplayTimeChanged(QStringLiteral("00:00:01.00"), QStringLiteral("-00:00:02.00"));
    EXPECT_EQ(Label("LblStatus")->Text(), QStringLiteral("-00:00:02.00"));
    QTest::mouseClick(Label("LblStatus"), Qt::LeftButton);
    EXPECT_FALSE(deck.TimeToggle());
    deck.iCartPlayer_DisplayTimeChanged(QStringLiteral("00:00:01.10"), QStringLiteral("-00:00:01.90"));
    EXPECT_EQ(Label("LblStatus")->Text(), QStringLiteral("00:00:01.10"));
    DoubleClick(Label("LblStatus"));
    EXPECT_TRUE(deck.TimeToggle()) << "a double click is one click and a double click: one flip";

    // The text lines hand the keyboard to the fader.
    QApplication::setActiveWindow(&deck);
    QTest::mouseClick(Label("LblTitle"), Qt::LeftButton);
    EXPECT_EQ(QApplication::focusWidget(), Fader());
}

TEST_F(DeckTest, TheMeterReadsTheStreamEvery150MsWhileAPlayerIsAttached)
{
    IFCartPlayer& deck = Deck();
    EXPECT_TRUE(deck.TmrVumeter().isActive());
    EXPECT_EQ(deck.TmrVumeter().interval(), 150);
    auto* meter = Child<UCSingleVumeter>("UCSingleVumeter1");
    const QRect title = Label("LblTitle")->geometry();
    EXPECT_EQ(meter->Orientation(), Qt::Horizontal);
    EXPECT_GE(meter->geometry().top(), title.bottom()) << "under the title";
    EXPECT_LT(meter->geometry().top(), Button("CmdPlay")->geometry().top()) << "above the keys";
    EXPECT_EQ(meter->geometry().left(), title.left());
    EXPECT_GE(meter->geometry().right(), title.right());
    // A new meter sweeps down from full scale first; then it rests at the floor.
    for (int i = 0; i < 50; ++i)
        deck.TmrVumeter_Timer();
    const float silence = meter->Value();
    deck.PlayByID(QStringLiteral("MUS0004"));
    AdvanceMs(60);
    deck.TmrVumeter_Timer();
    EXPECT_GT(meter->Value(), silence + 20) << "a tone lights the bar";

    deck.SetCartPlayer(nullptr);
    EXPECT_FALSE(deck.TmrVumeter().isActive());
    Press(Button("CmdPlay"));
    EXPECT_TRUE(log->lines.contains(QStringLiteral("WARN IFCartPlayer.CmdPlay_Pressed: Cartplayer Is Nothing")))
        << log->lines.join('\n').toStdString();
}

TEST_F(DeckTest, TheColourSettingsAreReadAtTheFirstStatusAndTheDeckRegistersByClassName)
{
    kernel->SetConfig(QStringLiteral("CCartPlayerDark"), QStringLiteral("4210752"));
    kernel->SetConfig(QStringLiteral("CCartPlayerLight"), QStringLiteral("12632256"));
    IFCartPlayer& deck = Deck();
    EXPECT_EQ(deck.DarkColor().toString(), QStringLiteral("4210752"));
    EXPECT_EQ(deck.LightColor().toString(), QStringLiteral("12632256"));

    OnAir::ControlFactory factory;
    OnAir::RegisterControls([&](const QString& name, OnAir::ControlFactory f) {
        if (name == QLatin1String("Korvane_Interface.IFCartPlayer"))
            factory = f;
    });
    ASSERT_TRUE(factory);
    const std::unique_ptr<QWidget> made(factory(nullptr));
    EXPECT_NE(qobject_cast<IFCartPlayer*>(made.get()), nullptr);
}

TEST_F(DeckTest, ADeckBoundToAStreamThatDoesNotExistLogsAndStaysUsable)
{
    deck = std::make_unique<IFCartPlayer>();
    deck->SetChannelName(QStringLiteral("Z"));
    deck->SetStreamIndex(1);
    EXPECT_EQ(deck->CartPlayer(), nullptr);
    ASSERT_EQ(log->Errors().size(), 1);
    EXPECT_TRUE(log->Errors().first().startsWith(QStringLiteral("ERROR IFCartPlayer.BindByName")));
    deck->SetChannelName(QStringLiteral("B"));
    ASSERT_NE(deck->CartPlayer(), nullptr);
    deck->PlayByID(QStringLiteral("JIN0002"));
    AdvanceMs(20);
    EXPECT_EQ(deck->CartPlayer()->Status(), Playing);
}
