#pragma once
#include <QColor>
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

    QColor BackColor() const { return m_backColor; }
    // The ground of the rows; alternate rows are a shade darker, text stays black.
    void SetBackColor(const QColor& color);
    // Makes the row the only selected one and the current one, and scrolls to it; a row out
    // of range changes nothing.
    void SelectRow(int row);

private:
    QColor m_backColor;
};
