// The playlist grid's edits: the four buttons and their covers, the keys, the double clicks
// and the edit mode. Each edit calls the list; the rows follow from its events.
#include "onair/UCPlayListContents.h"
#include "foundation/ErrorGuard.h"
#include "kernelapi/iPlayList.h"
#include "kernelapi/iPlayListItem.h"
#include "onair/PlayListItemModel.h"
#include <QItemSelectionModel>
#include <QTableView>
#include <QToolButton>

using namespace PlayListRows;

int UCPlayListContents::SelectedRow() const
{
    const QModelIndex current = GrdPlayListItems->selectionModel()->currentIndex();
    if (!current.isValid() || !GrdPlayListItems->selectionModel()->isRowSelected(current.row(), {}))
        return 0;
    return current.row() + 1;
}

void UCPlayListContents::SelectRow(int row)
{
    if (row < 1 || row > m_rows->Count())
        return;
    const QModelIndex index = m_rows->index(row - 1, ID);
    GrdPlayListItems->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    GrdPlayListItems->scrollTo(index);
}

// A button behind a shown cover is disabled.
void UCPlayListContents::GrabButtons()
{
    const Covers covers = ButtonCovers(m_list != nullptr, SelectedRow(), m_rows->Count());
    CmdUp->setEnabled(!covers.up);
    CmdDown->setEnabled(!covers.down);
    CmdDelete->setEnabled(!covers.remove);
    CmdInsert->setEnabled(!covers.insert);
}

// Runs an edit of the list on the selected row with the grid's painting held meanwhile.
void UCPlayListContents::Edit(const QString& procedure, const std::function<void(iPlayList&, int row)>& edit)
{
    const int row = SelectedRow();
    if (!m_list || row < 1)
        return;
    GrdPlayListItems->setUpdatesEnabled(false);
    Guarded(Object, procedure, [&] { edit(*m_list, row); });
    GrdPlayListItems->setUpdatesEnabled(true);
}

void UCPlayListContents::DeleteSelectedItem()
{
    Edit(QStringLiteral("DeleteSelectedItem"), [this](iPlayList& list, int row) {
        if (row > list.Count())
            return; // the ghost
        if (row == list.Count())
            SelectRow(row - 1 >= 1 ? row - 1 : row);
        list.Delete(row);
    });
}

void UCPlayListContents::InsertBlankBeforeSelectedItem()
{
    Edit(QStringLiteral("InsertBlankBeforeSelectedItem"), [](iPlayList& list, int row) {
        if (row <= list.Count() + 1)
            list.Insert(row, nullptr);
    });
}

void UCPlayListContents::LiftUpSelectedItem()
{
    Edit(QStringLiteral("LiftUpSelectedItem"), [this](iPlayList& list, int row) {
        if (row < 2 || row > list.Count())
            return;
        list.LiftUp(row);
        SelectRow(row - 1);
    });
}

void UCPlayListContents::LiftDownSelectedItem()
{
    Edit(QStringLiteral("LiftDownSelectedItem"), [this](iPlayList& list, int row) {
        if (row >= list.Count())
            return;
        list.LiftDown(row);
        SelectRow(row + 1);
    });
}

void UCPlayListContents::CellDoubleClicked(int row, int column)
{
    if (m_editMode || !m_list)
        return;
    Guarded(Object, QStringLiteral("GrdPlayListItems_DblClick"), [&] {
        const int count = m_list->Count();
        if (row < 1 || row > count + 1)
            return;
        const CellAction action = DoubleClickAction(column);
        if (action == CellAction::SetNextIndex) {
            m_list->SetNextIndex(row);
            return;
        }
        if (action == CellAction::None || row > count)
            return; // the ghost has no item to change
        const std::shared_ptr<iPlayListItem> item = m_list->Item(row);
        if (action == CellAction::ClearModified)
            item->SetModified(false);
        else if (action == CellAction::FlipIgnored)
            item->SetIgnored(!item->Ignored());
        else
            item->SetLooped(!item->Looped());
    });
}

// In edit mode the grid only selects: no double click changes an item and no row is dragged.
void UCPlayListContents::SetEditMode(bool edit)
{
    m_editMode = edit;
    if (CmdEdit->isChecked() != edit)
        CmdEdit->setChecked(edit);
}

bool UCPlayListContents::OnKey(int key)
{
    switch (key) {
    case Qt::Key_Delete:
        DeleteSelectedItem();
        return true;
    case Qt::Key_Insert:
        InsertBlankBeforeSelectedItem();
        return true;
    default:
        return false;
    }
}
