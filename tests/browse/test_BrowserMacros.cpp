// The cart browser's macro buttons on the embedded kernel: a new macro saved with the name and
// description asked, save as, cancelled questions, load with BeforeLoad, a macro that names a
// deleted cart, a save over a cart another workstation just made, and recalculation.
#include "BrowseTest.h"
#include "browse/BrowserRowModel.h"
#include "browse/CartIDQuestion.h"
#include "browse/IFBrowserCart.h"
#include "browse/MacroDescription.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCarts.h"
#include "kernelapi/iMacro.h"
#include "kernelapi/iMacroItem.h"
#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>
#include <deque>

namespace {
const QString DescriptionPrompt =
    QStringLiteral("The Macro you are going to save has no description. Please, insert a description for this Macro.");

class BrowserMacrosTest : public BrowseTest
{
protected:
    void SetUp() override
    {
        BrowseTest::SetUp();
        previous = CartIDQuestion::Install([this](const CartIDQuestion::Request& request) -> std::optional<QString> {
            requests.push_back(request);
            if (answers.empty())
                return std::nullopt;
            std::optional<QString> answer = answers.front();
            answers.pop_front();
            return answer;
        });
        browser = std::make_unique<IFBrowserCart>();
    }
    void TearDown() override
    {
        browser.reset();
        CartIDQuestion::Install(previous);
        BrowseTest::TearDown();
    }

    void NewWith(const QStringList& cartIDs)
    {
        browser->New();
        for (const QString& id : cartIDs)
            browser->AppendByName(id, false, false);
    }
    static QStringList Keys(const IFBrowserCart& cartBrowser)
    {
        QStringList keys;
        for (const BrowserRow& row : cartBrowser.Rows().Rows())
            keys << row.key;
        return keys;
    }
    // The entries as the catalogue keeps them, read by a macro of its own.
    QStringList StoredEntries(const QString& macroID) const
    {
        const auto macro = kernel->Carts()->NewMacro();
        macro->LoadByID(macroID);
        QStringList ids;
        for (int i = 1; i <= macro->Count(); ++i)
            ids << (macro->Item(i)->Cart() ? macro->Item(i)->Cart()->ID() : QStringLiteral("-"));
        return ids;
    }
    bool Exists(const QString& id) const { return kernel->Carts()->Exists(id); }
    std::shared_ptr<iCart> Cart(const QString& id) const { return kernel->Carts()->Cart(id); }

    CartIDQuestion::Asker previous;
    std::deque<std::optional<QString>> answers;
    std::vector<CartIDQuestion::Request> requests;
    std::unique_ptr<IFBrowserCart> browser;
};
}

TEST_F(BrowserMacrosTest, ANewMacroIsSavedWithTheNameAndDescriptionAskedAndReloadsInOrder)
{
    NewWith({QStringLiteral("JIN0001"), QStringLiteral("MUS0002"), QStringLiteral("CON0001"), QStringLiteral("NEW0002")});
    browser->SetSelectedCartID(QStringLiteral("MUS0002"));
    browser->InsertDummyItem();
    ASSERT_EQ(Keys(*browser), QStringList({"JIN0001", "Blank", "MUS0002", "CON0001", "NEW0002", "Ghost"}));
    QSignalSpy saved(browser.get(), &IFBrowserCart::AfterSave);
    answers = {QStringLiteral("mes0010")};
    browser->Save();

    ASSERT_EQ(requests.size(), 1u);
    EXPECT_EQ(requests[0].kind, CartIDQuestion::Kind::Save);
    EXPECT_EQ(requests[0].cartFilter, 2);
    EXPECT_TRUE(requests[0].cartID.isEmpty());
    ASSERT_EQ(dialogs->prompts, QStringList({DescriptionPrompt}));
    EXPECT_EQ(dialogs->inputTitles, QStringList({"Macro Description"}));
    const QRegularExpression numbered(QStringLiteral("^New Macro (\\d+)$"));
    const QRegularExpressionMatch first = numbered.match(dialogs->inputDefaults[0]);
    ASSERT_TRUE(first.hasMatch()) << dialogs->inputDefaults[0].toStdString();
    EXPECT_EQ(Cart(QStringLiteral("MES0010"))->Description(), dialogs->inputDefaults[0]) << "OK on the default";
    EXPECT_EQ(saved.count(), 1);
    EXPECT_EQ(StoredEntries(QStringLiteral("MES0010")), QStringList({"JIN0001", "MUS0002", "CON0001", "NEW0002"}))
        << "the blank row and the ghost are not entries";
    EXPECT_EQ(Cart(QStringLiteral("MES0010"))->Time(),
              Cart(QStringLiteral("JIN0001"))->Time() + Cart(QStringLiteral("MUS0002"))->Time() + Cart(QStringLiteral("NEW0002"))->Time());
    EXPECT_TRUE(browser->LblTitle->text().startsWith(QStringLiteral("MES0010 - ")));
    EXPECT_EQ(Keys(*browser).size(), 6) << "the rows stay as they are";

    IFBrowserCart other;
    other.LoadMacroByName(QStringLiteral("MES0010"));
    EXPECT_EQ(Keys(other), QStringList({"JIN0001", "MUS0002", "CON0001", "NEW0002", "Ghost"}));

    // Saved again: it has a name and a description, so nothing is asked.
    browser->SetSelectedCartID(QStringLiteral("CON0001"));
    browser->DeleteSelectedItem();
    browser->Save();
    EXPECT_EQ(StoredEntries(QStringLiteral("MES0010")), QStringList({"JIN0001", "MUS0002", "NEW0002"}));
    EXPECT_EQ(requests.size(), 1u);
    EXPECT_EQ(dialogs->prompts.size(), 1);
    EXPECT_EQ(saved.count(), 2);

    // The next macro's default description takes the next number.
    NewWith({QStringLiteral("JIN0002")});
    answers = {QStringLiteral("MES0011")};
    browser->Save();
    ASSERT_EQ(dialogs->inputDefaults.size(), 2);
    EXPECT_EQ(dialogs->inputDefaults[1], QStringLiteral("New Macro %1").arg(first.captured(1).toInt() + 1));
}

TEST_F(BrowserMacrosTest, TheRunningNumberOfTheDefaultDescriptionWrapsAboveAMillion)
{
    EXPECT_EQ(MacroDescription::NextNumber(0), 1);
    EXPECT_EQ(MacroDescription::NextNumber(999999), 1000000);
    EXPECT_EQ(MacroDescription::NextNumber(1000000), 1);
}

TEST_F(BrowserMacrosTest, SaveAsWritesTheRowsUnderTheChosenIDAndLeavesTheLoadedMacroAsStored)
{
    browser->LoadMacroByName(QStringLiteral("MES0001"));
    browser->SetSelectedCartID(QStringLiteral("CON0003"));
    browser->DeleteSelectedItem();
    browser->AppendByName(QStringLiteral("ESP0001"), false, false);

    answers = {std::nullopt};
    browser->SaveAs();
    ASSERT_EQ(requests.size(), 1u);
    EXPECT_EQ(requests[0].kind, CartIDQuestion::Kind::Save);
    EXPECT_EQ(requests[0].cartFilter, 7);
    EXPECT_EQ(requests[0].cartID, QStringLiteral("MES0001"));
    EXPECT_EQ(StoredEntries(QStringLiteral("MES0001")), QStringList({"CON0003", "JIN0001", "MUS0001"})) << "cancelled";

    answers = {QStringLiteral("MES0020")};
    browser->CmdSave->menu()->findChild<QAction*>(QStringLiteral("ActSaveAs"))->trigger();
    EXPECT_EQ(StoredEntries(QStringLiteral("MES0020")), QStringList({"JIN0001", "MUS0001", "ESP0001"}));
    EXPECT_EQ(Cart(QStringLiteral("MES0020"))->Description(), QStringLiteral("Top of the hour")) << "nothing asked";
    EXPECT_TRUE(dialogs->prompts.isEmpty());
    EXPECT_EQ(StoredEntries(QStringLiteral("MES0001")), QStringList({"CON0003", "JIN0001", "MUS0001"}));
    EXPECT_EQ(Cart(QStringLiteral("MES0001"))->ID(), QStringLiteral("MES0001"));
    EXPECT_TRUE(browser->LblTitle->text().startsWith(QStringLiteral("MES0020 - ")));

    // From now on the browser edits the copy.
    browser->AppendByName(QStringLiteral("ESP0002"), false, false);
    QTest::mouseClick(browser->CmdSave, Qt::LeftButton);
    EXPECT_EQ(StoredEntries(QStringLiteral("MES0020")), QStringList({"JIN0001", "MUS0001", "ESP0001", "ESP0002"}));
    EXPECT_EQ(StoredEntries(QStringLiteral("MES0001")), QStringList({"CON0003", "JIN0001", "MUS0001"}));
}

TEST_F(BrowserMacrosTest, ACancelledNameOrDescriptionSavesNothingAndKeepsTheRows)
{
    NewWith({QStringLiteral("JIN0001"), QStringLiteral("JIN0002")});
    const QStringList rows = Keys(*browser);
    QSignalSpy saved(browser.get(), &IFBrowserCart::AfterSave);

    answers = {std::nullopt};
    browser->Save();
    EXPECT_TRUE(dialogs->prompts.isEmpty()) << "no description is asked without a name";
    EXPECT_FALSE(Exists(QStringLiteral("MES0012")));

    answers = {QStringLiteral("MES0012")};
    dialogs->inputs = {QStringLiteral("   ")};
    browser->Save();
    EXPECT_FALSE(Exists(QStringLiteral("MES0012")));
    EXPECT_EQ(saved.count(), 0);
    EXPECT_EQ(Keys(*browser), rows);
    EXPECT_EQ(browser->LblTitle->text(), QStringLiteral("<New Macro>"));

    // Asked again at the next save, and answered.
    answers = {QStringLiteral("MES0012")};
    dialogs->inputs = {QStringLiteral("Drive time")};
    browser->Save();
    EXPECT_EQ(Cart(QStringLiteral("MES0012"))->Description(), QStringLiteral("Drive time"));
    EXPECT_EQ(StoredEntries(QStringLiteral("MES0012")), QStringList({"JIN0001", "JIN0002"}));
    EXPECT_EQ(saved.count(), 1);

    // Outside a macro there is nothing to save and nothing is asked.
    browser->LoadFamilyByName(QStringLiteral("JIN"));
    browser->Save();
    browser->SaveAs();
    browser->RecalculateMacro();
    EXPECT_EQ(requests.size(), 3u);
}

TEST_F(BrowserMacrosTest, LoadAsksForAMacroUnlessBeforeLoadCancels)
{
    NewWith({QStringLiteral("JIN0001")});
    const QStringList rows = Keys(*browser);
    const auto veto = QObject::connect(browser.get(), &IFBrowserCart::BeforeLoad, [](bool* cancel) { *cancel = true; });
    answers = {QStringLiteral("PAU0001")};
    browser->Load();
    EXPECT_TRUE(requests.empty());
    EXPECT_EQ(Keys(*browser), rows);
    QObject::disconnect(veto);

    QTest::mouseClick(browser->CmdLoad, Qt::LeftButton);
    ASSERT_EQ(requests.size(), 1u);
    EXPECT_EQ(requests[0].kind, CartIDQuestion::Kind::Open);
    EXPECT_EQ(requests[0].cartFilter, 2);
    EXPECT_EQ(Keys(*browser), QStringList({"CON0002", "PUB0001", "PUB0002", "PUB0003", "JIN0002", "Ghost"}));

    answers = {std::nullopt};
    browser->Load();
    EXPECT_EQ(Keys(*browser).size(), 6) << "a cancelled dialog keeps the macro";

    answers = {QStringLiteral("JIN0001")};
    browser->Load();
    ASSERT_EQ(dialogs->boxes.size(), 1);
    EXPECT_TRUE(dialogs->boxes[0].text.contains(QStringLiteral("JIN0001")));
    EXPECT_EQ(Keys(*browser).size(), 6);
}

TEST_F(BrowserMacrosTest, AMacroNamingADeletedCartShowsItMissingAndSavesWithoutCrashing)
{
    ASSERT_FALSE(kernel->Carts()->DeleteCart(QStringLiteral("MUS0001"), false).failed);
    browser->LoadMacroByName(QStringLiteral("MES0001"));
    ASSERT_EQ(Keys(*browser), QStringList({"CON0003", "JIN0001", "MUS0001", "Ghost"}));
    EXPECT_EQ(browser->Rows().Row(2).sub2, QStringLiteral("[Unknown]"));
    EXPECT_EQ(browser->Rows().Row(2).icon, QStringLiteral("-1"));

    browser->SetSelectedCartID(QStringLiteral("MUS0001"));
    browser->InsertDummyItem();
    browser->Save();
    EXPECT_TRUE(dialogs->boxes.isEmpty());
    EXPECT_EQ(StoredEntries(QStringLiteral("MES0001")), QStringList({"CON0003", "JIN0001", "MUS0001"}))
        << "the missing cart keeps its place, the blank row is not written";
    EXPECT_EQ(Cart(QStringLiteral("MES0001"))->Time(), Cart(QStringLiteral("JIN0001"))->Time());
}

TEST_F(BrowserMacrosTest, ASaveOverACartAnotherWorkstationJustMadeIsRefusedAndTold)
{
    NewWith({QStringLiteral("JIN0001")});
    {
        const auto otherWorkstation = EmbeddedKernel::Open(station.Folder(), nullptr);
        const auto sound = otherWorkstation->Carts()->NewCart();
        sound->SetID(QStringLiteral("MES0030"));
        sound->SetType(CartType::Sound);
        sound->SetDescription(QStringLiteral("Their sound"));
        sound->Save();
    }
    QSignalSpy saved(browser.get(), &IFBrowserCart::AfterSave);
    answers = {QStringLiteral("MES0030")};
    dialogs->inputs = {QStringLiteral("Mine")};
    browser->Save();
    ASSERT_EQ(dialogs->boxes.size(), 1);
    EXPECT_TRUE(dialogs->boxes[0].text.contains(QStringLiteral("MES0030")));
    EXPECT_EQ(dialogs->boxes[0].icon, Dialogs::Icon::Warning);
    EXPECT_EQ(Cart(QStringLiteral("MES0030"))->Type(), CartType::Sound);
    EXPECT_EQ(Cart(QStringLiteral("MES0030"))->Description(), QStringLiteral("Their sound"));
    EXPECT_EQ(saved.count(), 0);
    EXPECT_EQ(browser->LblTitle->text(), QStringLiteral("<New Macro>"));

    // Save as an ID that is no cart ID is refused the same way.
    answers = {QStringLiteral("MES00")};
    browser->SaveAs();
    EXPECT_EQ(dialogs->boxes.size(), 2);

    // Another name is asked at the next save, and goes through.
    answers = {QStringLiteral("MES0031")};
    dialogs->inputs = {QStringLiteral("Mine")};
    browser->Save();
    EXPECT_EQ(StoredEntries(QStringLiteral("MES0031")), QStringList({"JIN0001"}));
}

TEST_F(BrowserMacrosTest, RecalculationShowsTheMacrosStoredLengthAndTheRowsAsTheyStandNow)
{
    browser->LoadMacroByName(QStringLiteral("MES0002"));
    const qint32 before = Cart(QStringLiteral("MES0002"))->Time();
    ASSERT_GT(before, 0);
    ASSERT_FALSE(kernel->Carts()->DeleteCart(QStringLiteral("NEW0001"), false).failed);
    EXPECT_NE(browser->Rows().Row(2).sub2, QStringLiteral("[Unknown]")) << "the rows are read again by the recalculation";

    QTest::mouseClick(browser->CmdRecalculate, Qt::LeftButton);
    EXPECT_EQ(Cart(QStringLiteral("MES0002"))->Time(), Cart(QStringLiteral("JIN0004"))->Time() + Cart(QStringLiteral("NEW0002"))->Time());
    EXPECT_EQ(browser->Rows().Row(2).key, QStringLiteral("NEW0001"));
    EXPECT_EQ(browser->Rows().Row(2).sub2, QStringLiteral("[Unknown]"));
    EXPECT_EQ(browser->Rows().Row(2).ms, 0);
    EXPECT_TRUE(dialogs->boxes.isEmpty());

    // A macro never saved has nothing stored to add up: its rows refresh, nothing is told.
    NewWith({QStringLiteral("JIN0001")});
    browser->RecalculateMacro();
    EXPECT_TRUE(dialogs->boxes.isEmpty());
    EXPECT_EQ(browser->Rows().Row(0).ms, Cart(QStringLiteral("JIN0001"))->Time());
}

TEST_F(BrowserMacrosTest, TheMacroButtonsShowWithTheDiscControls)
{
    for (QToolButton* button : {browser->CmdNew, browser->CmdLoad, browser->CmdSave, browser->CmdRecalculate})
        EXPECT_FALSE(button->isVisibleTo(browser.get())) << button->objectName().toStdString();
    browser->SetShowDiscControls(true);
    for (QToolButton* button : {browser->CmdNew, browser->CmdLoad, browser->CmdSave, browser->CmdRecalculate})
        EXPECT_TRUE(button->isVisibleTo(browser.get())) << button->objectName().toStdString();
}
