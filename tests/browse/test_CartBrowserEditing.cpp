// The cart browser's own editing on the embedded kernel: the inline editor of a cart's
// description and comment, fast deletion under a clock the test moves, and moves and
// duplicates to an ID the user gives ("Others").
#include "BrowseTest.h"
#include "browse/BrowserRowModel.h"
#include "browse/CartHeaderEditor.h"
#include "browse/CartIDQuestion.h"
#include "browse/IFBrowserCart.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCarts.h"
#include "kernelapi/iFamilies.h"
#include "kernelapi/iFamily.h"
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QToolButton>

namespace {
class CartBrowserEditingTest : public BrowseTest
{
protected:
    void SetUp() override
    {
        BrowseTest::SetUp();
        LoginAs(QStringLiteral("PRESENTER"), QStringLiteral("onair"));
        browser = std::make_unique<IFBrowserCart>();
        browser->resize(520, 320);
        browser->show();
        QApplication::setActiveWindow(browser.get());
        browser->SetClock([this] { return now; });
        browser->LoadFamilyByName(QStringLiteral("NEW"));
        // As after the press that opens the menu: the list holds the focus.
        browser->ListView1->setFocus();
        keys = std::make_unique<QSignalSpy>(browser.get(), &IFBrowserCart::IWantTheKeys);
    }
    void Choose(const QString& cartID, const QString& key)
    {
        browser->SetSelectedCartID(cartID);
        dialogs->popupChoices.push_back(key);
        browser->ShowMenu(QPoint());
    }
    std::shared_ptr<iCart> Cart(const QString& id) const { return kernel->Carts()->Cart(id); }
    bool Exists(const QString& id) const { return kernel->Carts()->Exists(id); }
    CartHeaderEditor& Editor() const { return *browser->Editor; }
    // Ticks TmrOpen until it stops; the heights on the way.
    QList<int> Open()
    {
        QList<int> heights;
        while (Editor().TmrOpen->isActive() && heights.size() < 100) {
            Editor().TmrOpen_Timer();
            heights << Editor().height();
        }
        return heights;
    }
    void RollUp()
    {
        for (int tick = 0; Editor().TmrClose->isActive() && tick < 100; ++tick)
            Editor().TmrClose_Timer();
    }
    QList<bool> KeysWanted() const
    {
        QList<bool> wanted;
        for (const QList<QVariant>& call : *keys)
            wanted << call[0].toBool();
        return wanted;
    }
    // The line of the last menu shown at that path of texts.
    const Dialogs::PopupLine& MenuLine(const QStringList& path) const
    {
        const Dialogs::PopupLine* line = Find(dialogs->menus.last(), path.first());
        for (qsizetype depth = 1; line && depth < path.size(); ++depth)
            line = Find(line->lines, path[depth]);
        static const Dialogs::PopupLine none;
        if (!line)
            ADD_FAILURE() << "no line " << path.join(QLatin1Char('/')).toStdString();
        return line ? *line : none;
    }
    template<class Lines>
    static const Dialogs::PopupLine* Find(const Lines& lines, const QString& text)
    {
        const auto found = std::find_if(lines.begin(), lines.end(), [&](const auto& line) { return line.text == text; });
        return found == lines.end() ? nullptr : &*found;
    }

    QDateTime now{QDate(2026, 3, 1), QTime(10, 0, 0)};
    std::unique_ptr<IFBrowserCart> browser;
    std::unique_ptr<QSignalSpy> keys;
};

class OthersTest : public CartBrowserEditingTest
{
protected:
    void SetUp() override
    {
        CartBrowserEditingTest::SetUp();
        previous = CartIDQuestion::Install([this](const CartIDQuestion::Request& request) {
            requests.push_back(request);
            return answer;
        });
    }
    void TearDown() override
    {
        CartIDQuestion::Install(previous);
        CartBrowserEditingTest::TearDown();
    }

    std::optional<QString> answer;
    QVector<CartIDQuestion::Request> requests;
    CartIDQuestion::Asker previous;
};
}

TEST_F(CartBrowserEditingTest, TheEditorOpensBelowTheRowGrowingInStepsAndWantsTheKeys)
{
    Choose(QStringLiteral("NEW0001"), QStringLiteral("IFBrowserCart.EditCartHeader"));
    EXPECT_TRUE(MenuLine({"Edit", "Edit header"}).enabled);
    ASSERT_TRUE(Editor().isVisible());
    EXPECT_EQ(Editor().LblSelectedID->text(), QStringLiteral("NEW0001"));
    EXPECT_EQ(Editor().TxtDescription->text(), QStringLiteral("News bed"));
    EXPECT_EQ(Editor().TxtComment->text(), QStringLiteral("Under the headlines"));
    EXPECT_EQ(Editor().height(), 0);
    EXPECT_EQ(Editor().TmrOpen->interval(), 25);
    EXPECT_EQ(KeysWanted(), QList<bool>({true}));
    EXPECT_EQ(QApplication::focusWidget(), Editor().TxtDescription);
    const QRect row = browser->ListView1->visualRect(browser->Rows().index(0, 0));
    EXPECT_EQ(Editor().y(), browser->ListView1->viewport()->mapTo(browser.get(), row.bottomLeft()).y() + 1) << "below the selected row";

    const QList<int> heights = Open();
    ASSERT_EQ(heights.size(), 14);
    for (int step = 0; step < 13; ++step)
        EXPECT_EQ(heights[step], (step + 1) * CartHeaderEditor::StepHeight);
    EXPECT_EQ(heights.last(), CartHeaderEditor::FullHeight);
    EXPECT_EQ(browser->ListView1->focusPolicy(), Qt::NoFocus) << "the list left the tab order";
}

TEST_F(CartBrowserEditingTest, NearTheBottomTheEditorMovesUpToStayInsideAndItFollowsTheBrowsersSize)
{
    browser->resize(520, 170);
    browser->SetSelectedCartID(QStringLiteral("NEW0002"));
    browser->Edit();
    EXPECT_EQ(Editor().width(), browser->ListView1->width());
    const int below = Editor().y();
    while (Editor().TmrOpen->isActive()) {
        Editor().TmrOpen_Timer();
        EXPECT_LE(Editor().geometry().bottom(), browser->height() - 1);
    }
    EXPECT_LT(Editor().y(), below);
    EXPECT_EQ(Editor().height(), CartHeaderEditor::FullHeight);

    const int narrow = Editor().width();
    browser->resize(640, 150);
    EXPECT_EQ(Editor().width(), narrow + 120);
    EXPECT_EQ(Editor().geometry().right(), browser->ListView1->geometry().right());
    EXPECT_LE(Editor().geometry().bottom(), browser->height() - 1);
    EXPECT_EQ(Editor().height(), CartHeaderEditor::FullHeight);
}

TEST_F(CartBrowserEditingTest, EnterGoesOnToTheCommentThenAcceptsAndTheRowShowsTheNewText)
{
    browser->SetSelectedCartID(QStringLiteral("NEW0001"));
    browser->Edit();
    Open();
    Editor().TxtDescription->setText(QStringLiteral("  Morning news bed "));
    QTest::keyClick(Editor().TxtDescription, Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), Editor().TxtComment);
    EXPECT_TRUE(Editor().IsEditing()) << "Enter in the description does not accept";
    Editor().TxtComment->setText(QStringLiteral("Only before nine"));
    QTest::keyClick(Editor().TxtComment, Qt::Key_Return);

    EXPECT_EQ(Cart(QStringLiteral("NEW0001"))->Description(), QStringLiteral("Morning news bed")) << "written trimmed";
    EXPECT_EQ(Cart(QStringLiteral("NEW0001"))->Comment(), QStringLiteral("Only before nine"));
    EXPECT_EQ(browser->Rows().Row(browser->Rows().Find(QStringLiteral("NEW0001"))).sub2, Cart(QStringLiteral("NEW0001"))->Title());
    EXPECT_TRUE(browser->Rows().Row(0).sub2.contains(QStringLiteral("Morning news bed")));
    EXPECT_EQ(KeysWanted(), QList<bool>({true, false}));
    EXPECT_EQ(QApplication::focusWidget(), browser->ListView1) << "the focus goes back to the list, not to the search";
    EXPECT_TRUE(dialogs->boxes.isEmpty());

    ASSERT_TRUE(Editor().TmrClose->isActive());
    const int opened = Editor().height();
    Editor().TmrClose_Timer();
    EXPECT_EQ(Editor().height(), opened - CartHeaderEditor::StepHeight);
    RollUp();
    EXPECT_FALSE(Editor().isVisible());
    EXPECT_EQ(Editor().height(), 0);
    EXPECT_EQ(browser->ListView1->focusPolicy(), Qt::StrongFocus) << "the list rejoined the tab order";
}

TEST_F(CartBrowserEditingTest, UnchangedTextsAreNotSavedAndCancelWritesNothing)
{
    QSignalSpy saved(Cart(QStringLiteral("NEW0001")).get(), &iCart::ChangedProperties);
    browser->SetSelectedCartID(QStringLiteral("NEW0001"));
    browser->Edit();
    Editor().TxtDescription->setText(QStringLiteral("News bed  "));
    Editor().EditAccept();
    EXPECT_EQ(saved.count(), 0) << "only blanks were added";
    EXPECT_FALSE(Editor().IsEditing());

    for (QLineEdit* field : {Editor().TxtDescription, Editor().TxtComment}) {
        browser->Edit();
        Editor().TxtDescription->setText(QStringLiteral("Changed"));
        QTest::keyClick(field, Qt::Key_Escape);
        EXPECT_FALSE(Editor().IsEditing());
    }
    browser->Edit();
    Editor().TxtComment->setText(QStringLiteral("Changed"));
    QTest::mouseClick(Editor().CmdCancel, Qt::LeftButton);
    EXPECT_FALSE(Editor().IsEditing());
    EXPECT_EQ(saved.count(), 0);
    EXPECT_EQ(Cart(QStringLiteral("NEW0001"))->Comment(), QStringLiteral("Under the headlines"));
    EXPECT_EQ(KeysWanted(), QList<bool>({true, false, true, false, true, false, true, false}));
}

TEST_F(CartBrowserEditingTest, ACartDeletedWhileItsHeaderIsEditedIsToldAndNotWritten)
{
    browser->SetSelectedCartID(QStringLiteral("NEW0002"));
    browser->Edit();
    ASSERT_FALSE(kernel->Carts()->DeleteCart(QStringLiteral("NEW0002"), false).failed);
    Editor().TxtDescription->setText(QStringLiteral("Brought back?"));
    QTest::mouseClick(Editor().CmdAccept, Qt::LeftButton);
    ASSERT_EQ(dialogs->boxes.size(), 1);
    EXPECT_TRUE(dialogs->boxes[0].text.contains(QStringLiteral("NEW0002")));
    EXPECT_FALSE(Exists(QStringLiteral("NEW0002")));
    EXPECT_FALSE(Editor().IsEditing());
    EXPECT_EQ(KeysWanted(), QList<bool>({true, false}));
}

TEST_F(CartBrowserEditingTest, FastDeletionTurnsTheListRedForFiveMinutesFromTheLastClick)
{
    EXPECT_FALSE(browser->TmrAllowFastDeletion->isActive());
    Choose(QStringLiteral("NEW0001"), QStringLiteral("CFamily.AllowFastDeletion"));
    EXPECT_TRUE(MenuLine({"Fast deletion", "Allow for 5 min"}).enabled);
    EXPECT_FALSE(MenuLine({"Fast deletion", "Forbid"}).enabled);
    EXPECT_TRUE(browser->FastDeletion());
    EXPECT_EQ(browser->FastDeletionDeadline(), now.addSecs(300));
    EXPECT_EQ(browser->ListView1->BackColor(), QColor(255, 128, 128));
    EXPECT_TRUE(browser->TmrAllowFastDeletion->isActive());
    EXPECT_EQ(browser->TmrAllowFastDeletion->interval(), 5000);

    now = now.addSecs(240);
    Choose(QStringLiteral("NEW0001"), QStringLiteral("CFamily.AllowFastDeletion"));
    EXPECT_EQ(MenuLine({"Fast deletion", "Allow for 5 min more, currently set at 10:05:00"}).key, QStringLiteral("CFamily.AllowFastDeletion"));
    EXPECT_TRUE(MenuLine({"Fast deletion", "Forbid"}).enabled);
    EXPECT_EQ(browser->FastDeletionDeadline(), now.addSecs(300)) << "five minutes from the click, not from the old deadline";

    now = now.addSecs(300);
    browser->TmrAllowFastDeletion_Timer();
    EXPECT_TRUE(browser->FastDeletion()) << "the deadline itself is not past";
    browser->LoadFamilyByName(QStringLiteral("TMP"));
    EXPECT_EQ(browser->ListView1->BackColor(), QColor(255, 128, 128)) << "a new fill keeps the warning colour";
    now = now.addSecs(1);
    browser->TmrAllowFastDeletion_Timer();
    EXPECT_FALSE(browser->FastDeletion());
    EXPECT_FALSE(browser->FastDeletionDeadline().isValid());
    EXPECT_EQ(browser->ListView1->BackColor(), QColor(255, 255, 255));
    EXPECT_FALSE(browser->TmrAllowFastDeletion->isActive());
}

TEST_F(CartBrowserEditingTest, ForbidEndsFastDeletionAndAMacroEndsItAtTheNextLook)
{
    browser->SetGrayed(true);
    Choose(QStringLiteral("NEW0001"), QStringLiteral("CFamily.AllowFastDeletion"));
    EXPECT_EQ(browser->ListView1->BackColor(), QColor(255, 128, 128));
    Choose(QStringLiteral("NEW0001"), QStringLiteral("CFamily.ForbidFastDeletion"));
    EXPECT_FALSE(browser->FastDeletion());
    EXPECT_EQ(browser->ListView1->BackColor(), QColor(128, 128, 128)) << "back to gray";

    browser->StartFastDeletion();
    browser->LoadMacroByName(QStringLiteral("MES0000"));
    browser->TmrAllowFastDeletion_Timer();
    EXPECT_FALSE(browser->FastDeletion());
}

TEST_F(CartBrowserEditingTest, WhileFastDeletionIsOnDeleteRemovesTheCartWithNoQuestion)
{
    browser->SetSelectedCartID(QStringLiteral("NEW0001"));
    QTest::keyClick(browser->ListView1, Qt::Key_Delete);
    EXPECT_TRUE(Exists(QStringLiteral("NEW0001"))) << "off, Delete does nothing";

    browser->StartFastDeletion();
    QTest::keyClick(browser->ListView1, Qt::Key_Delete);
    EXPECT_FALSE(Exists(QStringLiteral("NEW0001")));
    EXPECT_TRUE(Exists(QStringLiteral("NEW0002")));
    EXPECT_TRUE(dialogs->boxes.isEmpty());
    EXPECT_EQ(browser->Rows().Find(QStringLiteral("NEW0001")), -1);
    EXPECT_EQ(browser->SelectedCartID(), QStringLiteral("NEW0002")) << "the next cart is ready";

    // Another workstation deleted the cart; its change has not reached this list yet.
    const std::shared_ptr<iFamily> family = kernel->Families()->Item(QStringLiteral("NEW"));
    family->blockSignals(true);
    ASSERT_FALSE(kernel->Carts()->DeleteCart(QStringLiteral("NEW0002"), false).failed);
    family->blockSignals(false);
    QTest::keyClick(browser->ListView1, Qt::Key_Delete);
    ASSERT_EQ(dialogs->boxes.size(), 1);
    EXPECT_TRUE(dialogs->boxes[0].text.contains(QStringLiteral("NEW0002")));
    EXPECT_TRUE(browser->FastDeletion()) << "a refusal leaves fast deletion on";
}

TEST_F(OthersTest, MoveAndDuplicateToTheIDTheUserGives)
{
    answer = QStringLiteral(" tmp0009 ");
    Choose(QStringLiteral("NEW0001"), QStringLiteral("IFBrowserCart.SendTo.Others"));
    EXPECT_TRUE(MenuLine({"Move to", "Others", "..."}).enabled);
    EXPECT_TRUE(MenuLine({"Duplicate to", "Others", "..."}).enabled);
    ASSERT_EQ(requests.size(), 1);
    EXPECT_EQ(requests[0].kind, CartIDQuestion::Kind::Open);
    EXPECT_EQ(requests[0].cartID, QStringLiteral("NEW0001"));
    EXPECT_EQ(requests[0].parent, browser.get());
    EXPECT_FALSE(Exists(QStringLiteral("NEW0001")));
    EXPECT_TRUE(Exists(QStringLiteral("TMP0009")));
    EXPECT_EQ(browser->Rows().Find(QStringLiteral("NEW0001")), -1) << "the source family is refreshed";

    answer = QStringLiteral("NEW0008");
    Choose(QStringLiteral("NEW0002"), QStringLiteral("IFBrowserCart.DuplicateTo.Others"));
    EXPECT_TRUE(Exists(QStringLiteral("NEW0002")));
    EXPECT_TRUE(Exists(QStringLiteral("NEW0008")));
    EXPECT_GE(browser->Rows().Find(QStringLiteral("NEW0008")), 0);
    EXPECT_TRUE(dialogs->boxes.isEmpty());
}

TEST_F(OthersTest, ATakenOrRefusedIDIsToldAndACancelledQuestionDoesNothing)
{
    answer = QStringLiteral("TMP0001");
    Choose(QStringLiteral("NEW0001"), QStringLiteral("IFBrowserCart.SendTo.Others"));
    ASSERT_EQ(dialogs->boxes.size(), 1);
    EXPECT_TRUE(dialogs->boxes[0].text.contains(QStringLiteral("TMP0001")));
    EXPECT_EQ(Cart(QStringLiteral("TMP0001"))->Description(), QStringLiteral("Traffic report"));

    answer = QStringLiteral("NEW12");
    Choose(QStringLiteral("NEW0001"), QStringLiteral("IFBrowserCart.DuplicateTo.Others"));
    ASSERT_EQ(dialogs->boxes.size(), 2);
    EXPECT_EQ(dialogs->boxes[1].text, QStringLiteral("An error occured."));
    EXPECT_TRUE(Exists(QStringLiteral("NEW0001")));

    QSignalSpy refreshed(kernel->Families()->Item(QStringLiteral("NEW")).get(), &iFamily::ChangedContents);
    answer = std::nullopt;
    Choose(QStringLiteral("NEW0001"), QStringLiteral("IFBrowserCart.SendTo.Others"));
    EXPECT_EQ(requests.size(), 3);
    EXPECT_TRUE(Exists(QStringLiteral("NEW0001")));
    EXPECT_EQ(dialogs->boxes.size(), 2);
    EXPECT_EQ(refreshed.count(), 0) << "nothing is refreshed";
}
