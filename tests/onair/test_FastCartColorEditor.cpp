// The colour editor on a pad: a live sample under edit, the reverts, the stored defaults, and
// the modal form that hands the colours back to the pad and its playlist item.
#include "FastCartsTest.h"
#include "onair/FrmFastCartColorEditor.h"
#include "onair/IFColorPicker.h"
#include "onair/IFFastCartColorEditor.h"
#include "support/Photograph.h"
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>

namespace {
const QString Original = QStringLiteral("0000FF00FF00FF0000123456000000");
}

class ColorEditorTest : public FastCartsTest
{
protected:
    IFFastCartColorEditor& Editor()
    {
        sample = std::make_unique<IFFastCart>(nullptr, 4);
        sample->SetMode(PadFace::Pad);
        sample->SetShortcut(QStringLiteral("Q"));
        sample->SetCart(Cart(QStringLiteral("JIN0001")));
        sample->Colors().SetSerializedColors(Original);
        editor = std::make_unique<IFFastCartColorEditor>();
        editor->SetSampleFastCart(*sample);
        editor->show();
        return *editor;
    }

    void TearDown() override
    {
        editor.reset();
        sample.reset();
        FastCartsTest::TearDown();
    }

    std::unique_ptr<IFFastCart> sample;
    std::unique_ptr<IFFastCartColorEditor> editor;
};

TEST_F(ColorEditorTest, ThePickerPaintsTheChosenPartOfTheModifiedSampleAtOnce)
{
    IFFastCartColorEditor& editor = Editor();
    EXPECT_EQ(editor.IFFastCartModified->Cart(), Cart(QStringLiteral("JIN0001")));
    EXPECT_EQ(editor.IFColorPicker1->Color(), 0x0000FF) << "the background row is chosen first";
    EXPECT_EQ(editor.IFColorPicker1->Caption(), QStringLiteral("#FF0000"));

    editor.SelectRow(IFFastCartColorEditor::CommentRow);
    editor.IFColorPicker1->ScrGreen->setValue(128);
    EXPECT_EQ(editor.IFFastCartModified->Colors().Comment(), 0xFF8000) << "blue 255 as it came, green 128";
    EXPECT_EQ(editor.IFFastCartOriginal->Colors().SerializedColors(), Original);
    EXPECT_EQ(editor.SerializedColorSet().mid(12, 6), QStringLiteral("FF8000"));

    editor.SelectRow(IFFastCartColorEditor::IconRow);
    EXPECT_FALSE(editor.IFColorPicker1->ScrRed->isEnabled());
    EXPECT_EQ(editor.IFColorPicker1->Caption(), QStringLiteral("#000000"));

    editor.CmdRevertPrevious->click();
    EXPECT_EQ(editor.SerializedColorSet(), Original);
}

TEST_F(ColorEditorTest, AClickOnAPartOfTheModifiedSampleChoosesItsRow)
{
    IFFastCartColorEditor& editor = Editor();
    editor.IFFastCartModified->TmrInit_Timer();
    QWidget* time = editor.IFFastCartModified->findChild<QWidget*>(QStringLiteral("LblTime"));
    QTest::mouseClick(time, Qt::LeftButton, Qt::NoModifier, time->rect().center());
    EXPECT_EQ(editor.SelectedRow(), int(IFFastCartColorEditor::TimeRow));
    QWidget* key = editor.IFFastCartModified->findChild<QWidget*>(QStringLiteral("LblShortCut"));
    QTest::mouseClick(key, Qt::LeftButton, Qt::NoModifier, key->rect().center());
    EXPECT_EQ(editor.SelectedRow(), int(IFFastCartColorEditor::ShortcutRow));
}

TEST_F(ColorEditorTest, StoredDefaultsReachTheDefaultSampleAndEveryNewPad)
{
    IFFastCartColorEditor& editor = Editor();
    editor.IFFastCartOriginal->TmrInit_Timer();
    EXPECT_EQ(editor.IFFastCartOriginal->findChild<QLabel*>(QStringLiteral("LblCaption"))->text(), QStringLiteral("Track: Q"));
    EXPECT_NE(editor.IFFastCartDefault->Colors().SerializedColors(), Original);
    editor.CmdStoreDefault->click();
    EXPECT_EQ(editor.IFFastCartDefault->Colors().SerializedColors(), Original);
    EXPECT_EQ(kernel->Config(QStringLiteral("DefaultR0")).toInt(), 255);
    EXPECT_EQ(IFFastCart().Colors().SerializedColors(), Original);

    kernel->SetConfig(QStringLiteral("DefaultG2"), QStringLiteral("300"));
    CFastCartColors colors;
    colors.ReturnToDefaults();
    EXPECT_EQ(log->Errors().size(), 1) << "a default out of range";
    EXPECT_EQ(colors.Comment(), CFastCartColors::FactoryValues()[CFastCartColors::CommentPart]);
    EXPECT_EQ(colors.BackGround(), 0x0000FF);
}

TEST_F(ColorEditorTest, TheFormGivesThePadItsColoursOnOkAndNothingOnCancel)
{
    Panel();
    const auto previous = FrmFastCartColorEditor::SetModalRunner([](FrmFastCartColorEditor& form) {
        IFFastCartColorEditor& editor = *form.IFFastCartColorEditor1;
        editor.SelectRow(IFFastCartColorEditor::BackgroundRow);
        editor.IFColorPicker1->ScrBlue->setValue(200);
        editor.CmdOk->click();
    });
    Pad(1)->EditFastCartColors();
    EXPECT_EQ(Pad(1)->Colors().BackGround() >> 16, 200);
    EXPECT_EQ(list->Item(2)->Properties()->Property(IFFastCart::ColorsProperty).toString(), Pad(1)->Colors().SerializedColors());

    FrmFastCartColorEditor::SetModalRunner([](FrmFastCartColorEditor& form) {
        form.IFFastCartColorEditor1->IFColorPicker1->ScrRed->setValue(1);
        form.IFFastCartColorEditor1->CmdCancel->click();
    });
    const QString before = Pad(0)->Colors().SerializedColors();
    Pad(0)->EditFastCartColors();
    EXPECT_EQ(Pad(0)->Colors().SerializedColors(), before);
    EXPECT_FALSE(list->Item(1)->Properties()->HasProperty(IFFastCart::ColorsProperty));
    FrmFastCartColorEditor::SetModalRunner(previous);
}

TEST_F(ColorEditorTest, PhotographOfTheColourEditor)
{
    IFFastCartColorEditor& editor = Editor();
    for (IFFastCart* pad : {editor.IFFastCartOriginal, editor.IFFastCartDefault, editor.IFFastCartModified})
        pad->TmrInit_Timer();
    editor.SelectRow(IFFastCartColorEditor::DescriptionRow);
    editor.IFColorPicker1->ScrGreen->setValue(220);
    editor.resize(editor.sizeHint());
    QApplication::processEvents();
    EXPECT_TRUE(Photograph(&editor, QStringLiteral("fast_cart_color_editor")));
}
