// The cart browser's popup menu on the embedded kernel: moves and duplicates to free slots,
// deletion, emptying, spacers, export and recalculation of the selected cart.
#include "BrowseTest.h"
#include "browse/BrowserRowModel.h"
#include "browse/IFBrowserCart.h"
#include "foundation/db/Database.h"
#include "kernel/CartWorld.h"
#include "kernelapi/iFamilies.h"
#include "kernelapi/iFamily.h"
#include "kernelapi/iSound.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCarts.h"
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTemporaryDir>

namespace {
class CartMenuTest : public BrowseTest
{
protected:
    void SetUp() override
    {
        BrowseTest::SetUp();
        LoginAs(QStringLiteral("PRESENTER"), QStringLiteral("onair"));
        browser = std::make_unique<IFBrowserCart>();
        browser->LoadFamilyByName(QStringLiteral("NEW"));
    }
    void Choose(const QString& cartID, const QString& key)
    {
        browser->SetSelectedCartID(cartID);
        dialogs->popupChoices.push_back(key);
        browser->ShowMenu(QPoint());
    }
    bool Exists(const QString& id) const { return kernel->Carts()->Exists(id); }
    bool Listed(const QString& id) const { return browser->Rows().Find(id) >= 0; }
    QString LoadingCaption() const { return browser->PicLoading->findChild<QLabel*>(QStringLiteral("LblLoading"))->text(); }
    bool RecalculationEnds() const
    {
        return QTest::qWaitFor([&] { return !browser->Recalculating(); }, 60000);
    }

    std::unique_ptr<IFBrowserCart> browser;
};
}

TEST_F(CartMenuTest, TheMenuOffersOnlyWritableFamiliesAsDestinations)
{
    Choose(QStringLiteral("NEW0001"), QStringLiteral("Cancel"));
    ASSERT_EQ(dialogs->menus.size(), 1);
    QStringList families;
    for (const auto& line : dialogs->menus[0][3].lines)
        families << line.text;
    EXPECT_EQ(dialogs->menus[0][3].text, QStringLiteral("Move to"));
    EXPECT_EQ(families, QStringList({"NEW", "TMP", "Others"}));
    EXPECT_EQ(dialogs->menus[0][3].lines[0].lines[0].text, QStringLiteral("NEW0000"));
    EXPECT_TRUE(Exists(QStringLiteral("NEW0001"))) << "Cancel does nothing";
}

TEST_F(CartMenuTest, MoveAndDuplicateToAFreeSlotAndASlotTakenMeanwhile)
{
    Choose(QStringLiteral("NEW0002"), QStringLiteral("IFBrowserCart.SendTo.TMP#5"));
    EXPECT_FALSE(Exists(QStringLiteral("NEW0002")));
    EXPECT_TRUE(Exists(QStringLiteral("TMP0005")));
    EXPECT_FALSE(Listed(QStringLiteral("NEW0002"))) << "the source family is refreshed";
    EXPECT_TRUE(dialogs->boxes.isEmpty());

    Choose(QStringLiteral("NEW0001"), QStringLiteral("IFBrowserCart.DuplicateTo.NEW#7"));
    EXPECT_TRUE(Exists(QStringLiteral("NEW0001")));
    EXPECT_TRUE(Exists(QStringLiteral("NEW0007")));
    EXPECT_TRUE(Listed(QStringLiteral("NEW0007")));

    // Another workstation filled TMP0005 after the menu was built.
    Choose(QStringLiteral("NEW0001"), QStringLiteral("IFBrowserCart.SendTo.TMP#5"));
    ASSERT_EQ(dialogs->boxes.size(), 1);
    EXPECT_TRUE(dialogs->boxes[0].text.contains(QStringLiteral("TMP0005")));
    EXPECT_TRUE(Exists(QStringLiteral("NEW0001"))) << "nothing is lost";
    EXPECT_EQ(kernel->Carts()->Cart(QStringLiteral("TMP0005"))->Description(), QStringLiteral("Headlines stinger"));
}

TEST_F(CartMenuTest, DeleteAndEmpty)
{
    Choose(QStringLiteral("NEW0001"), QStringLiteral("IFBrowserCart.Empty"));
    EXPECT_TRUE(Exists(QStringLiteral("NEW0001"))) << "emptying keeps the cart";
    EXPECT_TRUE(dialogs->boxes.isEmpty());
    Choose(QStringLiteral("NEW0002"), QStringLiteral("CFamily.DeleteCartDeleteFile"));
    EXPECT_FALSE(Exists(QStringLiteral("NEW0002")));
    EXPECT_FALSE(Listed(QStringLiteral("NEW0002")));
    Choose(QStringLiteral("NEW0001"), QStringLiteral("CFamily.DeleteCartLeaveFile"));
    EXPECT_FALSE(Exists(QStringLiteral("NEW0001")));
}

TEST_F(CartMenuTest, ASpacerAtAFreeSlotNamedOrNewAndACancelledBoxAddsNothing)
{
    dialogs->inputs = {QStringLiteral("  ")};
    Choose(QStringLiteral("NEW0001"), QStringLiteral("CFamily.InsertSpacer#3"));
    ASSERT_TRUE(Exists(QStringLiteral("NEW0003")));
    EXPECT_EQ(kernel->Carts()->Cart(QStringLiteral("NEW0003"))->Type(), CartType::Separator);
    EXPECT_EQ(kernel->Carts()->Cart(QStringLiteral("NEW0003"))->Description(), QStringLiteral("New spacer"));
    EXPECT_TRUE(Listed(QStringLiteral("NEW0003")));
    EXPECT_EQ(dialogs->prompts.last(), QStringLiteral("Insert a name or description for the separator."));

    dialogs->inputs = {std::nullopt};
    Choose(QStringLiteral("NEW0001"), QStringLiteral("CFamily.InsertSpacer#4"));
    EXPECT_FALSE(Exists(QStringLiteral("NEW0004")));

    dialogs->inputs = {QStringLiteral("Sport")};
    Choose(QStringLiteral("NEW0001"), QStringLiteral("CFamily.InsertSpacer#3"));
    ASSERT_EQ(dialogs->boxes.size(), 1) << "the slot was taken";
    EXPECT_EQ(kernel->Carts()->Cart(QStringLiteral("NEW0003"))->Description(), QStringLiteral("New spacer"));
}

TEST_F(CartMenuTest, ExportToTheSettingsFoldersAndAFolderThatIsMissing)
{
    QTemporaryDir web;
    kernel->SetConfig(QStringLiteral("ExportDir(1)"), web.path());
    kernel->SetConfig(QStringLiteral("ExportDir(2)"), web.path() + QStringLiteral("/missing"));
    Choose(QStringLiteral("NEW0001"), QStringLiteral("IFBrowserCart.Export1"));
    EXPECT_TRUE(dialogs->boxes.isEmpty());
    EXPECT_EQ(QDir(web.path()).entryList(QDir::Files).size(), 1);
    Choose(QStringLiteral("NEW0001"), QStringLiteral("IFBrowserCart.Export2"));
    ASSERT_EQ(dialogs->boxes.size(), 1);
    EXPECT_TRUE(dialogs->boxes[0].text.contains(QStringLiteral("/missing")));
}

// Printing goes to PDF files in the station's reports folder when no printer is set; the
// family lines are offered by the workstation's own "PrintingMenus".
TEST_F(CartMenuTest, PrintingACartAndItsFamilyWritesReports)
{
    kernel->SetConfig(QStringLiteral("PrintingMenus"), QString());
    ASSERT_TRUE(kernel->SetStationConfig(QStringLiteral("PrintingMenus"), QStringLiteral("On")));
    Choose(QStringLiteral("NEW0001"), QStringLiteral("IFBrowserCart.Print"));
    Choose(QStringLiteral("NEW0001"), QStringLiteral("CFamily.PrintHeader+Contents"));
    ASSERT_EQ(dialogs->menus.size(), 2);
    kernel->World()->Reports().WaitForDone();
    bool offered = false;
    for (const auto& line : dialogs->menus[1])
        offered = offered || line.text == QStringLiteral("Print family");
    EXPECT_TRUE(offered);
    const QStringList reports = QDir(station.Dir() + QStringLiteral("reports")).entryList({QStringLiteral("*.pdf")}, QDir::Files, QDir::Name);
    ASSERT_EQ(reports.size(), 2);
    EXPECT_TRUE(reports[0].startsWith(QStringLiteral("cart-NEW0001-")));
    EXPECT_TRUE(reports[1].startsWith(QStringLiteral("family-NEW-")));
    EXPECT_TRUE(dialogs->boxes.isEmpty());
}

TEST_F(CartMenuTest, RecalculationOfTheSelectedCartKeepsItsRow)
{
    const qint32 before = kernel->Carts()->Cart(QStringLiteral("NEW0002"))->Time();
    Choose(QStringLiteral("NEW0002"), QStringLiteral("IFBrowserCart.RecalculateSlow"));
    Choose(QStringLiteral("NEW0002"), QStringLiteral("IFBrowserCart.RecalculateFast"));
    EXPECT_TRUE(dialogs->boxes.isEmpty());
    EXPECT_GT(kernel->Carts()->Cart(QStringLiteral("NEW0002"))->Time(), 0);
    EXPECT_NEAR(kernel->Carts()->Cart(QStringLiteral("NEW0002"))->Time(), before, 100);
    EXPECT_EQ(browser->SelectedCartID(), QStringLiteral("NEW0002"));
}

TEST_F(CartMenuTest, RecalculationOfTheFamilyRunsBehindTheProgressPanelAndTellsItsFailures)
{
    const QString lost = kernel->Carts()->Cart(QStringLiteral("NEW0002"))->Sound()->FileName();
    ASSERT_TRUE(QFile::remove(lost));
    Database::Open(station.DataDir() + QStringLiteral("Sound.MDB"))->Query(QStringLiteral("UPDATE Cart SET Time = 5 WHERE ID = 'NEW0001'"));
    kernel->Families()->Item(QStringLiteral("NEW"))->Refresh();
    ASSERT_EQ(browser->Rows().Row(browser->Rows().Find(QStringLiteral("NEW0001"))).ms, 5);

    Choose(QStringLiteral("NEW0001"), QStringLiteral("CFamily.RecalculateSlow"));
    EXPECT_TRUE(browser->Recalculating());
    EXPECT_FALSE(browser->PicLoading->isHidden());
    EXPECT_TRUE(LoadingCaption().startsWith(QStringLiteral("Recalculant")));
    ASSERT_TRUE(RecalculationEnds());

    EXPECT_TRUE(browser->PicLoading->isHidden());
    EXPECT_EQ(LoadingCaption(), QStringLiteral("Loading"));
    EXPECT_GT(browser->Rows().Row(browser->Rows().Find(QStringLiteral("NEW0001"))).ms, 5) << "the rows are read again";
    EXPECT_EQ(browser->SelectedCartID(), QStringLiteral("NEW0001"));
    ASSERT_EQ(dialogs->boxes.size(), 1) << "one box for all the failures";
    EXPECT_TRUE(dialogs->boxes[0].text.startsWith(QStringLiteral("1 carts")));
}

TEST_F(CartMenuTest, StopEndsTheFamilysRecalculationQuietly)
{
    Choose(QStringLiteral("NEW0001"), QStringLiteral("CFamily.RecalculateFast"));
    ASSERT_TRUE(browser->Recalculating());
    Choose(QStringLiteral("NEW0001"), QStringLiteral("CFamily.RecalculateSlow"));
    browser->CmdStop->click();
    ASSERT_TRUE(RecalculationEnds());
    EXPECT_TRUE(browser->PicLoading->isHidden());
    EXPECT_TRUE(dialogs->boxes.isEmpty());
}

TEST_F(CartMenuTest, ARightReleaseOnTheListShowsTheMenu)
{
    browser->SetSelectedCartID(QStringLiteral("NEW0001"));
    QTest::mouseRelease(browser->ListView1->viewport(), Qt::RightButton, {}, QPoint(5, 5));
    ASSERT_EQ(dialogs->menus.size(), 1);
    EXPECT_EQ(dialogs->menus[0][0].text, QStringLiteral("-Cart"));
}
