// The on-air page as the host of the old-style drag: an ID dragged by the toolkit and dropped
// on a deck reaches that deck's Drop; nothing happens without a drag or away from the decks.
#include "DeckTest.h"
#include "onair/FrmOnAir.h"
#include <QDropEvent>
#include <QMimeData>

namespace {
void DropOn(QWidget* page, const QPoint& at, const QString& text)
{
    QMimeData data;
    data.setText(text);
    QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(page, &enter);
    QDropEvent drop(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(page, &drop);
}
}

TEST_F(DeckTest, AnOldStyleDropOnTheOnAirPageReachesTheDeckUnderIt)
{
    FrmOnAir page;
    page.show();
    QApplication::processEvents();
    IFCartPlayer* second = page.IFCartPlayer1[1];
    const QPoint onSecond = second->mapTo(&page, QPoint(4, second->height() - 4));

    DropOn(&page, onSecond, QStringLiteral("JIN0001"));
    EXPECT_FALSE(second->CartPlayer()->Loaded()) << "no drag was started";

    page.OldStyleDrag().StartDrag(nullptr, QStringLiteral("JIN0001"));
    DropOn(&page, QPoint(2, 2), QStringLiteral("JIN0001"));
    EXPECT_FALSE(second->CartPlayer()->Loaded()) << "dropped away from the decks";
    DropOn(&page, onSecond, QStringLiteral("JIN0001"));
    AdvanceMs(20);
    EXPECT_EQ(second->CartPlayer()->Status(), DeckStatus::Playing);
    EXPECT_FALSE(page.IFCartPlayer1[0]->CartPlayer()->Loaded());
    page.OldStyleDrag().StopDrag();
    EXPECT_FALSE(page.OldStyleDrag().Dragging());
}
