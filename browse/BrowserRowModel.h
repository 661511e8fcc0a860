#pragma once
#include "browse/BrowserRow.h"
#include <QAbstractTableModel>
#include <QStringList>
#include <vector>

// The rows of a browser list as plain structs, shown by a QTreeView. Rows are appended in
// batches (one insertion per batch), so that a family of ten thousand carts fills without
// a widget item per row. Column 0 is the row's text with its icon, then sub1, sub2, and the
// milliseconds as text; the headers say how many columns there are.
class BrowserRowModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    explicit BrowserRowModel(const QStringList& headers, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    // Sorts by the text of a column (the milliseconds by number), keeping the order of equals.
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

    int Count() const { return int(m_rows.size()); }
    const BrowserRow& Row(int row) const { return m_rows[size_t(row)]; }
    const std::vector<BrowserRow>& Rows() const { return m_rows; }
    // The first row of that key at or after from, or -1.
    int Find(const QString& key, int from = 0) const;
    // The text of a column of a row, as the list shows it.
    QString Cell(int row, int column) const;
    qint64 TotalMs() const;

    void Append(std::vector<BrowserRow>&& rows);
    void Insert(int row, BrowserRow&& value);
    void Remove(int row);
    void Replace(int row, BrowserRow&& value);
    void SetIcon(int row, const QString& icon);
    void Clear();

private:
    QStringList m_headers;
    std::vector<BrowserRow> m_rows;
};
