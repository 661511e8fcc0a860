#include "onair/PlayListItemModel.h"
#include "onair/PlayListPictures.h"

using namespace PlayListRows;

PlayListItemModel::PlayListItemModel(QObject* parent) : QAbstractTableModel(parent)
{
}

int PlayListItemModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : Count();
}

int PlayListItemModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant PlayListItemModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= Count())
        return {};
    const PlayListRows::Row& row = m_rows[size_t(index.row())];
    const int column = index.column();
    switch (role) {
    case Qt::DisplayRole:
        return column >= ID ? QVariant(row.Text(column)) : QVariant();
    case Qt::DecorationRole:
        return column <= Type ? QVariant(PlayListPictures::RowIcon(row.Icon(column))) : QVariant();
    case Qt::BackgroundRole:
        return index.row() + 1 == m_highLighted ? QVariant(m_highLightColor) : QVariant();
    case Qt::TextAlignmentRole:
        return column == Time || column == UsefulTime ? QVariant(int(Qt::AlignRight | Qt::AlignVCenter)) : QVariant();
    case Qt::ToolTipRole:
        return column == Description ? QVariant(row.Text(column)) : QVariant();
    default:
        return {};
    }
}

QVariant PlayListItemModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole && section < m_headers.size())
        return m_headers[section];
    return QAbstractTableModel::headerData(section, orientation, role);
}

void PlayListItemModel::SetHeaders(const QStringList& headers)
{
    m_headers = headers;
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, ColumnCount - 1);
}

void PlayListItemModel::SetRows(std::vector<PlayListRows::Row>&& rows)
{
    beginResetModel();
    m_rows = std::move(rows);
    m_highLighted = 0;
    endResetModel();
}

void PlayListItemModel::Replace(int row, PlayListRows::Row&& value)
{
    if (row < 1 || row > Count())
        return;
    m_rows[size_t(row - 1)] = std::move(value);
    Q_EMIT dataChanged(RowIndex(row, 0), RowIndex(row, ColumnCount - 1));
}

void PlayListItemModel::SetIcon(int row, int column, const QString& icon)
{
    if (row < 1 || row > Count() || m_rows[size_t(row - 1)].icons[column] == icon)
        return;
    m_rows[size_t(row - 1)].icons[column] = icon;
    Q_EMIT dataChanged(RowIndex(row, column), RowIndex(row, column), {Qt::DecorationRole});
}

void PlayListItemModel::SetHighLight(int row, const QColor& color)
{
    const int old = m_highLighted;
    m_highLighted = row >= 1 && row <= Count() ? row : 0;
    m_highLightColor = color;
    for (int changed : {old, m_highLighted})
        if (changed > 0)
            Q_EMIT dataChanged(RowIndex(changed, 0), RowIndex(changed, ColumnCount - 1), {Qt::BackgroundRole});
}
