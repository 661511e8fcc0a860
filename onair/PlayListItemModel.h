#pragma once
#include "onair/PlayListRows.h"
#include <QAbstractTableModel>
#include <QColor>
#include <QStringList>
#include <vector>

// The rows of a playlist's grid as plain structs: one per item and the ghost after them. The
// six icon columns show their picture, the four text columns their text; one row may wear a
// highlight colour (the place a dragged cart would go). Rows count from 1 here as in the list.
class PlayListItemModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    explicit PlayListItemModel(QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    void SetHeaders(const QStringList& headers);
    int Count() const { return int(m_rows.size()); }
    // Row from 1 to Count.
    const PlayListRows::Row& Row(int row) const { return m_rows[size_t(row - 1)]; }
    void SetRows(std::vector<PlayListRows::Row>&& rows);
    void Replace(int row, PlayListRows::Row&& value);
    void SetIcon(int row, int column, const QString& icon);
    // 0 for none.
    int HighLighted() const { return m_highLighted; }
    void SetHighLight(int row, const QColor& color);

private:
    QModelIndex RowIndex(int row, int column) const { return index(row - 1, column); }

    QStringList m_headers;
    std::vector<PlayListRows::Row> m_rows;
    int m_highLighted = 0;
    QColor m_highLightColor;
};
