// Drops on the Live screen and its search: a drop reaches a control only after a drag started
// on this screen, several carts dropped on a waiting list keep their order, and the search
// text never changes the query. The screen is photographed at both ends of the supported
// resolutions while a deck plays.
#include "LiveTest.h"
#include "browse/IFBrowserFamily.h"
#include "editing/IFCartEraser.h"
#include "editing/IFCartRecorder.h"
#include "kernelapi/iPlayList.h"
#include "kernelapi/iPlayListItem.h"
#include "kernelapi/iPlayLists.h"
#include "onair/CartSearch.h"
#include "onair/CartSearchDialog.h"
#include "onair/IFPlayList.h"
#include "onair/UCPlayListContents.h"
#include "support/Photograph.h"
#include <QDropEvent>
#include <QMimeData>
#include <QTableWidget>

namespace {
void DropOn(QWidget* screen, const QPoint& at, const QString& text)
{
    QMimeData data;
    data.setText(text);
    QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(screen, &enter);
    QDropEvent drop(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(screen, &drop);
}

QPoint CentreOf(QWidget* widget, QWidget* screen)
{
    return widget->mapTo(screen, widget->rect().center());
}

QStringList SearchFor(Directe& screen, ScriptedDialogs* dialogs, const QString& text)
{
    dialogs->inputs.push_back(text);
    screen.CmdSearch_Click();
    QStringList ids;
    if (!screen.SearchResults())
        return {QStringLiteral("no result window")};
    for (int r = 0; r < screen.SearchResults()->Table->rowCount(); ++r)
        ids << screen.SearchResults()->Table->item(r, 0)->text();
    return ids;
}
}

TEST_F(LiveTest, ADropReachesTheDeckUnderItOnlyAfterADragFromThisScreen)
{
    Directe& screen = Live();
    IFCartPlayer* deck = screen.IFCartPlayer2[1];
    const QPoint onDeck = CentreOf(deck, &screen);
    DropOn(&screen, onDeck, QStringLiteral("JIN0001"));
    EXPECT_FALSE(deck->CartPlayer()->Loaded()) << "no drag was started";
    EXPECT_FALSE(screen.DropAt(onDeck));

    screen.StartDrag(QStringLiteral("JIN0001"));
    EXPECT_TRUE(screen.Dragging());
    EXPECT_FALSE(screen.DropAt(QPoint(1, 1))) << "nothing takes drops at the screen's corner";
    DropOn(&screen, onDeck, QStringLiteral("JIN0001"));
    AdvanceMs(20);
    EXPECT_EQ(deck->CartPlayer()->Status(), DeckStatus::Playing);
    EXPECT_FALSE(screen.IFCartPlayer2[0]->CartPlayer()->Loaded());

    // The eraser beside the recorder takes the dragged cart too.
    EXPECT_TRUE(screen.DropAt(CentreOf(screen.IFCartEraser1, &screen)));
    ASSERT_NE(screen.IFCartEraser1->Cart(), nullptr);
    EXPECT_EQ(screen.IFCartEraser1->Cart()->ID(), QStringLiteral("JIN0001"));
    screen.StopDrag();
    EXPECT_FALSE(screen.Dragging());
    EXPECT_TRUE(screen.DragCartID().isEmpty());

    // Blank on the recorder proposes a tape in the family chosen in the family browser.
    QString family, cart;
    screen.IFBrowserFamily1->SetSelectedFamilyID(QStringLiteral("NEW"));
    Q_EMIT screen.IFCartRecorder1->RequestBlankTape(family, cart);
    EXPECT_EQ(family, screen.IFBrowserFamily1->SelectedFamilyID());

    for (const QSize& size : {QSize(1280, 720), QSize(1920, 1080)}) {
        screen.resize(size);
        QApplication::processEvents();
        EXPECT_TRUE(Photograph(&screen, QStringLiteral("live-%1x%2").arg(size.width()).arg(size.height())));
    }
    EXPECT_TRUE(Errors().isEmpty()) << Errors().join('\n').toStdString();
}

TEST_F(LiveTest, SeveralCartsDroppedOnAWaitingListKeepTheirDraggedOrder)
{
    Directe& screen = Live();
    const auto list = kernel->PlayLists()->Add();
    IFPlayList* waiting = screen.IFPlayList[1];
    waiting->SetPlayList(list);
    UCPlayListContents* contents = waiting->Contents();
    contents->TmrGrabContents_Timer();
    QApplication::processEvents();
    const QPoint onFirstRow = contents->mapTo(&screen, contents->RowPoint(1));

    const QStringList carts{QStringLiteral("JIN0001"), QStringLiteral("JIN0003"), QStringLiteral("JIN0002")};
    screen.StartDrag(carts.first(), carts);
    EXPECT_TRUE(screen.DraggingMany());
    EXPECT_TRUE(screen.DropAt(onFirstRow));
    screen.StopDrag();
    ASSERT_EQ(list->Count(), 3);
    for (int row = 0; row < 3; ++row)
        EXPECT_EQ(list->Item(row + 1)->Cart()->ID(), carts[row]);
    EXPECT_TRUE(Errors().isEmpty()) << Errors().join('\n').toStdString();
}

TEST_F(LiveTest, TheSearchFindsTheTextAsTypedWhateverQuotesAndWildcardsItHolds)
{
    Directe& screen = Live();
    EXPECT_EQ(SearchFor(screen, dialogs, QStringLiteral("L'Hora")), QStringList{QStringLiteral("MUS0001")});
    EXPECT_EQ(screen.SearchResults()->windowTitle(), QStringLiteral("Searching carts"));
    EXPECT_EQ(SearchFor(screen, dialogs, QStringLiteral("jazz")), QStringList{QStringLiteral("MUS0001")}) << "case is ignored";
    EXPECT_EQ(SearchFor(screen, dialogs, QStringLiteral("JIN000")).size(), 4);
    EXPECT_EQ(SearchFor(screen, dialogs, QStringLiteral("\"Korvane FM\"")), QStringList{QStringLiteral("JIN0001")});
    for (const QString& text : {QStringLiteral("%"), QStringLiteral("*"), QStringLiteral("_"), QStringLiteral("?"),
                                QStringLiteral("JIN%1"), QStringLiteral("' OR '1'='1"), QStringLiteral("x'; DROP TABLE Cart; --"),
                                QStringLiteral("[JIN]"), QStringLiteral("\\")})
        EXPECT_TRUE(SearchFor(screen, dialogs, text).isEmpty()) << text.toStdString();
    EXPECT_TRUE(kernel->Carts()->Exists(QStringLiteral("MUS0001")));
    EXPECT_EQ(dialogs->prompts.last(), QStringLiteral("What do you want to search?"));

    // A cancelled question searches nothing.
    CartSearchDialog* shown = screen.SearchResults();
    dialogs->inputs.push_back(std::nullopt);
    screen.CmdSearch_Click();
    EXPECT_EQ(screen.SearchResults(), shown);
    EXPECT_TRUE(Errors().isEmpty()) << Errors().join('\n').toStdString();
}
