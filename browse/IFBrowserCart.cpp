#include "browse/IFBrowserCart.h"
#include "foundation/ui/SilenceDescendants.h"
#include "browse/BrowserRowModel.h"
#include "browse/BrowserView.h"
#include "browse/MacroRows.h"
#include "browse/RowSearch.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/Strings.h"
#include "foundation/Tr.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCarts.h"
#include "kernelapi/iFamily.h"
#include "shell/components/CComponent.h"
#include "shell/modInterface.h"
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

namespace {
const QColor ListWhite(255, 255, 255);
const QColor ListGray(128, 128, 128);
// The list while Delete removes carts with no question.
const QColor FastDeletionRed(255, 128, 128);

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
}

std::shared_ptr<iCarts> IFBrowserCart::KernelCarts()
{
    std::shared_ptr<CKernel> kernel = Globals::Kernel();
    return kernel ? kernel->Carts() : nullptr;
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
        BuildEditor();
        BuildFastDeletion();
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
    SilenceDescendants(*this);
    m_stop = true;
    ReleaseFamily();
    modInterface::RemoveComponent(m_component);
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
    RestoreListColor();
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

void IFBrowserCart::RestoreListColor()
{
    if (m_fastDeletion)
        SetListColor(FastDeletionRed);
    else
        SetListColor(m_grayed ? ListGray : ListWhite);
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
    return MacroRows::Useful(m_rows->Row(row));
}

int IFBrowserCart::UsefulCount() const
{
    return MacroRows::UsefulCount(*m_rows);
}

bool IFBrowserCart::IsEmpty() const
{
    return m_mode != MacroMode || UsefulCount() == 0;
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

// Eject

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

// Drops

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
    const qint64 cursor = MacroRows::MsBefore(*m_rows, SelectedRow());
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
