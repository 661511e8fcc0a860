// The cart browser's inline editor: opened below the selected row, its keys handed to the
// screen, and the rows of the cart rewritten once it is saved.
#include "browse/BrowserRowModel.h"
#include "browse/BrowserView.h"
#include "browse/CartHeaderEditor.h"
#include "browse/CartRows.h"
#include "browse/IFBrowserCart.h"
#include "foundation/ErrorGuard.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCarts.h"
#include <QApplication>

void IFBrowserCart::BuildEditor()
{
    Editor = new CartHeaderEditor(this);
    connect(Editor, &CartHeaderEditor::IWantTheKeys, this, &IFBrowserCart::OnEditorKeys);
    connect(Editor, &CartHeaderEditor::Saved, this, &IFBrowserCart::RefreshCartRows);
    // The list left the tab order while the editor was open.
    connect(Editor, &CartHeaderEditor::Closed, ListView1, [this] { ListView1->setFocusPolicy(Qt::StrongFocus); });
}

void IFBrowserCart::Edit()
{
    Guarded(Object, QStringLiteral("Edit"), [this] {
        const int row = SelectedRow();
        const QString cartID = SelectedCartID();
        if (row < 0 || !KernelCarts()->Exists(cartID))
            return;
        ArrowPop();
        const QModelIndex index = m_rows->index(row, 0);
        ListView1->scrollTo(index);
        const QPoint below = ListView1->viewport()->mapTo(this, QPoint(0, ListView1->visualRect(index).bottom() + 1));
        ListView1->setFocusPolicy(Qt::NoFocus);
        Editor->Edit(KernelCarts()->Cart(cartID), below.y(), ListView1->x(), ListView1->width());
    });
}

void IFBrowserCart::OnEditorKeys(bool wanted)
{
    // The focus goes back to the list before the editor hides, so that it never falls on the
    // search box, which would claim the keys again.
    if (!wanted && Editor->isAncestorOf(QApplication::focusWidget()))
        ListView1->setFocus();
    Q_EMIT IWantTheKeys(wanted);
}

void IFBrowserCart::RefreshCartRows(const QString& cartID)
{
    Guarded(Object, QStringLiteral("RefreshCartRows"), [&] {
        const std::shared_ptr<iCart> cart = KernelCarts()->Cart(cartID);
        if (cart->Type() == CartType::Separator)
            return;
        for (int row = m_rows->Find(cartID); row >= 0; row = m_rows->Find(cartID, row + 1)) {
            BrowserRow text = m_rows->Row(row);
            CartRows::SetCartInfo(text, *cart);
            m_rows->Replace(row, std::move(text));
        }
        RefreshTimings();
    });
}
