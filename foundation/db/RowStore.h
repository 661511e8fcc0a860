#pragma once
#include <QByteArray>
#include <QByteArrayView>
#include <QSqlQuery>
#include <QVariant>
#include <QVariantList>
#include <vector>

// The rows of a recordset packed in one buffer: per cell a tag byte and its bytes (64-bit
// integer, double, text with its length as Latin-1 when it can be and UTF-16 otherwise, raw
// bytes), so that a 100,000-row table costs
// about its data size instead of a QVariant per cell. Values of other types are kept as their
// text. A replaced row is appended and the old bytes left behind until the next Clear.
class RowStore
{
public:
    void Clear();
    // Gives back the room reserved for growth, once the rows are read.
    void Squeeze();
    int Count() const { return int(m_rows.size()); }

    // Appends the current row of an active query (columns 0..columns-1).
    void AppendFrom(const QSqlQuery& query, int columns);
    void Append(const QVariantList& values);
    void Replace(int row, const QVariantList& values);
    void Remove(int row);

    QVariantList Row(int row) const;
    QVariant Cell(int row, int column) const;
    // The packed bytes of a row, or of one cell: equal values have equal bytes.
    QByteArrayView Bytes(int row) const;
    QByteArrayView CellBytes(int row, int column) const;
    static QByteArray Encode(const QVariantList& values);

    size_t MemoryBytes() const { return size_t(m_data.capacity()) + m_rows.capacity() * sizeof(Span); }

private:
    struct Span
    {
        qsizetype offset;
        qsizetype length;
    };

    Span Store(const QByteArray& encoded);

    QByteArray m_data;
    std::vector<Span> m_rows;
};
