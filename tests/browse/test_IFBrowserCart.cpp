// The cart browser on the embedded kernel: the rows of a family and of a macro, the fill
// that yields (Stop, another load or a deleted family in the middle of it), search, arrows.
#include "BrowseTest.h"
#include "browse/BrowserRowModel.h"
#include "browse/IFBrowserCart.h"
#include "foundation/Strings.h"
#include "foundation/controls/UCProgressBar.h"
#include "foundation/db/Database.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCarts.h"
#include "kernelapi/iFamilies.h"
#include "kernelapi/iFamily.h"
#include "shell/components/CComponent.h"
#include <QLabel>
#include <QPushButton>
#include <QToolButton>
#include <QTest>
#include <QTimer>
#include <QTreeView>

namespace {
class CartBrowserTest : public BrowseTest
{
protected:
    CartBrowserTest(int carts = 0) : BrowseTest(carts) {}

    QStringList Keys() const
    {
        QStringList keys;
        for (const BrowserRow& row : browser->Rows().Rows())
            keys << row.key;
        return keys;
    }
    void SaveCart(const QString& id, CartType type, const QString& description)
    {
        auto cart = kernel->Carts()->NewCart();
        cart->SetID(id);
        cart->SetType(type);
        cart->SetDescription(description);
        cart->Save();
    }
    void SoundSql(const QString& sql)
    {
        Database::Open(station.DataDir() + QStringLiteral("Sound.MDB"))->Execute(sql);
    }

    std::unique_ptr<IFBrowserCart> browser = std::make_unique<IFBrowserCart>();
};

// A family of a thousand carts (BAA), to see the fill yield.
class LargeFamilyTest : public CartBrowserTest
{
protected:
    LargeFamilyTest() : CartBrowserTest(1000) {}
};
}

TEST_F(CartBrowserTest, AFamilyListsItsCartsWithTimesDescriptionsAndTotal)
{
    browser->LoadFamilyByName(QStringLiteral("MUS"));
    EXPECT_EQ(browser->Mode(), IFBrowserCart::FamilyMode);
    EXPECT_EQ(Keys(), QStringList({"MUS0001", "MUS0002", "MUS0003", "MUS0004", "MUS0005"}));
    const BrowserRow& first = browser->Rows().Row(0);
    EXPECT_EQ(first.icon, QStringLiteral("0"));
    EXPECT_EQ(first.sub2, QStringLiteral("L'Hora del Jazz"));
    EXPECT_EQ(first.sub1.size(), 8) << "hours, minutes and seconds of the human time";
    EXPECT_EQ(first.sub1, MsToHuman(first.ms).left(8));
    EXPECT_EQ(browser->LblQty->text(), QStringLiteral("5"));
    EXPECT_EQ(browser->LblTotalTime->text(), MsToHuman(qint32(browser->Rows().TotalMs())));
    EXPECT_FALSE(browser->PicLoading->isVisibleTo(browser.get()));
    EXPECT_FALSE(browser->Filling());
}

TEST_F(CartBrowserTest, ASeparatorMakesThreeRowsAllCountedAndControlsShowNoTime)
{
    SaveCart(QStringLiteral("CON0010"), CartType::Separator, QStringLiteral("Second part"));
    browser->LoadFamilyByName(QStringLiteral("CON"));
    const QStringList keys = Keys();
    const int at = keys.indexOf(QStringLiteral("CON0010"));
    ASSERT_GT(at, 0);
    EXPECT_EQ(keys[at - 1], QStringLiteral("CON0010_Blank"));
    EXPECT_EQ(keys[at + 1], QStringLiteral("CON0010_Blank"));
    EXPECT_EQ(browser->Rows().Row(at - 1).text, QString(200, u'.'));
    EXPECT_EQ(browser->Rows().Row(at).sub2, QStringLiteral("Second part"));
    EXPECT_TRUE(browser->Rows().Row(at + 1).text.isEmpty());
    EXPECT_EQ(browser->LblQty->text(), QString::number(keys.size()));
    EXPECT_EQ(keys.size(), 4 + 3);
    EXPECT_TRUE(browser->Rows().Row(0).sub1.isEmpty()) << "a control has no time";
}

TEST_F(CartBrowserTest, TheAllowFlagsChooseTheKindsShown)
{
    browser->SetAllowSounds(false);
    browser->LoadFamilyByName(QStringLiteral("MUS"));
    EXPECT_EQ(browser->Rows().Count(), 0);
    browser->SetAllowSounds(true);
    browser->SetAllowMacros(false);
    browser->LoadFamilyByName(QStringLiteral("MES"));
    EXPECT_EQ(browser->Rows().Count(), 0);
}

TEST_F(CartBrowserTest, NullDescriptionsAndAnUnknownFamilyBreakNothing)
{
    SoundSql(QStringLiteral("UPDATE Cart SET Descripcio = NULL, Comentari = NULL WHERE ID LIKE 'JIN*'"));
    browser->LoadFamilyByName(QStringLiteral("JIN"));
    ASSERT_EQ(browser->Rows().Count(), 4);
    EXPECT_TRUE(browser->Rows().Row(0).sub2.isEmpty());
    browser->Search(QStringLiteral("jin0003"), false, false);
    EXPECT_EQ(browser->SelectedCartID(), QStringLiteral("JIN0003"));
    browser->LoadFamilyByName(QStringLiteral("QQQ"));
    EXPECT_EQ(browser->Rows().Count(), 4) << "a family that does not exist leaves the list as it was";
}

TEST_F(CartBrowserTest, SearchFindsTheNextMatchAndWrapsRound)
{
    browser->LoadFamilyByName(QStringLiteral("PUB"));
    browser->Search(QStringLiteral("cafè de l'estació"), false, false);
    EXPECT_EQ(browser->SelectedCartID(), QStringLiteral("PUB0001")) << "quotes and accents as typed";
    browser->Search(QStringLiteral("PUB"), true, true);
    EXPECT_EQ(browser->SelectedCartID(), QStringLiteral("PUB0002"));
    browser->Search(QStringLiteral("pub"), true, true);
    browser->Search(QStringLiteral("pub"), true, true);
    EXPECT_EQ(browser->SelectedCartID(), QStringLiteral("PUB0001")) << "past the last row it starts again";
    browser->Search(QStringLiteral("rebajas"), true, false);
    EXPECT_EQ(browser->SelectedCartID(), QStringLiteral("PUB0001")) << "ID only leaves the descriptions out";
    browser->Search(QStringLiteral("   "), false, false);
    EXPECT_EQ(browser->SelectedCartID(), QStringLiteral("PUB0001")) << "blanks only search nothing";
    browser->Search(QStringLiteral("no such text"), false, false);
    EXPECT_EQ(browser->SelectedCartID(), QStringLiteral("PUB0001"));
}

TEST_F(CartBrowserTest, RelaxedSearchFoldsAccents)
{
    kernel->SetConfig(QStringLiteral("RelaxedSearch"), QStringLiteral("no"));
    browser->LoadFamilyByName(QStringLiteral("PUB"));
    browser->Search(QStringLiteral("ANON"), false, false);
    EXPECT_EQ(browser->SelectedCartID(), QString()) << "without RelaxedSearch an accent must match";
    kernel->SetConfig(QStringLiteral("RelaxedSearch"), QStringLiteral("yes"));
    browser->Search(QStringLiteral("anon"), false, false);
    EXPECT_EQ(browser->SelectedCartID(), QStringLiteral("PUB0003"));
}

TEST_F(CartBrowserTest, SearchOnAnEmptyListDoesNothing)
{
    browser->Search(QStringLiteral("x"), false, false);
    EXPECT_EQ(browser->SelectedCartID(), QString());
    EXPECT_EQ(browser->Mode(), IFBrowserCart::NothingLoaded);
    EXPECT_EQ(browser->LblQty->text(), QStringLiteral("?"));
}

TEST_F(CartBrowserTest, ColumnClickSortsAndKeepsTheSelection)
{
    browser->LoadFamilyByName(QStringLiteral("MUS"));
    browser->SetSelectedCartID(QStringLiteral("MUS0004"));
    browser->Rows().sort(2);
    EXPECT_EQ(browser->Rows().Row(0).key, QStringLiteral("MUS0003")) << "Añoranza comes first";
    EXPECT_EQ(browser->SelectedCartID(), QStringLiteral("MUS0004"));
    browser->Rows().sort(3);
    for (int row = 1; row < browser->Rows().Count(); ++row)
        EXPECT_LE(browser->Rows().Row(row - 1).ms, browser->Rows().Row(row).ms);
}

TEST_F(CartBrowserTest, ChangesOfTheFamilyReachTheRows)
{
    browser->LoadFamilyByName(QStringLiteral("ESP"));
    browser->SetSelectedCartID(QStringLiteral("ESP0002"));
    auto cart = kernel->Carts()->Cart(QStringLiteral("ESP0003"));
    cart->SetDescription(QStringLiteral("Long whoosh"));
    cart->Save();
    EXPECT_EQ(browser->Rows().Row(2).sub2, QStringLiteral("Long whoosh"));
    SaveCart(QStringLiteral("ESP0009"), CartType::Control, QStringLiteral("Bell"));
    EXPECT_EQ(Keys().size(), 4) << "a new cart reloads the family";
    EXPECT_EQ(browser->SelectedCartID(), QStringLiteral("ESP0002")) << "a refresh keeps the selection";
    kernel->Families()->Remove(QStringLiteral("ESP"));
    EXPECT_EQ(browser->Mode(), IFBrowserCart::NothingLoaded);
    EXPECT_EQ(browser->Family(), nullptr);
}

TEST_F(CartBrowserTest, ASelectedRowOffersItsCartToTheDrag)
{
    browser->LoadFamilyByName(QStringLiteral("NEW"));
    int selections = 0;
    QObject::connect(browser.get(), &IFBrowserCart::Selection, [&] { ++selections; });
    browser->SetSelectedCartID(QStringLiteral("NEW0002"));
    EXPECT_EQ(selections, 1);
    auto cart = browser->Component()->Shared<iCart>();
    ASSERT_NE(cart, nullptr);
    EXPECT_EQ(cart->ID(), QStringLiteral("NEW0002"));
    EXPECT_EQ(browser->Component()->ShareType(), CComponent::ShareCart);
    EXPECT_EQ(browser->Component()->Name(), QStringLiteral("CartBrowser"));
}

TEST_F(LargeFamilyTest, TheFillYieldsEveryHundredCartsAndStopKeepsWhatIsThere)
{
    int yields = 0;
    QTimer probe;
    QObject::connect(&probe, &QTimer::timeout, [&] {
        ++yields;
        EXPECT_TRUE(browser->PicLoading->isVisibleTo(browser.get()));
        EXPECT_EQ(browser->Rows().Count() % IFBrowserCart::RowsPerBatch, 0);
        // Before and after the family's rows are read, then after every hundred carts.
        if (yields == 5)
            browser->CmdStop->click();
    });
    probe.start(0);
    browser->LoadFamilyByName(QStringLiteral("BAA"));
    EXPECT_EQ(yields, 5);
    EXPECT_EQ(browser->Rows().Count(), 300);
    EXPECT_FALSE(browser->PicLoading->isVisibleTo(browser.get()));
    EXPECT_EQ(browser->LblQty->text(), QStringLiteral("300"));
    probe.stop();
    browser->LoadFamilyByName(QStringLiteral("BAA"));
    EXPECT_EQ(browser->Rows().Count(), 1000);
    EXPECT_FLOAT_EQ(browser->ProgressBar1->Percent(), 100);
}

TEST_F(LargeFamilyTest, ALoadAskedForDuringAFillFollowsIt)
{
    QTimer::singleShot(0, browser.get(), [&] { browser->LoadFamilyByName(QStringLiteral("JIN")); });
    browser->LoadFamilyByName(QStringLiteral("BAA"));
    EXPECT_EQ(Keys(), QStringList({"JIN0001", "JIN0002", "JIN0003", "JIN0004"}));
    EXPECT_TRUE(browser->LblTitle->text().startsWith(QStringLiteral("JIN - ")));
    EXPECT_FALSE(browser->Filling());
}

TEST_F(LargeFamilyTest, AFamilyDeletedWhileLoadingEmptiesTheList)
{
    QTimer::singleShot(0, browser.get(), [&] { kernel->Families()->Remove(QStringLiteral("BAA")); });
    browser->LoadFamilyByName(QStringLiteral("BAA"));
    EXPECT_EQ(browser->Rows().Count(), 0);
    EXPECT_EQ(browser->Mode(), IFBrowserCart::NothingLoaded);
    EXPECT_FALSE(browser->PicLoading->isVisibleTo(browser.get()));
    browser->LoadFamilyByName(QStringLiteral("MUS"));
    EXPECT_EQ(browser->Rows().Count(), 5) << "the browser works on afterwards";
}

TEST_F(LargeFamilyTest, ARefreshKeepsTheSelectionAndTheTopRow)
{
    browser->resize(400, 300);
    browser->show();
    browser->LoadFamilyByName(QStringLiteral("BAA"));
    browser->SetSelectedCartID(QStringLiteral("BAA0500"));
    browser->ListView1->scrollTo(browser->Rows().index(480, 0), QAbstractItemView::PositionAtTop);
    browser->Family()->Refresh();
    EXPECT_EQ(browser->SelectedCartID(), QStringLiteral("BAA0500"));
    EXPECT_EQ(browser->ListView1->indexAt(QPoint(1, 1)).row(), 480);
}

TEST_F(CartBrowserTest, TheHoverArrowShowsForASecondAndEscapeKeepsTheSelection)
{
    browser->LoadFamilyByName(QStringLiteral("MUS"));
    browser->SetSelectedCartID(QStringLiteral("MUS0001"));
    std::shared_ptr<CComponent> hovered;
    QObject::connect(browser.get(), &IFBrowserCart::Hover, [&](std::shared_ptr<CComponent> c) { hovered = c; });
    browser->ArrowPush(2);
    EXPECT_EQ(browser->Rows().Row(2).icon, QStringLiteral("BlueArrow"));
    ASSERT_NE(hovered, nullptr);
    EXPECT_EQ(hovered->Shared<iCart>()->ID(), QStringLiteral("MUS0003"));
    EXPECT_TRUE(browser->TmrArrow->isActive());
    browser->TmrArrow_Timer();
    EXPECT_EQ(browser->Rows().Row(2).icon, QStringLiteral("0"));
    browser->ArrowRedPush(3);
    EXPECT_EQ(browser->Rows().Row(3).icon, QStringLiteral("RedArrow"));
    QTest::keyClick(browser->ListView1, Qt::Key_Escape);
    EXPECT_EQ(browser->Rows().Row(3).icon, QStringLiteral("0"));
    EXPECT_EQ(browser->SelectedCartID(), QStringLiteral("MUS0001"));
    browser->ArrowPush(1);
    browser->LoadFamilyByName(QStringLiteral("MUS"));
    EXPECT_EQ(browser->ArrowRow(), -1) << "an arrow on a reloaded row is lost with the row";
}

TEST_F(CartBrowserTest, SignalArrowsFlashTheirColourNineTenthsOfEachSecond)
{
    browser->LoadFamilyByName(QStringLiteral("MUS"));
    browser->AddSignalArrow(QStringLiteral("MUS0002"), CSignalArrow::Green);
    browser->SetSignalArrowsEnabled(true);
    browser->AddSignalArrow(QStringLiteral("MUS0002"), CSignalArrow::Green);
    QStringList icons;
    for (int tick = 0; tick < 10; ++tick) {
        browser->TmrSignalArrows_Timer();
        icons << browser->Rows().Row(1).icon;
    }
    EXPECT_EQ(icons.count(QStringLiteral("0")), 1);
    EXPECT_EQ(icons.count(QStringLiteral("ArrowGreen")), 9);
    browser->SetSignalArrowsEnabled(false);
    EXPECT_EQ(browser->Rows().Row(1).icon, QStringLiteral("0")) << "switched off, the row gets its own icon back";
}

TEST_F(CartBrowserTest, AMacroEndsWithAGhostRowWhereCartsAreAdded)
{
    browser->New();
    EXPECT_EQ(browser->Mode(), IFBrowserCart::MacroMode);
    ASSERT_EQ(browser->Rows().Count(), 1);
    EXPECT_EQ(browser->Rows().Row(0).icon, QStringLiteral("Ghost"));
    EXPECT_EQ(browser->SelectedCartID(), QStringLiteral("Ghost")) << "an empty macro shows its ghost, selected";
    browser->AppendByName(QStringLiteral("JIN0001"), false, false);
    browser->AppendByName(QStringLiteral("MUS0001"), false, false);
    EXPECT_EQ(Keys(), QStringList({"JIN0001", "MUS0001", "Ghost"}));
    EXPECT_EQ(browser->LblQty->text(), QStringLiteral("2/3"));
    browser->SetSelectedCartID(QStringLiteral("MUS0001"));
    QTest::keyClick(browser->ListView1, Qt::Key_Insert);
    EXPECT_EQ(Keys(), QStringList({"JIN0001", "Blank", "MUS0001", "Ghost"}));
    EXPECT_EQ(browser->Rows().Row(1).icon, QStringLiteral("Blank")) << "a blank before a cart is a real entry";
    browser->SetSelectedCartID(QStringLiteral("MUS0001"));
    QTest::keyClick(browser->ListView1, Qt::Key_Delete);
    EXPECT_EQ(browser->Rows().Row(1).icon, QStringLiteral("Ghost")) << "a blank at the end becomes a ghost";
    EXPECT_EQ(browser->Rows().Count(), 3);
    EXPECT_EQ(browser->LblQty->text(), QStringLiteral("1/3"));
}

TEST_F(CartBrowserTest, ASeparatorAtTheEndOfAMacroKeepsItsRowsWhenACartFollows)
{
    SaveCart(QStringLiteral("CON0010"), CartType::Separator, QStringLiteral("Second part"));
    browser->AppendByName(QStringLiteral("JIN0001"), false, false);
    browser->AppendByName(QStringLiteral("CON0010"), false, false);
    EXPECT_EQ(Keys(), QStringList({"JIN0001", "CON0010_Blank", "CON0010", "CON0010_Blank", "Ghost"}));
    EXPECT_EQ(browser->LblQty->text(), QStringLiteral("4/5"));
    browser->AppendByName(QStringLiteral("MUS0001"), false, false);
    EXPECT_EQ(Keys(), QStringList({"JIN0001", "CON0010_Blank", "CON0010", "CON0010_Blank", "MUS0001", "Ghost"}));
    EXPECT_EQ(browser->LblQty->text(), QStringLiteral("5/6"));
}

TEST_F(CartBrowserTest, AStoredMacroShowsItsEntriesAndACartDroppedOnTheEmptyBrowserOpensIt)
{
    browser->SetAcceptMacros(true);
    browser->SendCart(QStringLiteral("MES0001"), false, false);
    EXPECT_EQ(Keys(), QStringList({"CON0003", "JIN0001", "MUS0001", "Ghost"}));
    EXPECT_TRUE(browser->LblTitle->text().startsWith(QStringLiteral("MES0001 - ")));
    EXPECT_TRUE(browser->Selected());
    browser->SetSelectedCartID(QStringLiteral("MUS0001"));
    EXPECT_EQ(browser->LblCursorTime->text(), MsToHuman(browser->Rows().Row(0).ms + browser->Rows().Row(1).ms));
}

TEST_F(CartBrowserTest, DroppedFamiliesLoadAndDroppedCartsJoinAMacroOnlyWhenAccepted)
{
    auto family = std::make_shared<CComponent>();
    family->SetShareType(CComponent::ShareFamily);
    family->SetSharedObject(kernel->Families()->Item(QStringLiteral("NEW")));
    browser->Component()->RaiseEventDragDrop(family);
    EXPECT_EQ(Keys(), QStringList({"NEW0001", "NEW0002"}));
    auto cart = std::make_shared<CComponent>();
    cart->SetShareType(CComponent::ShareCart);
    cart->SetSharedObject(kernel->Carts()->Cart(QStringLiteral("ESP0001")));
    browser->Component()->RaiseEventDragDrop(cart);
    EXPECT_EQ(Keys().size(), 2);
    browser->SetAcceptMacros(true);
    browser->Component()->RaiseEventDragDrop(cart);
    EXPECT_EQ(Keys(), QStringList({"ESP0001", "Ghost"}));
}

TEST_F(CartBrowserTest, TheSelectedBrotherIsTheSelectedBrowserOfTheForm)
{
    QWidget form;
    auto* left = new IFBrowserCart(&form);
    auto* right = new IFBrowserCart(&form);
    EXPECT_EQ(right->SelectedBrother(), right) << "with none selected, the one asked becomes selected";
    EXPECT_TRUE(right->Selected());
    left->SetSelected(true);
    right->SetSelected(false);
    EXPECT_EQ(right->SelectedBrother(), left);
    EXPECT_TRUE(left->CmdSelected->isChecked());
}

TEST_F(LargeFamilyTest, StopAtAnyMomentKeepsTheRowsReadAndTheBrowserWorksOn)
{
    for (const int stopAt : {1, 2, 3, 7, 12}) {
        int yields = 0;
        QTimer probe;
        QObject::connect(&probe, &QTimer::timeout, [&] {
            if (++yields == stopAt)
                browser->Stop();
        });
        probe.start(0);
        browser->LoadFamilyByName(QStringLiteral("BAA"));
        probe.stop();
        EXPECT_LE(browser->Rows().Count(), std::max(0, stopAt - 2) * IFBrowserCart::RowsPerBatch) << "stopped at yield " << stopAt;
        EXPECT_EQ(browser->Rows().Count() % IFBrowserCart::RowsPerBatch, 0);
        EXPECT_EQ(browser->Mode(), IFBrowserCart::FamilyMode);
        EXPECT_FALSE(browser->Filling());
    }
    browser->LoadFamilyByName(QStringLiteral("JIN"));
    EXPECT_EQ(browser->Rows().Count(), 4);
}
