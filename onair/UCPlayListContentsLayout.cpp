// The playlist grid's controls: the edit buttons over the grid with their help line, the disk
// buttons, and the grid with its ten columns.
#include "onair/UCPlayListContents.h"
#include "foundation/Tr.h"
#include "onair/PlayListButtonPictures.h"
#include "onair/PlayListItemModel.h"
#include "onair/UCPlayListDiskOperation.h"
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>

using namespace PlayListRows;

namespace {
constexpr int IconColumnWidth = 22;
constexpr int ButtonSide = 26;

const char* const Headers[ColumnCount] = {"", "", "", "", "", "", "ID", "Time", "Useful Time", "Description"};
}

void UCPlayListContents::CreateControls()
{
    setStyleSheet(QStringLiteral(
        "QTableView { background: rgb(255, 255, 255); alternate-background-color: rgb(242, 244, 248); color: rgb(16, 18, 22);"
        " border: 1px solid rgb(58, 68, 84); gridline-color: rgb(224, 228, 234);"
        " selection-background-color: rgb(255, 170, 40); selection-color: rgb(16, 18, 22); }"
        "QHeaderView::section { background: rgb(44, 51, 64); color: rgb(200, 210, 225); padding: 3px 4px; border: none;"
        " border-right: 1px solid rgb(30, 34, 40); font-weight: bold; }"
        "QToolButton { background: rgb(36, 41, 50); border: 1px solid rgb(20, 22, 26); border-radius: 3px; }"
        "QToolButton:checked { background: rgb(120, 84, 20); }"
        "QToolButton:disabled { background: rgb(48, 52, 58); }"
        "QLabel#LblHelp { color: rgb(150, 165, 190); }"));

    UCPlayListDiskOperation1 = new UCPlayListDiskOperation(this);
    UCPlayListDiskOperation1->setObjectName(QStringLiteral("UCPlayListDiskOperation1"));
    UCPlayListDiskOperation1->setFixedHeight(ButtonSide);
    CmdInsert = MakeButton(QStringLiteral("CmdInsert"), QStringLiteral("Insert"), QStringLiteral("Insert space"));
    CmdDelete = MakeButton(QStringLiteral("CmdDelete"), QStringLiteral("Delete"), QStringLiteral("Delete item"));
    CmdUp = MakeButton(QStringLiteral("CmdUp"), QStringLiteral("Up"), QStringLiteral("Lift item"));
    CmdDown = MakeButton(QStringLiteral("CmdDown"), QStringLiteral("Down"), QStringLiteral("Down item"));
    CmdEdit = MakeButton(QStringLiteral("CmdEdit"), QStringLiteral("Edit"), QString());
    CmdEdit->setCheckable(true);
    LblHelp = new QLabel(this);
    LblHelp->setObjectName(QStringLiteral("LblHelp"));

    GrdPlayListItems = new QTableView(this);
    GrdPlayListItems->setObjectName(QStringLiteral("GrdPlayListItems"));
    GrdPlayListItems->setModel(m_rows);
    GrdPlayListItems->setSelectionBehavior(QAbstractItemView::SelectRows);
    GrdPlayListItems->setSelectionMode(QAbstractItemView::SingleSelection);
    GrdPlayListItems->setEditTriggers(QAbstractItemView::NoEditTriggers);
    GrdPlayListItems->setAlternatingRowColors(true);
    GrdPlayListItems->setMouseTracking(true);
    GrdPlayListItems->setIconSize(QSize(16, 16));
    GrdPlayListItems->setWordWrap(false);
    GrdPlayListItems->setTextElideMode(Qt::ElideRight);
    GrdPlayListItems->verticalHeader()->hide();
    GrdPlayListItems->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    GrdPlayListItems->verticalHeader()->setDefaultSectionSize(20);
    QHeaderView* header = GrdPlayListItems->horizontalHeader();
    header->setStretchLastSection(true);
    header->setHighlightSections(false);
    header->setMinimumSectionSize(IconColumnWidth);
    for (int column = Next; column <= Type; ++column) {
        header->setSectionResizeMode(column, QHeaderView::Fixed);
        GrdPlayListItems->setColumnWidth(column, IconColumnWidth);
    }
    GrdPlayListItems->setColumnWidth(ID, 74);
    GrdPlayListItems->setColumnWidth(Time, 92);
    GrdPlayListItems->setColumnWidth(UsefulTime, 96);
    QStringList headers;
    for (const char* text : Headers)
        headers << (*text ? Tr(QString::fromLatin1(text)) : QString());
    m_rows->SetHeaders(headers);

    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(3);
    buttons->addWidget(UCPlayListDiskOperation1);
    buttons->addSpacing(8);
    for (QToolButton* button : {CmdInsert, CmdDelete, CmdUp, CmdDown, CmdEdit})
        buttons->addWidget(button);
    buttons->addSpacing(6);
    buttons->addWidget(LblHelp, 1);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(3);
    column->addLayout(buttons);
    column->addWidget(GrdPlayListItems, 1);
    RenderButtonPictures();
}

QToolButton* UCPlayListContents::MakeButton(const QString& name, const QString& glyph, const QString& help)
{
    auto* button = new QToolButton(this);
    button->setObjectName(name);
    button->setFixedSize(ButtonSide, ButtonSide);
    button->setFocusPolicy(Qt::NoFocus);
    button->setProperty("glyph", glyph);
    button->setProperty("help", help.isEmpty() ? QString() : Tr(help));
    return button;
}

void UCPlayListContents::RenderButtonPictures()
{
    for (QToolButton* button : {CmdInsert, CmdDelete, CmdUp, CmdDown, CmdEdit}) {
        const QString glyph = button->property("glyph").toString();
        const int side = ButtonSide - 6;
        QIcon icon(PlayListButtonPictures::Picture(glyph, side));
        icon.addPixmap(PlayListButtonPictures::Picture(glyph + QStringLiteral("_Disabled"), side), QIcon::Disabled);
        button->setIcon(icon);
        button->setIconSize(QSize(side, side));
    }
}

void UCPlayListContents::ConnectControls()
{
    connect(CmdInsert, &QToolButton::clicked, this, &UCPlayListContents::InsertBlankBeforeSelectedItem);
    connect(CmdDelete, &QToolButton::clicked, this, &UCPlayListContents::DeleteSelectedItem);
    connect(CmdUp, &QToolButton::clicked, this, &UCPlayListContents::LiftUpSelectedItem);
    connect(CmdDown, &QToolButton::clicked, this, &UCPlayListContents::LiftDownSelectedItem);
    connect(CmdEdit, &QToolButton::toggled, this, &UCPlayListContents::SetEditMode);
    connect(UCPlayListDiskOperation1, &UCPlayListDiskOperation::Refresh, this, [this] { StartGrabContents(0); });
    connect(GrdPlayListItems->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this] { GrabButtons(); });
    connect(GrdPlayListItems, &QTableView::doubleClicked, this,
            [this](const QModelIndex& index) { CellDoubleClicked(index.row() + 1, index.column()); });
}

// The moves and releases anywhere on the control reach the drag; the grid's own events and the
// buttons' hover are handled in the filter.
void UCPlayListContents::WatchChildren()
{
    installEventFilter(this);
    for (QWidget* child : findChildren<QWidget*>())
        child->installEventFilter(this);
}
