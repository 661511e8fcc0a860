// The ID selector's controls: the two browsers on top; below them the board on the left and,
// on the right, the ID with its suggestion, the description and comment, and OK and Cancel.
#include "browse/IFBrowserCart.h"
#include "browse/IFBrowserFamily.h"
#include "editing/IFCartIDSelector.h"
#include "foundation/Tr.h"
#include "foundation/controls/IFBlackBoard.h"
#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

namespace {
// Cart IDs are seven characters; the box takes a few more so that a wrong paste shows whole.
constexpr int IDLength = 12;
}

void IFCartIDSelector::BuildControls()
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addWidget(BuildBrowsers(), 3);
    auto* lower = new QHBoxLayout;
    Info = new IFBlackBoard(this);
    Info->setObjectName(QStringLiteral("Info"));
    Info->SetCaption(Tr(QStringLiteral("Cart")));
    Info->setMinimumHeight(150);
    lower->addWidget(Info, 3);
    PnlID = new QWidget(this);
    PnlID->setObjectName(QStringLiteral("PnlID"));
    auto* right = new QVBoxLayout(PnlID);
    right->setContentsMargins(0, 0, 0, 0);
    right->addWidget(BuildIDPanel());
    right->addWidget(BuildDescComment());
    right->addStretch(1);
    right->addWidget(BuildControlButtons());
    lower->addWidget(PnlID, 2);
    layout->addLayout(lower, 2);
}

QWidget* IFCartIDSelector::BuildBrowsers()
{
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    IFBrowserFamily1 = new IFBrowserFamily(row);
    IFBrowserFamily1->setObjectName(QStringLiteral("IFBrowserFamily1"));
    IFBrowserCart1 = new IFBrowserCart(row);
    IFBrowserCart1->setObjectName(QStringLiteral("IFBrowserCart1"));
    layout->addWidget(IFBrowserFamily1, 2);
    layout->addWidget(IFBrowserCart1, 5);
    return row;
}

QWidget* IFCartIDSelector::BuildIDPanel()
{
    auto* panel = new QWidget(PnlID);
    auto* layout = new QVBoxLayout(panel);
    layout->setContentsMargins(0, 0, 0, 0);
    TxtID = new QLineEdit(panel);
    TxtID->setObjectName(QStringLiteral("TxtID"));
    TxtID->setMaxLength(IDLength);
    TxtID->setPlaceholderText(QStringLiteral("ID"));
    TxtID->setStyleSheet(QStringLiteral("font-family: 'DejaVu Sans Mono'; font-size: 15pt; font-weight: bold;"));
    layout->addWidget(TxtID);
    IDControls = new QWidget(panel);
    IDControls->setObjectName(QStringLiteral("IDControls"));
    auto* suggestion = new QHBoxLayout(IDControls);
    suggestion->setContentsMargins(0, 0, 0, 0);
    ChkAuto = new QCheckBox(Tr(QStringLiteral("Auto ID")), IDControls);
    ChkAuto->setObjectName(QStringLiteral("ChkAuto"));
    ChkFillHoles = new QCheckBox(Tr(QStringLiteral("Fill gaps")), IDControls);
    ChkFillHoles->setObjectName(QStringLiteral("ChkFillHoles"));
    CmdAuto = new QToolButton(IDControls);
    CmdAuto->setObjectName(QStringLiteral("CmdAuto"));
    CmdAuto->setText(Tr(QStringLiteral("Suggest")));
    suggestion->addWidget(ChkAuto);
    suggestion->addWidget(ChkFillHoles);
    suggestion->addStretch(1);
    suggestion->addWidget(CmdAuto);
    layout->addWidget(IDControls);
    return panel;
}

QWidget* IFCartIDSelector::BuildDescComment()
{
    vsDescComment = new QWidget(PnlID);
    vsDescComment->setObjectName(QStringLiteral("vsDescComment"));
    auto* form = new QFormLayout(vsDescComment);
    form->setContentsMargins(0, 0, 0, 0);
    txtDescription = new QLineEdit(vsDescComment);
    txtDescription->setObjectName(QStringLiteral("txtDescription"));
    txtComment = new QLineEdit(vsDescComment);
    txtComment->setObjectName(QStringLiteral("txtComment"));
    form->addRow(Tr(QStringLiteral("Description")), txtDescription);
    form->addRow(Tr(QStringLiteral("Comment")), txtComment);
    return vsDescComment;
}

QWidget* IFCartIDSelector::BuildControlButtons()
{
    ControlButtons = new QWidget(PnlID);
    ControlButtons->setObjectName(QStringLiteral("ControlButtons"));
    auto* layout = new QHBoxLayout(ControlButtons);
    layout->setContentsMargins(0, 0, 0, 0);
    CmdOK = new QPushButton(Tr(QStringLiteral("OK")), ControlButtons);
    CmdOK->setObjectName(QStringLiteral("CmdOK"));
    CmdOK->setDefault(true);
    CmdCancel = new QPushButton(Tr(QStringLiteral("Cancel")), ControlButtons);
    CmdCancel->setObjectName(QStringLiteral("CmdCancel"));
    layout->addStretch(1);
    layout->addWidget(CmdOK);
    layout->addWidget(CmdCancel);
    return ControlButtons;
}

void IFCartIDSelector::WireControls()
{
    connect(TxtID, &QLineEdit::textEdited, this, &IFCartIDSelector::TxtID_Edited);
    connect(TxtID, &QLineEdit::textChanged, this, &IFCartIDSelector::FillSInfo);
    connect(IFBrowserCart1, &IFBrowserCart::Selection, this, &IFCartIDSelector::FillSInfo);
    connect(IFBrowserCart1, &IFBrowserCart::ItemClicked, this, [this](const QString& cartID) { TxtID->setText(cartID); });
    connect(IFBrowserFamily1, &IFBrowserFamily::Changed, this, &IFCartIDSelector::Family_Changed);
    connect(CmdAuto, &QToolButton::clicked, this, &IFCartIDSelector::PerformAuto);
    connect(ChkAuto, &QCheckBox::toggled, this, &IFCartIDSelector::SetAuto);
    connect(ChkFillHoles, &QCheckBox::toggled, this, &IFCartIDSelector::SetFillHoles);
    connect(CmdOK, &QPushButton::clicked, this, &IFCartIDSelector::CmdOK_Click);
    connect(CmdCancel, &QPushButton::clicked, this, &IFCartIDSelector::CmdCancel_Click);
}
