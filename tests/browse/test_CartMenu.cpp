// The cart browser's popup menu lines, without widgets, for each cart type and mode.
#include "browse/CartMenu.h"
#include <QStringList>
#include <gtest/gtest.h>

namespace {
QStringList Texts(const std::vector<Dialogs::PopupLine>& lines)
{
    QStringList texts;
    for (const auto& line : lines)
        texts << line.text + QLatin1Char(' ') + line.key;
    return texts;
}
QStringList Texts(const QVector<Dialogs::PopupLine>& lines)
{
    return Texts(std::vector<Dialogs::PopupLine>(lines.begin(), lines.end()));
}
const Dialogs::PopupLine& Find(const QVector<Dialogs::PopupLine>& lines, const QString& text)
{
    for (const auto& line : lines)
        if (line.text == text)
            return line;
    static const Dialogs::PopupLine none;
    ADD_FAILURE() << "no line " << text.toStdString();
    return none;
}
CartMenu::Context Context(CartType type, const QString& id = QStringLiteral("NEW0003"))
{
    CartMenu::Context context;
    context.hasCart = true;
    context.type = type;
    context.cartID = id;
    context.familyID = QStringLiteral("NEW");
    context.spacerSlots = {2, 4};
    context.destinations = {{QStringLiteral("NEW"), {0, 7}}, {QStringLiteral("TMP"), {}}};
    context.mode = 1;
    return context;
}
}

TEST(CartMenuLines, ASoundCartInAFamily)
{
    const auto lines = CartMenu::Lines(Context(CartType::Sound));
    EXPECT_EQ(Texts(lines), QStringList({"-Cart ", "Edit ", "Duplicate to ", "Move to ", "Export ", "Recalculate ", "Delete sound NEW0003 ",
                                         "Empty sound NEW0003 ", "Print sound IFBrowserCart.Print", "-Family ", "Insert spacer at ",
                                         "Fast deletion ", "Recalculate ", "-Cancel ", "Cancel Cancel"}));
    EXPECT_EQ(Texts(Find(lines, "Edit").lines), QStringList({"Edit header IFBrowserCart.EditCartHeader", "Edit sound IFBrowserCart.EditCartSound"}));
    EXPECT_TRUE(Find(lines, "Edit").lines[0].enabled) << "the inline editor";
    EXPECT_FALSE(Find(lines, "Edit").lines[1].enabled) << "no sound editor yet";
    EXPECT_EQ(Texts(Find(lines, "Export").lines), QStringList({"To the web IFBrowserCart.Export1", "For manual treatment IFBrowserCart.Export2"}));
    EXPECT_EQ(Texts(lines[5].lines), QStringList({"Not very accurate (Fast) IFBrowserCart.RecalculateFast", "Accurate (Slow) IFBrowserCart.RecalculateSlow"}));
    const auto& remove = Find(lines, "Delete sound NEW0003");
    EXPECT_EQ(Texts(remove.lines), QStringList({"Are you sure? ", "No Cancel", "Yes "}));
    EXPECT_FALSE(remove.lines[0].enabled);
    EXPECT_EQ(Texts(remove.lines[2].lines), QStringList({"Leave the file on disk CFamily.DeleteCartLeaveFile", "Remove also the file CFamily.DeleteCartDeleteFile"}));
    EXPECT_EQ(Texts(Find(lines, "Empty sound NEW0003").lines), QStringList({"Are you sure? ", "No Cancel", "Yes IFBrowserCart.Empty"}));
}

TEST(CartMenuLines, TheDestinationsAreTheWritableFamiliesWithTheirFreeSlotsAndOthers)
{
    const auto lines = CartMenu::Lines(Context(CartType::Sound));
    for (const QString& menu : {QStringLiteral("Move to"), QStringLiteral("Duplicate to")}) {
        const auto& families = Find(lines, menu).lines;
        ASSERT_EQ(Texts(families), QStringList({"NEW ", "TMP ", "Others "}));
        const QString prefix = menu == "Move to" ? "IFBrowserCart.SendTo." : "IFBrowserCart.DuplicateTo.";
        EXPECT_EQ(Texts(families[0].lines), QStringList({"NEW0000 " + prefix + "NEW#0", "NEW0007 " + prefix + "NEW#7"}));
        EXPECT_EQ(families[0].lines[1].data.toInt(), 7);
        EXPECT_TRUE(families[1].lines.empty()) << "a full family has no slot lines";
        EXPECT_EQ(families[2].data.toInt(), 0);
        EXPECT_EQ(Texts(families[2].lines), QStringList({"... " + prefix + "Others"}));
        EXPECT_TRUE(families[2].lines[0].enabled);
    }
    const auto spacer = Find(lines, "Insert spacer at").lines;
    EXPECT_EQ(Texts(spacer), QStringList({"NEW 2 CFamily.InsertSpacer#2", "NEW 4 CFamily.InsertSpacer#4"}));
    EXPECT_EQ(spacer[1].data.toInt(), 4);
}

TEST(CartMenuLines, MacrosControlsAndSeparatorsHaveNoSoundLines)
{
    const auto macro = CartMenu::Lines(Context(CartType::Macro));
    EXPECT_EQ(Texts(Find(macro, "Edit").lines), QStringList({"Edit header IFBrowserCart.EditCartHeader"}));
    EXPECT_EQ(Texts(Find(macro, "Delete macro NEW0003").lines), QStringList({"Are you sure? ", "No Cancel", "Yes CFamily.DeleteCartLeaveFile"}));
    EXPECT_EQ(Find(macro, "Print macro").key, "IFBrowserCart.Print");
    EXPECT_FALSE(Texts(macro).contains("Export "));

    const auto control = CartMenu::Lines(Context(CartType::Control));
    EXPECT_EQ(Texts(Find(control, "Delete control NEW0003").lines).last(), "Yes CFamily.DeleteCartLeaveFile") << "a control always leaves the file";
    EXPECT_FALSE(Texts(control).filter("Print").size());

    const auto separator = CartMenu::Lines(Context(CartType::Separator));
    EXPECT_EQ(Texts(separator).mid(0, 5), QStringList({"-Cart ", "Move to ", "Recalculate ", "Delete separator CFamily.DeleteCartLeaveFile", "-Family "}));
}

TEST(CartMenuLines, WithoutASelectionOnlyTheFamilyBlockAndInAMacroNoFastDeletion)
{
    CartMenu::Context context = Context(CartType::Sound);
    context.hasCart = false;
    EXPECT_EQ(Texts(CartMenu::Lines(context)), QStringList({"-Cart ", "-Family ", "Insert spacer at ", "Fast deletion ", "Recalculate ", "-Cancel ", "Cancel Cancel"}));
    context.mode = 2;
    context.printingMenus = true;
    const auto lines = CartMenu::Lines(context);
    EXPECT_FALSE(Texts(lines).contains("Fast deletion "));
    EXPECT_EQ(Texts(Find(lines, "Print family").lines), QStringList({"Header CFamily.PrintHeader", "List of carts CFamily.PrintContents",
                                                                      "Header + List of carts CFamily.PrintHeader+Contents"}));
}

TEST(CartMenuLines, FastDeletionTellsItsDeadlineAndForbidsOnlyWhenOn)
{
    CartMenu::Context context = Context(CartType::Sound);
    const auto off = Find(CartMenu::Lines(context), "Fast deletion").lines;
    EXPECT_EQ(Texts(off), QStringList({"Allow for 5 min CFamily.AllowFastDeletion", "Forbid CFamily.ForbidFastDeletion"}));
    EXPECT_TRUE(off[0].enabled);
    EXPECT_FALSE(off[1].enabled) << "nothing to forbid";
    context.fastDeletion = true;
    context.fastDeletionDeadline = QDateTime(QDate(2026, 3, 1), QTime(10, 5, 7));
    const auto on = Find(CartMenu::Lines(context), "Fast deletion").lines;
    EXPECT_EQ(Texts(on), QStringList({"Allow for 5 min more, currently set at 10:05:07 CFamily.AllowFastDeletion", "Forbid CFamily.ForbidFastDeletion"}));
    EXPECT_TRUE(on[0].enabled);
    EXPECT_TRUE(on[1].enabled);
}

TEST(CartMenuChoice, KeysAreTakenApart)
{
    const CartMenu::Choice move = CartMenu::Parse("IFBrowserCart.SendTo.TMP#12");
    EXPECT_EQ(move.action, "IFBrowserCart.SendTo.");
    EXPECT_EQ(move.familyID, "TMP");
    EXPECT_EQ(move.number, 12);
    EXPECT_EQ(CartMenu::Parse("IFBrowserCart.DuplicateTo.NEW#0").familyID, "NEW");
    const CartMenu::Choice spacer = CartMenu::Parse("CFamily.InsertSpacer#4");
    EXPECT_EQ(spacer.action, "CFamily.InsertSpacer");
    EXPECT_EQ(spacer.number, 4);
    EXPECT_EQ(CartMenu::Parse("Cancel").action, "Cancel");
    EXPECT_EQ(CartMenu::Parse("").action, "");
}
