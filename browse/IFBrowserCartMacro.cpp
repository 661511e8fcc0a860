// The macro under edit in the cart browser: loading, a new macro, and its entries; the macro
// buttons and the save are in IFBrowserCartMacroSave.cpp.
#include "browse/IFBrowserCart.h"
#include "browse/BrowserRowModel.h"
#include "browse/BrowserView.h"
#include "browse/CartRows.h"
#include "browse/MacroRows.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Tr.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCarts.h"
#include "kernelapi/iMacro.h"
#include "kernelapi/iMacroItem.h"
#include <QLabel>

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
        ShowMacroTitle();
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
    const int firstGhost = MacroRows::ParseGhost(*m_rows, MayAddGhost());
    if (selectGhost)
        ListView1->SelectRow(firstGhost);
    else if (rowToShow >= 1)
        ListView1->SelectRow(std::min(rowToShow, m_rows->Count()) - 1);
}

void IFBrowserCart::ParseUnGhost()
{
    ListView1->selectionModel()->clear();
    MacroRows::ParseUnGhost(*m_rows);
}

void IFBrowserCart::DeleteSelectedItem()
{
    const int row = SelectedRow();
    ArrowPop();
    if (row < 0)
        return;
    MacroRows::Delete(*m_rows, row, MayAddGhost());
    // The row that took its place, or the last.
    ListView1->SelectRow(std::min(row, m_rows->Count() - 1));
    SetQty();
    RefreshTimings();
}

void IFBrowserCart::InsertDummyItem()
{
    const int row = SelectedRow();
    ArrowPop();
    MacroRows::InsertBlank(*m_rows, row, MayAddGhost());
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
        ListView1->selectionModel()->clear();
        MacroRows::Insert(*m_rows, at, cart.get(), MayAddGhost());
        SetQty();
        RefreshTimings();
    });
}
