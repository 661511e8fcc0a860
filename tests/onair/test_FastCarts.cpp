// The pads as a presenter plays them: keys and presses play a pad's cart at once on the chosen
// stream, the switches and a text box that wants the keys silence them, and the pads follow
// their playlist.
#include "FastCartsTest.h"
#include "support/Photograph.h"
#include <QClipboard>
#include <QGuiApplication>

using namespace DeckStatus;

TEST_F(FastCartsTest, AKeyPlaysItsPadOnTheChosenStreamInEitherCase)
{
    IFFastCarts& panel = Panel({QStringLiteral("JIN0001"), {}, {}, {}, QStringLiteral("JIN0002")});
    QTest::keyClick(&panel, Qt::Key_Q);
    AdvanceMs(10);
    EXPECT_EQ(PlayerOf(QStringLiteral("A"), 2)->Status(), Playing);
    EXPECT_EQ(PlayerOf(QStringLiteral("A"), 2)->Cart(), Cart(QStringLiteral("JIN0002"))) << "Q is pad 4";
    EXPECT_FALSE(PlayerOf(QStringLiteral("A"), 1)->Loaded());

    panel.SendShortcut(QLatin1Char('1'));
    AdvanceMs(10);
    EXPECT_EQ(PlayerOf(QStringLiteral("A"), 2)->Cart(), Cart(QStringLiteral("JIN0001")));
    panel.SendShortcut(QLatin1Char('q'));
    AdvanceMs(10);
    EXPECT_EQ(PlayerOf(QStringLiteral("A"), 2)->Cart(), Cart(QStringLiteral("JIN0002")));
    panel.SendShortcut(QLatin1Char('9'));
    EXPECT_EQ(PlayerOf(QStringLiteral("A"), 2)->Cart(), Cart(QStringLiteral("JIN0002"))) << "an unmapped key does nothing";
    EXPECT_TRUE(log->Errors().isEmpty()) << log->lines.join('\n').toStdString();
}

TEST_F(FastCartsTest, AFreePadEjectsThePlayerOfTheChosenStream)
{
    IFFastCarts& panel = Panel();
    panel.SendShortcut(QLatin1Char('2'));
    AdvanceMs(10);
    ASSERT_TRUE(PlayerOf(QStringLiteral("A"), 2)->Loaded());
    panel.SendShortcut(QLatin1Char('K'));
    EXPECT_FALSE(PlayerOf(QStringLiteral("A"), 2)->Loaded());
}

TEST_F(FastCartsTest, KeysAreSilencedWhileATextBoxWantsThemAndWhileTheKeysSwitchIsUp)
{
    IFFastCarts& panel = Panel();
    panel.SetPreventShortCuts(true);
    EXPECT_FALSE(panel.CmdRespondToKeys->isChecked());
    panel.SendShortcut(QLatin1Char('1'));
    EXPECT_FALSE(PlayerOf(QStringLiteral("A"), 2)->Loaded());

    panel.SetPreventShortCuts(false);
    EXPECT_TRUE(panel.CmdRespondToKeys->isChecked()) << "the switch comes back as it was";
    panel.CmdRespondToKeys->click();
    panel.SendShortcut(QLatin1Char('1'));
    EXPECT_FALSE(PlayerOf(QStringLiteral("A"), 2)->Loaded());

    panel.CmdRespondToKeys->click();
    panel.SendShortcut(QLatin1Char('1'));
    AdvanceMs(10);
    EXPECT_EQ(PlayerOf(QStringLiteral("A"), 2)->Status(), Playing);
}

TEST_F(FastCartsTest, APressOnAPadPlaysItOnTheSelectorsStreamOrByButtonOnChannelAOrB)
{
    IFFastCarts& panel = Panel();
    PressOn(Pad(1), Qt::LeftButton);
    AdvanceMs(10);
    EXPECT_EQ(PlayerOf(QStringLiteral("A"), 2)->Cart(), Cart(QStringLiteral("JIN0002")));
    EXPECT_EQ(PlayerOf(QStringLiteral("A"), 2)->Status(), Playing);

    panel.ChkMouseChannelAutoSelection->setChecked(true);
    panel.UCChannelStreamSelector1->SetStreamIndex(3);
    PressOn(Pad(2), Qt::RightButton);
    AdvanceMs(10);
    EXPECT_EQ(PlayerOf(QStringLiteral("B"), 3)->Cart(), Cart(QStringLiteral("JIN0003"))) << "the right button plays on B";
    PressOn(Pad(0), Qt::LeftButton);
    AdvanceMs(10);
    EXPECT_EQ(PlayerOf(QStringLiteral("A"), 3)->Cart(), Cart(QStringLiteral("JIN0001"))) << "the left button plays on A";

    panel.CmdRespondToMouse->click();
    EXPECT_FALSE(panel.ChkMouseChannelAutoSelection->isEnabled());
    PlayerOf(QStringLiteral("A"), 3)->Eject();
    PressOn(Pad(0), Qt::LeftButton);
    EXPECT_FALSE(PlayerOf(QStringLiteral("A"), 3)->Loaded()) << "with the mouse switch up a press plays nothing";
}

TEST_F(FastCartsTest, PadsFollowTheirListAndABurstOfChangesCostsOneReload)
{
    Panel();
    EXPECT_EQ(Pad(0)->Cart(), Cart(QStringLiteral("JIN0001")));
    EXPECT_EQ(Pad(3)->Cart(), nullptr);
    EXPECT_EQ(Pad(0)->Face().description2, Cart(QStringLiteral("JIN0001"))->Title());
    EXPECT_EQ(Pad(5)->Face().shortcut, QStringLiteral("W"));

    list->Put(2, Cart(QStringLiteral("MUS0001")));
    EXPECT_EQ(Pad(1)->Cart(), Cart(QStringLiteral("MUS0001"))) << "a changed item reaches its pad at once";
    list->Delete(1);
    list->Insert(1, Cart(QStringLiteral("PUB0001")));
    EXPECT_TRUE(Grid().TmrRefresh().isActive());
    Grid().TmrRefresh_Timer();
    EXPECT_EQ(Pad(0)->Cart(), Cart(QStringLiteral("PUB0001")));

    panel->SetPlayList(nullptr);
    Grid().TmrRefresh_Timer();
    EXPECT_EQ(Pad(0)->Cart(), nullptr);
    EXPECT_FALSE(Pad(0)->isVisible());
}

TEST_F(FastCartsTest, ItemsBeyondTheTwentyEighthAreLeftAloneWithAWarning)
{
    QStringList carts;
    for (int i = 0; i < 30; ++i)
        carts << (i % 2 ? QStringLiteral("JIN0001") : QStringLiteral("JIN0002"));
    Panel(carts);
    EXPECT_EQ(Pad(27)->Cart(), Cart(QStringLiteral("JIN0001")));
    EXPECT_EQ(log->lines.filter(QStringLiteral("WARN UCFastCartsContents.LoadContents")).size(), 1) << log->lines.join('\n').toStdString();
    EXPECT_EQ(list->Count(), 30);
}

TEST_F(FastCartsTest, StoredColoursReachTheirPadsAndBadOnesGiveTheDefaultsWithAnErrorLine)
{
    Panel();
    const QString red = QStringLiteral("0000FF00FF00FF0000123456000000");
    list->Item(1)->Properties()->SetProperty(IFFastCart::ColorsProperty, red);
    EXPECT_EQ(Pad(0)->Colors().SerializedColors(), red);

    list->Item(2)->Properties()->SetProperty(IFFastCart::ColorsProperty, QStringLiteral("0000FF00FF00FF00001234"));
    EXPECT_EQ(Pad(1)->Colors().SerializedColors(), Pad(2)->Colors().SerializedColors()) << "the defaults, as the next pad";
    EXPECT_EQ(log->Errors().size(), 1) << log->lines.join('\n').toStdString();
}

TEST_F(FastCartsTest, ColoursChosenOnAPadAreSavedWithThePlaylist)
{
    Panel();
    QGuiApplication::clipboard()->setText(QStringLiteral("111111222222333333444444555555"));
    Pad(5)->PasteColors();
    ASSERT_GE(list->Count(), 6) << "a free pad's colours make its item";
    EXPECT_EQ(list->Item(6)->Properties()->Property(IFFastCart::ColorsProperty).toString(),
              QStringLiteral("111111222222333333444444555555"));

    Pad(5)->CopyColors();
    Pad(0)->PasteColors();
    EXPECT_EQ(list->Item(1)->Properties()->Property(IFFastCart::ColorsProperty).toString(),
              QStringLiteral("111111222222333333444444555555"));
    QGuiApplication::clipboard()->setText(QStringLiteral("not colours"));
    Pad(1)->PasteColors();
    EXPECT_FALSE(list->Item(2)->Properties()->HasProperty(IFFastCart::ColorsProperty));
}

TEST_F(FastCartsTest, FreeFromTheMenuEmptiesTheItem)
{
    Panel();
    dialogs->popupChoices.push_back(QStringLiteral("IFFastCart.Free"));
    PressOn(Pad(0)->findChild<QWidget*>(QStringLiteral("PicContainer")), Qt::RightButton);
    EXPECT_EQ(Pad(0)->Cart(), Cart(QStringLiteral("JIN0001"))) << "with the mouse playing, the menu does not open";

    panel->CmdRespondToMouse->click();
    PressOn(Pad(0), Qt::RightButton);
    EXPECT_EQ(Pad(0)->Cart(), nullptr);
    EXPECT_EQ(list->Item(1)->Cart(), nullptr);
}

TEST_F(FastCartsTest, PhotographOfThePads)
{
    QStringList carts{QStringLiteral("JIN0001"), QStringLiteral("JIN0002"), QStringLiteral("JIN0003"), QStringLiteral("JIN0004"),
                      QStringLiteral("MUS0001"), QStringLiteral("MUS0002"), {}, QStringLiteral("PUB0001"),
                      QStringLiteral("NEW0001"), QStringLiteral("MES0000"), QStringLiteral("CON0001")};
    IFFastCarts& panel = Panel(carts);
    list->Item(8)->Properties()->SetProperty(IFFastCart::ColorsProperty, QStringLiteral("10206000FFFFC0E0FF40FFFF80FFB0"));
    panel.TmrFillCombo_Timer();
    panel.resize(1000, 620);
    QApplication::processEvents();
    EXPECT_TRUE(Photograph(&panel, QStringLiteral("fast_carts")));
}
