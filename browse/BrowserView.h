#pragma once
#include <QTreeView>

class BrowserRowModel;

// The report list of the browsers: a flat list of uniform rows over a BrowserRowModel, whole
// rows selected, pointer moves tracked for the hover arrow, no drag of its own (the drag
// protocol carries carts and families).
class BrowserView : public QTreeView
{
    Q_OBJECT
public:
    BrowserView(BrowserRowModel* rows, QWidget* parent = nullptr);
};
