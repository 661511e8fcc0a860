// The family browser on the embedded kernel: rights and filter levels, the merged click,
// search, and the popup menu's family work.
#include "BrowseTest.h"
#include "browse/BrowserRowModel.h"
#include "browse/BrowserView.h"
#include "browse/FamilyRights.h"
#include "browse/IFBrowserFamily.h"
#include "kernelapi/iFamilies.h"
#include "kernelapi/iFamily.h"
#include "shell/components/CComponent.h"
#include <QCheckBox>
#include <QMimeData>
#include <QTest>
#include <QTimer>
#include <QTreeView>

namespace {
class FamilyBrowserTest : public BrowseTest
{
protected:
    void SetUp() override
    {
        BrowseTest::SetUp();
        LoginAs(QStringLiteral("PRESENTER"), QStringLiteral("onair"));
        browser = std::make_unique<IFBrowserFamily>();
    }
    QStringList Keys() const
    {
        QStringList keys;
        for (const BrowserRow& row : browser->Rows().Rows())
            keys << row.key;
        return keys;
    }
    QString IconOf(const QString& id) const { return browser->Rows().Row(browser->Rows().Find(id)).icon; }

    std::unique_ptr<IFBrowserFamily> browser;
};
}

TEST(FamilyRightsRule, IconsAndFilterLevels)
{
    const FamilyRights none(false, false), read(true, false), write(true, true), special(false, false, 5);
    EXPECT_EQ(none.Icon(), 1);
    EXPECT_EQ(read.Icon(), 2);
    EXPECT_EQ(write.Icon(), 3);
    EXPECT_EQ(special.Icon(), 5);
    EXPECT_FALSE(special.Shown(false, 0)) << "a special icon does not change who sees the row";
    EXPECT_TRUE(none.Shown(true, 0));
    EXPECT_FALSE(none.Shown(true, -1));
    EXPECT_TRUE(read.Shown(false, -3));
    EXPECT_FALSE(read.Shown(true, 1));
    EXPECT_TRUE(write.Shown(false, 7));
}

TEST_F(FamilyBrowserTest, OnlyWhatTheUserMayReadUnlessAll)
{
    EXPECT_EQ(Keys(), QStringList({"ESP", "JIN", "MES", "MUS", "NEW", "PAU", "PUB", "TMP"}));
    EXPECT_EQ(IconOf(QStringLiteral("MUS")), QStringLiteral("Family2"));
    EXPECT_EQ(IconOf(QStringLiteral("NEW")), QStringLiteral("Family3"));
    EXPECT_EQ(browser->Rows().Row(1).sub1, QStringLiteral("Jingles and station IDs"));
    browser->ChkAll->click();
    EXPECT_TRUE(browser->ShowAll());
    EXPECT_EQ(Keys().indexOf(QStringLiteral("CON")), 0) << "a family without rights is listed with All";
    EXPECT_EQ(Keys().size(), 9);
    browser->SetFilterLevel(1);
    EXPECT_EQ(Keys(), QStringList({"NEW", "TMP"}));
    browser->SetFilterLevel(0);
    browser->SetShowAll(false);
    EXPECT_FALSE(browser->ChkAll->isChecked());
}

TEST_F(FamilyBrowserTest, TheSpecialFamiliesOfTheSettingsHaveTheirOwnIcons)
{
    kernel->SetConfig(QStringLiteral("FamEspTmp"), QStringLiteral("TMP and more"));
    kernel->SetConfig(QStringLiteral("FamEspCon"), QStringLiteral("PAU"));
    browser->Fill();
    EXPECT_EQ(IconOf(QStringLiteral("TMP")), QStringLiteral("Family4"));
    EXPECT_EQ(IconOf(QStringLiteral("PAU")), QStringLiteral("Family5"));
}

TEST_F(FamilyBrowserTest, ArrowKeysRaiseChangedAtEachStepAndClickOnce)
{
    QStringList changed, clicked;
    QObject::connect(browser.get(), &IFBrowserFamily::Changed, [&](const QString& id) { changed << id; });
    QObject::connect(browser.get(), &IFBrowserFamily::Click, [&](const QString& id) { clicked << id; });
    browser->SetSelectedFamilyID(QStringLiteral("JIN0042"));
    QTest::keyClick(browser->ListView1, Qt::Key_Down);
    QTest::keyClick(browser->ListView1, Qt::Key_Down);
    EXPECT_EQ(changed, QStringList({"JIN", "MES", "MUS"}));
    EXPECT_TRUE(clicked.isEmpty());
    ASSERT_TRUE(browser->Timer1->isActive());
    browser->RaiseClick();
    EXPECT_EQ(clicked, QStringList({"MUS"}));
    EXPECT_FALSE(browser->Timer1->isActive());
    EXPECT_EQ(browser->Component()->Shared<iFamily>()->ID(), QStringLiteral("MUS"));
    EXPECT_EQ(browser->Component()->ShareType(), CComponent::ShareFamily);
}

TEST_F(FamilyBrowserTest, SearchLooksAtIDsAndDescriptions)
{
    browser->Search(QStringLiteral("beds"));
    EXPECT_EQ(browser->SelectedFamilyID(), QStringLiteral("NEW"));
    browser->Search(QStringLiteral("s"));
    EXPECT_EQ(browser->SelectedFamilyID(), QStringLiteral("PAU")) << "the next match after the selection: Live rules";
    browser->SetSelectedFamilyID(QStringLiteral("  "));
    EXPECT_EQ(browser->SelectedFamilyID(), QStringLiteral("PAU"));
    browser->SetSelectedFamilyID(QStringLiteral("con0001"));
    EXPECT_EQ(browser->SelectedFamilyID(), QStringLiteral("PAU")) << "a family that is not listed selects nothing";
}

TEST_F(FamilyBrowserTest, NewFamilyAsksAgainUntilTheNameMakesAFreeFirstCartID)
{
    dialogs->popupChoices.push_back(QStringLiteral("IFBrowserFamily.CFamilies.NewFamily"));
    dialogs->inputs = {QStringLiteral("AB"), QStringLiteral("MES"), QStringLiteral("pod"), QStringLiteral("Podcasts")};
    browser->ShowMenu(QPoint());
    EXPECT_EQ(dialogs->prompts.size(), 4) << "AB0000 is no cart ID and MES0000 is a cart";
    ASSERT_TRUE(kernel->Families()->Exists(QStringLiteral("POD")));
    EXPECT_EQ(kernel->Families()->Item(QStringLiteral("POD"))->Description(), QStringLiteral("Podcasts"));
    EXPECT_TRUE(Keys().contains(QStringLiteral("POD"))) << "its maker may write it, so it is listed";

    dialogs->popupChoices.push_back(QStringLiteral("IFBrowserFamily.CFamilies.NewFamily"));
    dialogs->inputs = {QStringLiteral("MUS"), QStringLiteral("Twice")};
    browser->ShowMenu(QPoint());
    EXPECT_EQ(kernel->Families()->Item(QStringLiteral("MUS"))->Description(), QStringLiteral("Music")) << "the kernel refuses a family that exists";

    dialogs->popupChoices.push_back(QStringLiteral("IFBrowserFamily.CFamilies.NewFamily"));
    dialogs->inputs = {QStringLiteral("")};
    browser->ShowMenu(QPoint());
    EXPECT_EQ(kernel->Families()->Count(), 10) << "an empty name cancels";
}

TEST_F(FamilyBrowserTest, TheMenuLinesInTheirOrderAndDelete)
{
    browser->SetSelectedFamilyID(QStringLiteral("TMP"));
    dialogs->popupChoices.push_back(QStringLiteral("IFBrowserFamily.CFamily.Delete"));
    browser->ShowMenu(QPoint());
    EXPECT_FALSE(kernel->Families()->Exists(QStringLiteral("TMP")));
    EXPECT_FALSE(Keys().contains(QStringLiteral("TMP")));
    ASSERT_EQ(dialogs->menus.size(), 1);
    QStringList lines;
    for (const auto& line : dialogs->menus[0])
        lines << line.text + QLatin1Char(' ') + line.key;
    EXPECT_EQ(lines, QStringList({"-Family ", "Edit... IFBrowserFamily.CFamily.Edit", "Delete ",
                                  "Populate IFBrowserFamily.CFamily.Populate", "-Families ",
                                  "New family... IFBrowserFamily.CFamilies.NewFamily",
                                  "Populate IFBrowserFamily.CFamilies.Populate", "-Cancel ", "Cancel Cancel"}));
    QStringList sure;
    for (const auto& line : dialogs->menus[0][2].lines)
        sure << line.text + QLatin1Char(' ') + line.key;
    EXPECT_EQ(sure, QStringList({"Are you sure? ", "No Cancel", "Yes IFBrowserFamily.CFamily.Delete"}));

    dialogs->popupChoices.push_back(QStringLiteral("IFBrowserFamily.CFamily.Edit"));
    browser->ShowMenu(QPoint());
    ASSERT_EQ(dialogs->boxes.size(), 1);
    EXPECT_EQ(dialogs->boxes[0].text, QStringLiteral("Not implemented"));
}

TEST_F(FamilyBrowserTest, TheDesktopsDragCarriesTheFamilyIDAsText)
{
    browser->SetSelectedFamilyID(QStringLiteral("PUB"));
    QMimeData data;
    browser->ListView1_OLESetData(data);
    EXPECT_EQ(data.text(), QStringLiteral("PUB"));
}

TEST_F(FamilyBrowserTest, NoReadableFamilyRaisesEmpty)
{
    kernel->Users()->Logout();
    int empties = 0;
    QObject::connect(browser.get(), &IFBrowserFamily::Empty, [&] { ++empties; });
    browser->Fill();
    EXPECT_EQ(empties, 0) << "the families that everybody reads are still there";
    browser->SetFilterLevel(1);
    EXPECT_EQ(empties, 1);
    EXPECT_EQ(browser->Rows().Count(), 0);
}
