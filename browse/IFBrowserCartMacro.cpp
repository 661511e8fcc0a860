// The macro under edit in the cart browser: loading, a new macro, and its entries.
#include "browse/IFBrowserCart.h"
#include "browse/BrowserRowModel.h"
#include "browse/BrowserView.h"
#include "browse/CartRows.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Tr.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCarts.h"
#include "kernelapi/iMacro.h"
#include "kernelapi/iMacroItem.h"
#include <QLabel>

void IFBrowserCart::AddCart(int at, const iCart* cart)
{
    std::vector<BrowserRow> rows;
    CartRows::Append(rows, cart);
    for (BrowserRow& row : rows)
        m_rows->Insert(at++, std::move(row));
}

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
