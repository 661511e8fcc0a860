// The on-air page's recorder and eraser: the recorder asks the "Rec" channel for its recorder
// (a warning, not an error, while the kernel has none to give), Blank proposes a tape in the
// chosen family, and an old-style drop on the eraser reaches it.
#include "DeckTest.h"
#include "browse/IFBrowserFamily.h"
#include "editing/IFCartEraser.h"
#include "editing/IFCartRecorder.h"
#include "onair/FrmOnAir.h"
#include "support/Photograph.h"
#include <QDropEvent>
#include <QMimeData>

TEST_F(DeckTest, TheOnAirPageHoldsTheRecorderAndTheEraser)
{
    FrmOnAir page;
    page.show();
    QApplication::processEvents();
    EXPECT_TRUE(log->Errors().isEmpty()) << log->Errors().join('\n').toStdString();
    if (!page.IFCartRecorder1->CartRecorder())
        EXPECT_FALSE(log->lines.filter(QStringLiteral("WARN IFCartRecorder.BindByName")).isEmpty());

    QString family, cart;
    page.IFBrowserFamily1->SetSelectedFamilyID(QStringLiteral("NEW"));
    Q_EMIT page.IFCartRecorder1->RequestBlankTape(family, cart);
    EXPECT_EQ(family, page.IFBrowserFamily1->SelectedFamilyID());

    IFCartEraser* eraser = page.IFCartEraser1;
    const QPoint onEraser = eraser->mapTo(&page, eraser->rect().center());
    page.OldStyleDrag().StartDrag(nullptr, QStringLiteral("JIN0001"));
    QMimeData data;
    data.setText(QStringLiteral("JIN0001"));
    QDragEnterEvent enter(onEraser, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&page, &enter);
    QDropEvent drop(onEraser, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&page, &drop);
    page.OldStyleDrag().StopDrag();
    ASSERT_NE(eraser->Cart(), nullptr);
    EXPECT_EQ(eraser->Status(), 1);
    page.resize(1280, 800);
    QApplication::processEvents();
    EXPECT_TRUE(Photograph(&page, QStringLiteral("OnAirPageWithRecorder")));
}
