// The deck's keys on the real player: triple play, the cue speed ramp, the fader and the
// volume text, and the fade out.
#include "DeckTest.h"
#include "foundation/StationSettings.h"
#include "onair/CueSpeed.h"

using namespace DeckStatus;

TEST(CueSpeed, FiveRepeatsAtTheSlowPaceThenAFifthFasterEachUpTo6000)
{
    CueSpeed speed;
    speed.Init();
    QList<qint32> speeds;
    for (int i = 0; i < 10; ++i) {
        speed.Update();
        speeds << speed.Speed();
    }
    EXPECT_EQ(speeds, QList<qint32>({36, 36, 36, 36, 36, 43, 52, 62, 74, 89}));
    for (int i = 0; i < 40; ++i)
        speed.Update();
    EXPECT_EQ(speed.Speed(), CueSpeed::TopSpeed);
    speed.Init();
    EXPECT_EQ(speed.Speed(), 36);
    EXPECT_EQ(speed.Delay(), 5);
}

TEST_F(DeckTest, HoldingFastForwardWindsFasterAndANewPressStartsSlowAgain)
{
    IFCartPlayer& deck = Deck();
    Player()->Load(Cart(QStringLiteral("MUS0001")));
    UCButton* ff = Button("CmdFF");
    QTest::mousePress(ff, Qt::LeftButton);
    EXPECT_EQ(Player()->CuePosition(), 36);
    for (int i = 0; i < 5; ++i)
        ff->TmrAutoFire_Timer();
    EXPECT_EQ(Player()->CuePosition(), 36 * 6);
    ff->TmrAutoFire_Timer();
    EXPECT_EQ(deck.Speed().Speed(), 43);
    EXPECT_EQ(Player()->CuePosition(), 36 * 6 + 43);
    QTest::mouseRelease(ff, Qt::LeftButton);

    QTest::mousePress(Button("CmdRew"), Qt::LeftButton);
    EXPECT_EQ(deck.Speed().Speed(), 36);
    EXPECT_EQ(Player()->CuePosition(), 36 * 5 + 43);
    QTest::mouseRelease(Button("CmdRew"), Qt::LeftButton);
}

TEST_F(DeckTest, TriplePlayAuditionsHeadMiddleAndTailAndIsKeptPerDeck)
{
    IFCartPlayer& deck = Deck();
    deck.SetTriplePlayMode(true);
    EXPECT_EQ(QStringList({OnTop("CmdCue"), OnTop("CmdPlay"), OnTop("CmdSkip")}),
              QStringList({"CmdPlayStart", "CmdPlayMid", "CmdPlayStop"}));
    EXPECT_TRUE(Button("CmdEject")->isVisible()) << "triple play keeps Eject at hand";
    EXPECT_TRUE(StationSettings::ReadFlag(QStringLiteral("IFCartPlayer1"), QStringLiteral("TriplePlayMode"), false));

    const auto cart = Cart(QStringLiteral("MUS0001"));
    Player()->Load(cart);
    QToolButton* start = Tool("CmdPlayStart");
    QToolButton* mid = Tool("CmdPlayMid");
    QToolButton* stop = Tool("CmdPlayStop");
    mid->click();
    EXPECT_EQ(Player()->Status(), Playing);
    EXPECT_NEAR(Player()->PlayPosition(), cart->Time() / 2, 2);
    EXPECT_TRUE(mid->isChecked()) << "the pressed key stays down while it sounds, also through the Cued on the way";

    stop->click();
    EXPECT_FALSE(mid->isChecked());
    EXPECT_TRUE(stop->isChecked());
    EXPECT_EQ(Player()->Status(), Playing) << "changing key does not pause";
    EXPECT_NEAR(Player()->PlayPosition(), std::max(0, cart->Time() - 5000), 2);
    AdvanceMs(50);
    deck.iCartPlayer_PercentToGoChanged(37.4f);
    EXPECT_EQ(Label("LblVolume")->Text(), QStringLiteral("37%"));

    stop->click();
    AdvanceMs(20);
    EXPECT_EQ(Player()->Status(), Paused) << "releasing the key pauses";
    EXPECT_FALSE(start->isChecked() || mid->isChecked() || stop->isChecked());

    start->click();
    EXPECT_NEAR(Player()->PlayPosition(), 0, 2);
    AdvanceMs(cart->Time() + 100);
    EXPECT_EQ(Player()->Status(), Ready);
    EXPECT_FALSE(start->isChecked()) << "the end of the cart releases the key";

    // Another deck of the same name finds the mode in the station's settings.
    deck.close();
    IFCartPlayer& again = Deck();
    EXPECT_TRUE(again.TriplePlayMode());
    EXPECT_EQ(OnTop("CmdPlay"), QStringLiteral("CmdPlayMid"));
    again.SetTriplePlayMode(false);
    EXPECT_EQ(OnTop("CmdPlay"), QStringLiteral("CmdPlay"));
    EXPECT_EQ(OnTop("CmdSkip"), QStringLiteral("CmdSkip"));
    EXPECT_TRUE(log->Errors().isEmpty()) << log->Errors().join('\n').toStdString();
}

TEST_F(DeckTest, TheFaderSendsDecibelsAndItsBottomIsSilence)
{
    IFCartPlayer& deck = Deck();
    deck.PlayByID(QStringLiteral("MUS0002"));
    DeckFader* fader = Fader();
    fader->setValue(-12);
    EXPECT_EQ(Player()->Volume(), -12);
    EXPECT_EQ(Label("LblVolume")->Text(), QStringLiteral("-12 dB"));

    fader->setValue(DeckFader::Bottom);
    EXPECT_EQ(Player()->Volume(), -110);
    EXPECT_EQ(Label("LblVolume")->Text(), QStringLiteral("NO"));
    EXPECT_EQ(fader->value(), -60);

    // A volume set elsewhere moves the fader without the fader answering back.
    Player()->SetVolume(6);
    EXPECT_EQ(fader->value(), 6);
    EXPECT_EQ(Label("LblVolume")->Text(), QStringLiteral("6 dB"));

    fader->setValue(-20);
    Player()->SaveDefaultVolume();
    fader->setValue(3);
    QTest::mouseClick(Label("LblVolume"), Qt::LeftButton);
    EXPECT_EQ(Player()->Volume(), -20) << "a click goes to the cart's default";
    DoubleClick(Label("LblVolume"));
    EXPECT_EQ(Player()->Volume(), 0) << "a double click ends at 0 dB, its second release is no click";
    EXPECT_EQ(fader->value(), 0);
}

TEST_F(DeckTest, FadeOutStepsTheFaderDownAndStopsAtTheBottom)
{
    IFCartPlayer& deck = Deck();
    deck.PlayByID(QStringLiteral("MUS0003"));
    AdvanceMs(10);
    QToolButton* fade = Tool("CmdFadeOut");
    fade->click();
    EXPECT_TRUE(fade->isChecked());
    EXPECT_TRUE(deck.TmrFadeOut().isActive());
    EXPECT_EQ(deck.TmrFadeOut().interval(), 100);
    for (int i = 0; i < 10; ++i)
        deck.TmrFadeOut_Timer();
    EXPECT_EQ(Fader()->value(), -10);
    EXPECT_EQ(Player()->Volume(), -10);
    for (int i = 0; i < 50; ++i)
        deck.TmrFadeOut_Timer();
    EXPECT_EQ(Player()->Volume(), -110) << "sixty steps of 100 ms reach the bottom";
    EXPECT_EQ(Player()->Status(), Playing);
    deck.TmrFadeOut_Timer();
    EXPECT_FALSE(fade->isChecked());
    AdvanceMs(20);
    EXPECT_EQ(Player()->Status(), Ready);
}

TEST_F(DeckTest, FadeOutOfACartThatEndsByItselfRestoresTheFaderAndLeavesTheKeyDown)
{
    IFCartPlayer& deck = Deck();
    deck.PlayByID(QStringLiteral("JIN0002"));
    QToolButton* fade = Tool("CmdFadeOut");
    fade->click();
    deck.TmrFadeOut_Timer();
    deck.TmrFadeOut_Timer();
    EXPECT_EQ(Fader()->value(), -2);
    AdvanceMs(1000);
    ASSERT_EQ(Player()->Status(), Ready);
    deck.TmrFadeOut_Timer();
    EXPECT_FALSE(deck.TmrFadeOut().isActive());
    EXPECT_EQ(Fader()->value(), 0);
    EXPECT_EQ(Player()->Volume(), 0);
    EXPECT_TRUE(fade->isChecked()) << "the key stays down, as intended";

    fade->click();
    EXPECT_TRUE(deck.TmrFadeOut().isActive()) << "the next press restarts the timer";
    fade->click();
    deck.TmrFadeOut_Timer();
    EXPECT_FALSE(deck.TmrFadeOut().isActive());
}
