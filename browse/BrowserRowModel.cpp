#include "browse/BrowserRowModel.h"
#include "browse/BrowserIcons.h"
#include <QFont>
#include <algorithm>

BrowserRowModel::BrowserRowModel(const QStringList& headers, QObject* parent)
    : QAbstractTableModel(parent), m_headers(headers)
{
}

int BrowserRowModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : Count();
}

int BrowserRowModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_headers.size());
}

QString BrowserRowModel::Cell(int row, int column) const
{
    const BrowserRow& r = Row(row);
    switch (column) {
    case 0:
        return r.text;
    case 1:
        return r.sub1;
    case 2:
        return r.sub2;
    default:
        return r.key.isEmpty() || r.sub1.isEmpty() ? QString() : QString::number(r.ms);
    }
}

QVariant BrowserRowModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= Count())
        return {};
    if (role == Qt::DisplayRole)
        return Cell(index.row(), index.column());
    if (role == Qt::DecorationRole && index.column() == 0)
        return BrowserIcons::Icon(Row(index.row()).icon);
    if (role == Qt::TextAlignmentRole && index.column() == 1 && m_headers.size() > 2)
        return int(Qt::AlignRight | Qt::AlignVCenter);
    if (role == Qt::FontRole && Row(index.row()).heading) {
        QFont bold;
        bold.setBold(true);
        return bold;
    }
    return {};
}

QVariant BrowserRowModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole && section < m_headers.size())
        return m_headers[section];
    return QAbstractTableModel::headerData(section, orientation, role);
}

void BrowserRowModel::sort(int column, Qt::SortOrder order)
{
    Q_EMIT layoutAboutToBeChanged();
    const QModelIndexList before = persistentIndexList();
    std::vector<int> places(m_rows.size());
    for (size_t i = 0; i < places.size(); ++i)
        places[i] = int(i);
    const auto less = [&](int a, int b) {
        if (column == 3)
            return m_rows[size_t(a)].ms < m_rows[size_t(b)].ms;
        return Cell(a, column).compare(Cell(b, column), Qt::CaseInsensitive) < 0;
    };
    std::stable_sort(places.begin(), places.end(), [&](int a, int b) { return order == Qt::AscendingOrder ? less(a, b) : less(b, a); });
    std::vector<BrowserRow> sorted;
    sorted.reserve(m_rows.size());
    std::vector<int> newPlace(m_rows.size());
    for (size_t i = 0; i < places.size(); ++i) {
        newPlace[size_t(places[i])] = int(i);
        sorted.push_back(std::move(m_rows[size_t(places[i])]));
    }
    m_rows = std::move(sorted);
    QModelIndexList after;
    for (const QModelIndex& index : before)
        after << this->index(newPlace[size_t(index.row())], index.column());
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged();
}

int BrowserRowModel::Find(const QString& key, int from) const
{
    for (int row = std::max(0, from); row < Count(); ++row)
        if (m_rows[size_t(row)].key == key)
            return row;
    return -1;
}

qint64 BrowserRowModel::TotalMs() const
{
    qint64 total = 0;
    for (const BrowserRow& row : m_rows)
        total += row.ms;
    return total;
}

void BrowserRowModel::Append(std::vector<BrowserRow>&& rows)
{
    if (rows.empty())
        return;
    beginInsertRows({}, Count(), Count() + int(rows.size()) - 1);
    std::move(rows.begin(), rows.end(), std::back_inserter(m_rows));
    endInsertRows();
    rows.clear();
}

void BrowserRowModel::Insert(int row, BrowserRow&& value)
{
    row = std::clamp(row, 0, Count());
    beginInsertRows({}, row, row);
    m_rows.insert(m_rows.begin() + row, std::move(value));
    endInsertRows();
}

void BrowserRowModel::Remove(int row)
{
    beginRemoveRows({}, row, row);
    m_rows.erase(m_rows.begin() + row);
    endRemoveRows();
}

void BrowserRowModel::Replace(int row, BrowserRow&& value)
{
    m_rows[size_t(row)] = std::move(value);
    Q_EMIT dataChanged(index(row, 0), index(row, columnCount() - 1));
}

void BrowserRowModel::SetIcon(int row, const QString& icon)
{
    if (m_rows[size_t(row)].icon == icon)
        return;
    m_rows[size_t(row)].icon = icon;
    Q_EMIT dataChanged(index(row, 0), index(row, 0), {Qt::DecorationRole});
}

void BrowserRowModel::Clear()
{
    beginResetModel();
    m_rows.clear();
    m_rows.shrink_to_fit();
    endResetModel();
}
