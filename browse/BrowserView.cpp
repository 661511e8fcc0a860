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
}
