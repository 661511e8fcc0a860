#include "browse/BrowserView.h"
#include "browse/BrowserRowModel.h"
#include <QHeaderView>

BrowserView::BrowserView(BrowserRowModel* rows, QWidget* parent)
    : QTreeView(parent)
{
    setModel(rows);
    setUniformRowHeights(true);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setAllColumnsShowFocus(true);
    setAlternatingRowColors(true);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setDragEnabled(false);
    setMouseTracking(true);
    setIconSize(QSize(16, 16));
    setTextElideMode(Qt::ElideRight);
    header()->setSectionsClickable(true);
    header()->setStretchLastSection(true);
    header()->setSectionResizeMode(QHeaderView::Interactive);
    SetBackColor(Qt::white);
}

void BrowserView::SetBackColor(const QColor& color)
{
    if (color == m_backColor)
        return;
    m_backColor = color;
    // Black text on the rows whatever the theme. The ground changes only when a fill starts
    // and ends, or the list is grayed.
    setStyleSheet(QStringLiteral(
        "QTreeView { background: %1; alternate-background-color: %2; color: rgb(16, 18, 22);"
        " border: 1px solid rgb(58, 68, 84); selection-background-color: rgb(255, 170, 40); selection-color: rgb(16, 18, 22); }"
        "QHeaderView::section { background: rgb(44, 51, 64); color: rgb(200, 210, 225); padding: 3px 6px; border: none;"
        " border-right: 1px solid rgb(30, 34, 40); font-weight: bold; }")
                      .arg(color.name(), color.darker(106).name()));
}

void BrowserView::SelectRow(int row)
{
    if (row < 0 || row >= model()->rowCount())
        return;
    const QModelIndex index = model()->index(row, 0);
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(index);
}
