// The road of a cart to air on the running workstation: log in, open the Live screen, pick a
// family, drag a cart from the list onto a deck with the mouse, hear it on the Null device
// (on the virtual clock, so nothing waits), and work the deck's transport.
#include "browse/BrowserRowModel.h"
#include "browse/IFBrowserCart.h"
#include "browse/IFBrowserFamily.h"
#include "e2e/WorkstationSteps.h"
#include "e2e/WorkstationTest.h"
#include "foundation/Ini.h"
#include "foundation/controls/UCButton.h"
#include "foundation/Globals.h"
#include "foundation/ui/ScriptedDialogs.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/iCartPlayer.h"
#include "kernelapi/iStream.h"
#include "onair/Directe.h"
#include "onair/IFCartPlayer.h"
#include "shell/CInterface.h"
#include "shell/components/CComponent.h"
#include "shell/components/CComponents.h"
#include "shell/InitForm.h"
#include "shell/modInterface.h"
#include "support/Photograph.h"
#include "support/TempStation.h"
#include <QApplication>
#include <QTest>
#include <QToolButton>
#include <QTreeView>
#include <gtest/gtest.h>

using namespace WorkstationSteps;
using OnAir = WorkstationTest;

namespace {
constexpr qint32 Ready = static_cast<qint32>(CartPlayerStatus::Ready);
constexpr qint32 Playing = static_cast<qint32>(CartPlayerStatus::Playing);
constexpr qint32 Paused = static_cast<qint32>(CartPlayerStatus::Paused);
constexpr qint32 Cued = static_cast<qint32>(CartPlayerStatus::Cued);

// The component registered under the name, or null.
std::shared_ptr<CComponent> Registered(const QString& name)
{
    const CComponents& registry = modInterface::Interface()->Components();
    for (int i = 0; i < registry.Count(); ++i)
        if (registry.Item(i)->Name() == name)
            return registry.Item(i);
    return nullptr;
}

}

TEST_F(OnAir, ACartDraggedOntoADeckSoundsAndTheDeckWorksItsTransport)
{
    ScriptedDialogs* dialogs = nullptr;
    Directe* onAir = OpenLive(station, &dialogs);
    ASSERT_NE(onAir, nullptr);
    OpenFamily(onAir, QStringLiteral("JIN"));

    IFCartPlayer* deck = onAir->IFCartPlayer1[0];
    // Each deck is found by name in the program's registry, the second under a name of its own.
    const std::shared_ptr<CComponent> first = Registered(QStringLiteral("CartPlayer"));
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first, deck->Component());
    EXPECT_EQ(first->Control(), deck);
    ASSERT_NE(Registered(QStringLiteral("CartPlayer2")), nullptr);
    EXPECT_EQ(Registered(QStringLiteral("CartPlayer2"))->Control(), onAir->IFCartPlayer1[1]);

    DragRowOnto(onAir->IFBrowserCart1->ListView1, QStringLiteral("JIN0001"), deck);
    AdvanceMs(40);
    const auto player = deck->CartPlayer();
    ASSERT_NE(player, nullptr);
    EXPECT_EQ(player->Status(), Playing);
    EXPECT_GT(player->Stream()->GetLevels().left, -110.0f) << "the stream sounds on the Null device";
    EXPECT_EQ(onAir->IFCartPlayer1[1]->CartPlayer()->Status(), Ready) << "only the deck dropped on plays";
    Photograph(onAir, QStringLiteral("onair-playing"));

    Press(deck->findChild<UCButton*>(QStringLiteral("CmdPause")));
    EXPECT_EQ(player->Status(), Paused);
    Press(deck->findChild<UCButton*>(QStringLiteral("CmdCue")));
    AdvanceMs(60);
    EXPECT_EQ(player->Status(), Cued);
    Press(deck->findChild<UCButton*>(QStringLiteral("CmdPlay")));
    EXPECT_EQ(player->Status(), Playing);

    // Fade out: the fader walks down a dB a tick and the player stops at the bottom.
    QTest::mouseClick(deck->findChild<QToolButton*>(QStringLiteral("CmdFadeOut")), Qt::LeftButton);
    for (int tick = 0; tick < 80 && player->Status() != Ready; ++tick) {
        deck->TmrFadeOut_Timer();
        AdvanceMs(1);
    }
    AdvanceMs(30);
    EXPECT_EQ(player->Status(), Ready);

    DragRowOnto(onAir->IFBrowserCart1->ListView1, QStringLiteral("JIN0002"), deck);
    AdvanceMs(20);
    EXPECT_TRUE(player->Loaded());
    Press(deck->findChild<UCButton*>(QStringLiteral("CmdEject")));
    EXPECT_FALSE(player->Loaded());
    EXPECT_EQ(player->Status(), Ready);

    // The right button's menu on Exit: Cancel stays; then a click leaves, and the menu is back.
    // The decks' components stay registered and reach no dead deck.
    dialogs->popupChoices.push_back(QStringLiteral("Cancel"));
    QTest::mouseClick(onAir->CmdExit, Qt::RightButton);
    ASSERT_FALSE(dialogs->menus.isEmpty());
    EXPECT_EQ(dialogs->menus.last()[1].text, QStringLiteral("Exit from the Live screen"));
    EXPECT_TRUE(onAir->isVisible());
    const auto browser = onAir->IFBrowserCart1->Component();
    Click(onAir->CmdExit);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_EQ(Form::Find(QStringLiteral("Directe")), nullptr);
    EXPECT_TRUE(InitForm::Instance()->isVisible());
    EXPECT_EQ(Registered(QStringLiteral("CartPlayer")), first);
    EXPECT_EQ(first->Control(), nullptr);
    first->RaiseEventDragDrop(browser);

    const QString log = TodaysLog(station.Dir());
    EXPECT_TRUE(ErrorLines(log).isEmpty()) << log.toStdString();
}
