#include "onair/IFFastCartColorEditor.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Tr.h"
#include "foundation/ui/SilenceDescendants.h"
#include "onair/CFastCartColors.h"
#include "onair/IFColorPicker.h"
#include "onair/IFFastCart.h"
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

namespace {
struct ItemRow
{
    const char* text;
    const char* key;
};
constexpr ItemRow Rows[] = {
    {"Background", "Background"}, {"Description", "Description"}, {"Comment", "Comment"},
    {"Shortcut Key", "Shortcut_Key"}, {"Time", "Time"},           {"Icon", "Icon"},
};
}

IFFastCartColorEditor::IFFastCartColorEditor(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(Object);
    CreateControls();
    ConnectControls();
    SelectRow(BackgroundRow);
}

IFFastCartColorEditor::~IFFastCartColorEditor()
{
    SilenceDescendants(*this);
}

IFFastCart* IFFastCartColorEditor::MakeSample(const QString& name)
{
    auto* pad = new IFFastCart(this);
    pad->setObjectName(name);
    pad->SetMode(PadFace::Pad);
    pad->setFixedSize(190, 110);
    return pad;
}

QPushButton* IFFastCartColorEditor::MakeButton(const QString& name, const QString& caption)
{
    auto* button = new QPushButton(Tr(caption), this);
    button->setObjectName(name);
    return button;
}

void IFFastCartColorEditor::CreateControls()
{
    GrdItems = new QListWidget(this);
    GrdItems->setObjectName(QStringLiteral("GrdItems"));
    for (const ItemRow& row : Rows) {
        auto* item = new QListWidgetItem(Tr(QString::fromLatin1(row.text)), GrdItems);
        item->setData(Qt::UserRole, QString::fromLatin1(row.key));
    }
    GrdItems->setFixedWidth(150);
    IFColorPicker1 = new IFColorPicker(this);
    IFFastCartOriginal = MakeSample(QStringLiteral("IFFastCartOriginal"));
    IFFastCartDefault = MakeSample(QStringLiteral("IFFastCartDefault"));
    IFFastCartModified = MakeSample(QStringLiteral("IFFastCartModified"));
    CmdOk = MakeButton(QStringLiteral("CmdOk"), QStringLiteral("OK"));
    CmdCancel = MakeButton(QStringLiteral("CmdCancel"), QStringLiteral("Cancel"));
    CmdRevertDefault = MakeButton(QStringLiteral("CmdRevertDefault"), QStringLiteral("Revert to default"));
    CmdRevertPrevious = MakeButton(QStringLiteral("CmdRevertPrevious"), QStringLiteral("Revert to previous"));
    CmdStoreDefault = MakeButton(QStringLiteral("CmdStoreDefault"), QStringLiteral("Store as default"));

    auto* grid = new QGridLayout(this);
    grid->addWidget(GrdItems, 0, 0, 2, 1);
    grid->addWidget(IFColorPicker1, 0, 1, 1, 3);
    const std::pair<const char*, IFFastCart*> samples[] = {
        {"Original", IFFastCartOriginal}, {"Default", IFFastCartDefault}, {"Modified", IFFastCartModified}};
    auto* pads = new QGridLayout;
    for (int i = 0; i < 3; ++i) {
        pads->addWidget(new QLabel(Tr(QString::fromLatin1(samples[i].first)), this), 0, i, Qt::AlignHCenter);
        pads->addWidget(samples[i].second, 1, i);
    }
    grid->addLayout(pads, 1, 1, 1, 3);
    auto* buttons = new QHBoxLayout;
    for (QPushButton* button : {CmdRevertPrevious, CmdRevertDefault, CmdStoreDefault})
        buttons->addWidget(button);
    buttons->addStretch();
    buttons->addWidget(CmdOk);
    buttons->addWidget(CmdCancel);
    grid->addLayout(buttons, 2, 0, 1, 4);
}

void IFFastCartColorEditor::ConnectControls()
{
    connect(GrdItems, &QListWidget::currentRowChanged, this, &IFFastCartColorEditor::GrdItems_SelectionChange);
    connect(IFColorPicker1, &IFColorPicker::Changed, this, &IFFastCartColorEditor::IFColorPicker1_Changed);
    connect(CmdOk, &QPushButton::clicked, this, &IFFastCartColorEditor::OK);
    connect(CmdCancel, &QPushButton::clicked, this, &IFFastCartColorEditor::Cancel);
    connect(CmdRevertDefault, &QPushButton::clicked, this, &IFFastCartColorEditor::CmdRevertDefault_Click);
    connect(CmdRevertPrevious, &QPushButton::clicked, this, &IFFastCartColorEditor::CmdRevertPrevious_Click);
    connect(CmdStoreDefault, &QPushButton::clicked, this, &IFFastCartColorEditor::CmdStoreDefault_Click);
    IFFastCart* modified = IFFastCartModified;
    connect(modified, &IFFastCart::ClickBackground, this, [this] { SelectRow(BackgroundRow); });
    connect(modified, &IFFastCart::ClickDescription, this, [this] { SelectRow(DescriptionRow); });
    connect(modified, &IFFastCart::ClickComment, this, [this] { SelectRow(CommentRow); });
    connect(modified, &IFFastCart::ClickShortcut, this, [this] { SelectRow(ShortcutRow); });
    connect(modified, &IFFastCart::ClickTime, this, [this] { SelectRow(TimeRow); });
    connect(modified, &IFFastCart::ClickIcon, this, [this] { SelectRow(IconRow); });
    // The modified sample wears the caption too, so that the three stand level.
    for (IFFastCart* pad : {IFFastCartOriginal, IFFastCartDefault, IFFastCartModified})
        connect(pad, &IFFastCart::AfterInit, this, [this, pad] { CaptionSample(pad); });
}

void IFFastCartColorEditor::CaptionSample(IFFastCart* pad) const
{
    pad->SetCaption(Tr(QStringLiteral("Track: ")) + pad->Shortcut());
}

void IFFastCartColorEditor::SetSampleFastCart(const IFFastCart& sample)
{
    Guarded(Object, QStringLiteral("SampleFastCart_Let"), [&] {
        for (IFFastCart* pad : {IFFastCartOriginal, IFFastCartDefault, IFFastCartModified}) {
            pad->SetCart(sample.Cart());
            pad->SetShortcut(sample.Shortcut());
        }
        IFFastCartOriginal->Colors().ReturnToReference(&sample.Colors());
        IFFastCartDefault->Colors().ReturnToDefaults();
        IFFastCartModified->Colors().ReturnToReference(&sample.Colors());
        GrdItems_SelectionChange();
    });
}

QString IFFastCartColorEditor::SerializedColorSet() const
{
    return IFFastCartModified->Colors().SerializedColors();
}

int IFFastCartColorEditor::SelectedRow() const
{
    return GrdItems->currentRow();
}

void IFFastCartColorEditor::SelectRow(int row)
{
    GrdItems->setCurrentRow(row);
}

// The picker takes the colour of the chosen part; the icon has no colour of its own.
void IFFastCartColorEditor::GrdItems_SelectionChange()
{
    const int row = SelectedRow();
    const bool colour = row >= BackgroundRow && row < IconRow;
    IFColorPicker1->SetEnabled(colour);
    if (colour)
        IFColorPicker1->SetColor(IFFastCartModified->Colors().Value(row));
}

void IFFastCartColorEditor::IFColorPicker1_Changed()
{
    const int row = SelectedRow();
    if (row >= BackgroundRow && row < IconRow)
        IFFastCartModified->Colors().SetValue(row, IFColorPicker1->Color());
}

void IFFastCartColorEditor::CmdRevertDefault_Click()
{
    IFFastCartModified->Colors().ReturnToDefaults();
    GrdItems_SelectionChange();
}

void IFFastCartColorEditor::CmdRevertPrevious_Click()
{
    IFFastCartModified->Colors().ReturnToReference(&IFFastCartOriginal->Colors());
    GrdItems_SelectionChange();
}

void IFFastCartColorEditor::CmdStoreDefault_Click()
{
    IFFastCartModified->Colors().SaveAsDefaults();
    IFFastCartDefault->Colors().ReturnToDefaults();
}
