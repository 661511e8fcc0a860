// The cart ID selector on the demo station's kernel, as the presenter (reads most families,
// writes NEW and TMP, nothing of CON): the check of the ID in each mode, the board's texts,
// the suggestion of a free ID, and OK and Cancel; then the dialog and the common dialog.
#include "EditingTest.h"
#include "browse/IFBrowserCart.h"
#include "browse/IFBrowserFamily.h"
#include "browse/BrowserRowModel.h"
#include "editing/DlgCartIDSelector.h"
#include "editing/IFCartIDSelector.h"
#include "editing/KorvaneCommonDialog.h"
#include "foundation/CartNumbers.h"
#include "foundation/controls/IFBlackBoard.h"
#include "shell/modGlobals.h"
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

namespace {
class SelectorTest : public EditingTest
{
protected:
    void SetUp() override
    {
        EditingTest::SetUp();
        modGlobals::SetRecordsets();
        LoginAs(QStringLiteral("PRESENTER"), QStringLiteral("onair"));
        selector = std::make_unique<IFCartIDSelector>();
        selector->resize(760, 540);
        selector->show();
    }
    void TearDown() override
    {
        selector.reset();
        Globals::Data().Close();
        EditingTest::TearDown();
    }

    // Types an ID as a user would, and gives the board's first line.
    QString Check(const QString& id)
    {
        selector->TxtID->clear();
        QTest::keyClicks(selector->TxtID, id);
        return Board().value(0);
    }
    QStringList Board() const { return selector->Info->PrintedLines(); }
    bool OkEnabled() const { return selector->CmdOK->isEnabled(); }
    QStringList Families() const
    {
        QStringList keys;
        for (const BrowserRow& row : selector->IFBrowserFamily1->Rows().Rows())
            keys << row.key;
        return keys;
    }

    std::unique_ptr<IFCartIDSelector> selector;
};

// Works the dialog as a user would and returns, in place of the modal loop.
class ScriptedModal
{
public:
    explicit ScriptedModal(std::function<void(DlgCartIDSelector&)> work)
        : m_previous(KorvaneCommonDialog::SetModalRunner([this, work](DlgCartIDSelector& dialog) {
              ++shown;
              work(dialog);
          }))
    {
    }
    ~ScriptedModal() { KorvaneCommonDialog::SetModalRunner(std::move(m_previous)); }

    int shown = 0;

private:
    KorvaneCommonDialog::ModalRunner m_previous;
};
}

TEST_F(SelectorTest, OpeningAsksForACartTheUserMayRead)
{
    EXPECT_EQ(Check(QStringLiteral("MU")), QStringLiteral("Invalid ID"));
    EXPECT_EQ(selector->Info->Color(), 2) << "a warning in amber";
    EXPECT_FALSE(OkEnabled());
    EXPECT_EQ(Check(QStringLiteral("XYZ0001")), QStringLiteral("Family not exists"));
    EXPECT_EQ(selector->Info->Color(), 3);
    EXPECT_EQ(Check(QStringLiteral("CON0001")), QStringLiteral("Without reading permissions"));
    EXPECT_FALSE(OkEnabled());
    EXPECT_EQ(Check(QStringLiteral("MUS9999")), QStringLiteral("ID not exists"));
    EXPECT_FALSE(OkEnabled());

    EXPECT_EQ(Check(QStringLiteral("mus0001")), QStringLiteral("MUS0001")) << "typed in lower case, read in upper";
    EXPECT_EQ(selector->TxtID->text(), QStringLiteral("MUS0001"));
    EXPECT_TRUE(OkEnabled());
    const QStringList lines = Board();
    ASSERT_EQ(lines.size(), 6) << lines.join('|').toStdString();
    EXPECT_TRUE(lines[1].startsWith(QStringLiteral("Descr:")));
    EXPECT_TRUE(lines[1].contains(Cart(QStringLiteral("MUS0001"))->Description()));
    EXPECT_TRUE(lines[2].startsWith(QStringLiteral("Comment:")));
    EXPECT_TRUE(lines[3].startsWith(QStringLiteral("Type:")));
    EXPECT_TRUE(lines[4].startsWith(QStringLiteral("DurCart:")));
    EXPECT_TRUE(lines[5].startsWith(QStringLiteral("DurFile:")));
    EXPECT_FALSE(selector->IDControls->isVisible());
    EXPECT_FALSE(selector->vsDescComment->isVisible());
}

TEST_F(SelectorTest, SavingAsksForAFreeIDWhereTheUserMayWrite)
{
    selector->SetMode(IFCartIDSelector::SaveMode);
    EXPECT_TRUE(selector->IDControls->isVisible());
    EXPECT_FALSE(selector->vsDescComment->isVisible()) << "without DescMode";
    EXPECT_EQ(Families(), QStringList({"NEW", "TMP"})) << "only the families the user may write";

    EXPECT_EQ(Check(QStringLiteral("MUS9999")), QStringLiteral("Without writing permissions"));
    EXPECT_FALSE(OkEnabled());
    EXPECT_EQ(Check(QStringLiteral("MUS0001")), QStringLiteral("Without writing permissions"));
    EXPECT_FALSE(OkEnabled());
    EXPECT_EQ(Check(QStringLiteral("NEW9999")), QStringLiteral("Available ID"));
    EXPECT_TRUE(OkEnabled());

    ASSERT_TRUE(Exists(QStringLiteral("NEW0001")));
    EXPECT_EQ(Check(QStringLiteral("NEW0001")), QStringLiteral("*** Used ID ***"));
    EXPECT_EQ(Board().value(1), QStringLiteral("NEW0001"));
    EXPECT_FALSE(OkEnabled());
    selector->SetAllowExisting(true);
    EXPECT_TRUE(OkEnabled()) << "a cart may be written over when the host allows it";

    selector->SetMode(7);
    EXPECT_EQ(Board().value(0), QStringLiteral("Unknown mode"));
    EXPECT_FALSE(OkEnabled());
}

TEST_F(SelectorTest, TheSuggestionIsTheFamilysNextFreeID)
{
    selector->SetMode(IFCartIDSelector::SaveMode);
    selector->ChkAuto->click();
    EXPECT_TRUE(selector->Auto());
    selector->IFBrowserFamily1->SetSelectedFamilyID(QStringLiteral("NEW"));
    EXPECT_EQ(selector->SelectedFamilyID(), QStringLiteral("NEW"));
    EXPECT_EQ(selector->TxtID->text(), QStringLiteral("NEW") + FreeCartNumber(QStringLiteral("NEW"), false));
    EXPECT_EQ(Board().value(0), QStringLiteral("Available ID"));

    selector->ChkFillHoles->click();
    EXPECT_TRUE(selector->FillHoles());
    selector->TxtID->clear();
    selector->CmdAuto->click();
    EXPECT_EQ(selector->TxtID->text(), QStringLiteral("NEW") + FreeCartNumber(QStringLiteral("NEW"), true));
}

TEST_F(SelectorTest, OKGivesTheIDAndTheTextsOnlyWhenTheyAreShown)
{
    QSignalSpy ok(selector.get(), &IFCartIDSelector::OK);
    QSignalSpy cancel(selector.get(), &IFCartIDSelector::Cancel);
    selector->SetMode(IFCartIDSelector::SaveMode);
    Check(QStringLiteral("NEW9998"));
    selector->txtDescription->setText(QStringLiteral(" Hidden "));
    selector->CmdOK->click();
    ASSERT_EQ(ok.size(), 1);
    EXPECT_EQ(ok.first().first().toString(), QStringLiteral("NEW9998"));
    EXPECT_EQ(selector->SelectedDescription(), QString()) << "not shown, not given";

    selector->SetDescMode(true);
    EXPECT_TRUE(selector->vsDescComment->isVisible());
    selector->txtComment->setText(QStringLiteral("Take two "));
    selector->CmdOK->click();
    EXPECT_EQ(selector->SelectedDescription(), QStringLiteral("Hidden"));
    EXPECT_EQ(selector->SelectedComment(), QStringLiteral("Take two"));
    selector->CmdCancel->click();
    EXPECT_EQ(cancel.size(), 1);
}

TEST_F(SelectorTest, AClickedCartComesIntoTheBox)
{
    selector->SetSelectedID(QStringLiteral("MUS0001"));
    EXPECT_EQ(selector->IFBrowserFamily1->SelectedFamilyID(), QStringLiteral("MUS"));
    Q_EMIT selector->IFBrowserCart1->ItemClicked(QStringLiteral("JIN0001"));
    EXPECT_EQ(selector->TxtID->text(), QStringLiteral("JIN0001"));
    EXPECT_EQ(Board().value(0), QStringLiteral("JIN0001"));
}

TEST_F(SelectorTest, TheDialogClosesOnOKWithTheIDAndOnCancelWithout)
{
    DlgCartIDSelector dialog;
    dialog.show();
    dialog.Selector()->TxtID->setText(QStringLiteral("MUS0001"));
    dialog.Selector()->CmdOK->click();
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(dialog.ID(), QStringLiteral("MUS0001"));
    dialog.show();
    dialog.Selector()->CmdCancel->click();
    EXPECT_EQ(dialog.result(), QDialog::Rejected);
    EXPECT_EQ(dialog.ID(), QString());
}

TEST_F(SelectorTest, OpenCartHandsTheIDAndKindsAndACancelGivesNothing)
{
    KorvaneCommonDialog common;
    common.SetCartId(QStringLiteral("MUS0001"));
    common.SetCartFilter(KorvaneCommonDialog::Macros);
    ScriptedModal modal([](DlgCartIDSelector& dialog) {
        IFCartIDSelector& inside = *dialog.Selector();
        EXPECT_EQ(inside.Mode(), IFCartIDSelector::OpenMode);
        EXPECT_EQ(inside.TxtID->text(), QStringLiteral("MUS0001"));
        EXPECT_FALSE(inside.AllowSounds());
        EXPECT_TRUE(inside.AllowMacros());
        EXPECT_FALSE(inside.AllowControls());
        inside.CmdCancel->click();
    });
    common.ShowOpenCart();
    EXPECT_EQ(modal.shown, 1);
    EXPECT_EQ(common.CartId(), QString());
    common.Clear();
    EXPECT_EQ(common.CartFilter(), 7);
}

TEST_F(SelectorTest, SaveCartReadsBackTheIDDescriptionAndComment)
{
    KorvaneCommonDialog common;
    ScriptedModal modal([](DlgCartIDSelector& dialog) {
        IFCartIDSelector& inside = *dialog.Selector();
        EXPECT_EQ(inside.Mode(), IFCartIDSelector::SaveMode);
        EXPECT_TRUE(inside.vsDescComment->isVisibleTo(&dialog));
        inside.TxtID->setText(QStringLiteral("NEW0001"));
        EXPECT_TRUE(inside.CmdOK->isEnabled()) << "an existing cart may be taken when allowed";
        inside.txtDescription->setText(QStringLiteral("Jingle"));
        inside.txtComment->setText(QStringLiteral("New year"));
        inside.CmdOK->click();
    });
    common.ShowSaveCart(true);
    EXPECT_EQ(common.CartId(), QStringLiteral("NEW0001"));
    EXPECT_EQ(common.CartDescription(), QStringLiteral("Jingle"));
    EXPECT_EQ(common.CartComment(), QStringLiteral("New year"));
    common.Clear();
    EXPECT_EQ(common.CartId(), QString());
    EXPECT_EQ(common.CartDescription(), QString());
}
