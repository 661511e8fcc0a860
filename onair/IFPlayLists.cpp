#include "onair/IFPlayLists.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/Log.h"
#include "foundation/Tr.h"
#include "foundation/ui/SilenceDescendants.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCarts.h"
#include "kernelapi/iPlayList.h"
#include "kernelapi/iPlayLists.h"
#include "onair/PlayListButtonPictures.h"
#include "onair/PlayListPictures.h"
#include "onair/PlayListStatusTable.h"
#include <QApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTableWidget>
#include <QToolButton>
#include <QVBoxLayout>

namespace {
const QString Prefix = QStringLiteral("PL");
constexpr int IconSide = 16;

std::shared_ptr<iPlayLists> Lists()
{
    const auto kernel = Globals::Kernel();
    return kernel ? kernel->PlayLists() : nullptr;
}

QToolButton* Button(QWidget* parent, const QString& name, const QString& glyph, const QString& tip)
{
    auto* button = new QToolButton(parent);
    button->setObjectName(name);
    button->setToolTip(Tr(tip));
    button->setFixedSize(26, 26);
    button->setFocusPolicy(Qt::NoFocus);
    button->setIcon(QIcon(PlayListButtonPictures::Picture(glyph, 20)));
    button->setIconSize(QSize(20, 20));
    return button;
}
}

IFPlayLists::IFPlayLists(QWidget* parent) : QWidget(parent)
{
    setObjectName(Object);
    CreateControls();
    m_tmrInit.setSingleShot(true);
    m_tmrInit.setInterval(InitMs);
    m_tmrSelectionChanged.setSingleShot(true);
    m_tmrSelectionChanged.setInterval(SelectionChangedMs);
    connect(&m_tmrInit, &QTimer::timeout, this, &IFPlayLists::TmrInit_Timer);
    connect(&m_tmrSelectionChanged, &QTimer::timeout, this, &IFPlayLists::TmrSelectionChanged_Timer);
    UpdateCounter();
}

IFPlayLists::~IFPlayLists()
{
    SilenceDescendants(*this);
    for (const auto& connection : std::as_const(m_listsConnections))
        disconnect(connection);
}

void IFPlayLists::CreateControls()
{
    setStyleSheet(QStringLiteral(
        "QTableWidget { background: rgb(255, 255, 224); color: rgb(16, 18, 22); gridline-color: rgb(230, 230, 200);"
        " border: 1px solid rgb(58, 68, 84); selection-background-color: rgb(255, 170, 40); selection-color: rgb(16, 18, 22); }"
        "QHeaderView::section { background: rgb(44, 51, 64); color: rgb(200, 210, 225); padding: 3px 4px; border: none;"
        " border-right: 1px solid rgb(30, 34, 40); font-weight: bold; }"
        "QToolButton { background: rgb(36, 41, 50); border: 1px solid rgb(20, 22, 26); border-radius: 3px; }"
        "QToolButton:checked { background: rgb(120, 84, 20); }"
        "QLabel#LblCounter { color: rgb(150, 165, 190); font-weight: bold; }"));
    GrdPlayLists = new QTableWidget(0, ColumnCount, this);
    GrdPlayLists->setObjectName(QStringLiteral("GrdPlayLists"));
    GrdPlayLists->setSelectionBehavior(QAbstractItemView::SelectRows);
    GrdPlayLists->setSelectionMode(QAbstractItemView::SingleSelection);
    GrdPlayLists->setEditTriggers(QAbstractItemView::NoEditTriggers);
    GrdPlayLists->setIconSize(QSize(IconSide, IconSide));
    GrdPlayLists->verticalHeader()->hide();
    GrdPlayLists->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    GrdPlayLists->verticalHeader()->setDefaultSectionSize(20);
    GrdPlayLists->setHorizontalHeaderLabels({QString(), QString(), QString(), Tr(QStringLiteral("ID")),
                                             Tr(QStringLiteral("Name")), Tr(QStringLiteral("Description"))});
    QHeaderView* header = GrdPlayLists->horizontalHeader();
    header->setStretchLastSection(true);
    header->setMinimumSectionSize(22);
    for (int column = StatusPlaying; column <= StatusModified; ++column) {
        header->setSectionResizeMode(column, QHeaderView::Fixed); // the lamps keep their width
        GrdPlayLists->setColumnWidth(column, 25);
    }
    GrdPlayLists->setColumnWidth(ColumnID, 70);
    GrdPlayLists->setColumnWidth(ColumnName, 150);
    GrdPlayLists->installEventFilter(this);

    TxtNewName = new QLineEdit(GrdPlayLists->viewport());
    TxtNewName->setObjectName(QStringLiteral("TxtNewName"));
    TxtNewName->hide();
    TxtNewName->installEventFilter(this);

    CmdAdd = Button(this, QStringLiteral("CmdAdd"), QStringLiteral("Insert"), QStringLiteral("Add"));
    CmdRemove = Button(this, QStringLiteral("CmdRemove"), QStringLiteral("Delete"), QStringLiteral("Remove"));
    CmdEdit = Button(this, QStringLiteral("CmdEdit"), QStringLiteral("Edit"), QStringLiteral("Edit"));
    CmdEdit->setCheckable(true);
    LblCounter = new QLabel(this);
    LblCounter->setObjectName(QStringLiteral("LblCounter"));

    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(3);
    for (QToolButton* button : {CmdAdd, CmdRemove, CmdEdit})
        buttons->addWidget(button);
    buttons->addStretch(1);
    buttons->addWidget(LblCounter);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(4, 4, 4, 4);
    column->setSpacing(4);
    column->addLayout(buttons);
    column->addWidget(GrdPlayLists, 1);

    connect(CmdAdd, &QToolButton::clicked, this, &IFPlayLists::Add);
    connect(CmdRemove, &QToolButton::clicked, this, &IFPlayLists::Remove);
    connect(CmdEdit, &QToolButton::toggled, this, &IFPlayLists::SetEditMode);
    connect(GrdPlayLists, &QTableWidget::itemSelectionChanged, this, &IFPlayLists::Grid_SelectionChanged);
    connect(header, &QHeaderView::sectionClicked, this, &IFPlayLists::Grid_ColumnClick);
    connect(GrdPlayLists, &QTableWidget::cellDoubleClicked, this, [this](int, int column) {
        if (m_editMode && column == ColumnName) // only the name can be edited
            EditName();
    });
}

void IFPlayLists::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    Init();
}

void IFPlayLists::Init()
{
    if (m_initStarted)
        return;
    m_initStarted = true;
    m_tmrInit.start();
}

void IFPlayLists::TmrInit_Timer()
{
    m_tmrInit.stop();
    DelayedInit();
}

void IFPlayLists::DelayedInit()
{
    Guarded(Object, QStringLiteral("TmrInit_Timer"), [this] {
        for (const auto& connection : std::exchange(m_listsConnections, {}))
            disconnect(connection);
        if (const auto lists = Lists())
            m_listsConnections << connect(lists.get(), &iPlayLists::ChangedCount, this, &IFPlayLists::iPlayLists_ChangedCount)
                               << connect(lists.get(), &iPlayLists::ChangedPlayList, this, &IFPlayLists::iPlayLists_ChangedPlayList);
        Refresh();
    });
}

void IFPlayLists::Refresh()
{
    Guarded(Object, QStringLiteral("Refresh"), [this] {
        const QString selected = SelectedPlayListID();
        const QSignalBlocker quiet(GrdPlayLists);
        GrdPlayLists->setSortingEnabled(false);
        GrdPlayLists->setRowCount(0);
        if (const auto lists = Lists()) {
            GrdPlayLists->setRowCount(lists->Count());
            for (int index = 1; index <= lists->Count(); ++index)
                RefreshRow(lists->Item(index), index - 1);
        }
        for (int row = 0; row < GrdPlayLists->rowCount(); ++row)
            if (!selected.isEmpty() && GetIDByRow(row) == selected)
                SelectRow(row);
    });
    UpdateCounter();
}

void IFPlayLists::RefreshRow(const std::shared_ptr<iPlayList>& list, int row)
{
    GrdPlayLists->setUpdatesEnabled(false);
    const QString id = list->ID();
    const bool done = Guarded(Object, QStringLiteral("RefreshRow"), [&] {
        using namespace PlayListStatusTable;
        Facts facts{true, list->LoadState(), list->PlayState(), list->Modified(), false, false};
        SetIcon(row, StatusPlaying, Show(facts, Playing).icon);
        SetIcon(row, StatusLoaded, Show(facts, Loaded).icon);
        SetIcon(row, StatusModified, Show(facts, Modified).icon);
        GrdPlayLists->setItem(row, ColumnID, new QTableWidgetItem(id.mid(Prefix.size())));
        GrdPlayLists->setItem(row, ColumnName, new QTableWidgetItem(list->Name()));
        GrdPlayLists->setItem(row, ColumnDescription, new QTableWidgetItem(list->Description()));
    });
    if (!done)
        LogError(Object, QStringLiteral("RefreshRow"), QStringLiteral("PlayList.ID = ") + id + QStringLiteral(", Row = ") + QString::number(row + 1));
    GrdPlayLists->setUpdatesEnabled(true);
}

void IFPlayLists::SetIcon(int row, int column, const QString& key)
{
    auto* item = new QTableWidgetItem(QIcon(PlayListPictures::StatusPicture(key, IconSide)), QString());
    item->setData(Qt::UserRole, key);
    GrdPlayLists->setItem(row, column, item);
}

QString IFPlayLists::IconKey(int row, int column) const
{
    const QTableWidgetItem* item = GrdPlayLists->item(row, column);
    return item ? item->data(Qt::UserRole).toString() : QString();
}

void IFPlayLists::RefreshPlayList(const QString& id)
{
    Guarded(Object, QStringLiteral("RefreshPlayList"), [&] {
        const auto lists = Lists();
        for (int row = 0; row < GrdPlayLists->rowCount(); ++row)
            if (GetIDByRow(row) == id) {
                if (lists->IndexOf(id) > 0)
                    RefreshRow(lists->Item(id), row);
                return;
            }
    });
}

QString IFPlayLists::GetIDByRow(int row) const
{
    const QTableWidgetItem* item = GrdPlayLists->item(row, ColumnID);
    return item ? Prefix + item->text() : QString();
}

QString IFPlayLists::SelectedPlayListID() const
{
    const QList<QTableWidgetItem*> selected = GrdPlayLists->selectedItems();
    return selected.isEmpty() ? QString() : GetIDByRow(selected.first()->row());
}

void IFPlayLists::SelectRow(int row)
{
    if (row < 0 || row >= GrdPlayLists->rowCount())
        return;
    GrdPlayLists->setCurrentCell(row, ColumnID, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

QString IFPlayLists::Counter() const
{
    return LblCounter->text();
}

void IFPlayLists::UpdateCounter()
{
    int count = 0;
    int place = 0;
    Guarded(Object, QStringLiteral("UpdateCounter"), [&] {
        if (const auto lists = Lists()) {
            count = lists->Count();
            const QString id = SelectedPlayListID();
            place = id.isEmpty() ? 0 : lists->IndexOf(id);
        }
    });
    LblCounter->setText(PlayListStatusTable::CounterText(count, place));
}

void IFPlayLists::Grid_SelectionChanged()
{
    UpdateCounter();
    m_tmrSelectionChanged.start();
}

void IFPlayLists::TmrSelectionChanged_Timer()
{
    m_tmrSelectionChanged.stop();
    Q_EMIT SelectionChanged(SelectedPlayListID());
}

void IFPlayLists::Grid_ColumnClick(int column)
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    GrdPlayLists->sortItems(column, Qt::AscendingOrder);
    QApplication::restoreOverrideCursor();
}

void IFPlayLists::iPlayLists_ChangedCount()
{
    Refresh();
}

void IFPlayLists::iPlayLists_ChangedPlayList(const QString& id)
{
    RefreshPlayList(id);
}

void IFPlayLists::Add()
{
    Guarded(Object, QStringLiteral("Add"), [] {
        if (const auto lists = Lists())
            lists->Add();
    });
}

void IFPlayLists::Remove()
{
    Guarded(Object, QStringLiteral("Remove"), [this] {
        const QString id = SelectedPlayListID();
        if (!id.isEmpty())
            Lists()->Remove(id);
    });
}

void IFPlayLists::Load(const QString& macroID)
{
    GuardedWith(
        QStringLiteral("Load"),
        [&](Step&) {
            const auto cart = Globals::Kernel()->Carts()->Cart(macroID.trimmed());
            if (cart->Type() == CartType::Macro)
                Lists()->AddFromMacro(cart->ID());
        },
        [&](const QString& step, const QString& description) {
            LogError(Object, step, QStringLiteral("MacroID = '") + macroID + QStringLiteral("' - ") + description);
        });
}

void IFPlayLists::SetEditMode(bool edit)
{
    m_editMode = edit;
    if (CmdEdit->isChecked() != edit)
        CmdEdit->setChecked(edit);
    if (!edit)
        EndNameEdit();
}

void IFPlayLists::EditName()
{
    const QList<QTableWidgetItem*> selected = GrdPlayLists->selectedItems();
    if (!m_editMode || selected.isEmpty())
        return;
    const int row = selected.first()->row();
    TxtNewName->setGeometry(GrdPlayLists->visualItemRect(GrdPlayLists->item(row, ColumnName)));
    TxtNewName->setText(GrdPlayLists->item(row, ColumnName)->text());
    TxtNewName->selectAll();
    TxtNewName->show();
    TxtNewName->setFocus();
}

void IFPlayLists::TxtNewName_Enter()
{
    Guarded(Object, QStringLiteral("TxtNewName_KeyDown"), [this] {
        const QString id = SelectedPlayListID();
        if (!id.isEmpty())
            Lists()->Item(id)->SetName(TxtNewName->text().trimmed());
    });
    EndNameEdit();
}

void IFPlayLists::EndNameEdit()
{
    TxtNewName->hide();
    GrdPlayLists->setFocus();
}

bool IFPlayLists::OnGridKey(int key)
{
    switch (key) {
    case Qt::Key_Delete:
        Remove();
        return true;
    case Qt::Key_Insert:
        Add();
        return true;
    case Qt::Key_F5:
        Refresh();
        return true;
    default:
        return false;
    }
}

bool IFPlayLists::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (watched == GrdPlayLists)
            return OnGridKey(key);
        if (watched == TxtNewName && (key == Qt::Key_Return || key == Qt::Key_Enter)) {
            TxtNewName_Enter();
            return true;
        }
        if (watched == TxtNewName && key == Qt::Key_Escape) {
            EndNameEdit();
            return true;
        }
    }
    if (watched == TxtNewName && event->type() == QEvent::FocusOut)
        TxtNewName->hide();
    return QWidget::eventFilter(watched, event);
}
