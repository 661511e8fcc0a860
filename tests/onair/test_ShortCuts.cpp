// The shortcut container on a demo station's real kernel: pads filled by drops and kept in a
// macro, the macro saved and shown again, entries beyond the pads, carts that are gone, the
// menu and the number of pads, and a pad dragged to a deck that plays it.
#include "DeckTest.h"
#include "editing/DlgCartIDSelector.h"
#include "editing/IFCartIDSelector.h"
#include "editing/KorvaneCommonDialog.h"
#include "foundation/controls/VolmarPannel.h"
#include "kernelapi/Outcome.h"
#include "kernelapi/iMacro.h"
#include "kernelapi/iMacroItem.h"
#include "onair/IFFastCart.h"
#include "onair/IFShortCuts.h"
#include "onair/ShortCutSlots.h"
#include "shell/Theme.h"
#include "shell/components/CComponent.h"
#include "support/Photograph.h"
#include <QCursor>
#include <QLabel>
#include <QSignalSpy>

namespace {
class ShortCutsTest : public DeckTest
{
protected:
    void TearDown() override
    {
        containers.clear();
        KorvaneCommonDialog::SetModalRunner(std::move(previousRunner));
        DeckTest::TearDown();
    }

    // A container of that many pads, shown, its pads past their TmrInit.
    IFShortCuts& Container(int slots, const QString& name = QStringLiteral("IFShortCuts1"))
    {
        auto container = std::make_unique<IFShortCuts>();
        container->setObjectName(name);
        container->SetSlots(slots);
        container->resize(320, 60 + 22 * slots);
        container->show();
        InitPads(*container);
        containers.push_back(std::move(container));
        return *containers.back();
    }

    static void InitPads(IFShortCuts& container)
    {
        for (int i = 0; i < container.Slots(); ++i)
            container.Pad(i)->TmrInit_Timer();
    }

    // The pointer over a pad, and the old-style drop of a cart there.
    static void DropOnPad(IFShortCuts& container, int index, const QString& cartID)
    {
        QCursor::setPos(container.Pad(index)->mapToGlobal(container.Pad(index)->rect().center()));
        container.Drop(cartID);
    }

    // A macro stored under an ID with the given carts ("" a blank entry).
    void StoreMacro(const QString& id, const QStringList& carts)
    {
        const auto macro = kernel->Carts()->NewMacro();
        for (const QString& cart : carts)
            macro->Add(cart.isEmpty() ? nullptr : Cart(cart), nullptr);
        QObject::connect(macro.get(), &iMacro::RequestNameToSave, [id](QString* name) { *name = id; });
        QObject::connect(macro.get(), &iMacro::RequestDescriptionToSave, [](QString* text) { *text = QStringLiteral("Stored"); });
        macro->Save(QString());
    }

    QStringList StoredEntries(const QString& id) const
    {
        const auto macro = kernel->Carts()->NewMacro();
        macro->LoadByID(id);
        QStringList ids;
        for (int i = 1; i <= macro->Count(); ++i)
            ids << (macro->Item(i)->Cart() ? macro->Item(i)->Cart()->ID() : QString());
        return ids;
    }

    static QStringList PadIDs(const IFShortCuts& container)
    {
        QStringList ids;
        for (int i = 0; i < container.Slots(); ++i)
            ids << (container.Pad(i)->Cart() ? container.Pad(i)->Cart()->ID() : QString());
        return ids;
    }

    std::vector<std::unique_ptr<IFShortCuts>> containers;
    KorvaneCommonDialog::ModalRunner previousRunner;
};
}

TEST(ShortCutSlots, CountsNamesAndTheEntriesShown)
{
    EXPECT_EQ(ShortCutSlots::Clamp(0), 1);
    EXPECT_EQ(ShortCutSlots::Clamp(-5), 1);
    EXPECT_EQ(ShortCutSlots::Clamp(12), 12);
    EXPECT_EQ(ShortCutSlots::Shown(4, 9), 4);
    EXPECT_EQ(ShortCutSlots::Shown(4, 2), 2);
    EXPECT_EQ(ShortCutSlots::Shown(4, 0), 0);
    EXPECT_EQ(ShortCutSlots::PadName(QStringLiteral("IFShortCuts2"), 3), QStringLiteral("IFShortCuts2.FC(3)"));
}

TEST_F(ShortCutsTest, SlotsPersistNeverGoBelowOneAndThePadsAreSingleLinesWithNamesOfTheirOwn)
{
    IFShortCuts& container = Container(3);
    auto* qty = container.findChild<QLabel*>(QStringLiteral("LblQty"));
    ASSERT_NE(qty, nullptr);
    EXPECT_EQ(qty->text(), QStringLiteral("3"));
    EXPECT_EQ(container.Pad(2)->Mode(), PadFace::SingleLine);
    EXPECT_EQ(container.Pad(2)->Component()->Name(), QStringLiteral("IFShortCuts1.FC(2)"));
    EXPECT_LT(container.Pad(0)->geometry().bottom(), container.Pad(1)->geometry().top()) << "one under another";

    for (int i = 0; i < 4; ++i)
        container.SpinDown();
    EXPECT_EQ(container.Slots(), 1);
    EXPECT_EQ(qty->text(), QStringLiteral("1"));

    // The menu on the count: the texts, and Add Slot.
    dialogs->popupChoices.push_back(QStringLiteral("IFShortCuts.SpinUp"));
    QTest::mouseClick(qty, Qt::RightButton);
    ASSERT_EQ(dialogs->menus.size(), 1);
    QStringList texts;
    for (const auto& line : dialogs->menus.first())
        texts << line.text;
    EXPECT_EQ(texts, (QStringList{"-Shortcut Container", "Change description", "Add Slot", "Remove Slot", "-Cancel", "Cancel"}));
    EXPECT_EQ(container.Slots(), 2);
    // The same menu on the frame.
    dialogs->popupChoices.push_back(QStringLiteral("IFShortCuts.SpinDown"));
    auto* frame = container.findChild<VolmarPannel*>();
    QTest::mouseClick(frame, Qt::RightButton, {}, QPoint(frame->width() / 2, 4));
    EXPECT_EQ(dialogs->menus.size(), 2);
    EXPECT_EQ(container.Slots(), 1);

    IFShortCuts& again = Container(1, QStringLiteral("IFShortCuts2"));
    again.SetSlots(5);
    auto reread = std::make_unique<IFShortCuts>();
    reread->setObjectName(QStringLiteral("IFShortCuts2"));
    EXPECT_EQ(reread->Slots(), 5) << "read again under the name the host gives";
    reread.reset();
    IFShortCuts& named = Container(0, QStringLiteral("IFShortCuts2"));
    EXPECT_EQ(named.Slots(), 1) << "0 is taken as 1";
    EXPECT_TRUE(log->Errors().isEmpty()) << log->Errors().join('\n').toStdString();
}

TEST_F(ShortCutsTest, DropsFillThePadsAndTheSaveKeepsThemInANewMacroShownAgainElsewhere)
{
    IFShortCuts& container = Container(4);
    DropOnPad(container, 1, QStringLiteral("JIN0001"));
    DropOnPad(container, 3, QStringLiteral("MUS0001"));
    QCursor::setPos(container.mapToGlobal(QPoint(-50, -50)));
    container.Drop(QStringLiteral("JIN0002"));
    EXPECT_EQ(PadIDs(container), (QStringList{"", "JIN0001", "", "MUS0001"})) << "a drop outside every pad changes nothing";

    // The program's drag drops on a pad's own component; a family offered there is ignored.
    auto family = std::make_shared<CComponent>();
    family->SetShareType(CComponent::ShareFamily);
    container.Pad(2)->Component()->RaiseEventDragDrop(family);
    EXPECT_EQ(container.Pad(2)->Cart(), nullptr);
    auto browser = std::make_shared<CComponent>();
    browser->SetShareType(CComponent::ShareCart);
    browser->SetSharedObject(Cart(QStringLiteral("PUB0001")));
    container.Pad(2)->Component()->RaiseEventDragDrop(browser);
    EXPECT_EQ(PadIDs(container), (QStringList{"", "JIN0001", "PUB0001", "MUS0001"}));

    int shown = 0;
    previousRunner = KorvaneCommonDialog::SetModalRunner([&](DlgCartIDSelector& dialog) {
        ++shown;
        Q_EMIT dialog.Selector()->OK(QStringLiteral("MES0009"));
    });
    dialogs->inputs.push_back(QStringLiteral("Everyday"));
    container.CmdSaveContents_Click();
    EXPECT_EQ(shown, 1);
    EXPECT_EQ(container.Dialog().CartFilter(), KorvaneCommonDialog::Macros);
    EXPECT_EQ(container.MacroName(), QStringLiteral("MES0009"));
    EXPECT_EQ(StoredEntries(QStringLiteral("MES0009")), (QStringList{"", "JIN0001", "PUB0001", "MUS0001"}));

    IFShortCuts& other = Container(6, QStringLiteral("IFShortCuts2"));
    other.SetMacroName(QStringLiteral("MES0009"));
    EXPECT_EQ(PadIDs(other), (QStringList{"", "JIN0001", "PUB0001", "MUS0001", "", ""}));
    EXPECT_EQ(other.findChild<QLabel*>(QStringLiteral("LblName"))->text(), QStringLiteral("MES0009"));
    EXPECT_EQ(other.findChild<VolmarPannel*>()->Caption(), QStringLiteral("Everyday"));
    EXPECT_TRUE(log->Errors().isEmpty()) << log->Errors().join('\n').toStdString();
}

TEST_F(ShortCutsTest, RestoreForgetsUnsavedDropsAndEntriesBeyondThePadsAreLostAtTheNextSave)
{
    StoreMacro(QStringLiteral("MES0008"), {"JIN0001", "JIN0002", "JIN0003", "MUS0001"});
    IFShortCuts& container = Container(2);
    container.SetMacroName(QStringLiteral("MES0008"));
    EXPECT_EQ(PadIDs(container), (QStringList{"JIN0001", "JIN0002"}));

    DropOnPad(container, 0, QStringLiteral("PUB0001"));
    EXPECT_EQ(StoredEntries(QStringLiteral("MES0008")).first(), QStringLiteral("JIN0001")) << "nothing saved by a drop";
    container.CmdRestoreContents_Click();
    EXPECT_EQ(PadIDs(container), (QStringList{"JIN0001", "JIN0002"}));

    DropOnPad(container, 1, QStringLiteral("PUB0001"));
    container.CmdSaveContents_Click();
    EXPECT_EQ(StoredEntries(QStringLiteral("MES0008")), (QStringList{"JIN0001", "PUB0001"}));
    EXPECT_TRUE(log->Errors().isEmpty()) << log->Errors().join('\n').toStdString();
}

TEST_F(ShortCutsTest, CartsThatAreGoneStayNamedWithAWarningAndTheContainerGoesOn)
{
    StoreMacro(QStringLiteral("MES0007"), {"JIN0001", "JIN0003"});
    const Outcome deleted = kernel->Carts()->DeleteCart(QStringLiteral("JIN0003"), false);
    ASSERT_FALSE(deleted.failed) << deleted.message.toStdString();
    IFShortCuts& container = Container(3);
    container.SetMacroName(QStringLiteral("MES0007"));
    EXPECT_EQ(PadIDs(container), (QStringList{"JIN0001", "JIN0003", ""}));
    EXPECT_EQ(container.Pad(1)->Face().icon, QStringLiteral("UNKNOWN"));
    EXPECT_EQ(log->lines.filter(QStringLiteral("WARN IFShortCuts.RefreshContents")).size(), 1);

    DropOnPad(container, 2, QStringLiteral("JIN0002"));
    container.CmdSaveContents_Click();
    EXPECT_EQ(StoredEntries(QStringLiteral("MES0007")), (QStringList{"JIN0001", "JIN0003", "JIN0002"})) << "the gone cart keeps its entry";

    container.SetMacroName(QStringLiteral("JIN0001"));
    EXPECT_EQ(log->Errors().filter(QStringLiteral("IFShortCuts.MacroName_Let")).size(), 1) << "a cart that is no macro";
    EXPECT_EQ(container.MacroName(), QStringLiteral("MES0007"));
    EXPECT_EQ(PadIDs(container), (QStringList{"JIN0001", "JIN0003", "JIN0002"}));
}

TEST_F(ShortCutsTest, ChangeDescriptionSavesATextAndAnEmptyOneLeavesIt)
{
    StoreMacro(QStringLiteral("MES0006"), {"JIN0001"});
    IFShortCuts& container = Container(1);
    container.SetMacroName(QStringLiteral("MES0006"));
    dialogs->inputs.push_back(QStringLiteral("  "));
    container.ChangeDescription();
    EXPECT_EQ(Cart(QStringLiteral("MES0006"))->Description(), QStringLiteral("Stored"));
    dialogs->inputs.push_back(QStringLiteral("Jingles of the day"));
    container.ChangeDescription();
    EXPECT_EQ(dialogs->prompts.last(), QStringLiteral("Enter the new description"));
    EXPECT_EQ(Cart(QStringLiteral("MES0006"))->Description(), QStringLiteral("Jingles of the day"));
    EXPECT_EQ(container.findChild<VolmarPannel*>()->Caption(), QStringLiteral("Jingles of the day"));
}

TEST_F(ShortCutsTest, APadDraggedToADeckPlaysThereByEitherDrag)
{
    IFCartPlayer& target = Deck();
    IFShortCuts& container = Container(2);
    DropOnPad(container, 0, QStringLiteral("JIN0002"));
    DropOnPad(container, 1, QStringLiteral("JIN0003"));

    // The program's drag ends by dropping the pad's component on the deck's.
    ASSERT_EQ(container.Pad(0)->Component()->ShareType(), CComponent::ShareCart);
    target.Component()->RaiseEventDragDrop(container.Pad(0)->Component());
    AdvanceMs(10);
    EXPECT_EQ(Player()->Status(), DeckStatus::Playing);
    EXPECT_EQ(Player()->Cart(), Cart(QStringLiteral("JIN0002")));

    // The old behaviour: a move with the left button asks the host to drag the pad's cart.
    container.SetCompatibleWithOldDragDropBehaviour(true);
    QSignalSpy asked(&container, &IFShortCuts::OldStyleTryToDrag);
    IFFastCart* pad = container.Pad(1);
    QTest::mousePress(pad, Qt::LeftButton, {}, pad->rect().center());
    QMouseEvent move(QEvent::MouseMove, QPointF(pad->rect().center() + QPoint(8, 0)), pad->mapToGlobal(QPointF(pad->rect().center())),
                     Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(pad, &move);
    QTest::mouseRelease(pad, Qt::LeftButton, {}, pad->rect().center());
    ASSERT_GE(asked.size(), 1);
    const QString id = asked.first().first().toString();
    EXPECT_EQ(id, QStringLiteral("JIN0003"));
    container.StartDrag();
    EXPECT_TRUE(container.IsDragSource());
    target.Drop(id, 10, 10);
    AdvanceMs(10);
    EXPECT_EQ(Player()->Cart(), Cart(QStringLiteral("JIN0003")));
    EXPECT_EQ(Player()->Status(), DeckStatus::Playing);
}

TEST_F(ShortCutsTest, PhotographOfTheContainer)
{
    StoreMacro(QStringLiteral("MES0005"), {"JIN0001", "MUS0001", "", "PUB0001", "MES0000", "CON0001"});
    Theme::Apply(*qApp);
    IFShortCuts& container = Container(7);
    container.SetMacroName(QStringLiteral("MES0005"));
    container.resize(340, 230);
    QApplication::processEvents();
    EXPECT_TRUE(Photograph(&container, QStringLiteral("shortcuts")));
    qApp->setStyleSheet(QString());
}
