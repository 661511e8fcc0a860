#include "foundation/db/RowStore.h"
#include <QDateTime>
#include <cstring>

namespace {
enum Tag : char { Null, Integer, Real, Text, Latin1, Bytes };

bool IsLatin1(const QString& text)
{
    for (QChar c : text) {
        if (c.unicode() > 0xFF)
            return false;
    }
    return true;
}

template <typename T>
void Put(QByteArray& out, const T& value)
{
    out.append(reinterpret_cast<const char*>(&value), sizeof value);
}

template <typename T>
T Take(const char*& cursor)
{
    T value;
    std::memcpy(&value, cursor, sizeof value);
    cursor += sizeof value;
    return value;
}

QString TextOf(const QVariant& value)
{
    if (value.typeId() == QMetaType::QDateTime)
        return value.toDateTime().toString(Qt::ISODateWithMs);
    return value.toString();
}

void EncodeCell(QByteArray& out, const QVariant& value)
{
    if (value.isNull()) {
        out.append(char(Null));
        return;
    }
    switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::Short:
    case QMetaType::UShort:
        out.append(char(Integer));
        Put(out, value.toLongLong());
        return;
    case QMetaType::Double:
    case QMetaType::Float:
        out.append(char(Real));
        Put(out, value.toDouble());
        return;
    case QMetaType::QByteArray: {
        const QByteArray bytes = value.toByteArray();
        out.append(char(Bytes));
        Put(out, qint32(bytes.size()));
        out.append(bytes);
        return;
    }
    default: {
        // Most catalogue text is Latin-1: one byte a character.
        const QString text = TextOf(value);
        const bool latin1 = IsLatin1(text);
        out.append(char(latin1 ? Latin1 : Text));
        Put(out, qint32(text.size()));
        if (latin1) {
            const qsizetype start = out.size();
            out.resize(start + text.size());
            char* bytes = out.data() + start;
            for (QChar c : text)
                *bytes++ = char(c.unicode());
        } else
            out.append(reinterpret_cast<const char*>(text.constData()), text.size() * qsizetype(sizeof(QChar)));
    }
    }
}

QVariant DecodeCell(const char*& cursor)
{
    switch (*cursor++) {
    case Integer:
        return Take<qint64>(cursor);
    case Real:
        return Take<double>(cursor);
    case Text: {
        const qint32 length = Take<qint32>(cursor);
        QString text(reinterpret_cast<const QChar*>(cursor), length);
        cursor += length * qsizetype(sizeof(QChar));
        return text;
    }
    case Latin1: {
        const qint32 length = Take<qint32>(cursor);
        QString text = QString::fromLatin1(cursor, length);
        cursor += length;
        return text;
    }
    case Bytes: {
        const qint32 length = Take<qint32>(cursor);
        QByteArray bytes(cursor, length);
        cursor += length;
        return bytes;
    }
    default:
        return {};
    }
}

void SkipCell(const char*& cursor)
{
    switch (*cursor++) {
    case Integer:
    case Real:
        cursor += 8;
        return;
    case Text:
        cursor += Take<qint32>(cursor) * qsizetype(sizeof(QChar));
        return;
    case Latin1:
    case Bytes:
        cursor += Take<qint32>(cursor);
        return;
    default:
        return;
    }
}
}

void RowStore::Clear()
{
    m_data.clear();
    m_data.squeeze();
    m_rows.clear();
    m_rows.shrink_to_fit();
}

void RowStore::Squeeze()
{
    m_data.squeeze();
    m_rows.shrink_to_fit();
}

void RowStore::AppendFrom(const QSqlQuery& query, int columns)
{
    const qsizetype start = m_data.size();
    for (int i = 0; i < columns; ++i)
        EncodeCell(m_data, query.value(i));
    m_rows.push_back({start, m_data.size() - start});
}

void RowStore::Append(const QVariantList& values)
{
    m_rows.push_back(Store(Encode(values)));
}

void RowStore::Replace(int row, const QVariantList& values)
{
    m_rows[size_t(row)] = Store(Encode(values));
}

void RowStore::Remove(int row)
{
    m_rows.erase(m_rows.begin() + row);
}

QVariantList RowStore::Row(int row) const
{
    const Span span = m_rows[size_t(row)];
    const char* cursor = m_data.constData() + span.offset;
    const char* end = cursor + span.length;
    QVariantList values;
    while (cursor < end)
        values << DecodeCell(cursor);
    return values;
}

QVariant RowStore::Cell(int row, int column) const
{
    const char* cursor = m_data.constData() + m_rows[size_t(row)].offset;
    for (int i = 0; i < column; ++i)
        SkipCell(cursor);
    return DecodeCell(cursor);
}

QByteArrayView RowStore::Bytes(int row) const
{
    const Span span = m_rows[size_t(row)];
    return QByteArrayView(m_data.constData() + span.offset, span.length);
}

QByteArrayView RowStore::CellBytes(int row, int column) const
{
    const char* cursor = m_data.constData() + m_rows[size_t(row)].offset;
    for (int i = 0; i < column; ++i)
        SkipCell(cursor);
    const char* start = cursor;
    SkipCell(cursor);
    return QByteArrayView(start, cursor - start);
}

QByteArray RowStore::Encode(const QVariantList& values)
{
    QByteArray out;
    for (const QVariant& value : values)
        EncodeCell(out, value);
    return out;
}

RowStore::Span RowStore::Store(const QByteArray& encoded)
{
    const Span span{m_data.size(), encoded.size()};
    m_data.append(encoded);
    return span;
}
