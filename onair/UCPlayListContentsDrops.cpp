// The playlist grid's mouse and drops: reports to the drag, the old-style drag, the highlight
// of the row a dragged cart would go before, carts and families dropped, and rows moved by a
// drag inside the grid.
#include "onair/UCPlayListContents.h"
#include "browse/drag/CDrag.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/Tr.h"
#include "foundation/Yield.h"
#include "foundation/ui/Dialogs.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCarts.h"
#include "kernelapi/iFamily.h"
#include "kernelapi/iObjectWithProperties.h"
#include "kernelapi/iPlayList.h"
#include "kernelapi/iPlayListItem.h"
#include "onair/PlayListItemModel.h"
#include "shell/CInterface.h"
#include "shell/components/CComponent.h"
#include "shell/modInterface.h"
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QTableView>
#include <QToolButton>
#include <cstdlib>

namespace {
const QColor HighLightColor(255, 192, 192);
constexpr int HighLightMs = 2000;
// A row moved this far or less goes step by step, keeping its own item.
constexpr int LiftSteps = 8;
// A family dropped gives its carts with the event loop running after every so many.
constexpr int InsertsPerYield = 10;

bool Playable(const iCart& cart)
{
    const CartType type = cart.Type();
    return type == CartType::Sound || type == CartType::Macro || type == CartType::Control;
}

bool DragRunning()
{
    const CInterface* face = modInterface::Interface();
    return face && face->Drag().Status() == CDrag::Dragging;
}

std::shared_ptr<iCart> CartByID(const QString& cartID)
{
    return Globals::Kernel()->Carts()->Cart(cartID.trimmed());
}
}

bool UCPlayListContents::eventFilter(QObject* watched, QEvent* event)
{
    const bool onGrid = watched == GrdPlayListItems->viewport();
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        if (onGrid)
            OnMouse(static_cast<QMouseEvent*>(event), CDrag::MouseDown);
        break;
    case QEvent::MouseMove: {
        auto* mouse = static_cast<QMouseEvent*>(event);
        m_pointerY = static_cast<QWidget*>(watched)->mapTo(this, mouse->position().toPoint()).y();
        if (onGrid) {
            OnGridMove(mouse);
            return mouse->buttons() != Qt::NoButton && !m_editMode;
        }
        if (!m_oldDragDrop)
            modInterface::NotifyDrag(m_component, CDrag::MouseMove, mouse);
        break;
    }
    case QEvent::MouseButtonRelease:
        if (!m_oldDragDrop)
            modInterface::NotifyDrag(m_component, CDrag::MouseUp, static_cast<QMouseEvent*>(event));
        break;
    case QEvent::KeyPress:
        if (watched == GrdPlayListItems)
            return OnKey(static_cast<QKeyEvent*>(event)->key());
        break;
    case QEvent::Enter:
        if (auto* button = qobject_cast<QToolButton*>(watched); button && button->property("help").isValid())
            LblHelp->setText(button->property("help").toString());
        break;
    case QEvent::Leave:
        if (qobject_cast<QToolButton*>(watched))
            LblHelp->clear();
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

// A press on a row offers its cart to the drag; in edit mode the grid only selects.
void UCPlayListContents::OnMouse(QMouseEvent* event, int notification)
{
    const int row = GrdPlayListItems->indexAt(event->position().toPoint()).row() + 1;
    m_pressedRow = m_editMode ? 0 : row;
    if (m_oldDragDrop || m_editMode || event->button() != Qt::LeftButton)
        return;
    m_component->SetControl(this);
    Guarded(Object, QStringLiteral("GrdPlayListItems_MouseDown"), [&] {
        std::shared_ptr<iCart> cart;
        if (m_list && row >= 1 && row <= m_list->Count())
            cart = m_list->Item(row)->Cart();
        m_component->SetSharedObject(cart);
    });
    modInterface::NotifyDrag(m_component, notification, event);
}

void UCPlayListContents::OnGridMove(QMouseEvent* event)
{
    if (DragRunning())
        Over(0, m_pointerY);
    if (m_editMode)
        return;
    if (!m_oldDragDrop) {
        modInterface::NotifyDrag(m_component, CDrag::MouseMove, event);
        return;
    }
    const int row = SelectedRow();
    if ((event->buttons() & Qt::LeftButton) && row >= 1 && row < m_rows->Count())
        Q_EMIT OldStyleTryToDrag(m_rows->Row(row).Text(PlayListRows::ID));
}

int UCPlayListContents::DiscoverRow(int y) const
{
    const int top = GrdPlayListItems->viewport()->mapTo(this, QPoint(0, 0)).y();
    if (y < top || m_rows->Count() == 0)
        return 0;
    const int row = GrdPlayListItems->rowAt(y - top);
    return row < 0 ? m_rows->Count() : row + 1;
}

QPoint UCPlayListContents::RowPoint(int row) const
{
    const QRect cell = GrdPlayListItems->visualRect(m_rows->index(row - 1, PlayListRows::ID));
    return GrdPlayListItems->viewport()->mapTo(this, cell.center());
}

void UCPlayListContents::Over(int, int y)
{
    HighLight(true, DiscoverRow(y));
}

void UCPlayListContents::HighLight(bool on, int row)
{
    if (!on) {
        m_rows->SetHighLight(0, HighLightColor);
        m_tmrDropHighlight.stop();
        return;
    }
    m_tmrDropHighlight.start(HighLightMs);
    if (row >= 1 && row <= m_rows->Count() && row != m_rows->HighLighted())
        m_rows->SetHighLight(row, HighLightColor);
}

// A drag that left the grid leaves no colour behind.
void UCPlayListContents::TmrDropHighlight_Timer()
{
    HighLight(false, 0);
}

void UCPlayListContents::Drop(int, int y, const QString& cartID)
{
    HighLight(false, 0);
    const int row = DiscoverRow(y);
    if (row < 1 || !m_list)
        return;
    Guarded(Object, QStringLiteral("Drop"), [&] { InsertCart(row, CartByID(cartID)); });
}

void UCPlayListContents::Component_DragDrop(std::shared_ptr<CComponent> source)
{
    HighLight(false, 0);
    if (!source)
        return;
    Guarded(Object, QStringLiteral("Component_DragDrop"), [&] {
        const int row = DiscoverRow(m_pointerY);
        if (source == m_component) {
            MoveItem(m_pressedRow, row);
        } else if (source->ShareType() == CComponent::ShareCart) {
            const auto cart = source->Shared<iCart>();
            if (!cart)
                return;
            if (!m_list)
                Q_EMIT DroppedWithoutList(cart->ID());
            else if (row >= 1)
                InsertCart(row, CartByID(cart->ID()));
        } else if (source->ShareType() == CComponent::ShareFamily) {
            if (const auto family = source->Shared<iFamily>(); family && m_list && row >= 1)
                InsertFamily(row, *family);
        }
    });
}

void UCPlayListContents::InsertCart(int row, const std::shared_ptr<iCart>& cart)
{
    m_list->Insert(row, cart);
    SelectRow(row);
}

// The playable carts of a family, in slot order, before the row. A family too large for a
// list is refused whole with a message; the list is left as it was.
void UCPlayListContents::InsertFamily(int row, iFamily& family)
{
    if (m_dropping)
        return;
    const int count = family.Count();
    if (count > MaxFamilyDrop) {
        Dialogs::MessageBox(Tr(QStringLiteral("The family %1 holds %2 carts: a playlist takes at most %3 carts of a family in one drop."))
                                .arg(family.ID())
                                .arg(count)
                                .arg(MaxFamilyDrop),
                            Dialogs::Buttons::Ok, Tr(QStringLiteral("Playlist")), Dialogs::Icon::Warning);
        return;
    }
    m_dropping = true;
    const std::shared_ptr<iPlayList> list = m_list;
    int at = row;
    try {
        for (int index = 1; index <= count; ++index) {
            const std::shared_ptr<iCart> cart = family.Item(index);
            if (!Playable(*cart))
                continue;
            list->Insert(at++, cart);
            if ((at - row) % InsertsPerYield == 0) {
                Yield();
                if (m_list != list)
                    break;
            }
        }
    } catch (...) {
        m_dropping = false;
        throw;
    }
    m_dropping = false;
}

// A row dragged inside the grid goes before the row it is dropped on (at the ghost: to the
// end). Near moves swap step by step; far ones insert a copy with the row's flags and
// properties and delete the original. A sounding row always goes step by step, so that it
// stays the row that plays.
void UCPlayListContents::MoveItem(int from, int to)
{
    if (!m_list || from < 1 || from > m_list->Count() || to < 1 || to > m_list->Count() + 1 || to == from || to == from + 1)
        return;
    const int target = to > from ? to - 1 : to;
    const std::shared_ptr<iPlayListItem> item = m_list->Item(from);
    if (item->Playing() || std::abs(target - from) <= LiftSteps) {
        for (int row = from; row < target; ++row)
            m_list->LiftDown(row);
        for (int row = from; row > target; --row)
            m_list->LiftUp(row);
    } else {
        m_list->Insert(to, item->Cart());
        const std::shared_ptr<iPlayListItem> copy = m_list->Item(to);
        copy->SetIgnored(item->Ignored());
        copy->SetLooped(item->Looped());
        const auto properties = item->Properties();
        for (const auto group : {iObjectWithProperties::PropertyGroup::Static, iObjectWithProperties::PropertyGroup::Volatile})
            for (const QString& name : properties->PropertyNames(group))
                copy->Properties()->SetProperty(name, properties->Property(name));
        m_list->Delete(to < from ? from + 1 : from);
    }
    SelectRow(target);
}
