#include "browse/IFBrowserCart.h"
#include "browse/BrowserRowModel.h"
#include "browse/BrowserView.h"
#include "browse/CartRows.h"
#include "browse/RowSearch.h"
#include "browse/drag/CDrag.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/Log.h"
#include "foundation/Strings.h"
#include "foundation/Tr.h"
#include "foundation/Yield.h"
#include "foundation/controls/UCProgressBar.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCarts.h"
#include "kernelapi/iFamilies.h"
#include "kernelapi/iFamily.h"
#include "kernelapi/iMacro.h"
#include "kernelapi/iMacroItem.h"
#include "shell/CInterface.h"
#include "shell/components/CComponent.h"
#include "shell/modInterface.h"
#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

namespace {
const QString Object = QStringLiteral("IFBrowserCart");
const QColor ListWhite(255, 255, 255);
const QColor ListGray(128, 128, 128);
const QColor ListFilling(255, 128, 128);

QString TrueFalse(bool value)
{
    return value ? QStringLiteral("True") : QStringLiteral("False");
}

// A key that names a cart: three letters and four digits.
bool IsCartKey(const QString& key)
{
    if (key.size() != 7)
        return false;
    for (int i = 0; i < 7; ++i)
        if (i < 3 ? !key[i].isLetter() : !key[i].isDigit())
            return false;
    return true;
}

std::shared_ptr<iCarts> KernelCarts()
{
    std::shared_ptr<CKernel> kernel = Globals::Kernel();
    return kernel ? kernel->Carts() : nullptr;
}

QToolButton* ToolButton(const QString& name, const QString& caption, QWidget* parent)
{
    auto* button = new QToolButton(parent);
    button->setObjectName(name);
    button->setText(Tr(caption));
    button->setFocusPolicy(Qt::NoFocus);
    return button;
}

QLabel* Label(const QString& name, QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    return label;
}
}

IFBrowserCart::IFBrowserCart(QWidget* parent)
    : QWidget(parent), m_rows(new BrowserRowModel({Tr(QStringLiteral("ID")), Tr(QStringLiteral("Time")),
                                                   Tr(QStringLiteral("Description")), Tr(QStringLiteral("Time in ms"))}, this))
{
    setObjectName(QStringLiteral("IFBrowserCart"));
    setStyleSheet(QStringLiteral("QLabel#LblTitle { font-size: 12pt; font-weight: bold; color: rgb(255, 190, 80); }"
                                 "QLabel#LblQty { color: rgb(150, 165, 190); font-weight: bold; }"
                                 "QLabel#LblCursorTime { color: rgb(150, 165, 190); }"));
    Guarded(Object, QStringLiteral("UserControl_Initialize"), [this](Step& step) {
        step(QStringLiteral("Translate the control"));
        BuildControls();
        SetupDragDrop();
        step(QStringLiteral("Init the running mode"));
        ListClear();
        step(QStringLiteral("Set which type of carts will be displayed"));
        m_allowSounds = m_allowMacros = m_allowControls = true;
        step(QStringLiteral("Display misc"));
        SetGrayed(false);
        SetShowDiscControls(false);
    });
}

IFBrowserCart::~IFBrowserCart()
{
    m_stop = true;
    ReleaseFamily();
    modInterface::RemoveComponent(m_component);
}

void IFBrowserCart::BuildControls()
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->setSpacing(4);

    auto* header = new QHBoxLayout;
    LblTitle = Label(QStringLiteral("LblTitle"), this);
    LblQty = Label(QStringLiteral("LblQty"), this);
    header->addWidget(LblTitle, 1);
    header->addWidget(LblQty);
    layout->addLayout(header);

    auto* search = new QHBoxLayout;
    TxtSearch = new QLineEdit(this);
    TxtSearch->setObjectName(QStringLiteral("TxtSearch"));
    TxtSearch->setPlaceholderText(Tr(QStringLiteral("ID, time or description")));
    CmdSearch = ToolButton(QStringLiteral("CmdSearch"), QStringLiteral("Search"), this);
    CmdSelected = ToolButton(QStringLiteral("CmdSelected"), QStringLiteral("Selected"), this);
    CmdSelected->setCheckable(true);
    search->addWidget(TxtSearch, 1);
    search->addWidget(CmdSearch);
    search->addWidget(CmdSelected);
    layout->addLayout(search);

    ListView1 = new BrowserView(m_rows, this);
    ListView1->setObjectName(QStringLiteral("ListView1"));
    ListView1->header()->resizeSection(0, 100);
    ListView1->header()->resizeSection(1, 72);
    ListView1->header()->resizeSection(2, 260);
    ListView1->setColumnHidden(3, true);
    layout->addWidget(ListView1, 1);

    PicLoading = new QWidget(this);
    PicLoading->setObjectName(QStringLiteral("PicLoading"));
    auto* loading = new QHBoxLayout(PicLoading);
    loading->setContentsMargins(0, 0, 0, 0);
    auto* caption = Label(QStringLiteral("LblLoading"), PicLoading);
    caption->setText(Tr(QStringLiteral("Loading")));
    ProgressBar1 = new UCProgressBar(PicLoading);
    ProgressBar1->setObjectName(QStringLiteral("ProgressBar1"));
    ProgressBar1->setFixedHeight(16);
    CmdStop = new QPushButton(Tr(QStringLiteral("Stop")), PicLoading);
    CmdStop->setObjectName(QStringLiteral("CmdStop"));
    loading->addWidget(caption);
    loading->addWidget(ProgressBar1, 1);
    loading->addWidget(CmdStop);
    PicLoading->hide();
    layout->addWidget(PicLoading);

    auto* footer = new QHBoxLayout;
    LblTotalTime = Label(QStringLiteral("LblTotalTime"), this);
    LblTotalTime->setProperty("role", QStringLiteral("clock"));
    LblCursorTime = Label(QStringLiteral("LblCursorTime"), this);
    LblCursorTime->setProperty("role", QStringLiteral("clock"));
    ElaDiscControls = new QWidget(this);
    ElaDiscControls->setObjectName(QStringLiteral("ElaDiscControls"));
    auto* macroButtons = new QHBoxLayout(ElaDiscControls);
    macroButtons->setContentsMargins(0, 0, 0, 0);
    CmdNew = ToolButton(QStringLiteral("CmdNew"), QStringLiteral("New"), ElaDiscControls);
    macroButtons->addWidget(CmdNew);
    ElaDiscControls->hide();
    CmdEject = ToolButton(QStringLiteral("CmdEject"), QStringLiteral("Eject"), this);
    auto* totalCaption = Label(QStringLiteral("LblTotalCaption"), this);
    totalCaption->setText(Tr(QStringLiteral("Total")));
    totalCaption->setProperty("role", QStringLiteral("caption"));
    LblCursorTime->setToolTip(Tr(QStringLiteral("Time before the selected row")));
    footer->addWidget(totalCaption);
    footer->addWidget(LblTotalTime);
    footer->addSpacing(12);
    footer->addWidget(LblCursorTime);
    footer->addStretch(1);
    footer->addWidget(ElaDiscControls);
    footer->addWidget(CmdEject);
    layout->addLayout(footer);

    TmrArrow = new QTimer(this);
    TmrArrow->setObjectName(QStringLiteral("TmrArrow"));
    TmrArrow->setInterval(1000);
    TmrSignalArrows = new QTimer(this);
    TmrSignalArrows->setObjectName(QStringLiteral("TmrSignalArrows"));
    TmrSignalArrows->setInterval(100);

    SetListColor(ListWhite);
    for (QObject* reporter : DragReporters())
        reporter->installEventFilter(this);
    ListView1->installEventFilter(this);
    TxtSearch->installEventFilter(this);
    connect(TmrArrow, &QTimer::timeout, this, &IFBrowserCart::TmrArrow_Timer);
    connect(TmrSignalArrows, &QTimer::timeout, this, &IFBrowserCart::TmrSignalArrows_Timer);
    connect(CmdStop, &QPushButton::clicked, this, &IFBrowserCart::Stop);
    connect(CmdSearch, &QToolButton::clicked, this, [this] { Search(TxtSearch->text(), false, false); });
    connect(TxtSearch, &QLineEdit::returnPressed, this, &IFBrowserCart::OnSearch);
    connect(CmdSelected, &QToolButton::toggled, this, &IFBrowserCart::SetSelected);
    connect(CmdEject, &QToolButton::clicked, this, &IFBrowserCart::Eject);
    connect(CmdNew, &QToolButton::clicked, this, &IFBrowserCart::New);
    connect(ListView1->header(), &QHeaderView::sectionClicked, this, [this](int column) {
        ArrowPop();
        m_rows->sort(column);
    });
    connect(ListView1->selectionModel(), &QItemSelectionModel::selectionChanged, this, &IFBrowserCart::PerformSelection);
    connect(ListView1, &QTreeView::clicked, this, [this](const QModelIndex& index) {
        Q_EMIT ItemClicked(m_rows->Row(index.row()).key);
    });
}

void IFBrowserCart::SetupDragDrop()
{
    Guarded(Object, QStringLiteral("SetupDragDrop"), [this](Step& step) {
        step(QStringLiteral("Setup drag & drop - A"));
        m_component = std::make_shared<CComponent>();
        m_hover = std::make_shared<CComponent>();
        step(QStringLiteral("Setup drag & drop - B"));
        modInterface::AddComponent(QStringLiteral("CartBrowser"), m_component);
        m_hover->SetName(QStringLiteral("CartBrowser"));
        step(QStringLiteral("Setup drag & drop - C"));
        m_component->SetShareType(CComponent::ShareCart);
        m_hover->SetShareType(CComponent::ShareCart);
        m_component->SetControl(this);
        connect(m_component.get(), &CComponent::DragDrop, this, &IFBrowserCart::Component_DragDrop);
    });
}

// Properties

void IFBrowserCart::SetAllowMultipleSelection(bool allow)
{
    m_allowMultipleSelection = allow;
    ListView1->setSelectionMode(allow ? QAbstractItemView::ExtendedSelection : QAbstractItemView::SingleSelection);
}

void IFBrowserCart::SetGrayed(bool grayed)
{
    m_grayed = grayed;
    SetListColor(grayed ? ListGray : ListWhite);
}

void IFBrowserCart::SetAcceptMacros(bool accept)
{
    m_acceptMacros = accept;
    SetShowDiscControls(accept);
}

void IFBrowserCart::SetShowDiscControls(bool show)
{
    m_showDiscControls = show;
    ElaDiscControls->setVisible(show);
}

void IFBrowserCart::SetSelected(bool selected)
{
    if (selected == m_selected)
        return;
    m_selected = selected;
    Q_EMIT SelectedChanged(selected);
    CmdSelected->setChecked(selected);
}

IFBrowserCart* IFBrowserCart::SelectedBrother()
{
    for (IFBrowserCart* brother : window()->findChildren<IFBrowserCart*>())
        if (brother->objectName() == objectName() && brother->Selected())
            return brother;
    SetSelected(true);
    return this;
}

void IFBrowserCart::SetListColor(const QColor& color)
{
    ListView1->SetBackColor(color);
}

// Rows and selection

bool IFBrowserCart::Available(const iCart& cart) const
{
    switch (cart.Type()) {
    case CartType::Sound:
        return m_allowSounds;
    case CartType::Macro:
        return m_allowMacros;
    case CartType::Control:
        return m_allowControls;
    case CartType::Separator:
        return true;
    default:
        return false;
    }
}

bool IFBrowserCart::Useful(int row) const
{
    const BrowserRow& r = m_rows->Row(row);
    return !r.key.isEmpty() && r.icon != CartRows::GhostKey;
}

int IFBrowserCart::UsefulCount() const
{
    int useful = 0;
    for (int row = 0; row < m_rows->Count(); ++row)
        useful += Useful(row) ? 1 : 0;
    return useful;
}

bool IFBrowserCart::IsEmpty() const
{
    return m_mode != MacroMode || UsefulCount() == 0;
}

void IFBrowserCart::AddCart(int at, const iCart* cart)
{
    std::vector<BrowserRow> rows;
    CartRows::Append(rows, cart);
    for (BrowserRow& row : rows)
        m_rows->Insert(at++, std::move(row));
}

int IFBrowserCart::SelectedRow() const
{
    const QModelIndex current = ListView1->currentIndex();
    if (current.isValid() && ListView1->selectionModel()->isRowSelected(current.row(), {}))
        return current.row();
    const QModelIndexList rows = ListView1->selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.first().row();
}

QStringList IFBrowserCart::SelectedKeys() const
{
    QStringList keys;
    for (const QModelIndex& index : ListView1->selectionModel()->selectedRows())
        keys << m_rows->Row(index.row()).key;
    return keys;
}

QString IFBrowserCart::SelectedCartID() const
{
    const int row = SelectedRow();
    return row < 0 ? QString() : m_rows->Row(row).key;
}

void IFBrowserCart::SetSelectedCartID(const QString& cartID)
{
    ListView1->SelectRow(m_rows->Find(cartID));
}

void IFBrowserCart::Reselect(const QStringList& ids)
{
    for (const QString& id : ids)
        for (int row = m_rows->Find(id); row >= 0; row = m_rows->Find(id, row + 1))
            ListView1->selectionModel()->select(m_rows->index(row, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

int IFBrowserCart::TopRow() const
{
    return ListView1->indexAt(QPoint(1, 1)).row();
}

void IFBrowserCart::PerformSelection()
{
    Guarded(Object, QStringLiteral("PerformSelection"), [this] {
        const QString key = SelectedCartID();
        std::shared_ptr<iCarts> carts = KernelCarts();
        if (!carts || key.isEmpty())
            return;
        std::shared_ptr<iCart> cart = IsCartKey(key) ? carts->Cart(key) : nullptr;
        m_component->SetSharedObject(cart);
        m_hover->SetSharedObject(cart);
        RefreshTimings();
        Q_EMIT Selection();
        Q_EMIT Hover(m_hover);
    });
}

// Families

void IFBrowserCart::LoadFamilyByName(const QString& familyID)
{
    Guarded(Object, QStringLiteral("LoadFamilyByName"), [&] {
        LoadFamily(Globals::Kernel()->Families()->Item(familyID));
    });
}

void IFBrowserCart::LoadFamily(const std::shared_ptr<iFamily>& family)
{
    if (!family)
        return;
    // A fill yields to the event loop; a load asked for meanwhile ends it and follows it.
    m_pendingFamily = family;
    if (m_filling) {
        m_stop = true;
        return;
    }
    while (m_pendingFamily)
        FillFamily(std::exchange(m_pendingFamily, nullptr));
}

void IFBrowserCart::HoldFamily(const std::shared_ptr<iFamily>& family)
{
    ReleaseFamily();
    m_family = family;
    m_familyConnections << connect(family.get(), &iFamily::ChangedContents, this, &IFBrowserCart::Family_ChangedContents)
                        << connect(family.get(), &iFamily::SlightlyChangedContents, this, &IFBrowserCart::Family_SlightlyChangedContents)
                        << connect(family.get(), &iFamily::QueryClear, this, &IFBrowserCart::Eject);
}

void IFBrowserCart::ReleaseFamily()
{
    for (const QMetaObject::Connection& connection : std::exchange(m_familyConnections, {}))
        disconnect(connection);
    m_family.reset();
}

void IFBrowserCart::FillFamily(const std::shared_ptr<iFamily>& family)
{
    Guarded(Object, QStringLiteral("LoadFamily"), [&](Step& step) {
        step(QStringLiteral("Hold"));
        const bool refresh = m_family && m_family->ID() == family->ID();
        if (m_family != family)
            HoldFamily(family);
        m_signalArrowsVisible = false;
        const ViewState view = refresh ? RememberView() : ViewState{};
        ArrowPop();
        m_macro.reset();
        m_mode = FamilyMode;
        LogOk(Object, QStringLiteral("LoadFamily"), QStringLiteral("AllowSounds   = ") + TrueFalse(m_allowSounds));
        LogOk(Object, QStringLiteral("LoadFamily"), QStringLiteral("AllowMacros   = ") + TrueFalse(m_allowMacros));
        LogOk(Object, QStringLiteral("LoadFamily"), QStringLiteral("AllowControls = ") + TrueFalse(m_allowControls));
        LogOk(Object, QStringLiteral("LoadFamily"), QStringLiteral("Start of filling."));
        QElapsedTimer clock;
        clock.start();
        step(QStringLiteral("Fill"));
        BeginFilling();
        LblTitle->setText(family->ID() + QStringLiteral(" - ") + family->Description());
        try {
            FillRows(*family);
        } catch (...) {
            EndFilling();
            throw;
        }
        EndFilling();
        LogOk(Object, QStringLiteral("LoadFamily"), QStringLiteral("End of filling. ") + QString::number(clock.elapsed()) + QStringLiteral(" ms"));
        if (m_family != family)
            return; // ejected while it filled
        if (refresh)
            RestoreView(view);
        SetQty();
        RefreshTimings();
    });
}

void IFBrowserCart::BeginFilling()
{
    m_filling = true;
    m_stop = false;
    m_rows->Clear();
    m_arrow.reset();
    ProgressBar1->SetPercent(0);
    PicLoading->show();
    ListView1->setFocusPolicy(Qt::NoFocus);
}

void IFBrowserCart::EndFilling()
{
    SetListColor(m_grayed ? ListGray : ListWhite);
    ListView1->setFocusPolicy(Qt::StrongFocus);
    PicLoading->hide();
    m_stop = false;
    m_filling = false;
    m_signalArrowsVisible = true;
}

// The carts in slot order, a hundred at a time: after each hundred the progress moves and the
// event loop runs, where Stop, another load or an eject may end the fill. Rows reach the list
// with the first hundred and then at most every ShowRowsEveryMs, in one insertion each: every
// insertion repaints the list, which costs more than reading a hundred carts.
void IFBrowserCart::FillRows(iFamily& family)
{
    // The panel shows before the family's rows are read, and the read has the loop to itself.
    Yield();
    if (m_stop)
        return;
    const int count = family.Count();
    Yield();
    if (m_stop)
        return;
    std::vector<BrowserRow> pending;
    QElapsedTimer sinceShown;
    for (int index = 1; index <= count; ++index) {
        const std::shared_ptr<iCart> cart = family.Item(index);
        if (Available(*cart))
            CartRows::Append(pending, cart.get());
        if (index % RowsPerBatch != 0)
            continue;
        if (!sinceShown.isValid() || sinceShown.elapsed() >= ShowRowsEveryMs) {
            m_rows->Append(std::move(pending));
            sinceShown.start();
        }
        SetListColor(ListFilling);
        ProgressBar1->SetPercent(float(index) * 100 / float(count));
        Yield();
        if (m_stop)
            break;
    }
    // Stopped or done, what was read stays; an eject meanwhile took the family and its rows.
    if (m_family.get() == &family)
        m_rows->Append(std::move(pending));
}

void IFBrowserCart::Family_ChangedContents()
{
    LoadFamily(m_family);
}

void IFBrowserCart::Family_SlightlyChangedContents()
{
    Guarded(Object, QStringLiteral("Family_SlightlyChangedContents"), [this] {
        if (!m_family || m_mode != FamilyMode)
            return;
        QHash<QString, int> rowOf;
        for (int row = 0; row < m_rows->Count(); ++row)
            rowOf.insert(m_rows->Row(row).key, row);
        for (int index = 1; index <= m_family->Count(); ++index) {
            const std::shared_ptr<iCart> cart = m_family->Item(index);
            const auto found = rowOf.constFind(cart->ID());
            if (found == rowOf.constEnd() || cart->Type() == CartType::Separator)
                continue;
            BrowserRow row = m_rows->Row(*found);
            CartRows::SetCartInfo(row, *cart);
            m_rows->Replace(*found, std::move(row));
        }
        RefreshTimings();
    });
}

IFBrowserCart::ViewState IFBrowserCart::RememberView() const
{
    return ViewState{TopRow(), SelectedKeys()};
}

void IFBrowserCart::RestoreView(const ViewState& view)
{
    if (!view.selected.isEmpty())
        SetSelectedCartID(view.selected.first());
    Reselect(view.selected);
    if (view.topRow >= 0 && view.topRow < m_rows->Count())
        ListView1->scrollTo(m_rows->index(view.topRow, 0), QAbstractItemView::PositionAtTop);
}

void IFBrowserCart::Eject()
{
    Guarded(Object, QStringLiteral("Eject"), [this] {
        m_pendingFamily.reset();
        m_stop = true;
        ListClear();
        ReleaseFamily();
        m_macro.reset();
    });
}

void IFBrowserCart::ListClear()
{
    ArrowPop();
    LblQty->setText(QStringLiteral("?"));
    m_mode = NothingLoaded;
    m_rows->Clear();
    m_arrow.reset();
    LblTitle->setText(Tr(QStringLiteral("<Not loaded>")));
    RefreshTimings();
}

// Macros

void IFBrowserCart::LoadMacroByName(const QString& cartID)
{
    Guarded(Object, QStringLiteral("LoadMacroByName"), [&] {
        std::shared_ptr<iMacro> macro = KernelCarts()->NewMacro();
        macro->LoadByID(cartID);
        LoadMacro(macro);
    });
}

void IFBrowserCart::LoadMacro(const std::shared_ptr<iMacro>& macro)
{
    Guarded(Object, QStringLiteral("LoadMacro"), [&] {
        ArrowPop();
        const int count = macro->Count();
        bool cancel = false;
        Q_EMIT BeforeShowMacro(&cancel, macro);
        if (cancel)
            return;
        Eject();
        m_macro = macro;
        m_mode = MacroMode;
        std::vector<BrowserRow> rows;
        for (int index = 1; index <= count; ++index) {
            const std::shared_ptr<iMacroItem> item = macro->Item(index);
            const std::shared_ptr<iCart> cart = item ? item->Cart() : nullptr;
            CartRows::Append(rows, cart.get());
        }
        m_rows->Append(std::move(rows));
        ParseGhost(true, 0);
        const std::shared_ptr<iCart> own = macro->Cart();
        LblTitle->setText(own ? own->ID() + QStringLiteral(" - ") + own->Title() : QString());
        SetQty();
        RefreshTimings();
        SetSelected(true);
    });
}

void IFBrowserCart::New()
{
    Guarded(Object, QStringLiteral("iNew"), [this] {
        bool cancel = false;
        Q_EMIT BeforeNew(&cancel);
        if (cancel)
            return;
        Eject();
        m_macro = KernelCarts()->NewMacro();
        if (const std::shared_ptr<iCart> own = m_macro->Cart())
            own->SetType(CartType::Macro);
        m_macro->Clear();
        m_mode = MacroMode;
        ParseGhost(true, 0);
        LblTitle->setText(Tr(QStringLiteral("<New Macro>")));
        SetQty();
        RefreshTimings();
    });
}

void IFBrowserCart::ParseGhost(bool selectGhost, int rowToShow)
{
    const int count = m_rows->Count();
    bool needGhost = count == 0 && m_mode != FamilyMode;
    int firstGhost = -1;
    if (count > 0) {
        for (int row = 0; row < count; ++row)
            if (m_rows->Row(row).icon == CartRows::GhostKey)
                m_rows->SetIcon(row, CartRows::BlankKey);
        int row = count - 1;
        for (; row >= 0 && m_rows->Row(row).icon == CartRows::BlankKey; --row) {
            m_rows->SetIcon(row, CartRows::GhostKey);
            firstGhost = row;
        }
        needGhost = row == count - 1 && m_mode != FamilyMode;
    }
    if (needGhost) {
        m_rows->Append({CartRows::Ghost()});
        firstGhost = count;
    }
    if (selectGhost)
        ListView1->SelectRow(firstGhost);
    else if (rowToShow >= 1)
        ListView1->SelectRow(std::min(rowToShow, m_rows->Count()) - 1);
}

void IFBrowserCart::ParseUnGhost()
{
    ListView1->selectionModel()->clear();
    while (m_rows->Count() > 0) {
        const QString& icon = m_rows->Row(m_rows->Count() - 1).icon;
        if (icon != CartRows::BlankKey && icon != CartRows::GhostKey)
            break;
        m_rows->Remove(m_rows->Count() - 1);
    }
}

void IFBrowserCart::DeleteSelectedItem()
{
    const int row = SelectedRow();
    ArrowPop();
    if (row < 0)
        return;
    m_rows->Remove(row);
    ParseGhost(false, row + 1);
    SetQty();
    RefreshTimings();
}

void IFBrowserCart::InsertDummyItem()
{
    const int row = SelectedRow();
    ArrowPop();
    m_rows->Insert(row < 0 ? m_rows->Count() : row, CartRows::Blank());
    ParseGhost(false, 0);
    SetQty();
}

void IFBrowserCart::SendCart(const QString& cartID, bool atArrow, bool atSelection)
{
    Guarded(Object, QStringLiteral("SendCart"), [&] {
        const std::shared_ptr<iCart> cart = KernelCarts()->Cart(cartID);
        if (IsEmpty() && cart->Type() == CartType::Macro)
            LoadMacroByName(cartID);
        else
            AppendByName(cartID, atArrow, atSelection);
    });
}

void IFBrowserCart::AppendByName(const QString& cartID, bool atArrow, bool atSelection)
{
    Guarded(Object, QStringLiteral("AppendByName"), [&] {
        const std::shared_ptr<iCart> cart = KernelCarts()->Cart(cartID);
        if (IsEmpty())
            New();
        int at = m_rows->Count();
        if (atArrow && m_arrow)
            at = m_arrow->row;
        else if (atSelection && SelectedRow() >= 0)
            at = SelectedRow();
        ArrowPop();
        ParseUnGhost();
        AddCart(std::min(at, m_rows->Count()), cart.get());
        ParseGhost(false, 0);
        SetQty();
        RefreshTimings();
    });
}

void IFBrowserCart::Component_DragDrop(const std::shared_ptr<CComponent>& source)
{
    if (!source)
        return;
    if (source->ShareType() == CComponent::ShareFamily && m_acceptFamilyDrops) {
        if (const std::shared_ptr<iFamily> family = source->Shared<iFamily>()) {
            LblTitle->setText(Tr(QStringLiteral("Loading")));
            LoadFamily(family);
        }
    } else if (source->ShareType() == CComponent::ShareCart && m_acceptMacros) {
        if (const std::shared_ptr<iCart> cart = source->Shared<iCart>())
            SendCart(cart->ID(), true, false);
    }
}

// Labels

void IFBrowserCart::SetQty()
{
    switch (m_mode) {
    case NothingLoaded:
    case FamilyMode:
        LblQty->setText(QString::number(m_rows->Count()));
        break;
    case MacroMode:
        LblQty->setText(QString::number(UsefulCount()) + QLatin1Char('/') + QString::number(m_rows->Count()));
        break;
    default:
        LblQty->setText(QStringLiteral("?"));
    }
}

void IFBrowserCart::RefreshTimings()
{
    if (m_mode == NothingLoaded) {
        LblTotalTime->clear();
        LblCursorTime->clear();
        return;
    }
    LblTotalTime->setText(MsToHuman(qint32(std::min<qint64>(m_rows->TotalMs(), INT32_MAX))));
    if (m_mode != MacroMode) {
        LblCursorTime->clear();
        return;
    }
    const int selected = SelectedRow();
    qint64 cursor = 0;
    for (int row = 0; row < selected; ++row)
        cursor += m_rows->Row(row).ms;
    LblCursorTime->setText(MsToHuman(qint32(std::min<qint64>(cursor, INT32_MAX))));
}

// Search

void IFBrowserCart::Search(const QString& text, bool idOnly, bool prefixOnly)
{
    const RowSearch search(text, idOnly, prefixOnly, Globals::ConfigIsYes(QStringLiteral("RelaxedSearch")));
    ListView1->SelectRow(search.Next(*m_rows, SelectedRow()));
}

void IFBrowserCart::OnSearch()
{
    Search(TxtSearch->text(), false, false);
    TxtSearch->selectAll();
}

// Arrows

void IFBrowserCart::ArrowPush(int row)
{
    PushArrow(row, QStringLiteral("BlueArrow"));
}

void IFBrowserCart::ArrowRedPush(int row)
{
    PushArrow(row, QStringLiteral("RedArrow"));
}

void IFBrowserCart::PushArrow(int row, const QString& icon)
{
    TmrArrow->stop();
    if (row < 0 || row >= m_rows->Count())
        return;
    if (!m_arrow || m_arrow->row != row) {
        ArrowPop();
        m_arrow = Arrow{row, m_rows->Row(row).icon};
        m_hover->SetControl(ListView1);
        if (std::shared_ptr<iCarts> carts = KernelCarts()) {
            std::shared_ptr<iCart> pointed = carts->NewCart();
            pointed->SetID(m_rows->Row(row).key);
            m_hover->SetSharedObject(pointed);
        }
        Q_EMIT Hover(m_hover);
    }
    m_rows->SetIcon(row, icon);
    TmrArrow->start();
}

void IFBrowserCart::ArrowPop()
{
    TmrArrow->stop();
    if (m_arrow && m_arrow->row < m_rows->Count())
        m_rows->SetIcon(m_arrow->row, m_arrow->savedIcon);
    m_arrow.reset();
}

void IFBrowserCart::TmrArrow_Timer()
{
    ArrowPop();
}

void IFBrowserCart::SetSignalArrowsEnabled(bool enabled)
{
    if (enabled == SignalArrowsEnabled())
        return;
    if (enabled) {
        m_signalArrows.emplace();
        m_signalCount = 0;
        TmrSignalArrows->start();
        return;
    }
    RefreshSignalArrows(false);
    m_signalArrows.reset();
    TmrSignalArrows->stop();
}

void IFBrowserCart::AddSignalArrow(const QString& cartID, qint32 color)
{
    if (!m_signalArrows) {
        LogWarn(Object, QStringLiteral("AddSignalArrow"), QStringLiteral("I was called but mode was not active"));
        return;
    }
    const int row = m_rows->Find(cartID);
    m_signalArrows->insert(cartID, CSignalArrow(cartID, color, row < 0 ? QString() : m_rows->Row(row).icon));
}

void IFBrowserCart::ClearSignalArrows()
{
    SetSignalArrowsEnabled(false);
    Yield();
    SetSignalArrowsEnabled(true);
}

void IFBrowserCart::TmrSignalArrows_Timer()
{
    m_signalCount = (m_signalCount + 1) % 10;
    if (m_signalCount == 1)
        RefreshSignalArrows(false);
    else if (m_signalCount == 2)
        RefreshSignalArrows(true);
}

void IFBrowserCart::RefreshSignalArrows(bool show)
{
    if (!m_signalArrows || !m_signalArrowsVisible)
        return;
    for (const CSignalArrow& arrow : std::as_const(*m_signalArrows)) {
        const int row = m_rows->Find(arrow.CartID());
        if (row >= 0)
            m_rows->SetIcon(row, show ? arrow.ArrowIcon() : arrow.SavedIcon());
    }
}

// Mouse and keys

bool IFBrowserCart::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        if (DragReporters().contains(watched))
            OnMouse(static_cast<QMouseEvent*>(event), CDrag::MouseDown);
        break;
    case QEvent::MouseButtonRelease:
        if (DragReporters().contains(watched))
            OnMouse(static_cast<QMouseEvent*>(event), CDrag::MouseUp);
        break;
    case QEvent::MouseMove:
        if (watched == ListView1->viewport()) {
            SimulateMouseMove(static_cast<QMouseEvent*>(event));
            // A held button drags the cart: the list must not move its selection meanwhile.
            return static_cast<QMouseEvent*>(event)->buttons() != Qt::NoButton;
        }
        break;
    case QEvent::KeyPress:
        if (watched == ListView1)
            return OnKey(static_cast<QKeyEvent*>(event)->key());
        break;
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        if (watched == TxtSearch)
            Q_EMIT IWantTheKeys(event->type() == QEvent::FocusIn);
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

// The parts whose presses and releases the drag hears: the list, the title and the times.
QList<QObject*> IFBrowserCart::DragReporters() const
{
    return {ListView1->viewport(), LblTitle, LblTotalTime, LblCursorTime};
}

void IFBrowserCart::OnMouse(QMouseEvent* event, int notification)
{
    if (m_oldDragDrop)
        return;
    if (notification == CDrag::MouseDown)
        m_component->SetControl(this);
    modInterface::NotifyDrag(m_component, notification, event);
}

void IFBrowserCart::SimulateMouseMove(QMouseEvent* event)
{
    const int row = ListView1->indexAt(event->position().toPoint()).row();
    if (row >= 0)
        ArrowPush(row);
    if (!m_oldDragDrop) {
        OnMouse(event, CDrag::MouseMove);
        return;
    }
    if (row < 0 || !(event->buttons() & Qt::LeftButton))
        return;
    const QStringList keys = SelectedKeys();
    if (keys.size() <= 1)
        Q_EMIT OldStyleTryToDrag(SelectedCartID());
    else
        Q_EMIT OldStyleTryToDragMany(keys, SelectedCartID());
}

bool IFBrowserCart::OnKey(int key)
{
    switch (key) {
    case Qt::Key_Delete:
        if (m_mode == MacroMode)
            DeleteSelectedItem();
        return m_mode == MacroMode;
    case Qt::Key_Insert:
        if (m_mode == MacroMode)
            InsertDummyItem();
        return m_mode == MacroMode;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Q_EMIT ItemEntered(SelectedCartID());
        return true;
    case Qt::Key_F5:
        if (m_mode == FamilyMode && m_family)
            Guarded(Object, QStringLiteral("ListView1_KeyDown"), [this] { m_family->Refresh(); });
        return true;
    case Qt::Key_Escape:
        ArrowPop();
        return true;
    default:
        return false;
    }
}
