// A producer's tidying of a family on the on-air page, by mouse and keys through the cart
// browser's popup menu: the header of a jingle edited in the inline editor (the pads deaf
// meanwhile), the whole family recalculated in the background, the family printed, and a cart
// removed with fast deletion and the Delete key.
#include "browse/BrowserRowModel.h"
#include "browse/CartHeaderEditor.h"
#include "browse/IFBrowserCart.h"
#include "e2e/WorkstationSteps.h"
#include "e2e/WorkstationTest.h"
#include "foundation/Globals.h"
#include "foundation/ui/ScriptedDialogs.h"
#include "kernel/CartWorld.h"
#include "kernel/EmbeddedKernel.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCarts.h"
#include "onair/Directe.h"
#include "support/Photograph.h"
#include <QDeadlineTimer>
#include <QDir>
#include <QLineEdit>
#include <QTest>
#include <QTreeView>

using namespace WorkstationSteps;
using CartOperations = WorkstationTest;

namespace {
// Selects the row with a left click and opens the menu on it with a right release; the
// scripted menu answers with the key.
void ChooseOnRow(ScriptedDialogs* dialogs, QTreeView* list, const QString& id, const QString& key)
{
    const QPoint at = RowCentre(list, id);
    ASSERT_FALSE(at.isNull()) << id.toStdString();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, at);
    dialogs->popupChoices.push_back(key);
    QTest::mouseRelease(list->viewport(), Qt::RightButton, {}, at);
}

std::shared_ptr<iCart> CartOf(const QString& id)
{
    return Globals::Kernel()->Carts()->Cart(id);
}
}

TEST_F(CartOperations, AProducerEditsRecalculatesPrintsAndTidiesAFamilyFromTheMenu)
{
    ScriptedDialogs* dialogs = nullptr;
    Directe* onAir = OpenLive(station, &dialogs);
    ASSERT_NE(onAir, nullptr);
    OpenFamily(onAir, QStringLiteral("JIN"));
    IFBrowserCart* carts = onAir->IFBrowserCart1;
    QTreeView* list = carts->ListView1;

    // The header, typed into the inline editor; the pads give up their keys while it is open.
    ChooseOnRow(dialogs, list, QStringLiteral("JIN0001"), QStringLiteral("IFBrowserCart.EditCartHeader"));
    CartHeaderEditor* editor = carts->Editor;
    for (int tick = 0; tick < 20; ++tick)
        editor->TmrOpen_Timer();
    EXPECT_EQ(editor->height(), CartHeaderEditor::FullHeight);
    EXPECT_TRUE(onAir->PreventShortCuts());
    Photograph(onAir, QStringLiteral("onair-cart-editor"));
    editor->TxtDescription->clear();
    QTest::keyClicks(editor->TxtDescription, QStringLiteral("Station ID, new voice"));
    QTest::keyClick(editor->TxtDescription, Qt::Key_Return);
    QTest::keyClicks(editor->TxtComment, QStringLiteral("Voiced 23/11"));
    QTest::keyClick(editor->TxtComment, Qt::Key_Return);
    EXPECT_EQ(CartOf(QStringLiteral("JIN0001"))->Title(), QStringLiteral("Station ID, new voice"));
    EXPECT_EQ(CartOf(QStringLiteral("JIN0001"))->Comment(), QStringLiteral("Voiced 23/11"));
    EXPECT_FALSE(onAir->PreventShortCuts());

    // The whole family measured again, accurately, while the screen goes on.
    ChooseOnRow(dialogs, list, QStringLiteral("JIN0002"), QStringLiteral("CFamily.RecalculateSlow"));
    const QDeadlineTimer guard(60000);
    while (carts->Recalculating() && !guard.hasExpired())
        QCoreApplication::processEvents();
    EXPECT_FALSE(carts->Recalculating());
    EXPECT_GT(CartOf(QStringLiteral("JIN0003"))->Time(), 0);

    // The family printed with its list: a PDF in the station's reports folder.
    ChooseOnRow(dialogs, list, QStringLiteral("JIN0002"), QStringLiteral("CFamily.PrintHeader+Contents"));
    std::dynamic_pointer_cast<EmbeddedKernel>(Globals::Kernel())->World()->Reports().WaitForDone();
    EXPECT_EQ(QDir(station.Dir() + QStringLiteral("reports")).entryList({QStringLiteral("family-JIN-*.pdf")}).size(), 1);

    // Fast deletion: Delete removes the selected cart with no question.
    ChooseOnRow(dialogs, list, QStringLiteral("JIN0004"), QStringLiteral("CFamily.AllowFastDeletion"));
    QTest::keyClick(list, Qt::Key_Delete);
    EXPECT_FALSE(Globals::Kernel()->Carts()->Exists(QStringLiteral("JIN0004")));
    EXPECT_LT(carts->Rows().Find(QStringLiteral("JIN0004")), 0);
    ChooseOnRow(dialogs, list, QStringLiteral("JIN0001"), QStringLiteral("CFamily.ForbidFastDeletion"));
    QTest::keyClick(list, Qt::Key_Delete);
    EXPECT_TRUE(Globals::Kernel()->Carts()->Exists(QStringLiteral("JIN0001"))) << "Delete asks again once forbidden";

    EXPECT_TRUE(dialogs->boxes.isEmpty());
    const QString log = TodaysLog(station.Dir());
    EXPECT_TRUE(ErrorLines(log).isEmpty()) << log.toStdString();
    EXPECT_TRUE(log.contains(QStringLiteral("Family JIN recalculated"))) << log.toStdString();
}
