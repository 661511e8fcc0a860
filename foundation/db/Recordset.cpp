#include "foundation/db/Recordset.h"
#include "foundation/db/Database.h"
#include "foundation/db/RowStore.h"
#include "foundation/db/SqlDialect.h"
#include "foundation/db/SqlShape.h"
#include "foundation/db/SqlTokenizer.h"
#include "foundation/db/TableInfo.h"
#include "kernelapi/KernelError.h"
#include <QDateTime>
#include <QRegularExpression>
#include <QSet>
#include <QSqlField>
#include <QSqlRecord>
#include <algorithm>
#include <optional>

namespace {
enum class EditMode { None, Add, Edit };

const QString NoCurrentRecord = QStringLiteral("No current record.");
const QString RecordDeleted = QStringLiteral("Record is deleted.");
const QString NoEditInProgress = QStringLiteral("Update or CancelUpdate without AddNew or Edit.");

// The table named by a text that is one word or one [bracketed] name; empty for an SQL text.
QString TableNameOf(const QString& tableOrSql)
{
    const std::vector<SqlToken> tokens = SqlTokenizer::Tokenize(tableOrSql);
    const size_t first = SqlTokenizer::NextSignificant(tokens, 0);
    if (first >= tokens.size() || SqlTokenizer::NextSignificant(tokens, first + 1) != tokens.size())
        return {};
    const SqlToken& token = tokens[first];
    const bool name = token.kind == SqlToken::Kind::Name
                      || (token.kind == SqlToken::Kind::Word && !token.IsWord(u"select"));
    return name ? token.value : QString();
}

QString Bracketed(const QString& name)
{
    return u'[' + name + u']';
}

// A whole table in the order of its primary key.
QString TableSelect(const TableInfo& table)
{
    QString sql = QStringLiteral("SELECT * FROM ") + Bracketed(table.name);
    QStringList key;
    for (const QString& field : table.primaryKey)
        key << Bracketed(field);
    if (!key.isEmpty())
        sql += QStringLiteral(" ORDER BY ") + key.join(QStringLiteral(", "));
    return sql;
}

iRecordset::FieldType KindOfValueType(QMetaType type)
{
    using Type = iRecordset::FieldType;
    switch (type.id()) {
    case QMetaType::QString:
        return Type::Text;
    case QMetaType::Int:
    case QMetaType::LongLong:
    case QMetaType::UInt:
    case QMetaType::ULongLong:
        return Type::Integer;
    case QMetaType::Double:
        return Type::Real;
    case QMetaType::Bool:
        return Type::Boolean;
    case QMetaType::QDateTime:
    case QMetaType::QDate:
        return Type::DateTime;
    default:
        return Type::Other;
    }
}

// A stored value as its field's kind presents it.
QVariant Presented(const QVariant& value, iRecordset::FieldType kind)
{
    using Type = iRecordset::FieldType;
    if (value.isNull())
        return value;
    switch (kind) {
    case Type::Text:
        return value.toString();
    case Type::Boolean:
        return value.toBool();
    case Type::Integer: {
        const qlonglong number = value.toLongLong();
        return number == qlonglong(int(number)) ? QVariant(int(number)) : QVariant(number);
    }
    case Type::DateTime: {
        // ISO text, with 'T' or (as SQLite's own functions write it) a blank before the time.
        QString text = value.toString();
        if (text.size() > 10 && text[10] == u' ')
            text[10] = u'T';
        const QDateTime date = QDateTime::fromString(text, Qt::ISODateWithMs);
        return date.isValid() ? QVariant(date) : value;
    }
    default:
        return value;
    }
}

// The write rule: text is trimmed and cut to the declared size.
QVariant Written(const QVariant& value, const FieldInfo& field)
{
    if (value.isNull() || field.kind != iRecordset::FieldType::Text)
        return value;
    const QString text = value.toString().trimmed();
    return field.size > 0 ? text.left(field.size) : text;
}
}

struct Recordset::Impl
{
    Database& db;
    QString sql;        // the select in catalogue dialect
    SqlShape shape;
    QString baseTable;  // the table written to; empty when read-only
    QString nativeSql;  // engine SQL; column 0 is the row identity when updatable
    QVector<FieldInfo> fields;
    int offset = 0;     // the column of field 0 in a stored row
    RowStore rows;
    int pos = 0;
    bool fetched = false; // rows are read on first use
    bool stale = true;
    QString stamp;        // the store's change stamp when the rows were read
    quint64 generation = 0; // changes whenever the rows change
    bool noMatch = false;
    bool onDeleted = false;
    QString filter;
    EditMode mode = EditMode::None;
    QVariantList buffer;
    QVector<bool> changed;
    QString findCriteria;
    quint64 findGeneration = 0;
    std::vector<QByteArray> findKeys;
    QSet<QByteArrayView> findSet;

    Impl(Database& database, const QString& tableOrSql);

    QString NativeSelect(const QString& catalogueSql) const;
    void DescribeFields(const QSqlRecord& record, const TableInfo* table);
    void Fetch(const QString& changeStamp);
    void EnsureFresh();
    void LeaveRow();
    void RequireCurrent();
    QVariant CurrentCell(int column);
    int CheckedIndex(int index) const;
    void RequireUpdatable() const;
    QString Quoted(const QString& name) const { return db.Dialect().QuoteIdentifier(name); }
    QVariantList RowFrom(const QSqlQuery& query) const;
    std::optional<QVariantList> ReadRow(const QVariant& identity);
    void StoreWritten(int row, const QVariant& identity, bool append);
    QVariant CurrentIdentity();
    std::pair<QStringList, QVariantList> ChangedFields() const;
    void Insert();
    void UpdateCurrent();
    QByteArrayView KeyOf(int row) const;
    void PrepareFind(const QString& criteria);
    void Find(const QString& criteria, int from);
};

Recordset::Impl::Impl(Database& database, const QString& tableOrSql) : db(database)
{
    const QString table = TableNameOf(tableOrSql);
    std::optional<TableInfo> info;
    if (!table.isEmpty()) {
        info = db.Table(table);
        sql = TableSelect(*info);
    } else {
        sql = tableOrSql;
    }
    shape = SqlShape::Of(sql);
    if (!shape.IsSelect())
        throw KernelError(QStringLiteral("A recordset needs a table name or a SELECT: %1").arg(tableOrSql));
    if (!info && !shape.Table().isEmpty() && db.HasTable(shape.Table()))
        info = db.Table(shape.Table());
    if (info && shape.Updatable() && !info->view)
        baseTable = shape.Table();
    offset = baseTable.isEmpty() ? 0 : 1;
    nativeSql = NativeSelect(sql);
    // Runs the select once so that a bad one fails here; its rows are read when first needed.
    DescribeFields(db.QueryNative(nativeSql).record(), info ? &*info : nullptr);
}

// The engine's SQL of a select, with the row identity as its first column when updatable.
QString Recordset::Impl::NativeSelect(const QString& catalogueSql) const
{
    const QString translated = db.Dialect().Translate(catalogueSql);
    if (baseTable.isEmpty())
        return translated;
    static const QRegularExpression select(QStringLiteral(R"(^\s*select\b)"), QRegularExpression::CaseInsensitiveOption);
    QString withIdentity = translated;
    return withIdentity.replace(select, QStringLiteral("SELECT %1 AS korvane_rowid,").arg(db.Dialect().RowIdentity()));
}

void Recordset::Impl::DescribeFields(const QSqlRecord& record, const TableInfo* table)
{
    for (int i = offset; i < record.count(); ++i) {
        const QSqlField field = record.field(i);
        const int declared = table ? table->IndexOf(field.name()) : -1;
        fields << (declared >= 0 ? table->fields[declared] : FieldInfo{field.name(), KindOfValueType(field.metaType()), 0});
        // The store's spelling of a declared field (a server folds the names it is sent).
        if (declared < 0 || table->fields[declared].name.compare(field.name(), Qt::CaseInsensitive) != 0)
            fields.back().name = field.name();
    }
}

void Recordset::Impl::Fetch(const QString& changeStamp)
{
    QSqlQuery query = db.QueryNative(nativeSql);
    rows.Clear();
    const int columns = int(fields.size()) + offset;
    while (query.next())
        rows.AppendFrom(query, columns);
    rows.Squeeze();
    ++generation;
    stamp = changeStamp;
    fetched = true;
}

// Reads the rows when they were never read, or when the store changed since (or cannot tell).
void Recordset::Impl::EnsureFresh()
{
    if (!stale)
        return;
    const QString now = db.ChangeStamp();
    if (!fetched || now.isEmpty() || now != stamp)
        Fetch(now);
    stale = false;
}

void Recordset::Impl::LeaveRow()
{
    mode = EditMode::None;
    onDeleted = false;
}

void Recordset::Impl::RequireCurrent()
{
    EnsureFresh();
    if (onDeleted)
        throw KernelError(RecordDeleted);
    if (pos < 0 || pos >= rows.Count())
        throw KernelError(NoCurrentRecord);
}

QVariant Recordset::Impl::CurrentCell(int column)
{
    RequireCurrent();
    return rows.Cell(pos, column);
}

int Recordset::Impl::CheckedIndex(int index) const
{
    if (index < 0 || index >= fields.size())
        throw KernelError(QStringLiteral("Item %1 not found in this collection.").arg(index));
    return index;
}

void Recordset::Impl::RequireUpdatable() const
{
    if (baseTable.isEmpty())
        throw KernelError(QStringLiteral("Cannot update: the recordset is read-only (%1)").arg(sql));
}

QVariantList Recordset::Impl::RowFrom(const QSqlQuery& query) const
{
    QVariantList values;
    for (int i = 0; i < fields.size() + offset; ++i)
        values << query.value(i);
    return values;
}

// The stored form of one row of the base table as this recordset selects it.
std::optional<QVariantList> Recordset::Impl::ReadRow(const QVariant& identity)
{
    const QString select = NativeSelect(shape.Projection()) + QStringLiteral(" WHERE ") + db.Dialect().IdentityMatch();
    QSqlQuery query = db.QueryNative(select, {identity});
    if (!query.next())
        return std::nullopt;
    return RowFrom(query);
}

// Keeps a written row as the store now holds it (or as written, when it no longer matches).
void Recordset::Impl::StoreWritten(int row, const QVariant& identity, bool append)
{
    QVariantList values = ReadRow(identity).value_or(QVariantList{identity} + buffer);
    if (append)
        rows.Append(values);
    else
        rows.Replace(row, values);
    ++generation;
}

// The quoted names and the values of the fields set since AddNew or Edit.
std::pair<QStringList, QVariantList> Recordset::Impl::ChangedFields() const
{
    QStringList names;
    QVariantList values;
    for (int i = 0; i < fields.size(); ++i) {
        if (changed[i]) {
            names << Quoted(fields[i].name);
            values << buffer[i];
        }
    }
    return {names, values};
}

void Recordset::Impl::Insert()
{
    const auto [names, values] = ChangedFields();
    const QStringList marks(names.size(), QStringLiteral("?"));
    const QString columns = names.isEmpty() ? QStringLiteral("DEFAULT VALUES")
                                            : QStringLiteral("(%1) VALUES (%2)").arg(names.join(u','), marks.join(u','));
    QSqlQuery query = db.QueryNative(QStringLiteral("INSERT INTO %1 %2 RETURNING %3")
                                         .arg(Quoted(baseTable), columns, db.Dialect().RowIdentity()),
                                     values);
    if (!query.next())
        throw KernelError(QStringLiteral("The new row of %1 was not stored").arg(baseTable));
    StoreWritten(0, query.value(0), true);
    pos = rows.Count() - 1;
}

void Recordset::Impl::UpdateCurrent()
{
    auto [assignments, values] = ChangedFields();
    if (assignments.isEmpty())
        return;
    for (QString& assignment : assignments)
        assignment += QStringLiteral(" = ?");
    values << CurrentIdentity();
    QSqlQuery query = db.QueryNative(QStringLiteral("UPDATE %1 SET %2 WHERE %3 RETURNING %4")
                                         .arg(Quoted(baseTable), assignments.join(QStringLiteral(", ")),
                                              db.Dialect().IdentityMatch(), db.Dialect().RowIdentity()),
                                     values);
    if (!query.next())
        throw KernelError(QStringLiteral("The row of %1 was deleted by another user; requery.").arg(baseTable));
    StoreWritten(pos, query.value(0), false);
}

// The identity of the current row as the store holds it now. A server's row identity (ctid)
// moves whenever anyone writes the row, so a row that another workstation changed since it
// was read is found again by its primary key; a row that is gone keeps the identity it had.
QVariant Recordset::Impl::CurrentIdentity()
{
    const QVariant identity = CurrentCell(0);
    const TableInfo& table = db.Table(baseTable);
    if (table.primaryKey.isEmpty() || ReadRow(identity))
        return identity;
    QStringList conditions;
    QVariantList key;
    for (const QString& field : table.primaryKey) {
        const auto found = std::find_if(fields.begin(), fields.end(), [&](const FieldInfo& info) {
            return info.name.compare(field, Qt::CaseInsensitive) == 0;
        });
        if (found == fields.end())
            return identity; // a projection without the key: the row cannot be found again
        conditions << Quoted(field) + QStringLiteral(" = ?");
        key << CurrentCell(int(found - fields.begin()) + offset);
    }
    QSqlQuery query = db.QueryNative(QStringLiteral("SELECT %1 FROM %2 WHERE %3")
                                         .arg(db.Dialect().RowIdentity(), Quoted(baseTable), conditions.join(QStringLiteral(" AND "))),
                                     key);
    return query.next() ? query.value(0) : identity;
}

// What identifies a row when searching: its identity, or all its values when read-only.
QByteArrayView Recordset::Impl::KeyOf(int row) const
{
    return offset ? rows.CellBytes(row, 0) : rows.Bytes(row);
}

// The keys of the rows that meet the criteria, kept while the criteria and the rows stay.
void Recordset::Impl::PrepareFind(const QString& criteria)
{
    if (criteria == findCriteria && generation == findGeneration && !findKeys.empty())
        return;
    findSet.clear();
    findKeys.clear();
    QSqlQuery query = db.QueryNative(NativeSelect(shape.WithCondition(criteria)));
    while (query.next())
        findKeys.push_back(RowStore::Encode(offset ? QVariantList{query.value(0)} : RowFrom(query)));
    for (const QByteArray& key : findKeys)
        findSet.insert(QByteArrayView(key));
    findCriteria = criteria;
    findGeneration = generation;
}

void Recordset::Impl::Find(const QString& criteria, int from)
{
    PrepareFind(criteria);
    noMatch = true;
    for (int row = std::max(from, 0); !findSet.isEmpty() && row < rows.Count(); ++row) {
        if (findSet.contains(KeyOf(row))) {
            pos = row;
            noMatch = false;
            return;
        }
    }
}

Recordset::Recordset(Database& db, const QString& tableOrSql) : d(std::make_unique<Impl>(db, tableOrSql)) {}

Recordset::~Recordset() = default;

void Recordset::MoveFirst()
{
    d->EnsureFresh();
    d->LeaveRow();
    d->pos = 0;
}

void Recordset::MoveLast()
{
    d->EnsureFresh();
    d->LeaveRow();
    d->pos = d->rows.Count() - 1;
}

void Recordset::MoveNext()
{
    d->EnsureFresh();
    const bool deleted = d->onDeleted;
    if (!deleted && d->pos >= d->rows.Count())
        throw KernelError(NoCurrentRecord);
    d->LeaveRow();
    if (!deleted)
        ++d->pos;
}

void Recordset::MovePrevious()
{
    d->EnsureFresh();
    if (!d->onDeleted && (d->pos < 0 || d->rows.Count() == 0))
        throw KernelError(NoCurrentRecord);
    d->LeaveRow();
    --d->pos;
}

bool Recordset::IsBOF() const
{
    d->EnsureFresh();
    return d->rows.Count() == 0 || d->pos < 0;
}

bool Recordset::IsEOF() const
{
    d->EnsureFresh();
    return d->rows.Count() == 0 || d->pos >= d->rows.Count();
}

int Recordset::RecordCount() const
{
    d->EnsureFresh();
    return d->rows.Count();
}

void Recordset::FindFirst(const QString& criteria)
{
    d->EnsureFresh();
    d->LeaveRow();
    d->Find(criteria, 0);
}

void Recordset::FindNext(const QString& criteria)
{
    d->EnsureFresh();
    const int from = d->onDeleted ? d->pos : d->pos + 1;
    d->LeaveRow();
    d->Find(criteria, from);
}

bool Recordset::NoMatch() const
{
    return d->noMatch;
}

void Recordset::SetFilter(const QString& criteria)
{
    d->filter = criteria;
}

QString Recordset::Filter() const
{
    return d->filter;
}

std::unique_ptr<iRecordset> Recordset::OpenRecordset() const
{
    return std::make_unique<Recordset>(d->db, d->filter.isEmpty() ? d->sql : d->shape.WithCondition(d->filter));
}

void Recordset::AddNew()
{
    d->RequireUpdatable();
    d->EnsureFresh();
    d->LeaveRow();
    d->buffer = QVariantList(d->fields.size());
    d->changed = QVector<bool>(d->fields.size(), false);
    d->mode = EditMode::Add;
}

void Recordset::Edit()
{
    d->RequireUpdatable();
    d->RequireCurrent();
    d->buffer = d->rows.Row(d->pos).mid(d->offset);
    d->changed = QVector<bool>(d->fields.size(), false);
    d->mode = EditMode::Edit;
}

void Recordset::Update()
{
    if (d->mode == EditMode::None)
        throw KernelError(NoEditInProgress);
    if (d->mode == EditMode::Add)
        d->Insert();
    else
        d->UpdateCurrent();
    d->mode = EditMode::None;
}

void Recordset::CancelUpdate()
{
    if (d->mode == EditMode::None)
        throw KernelError(NoEditInProgress);
    d->mode = EditMode::None;
}

void Recordset::Delete()
{
    d->RequireUpdatable();
    const QVariant identity = d->CurrentIdentity();
    d->db.QueryNative(QStringLiteral("DELETE FROM %1 WHERE %2").arg(d->Quoted(d->baseTable), d->db.Dialect().IdentityMatch()),
                      {identity});
    d->rows.Remove(d->pos);
    ++d->generation;
    d->LeaveRow();
    d->onDeleted = true;
}

void Recordset::Requery()
{
    d->LeaveRow();
    d->stale = true;
    d->pos = 0;
}

int Recordset::FieldCount() const
{
    return int(d->fields.size());
}

QString Recordset::FieldName(int index) const
{
    return d->fields[d->CheckedIndex(index)].name;
}

int Recordset::FieldSize(int index) const
{
    return d->fields[d->CheckedIndex(index)].size;
}

iRecordset::FieldType Recordset::FieldKind(int index) const
{
    return d->fields[d->CheckedIndex(index)].kind;
}

int Recordset::FieldIndex(const QString& name) const
{
    for (int i = 0; i < d->fields.size(); ++i) {
        if (d->fields[i].name.compare(name, Qt::CaseInsensitive) == 0)
            return i;
    }
    return -1;
}

QVariant Recordset::Value(const QString& name) const
{
    const int index = FieldIndex(name);
    if (index < 0)
        throw KernelError(QStringLiteral("Item '%1' not found in this collection.").arg(name));
    return Value(index);
}

QVariant Recordset::Value(int index) const
{
    d->CheckedIndex(index);
    const QVariant stored = d->mode != EditMode::None ? d->buffer[index] : d->CurrentCell(index + d->offset);
    return Presented(stored, d->fields[index].kind);
}

void Recordset::SetValue(const QString& name, const QVariant& value)
{
    const int index = FieldIndex(name);
    if (index < 0)
        throw KernelError(QStringLiteral("Item '%1' not found in this collection.").arg(name));
    SetValue(index, value);
}

void Recordset::SetValue(int index, const QVariant& value)
{
    d->CheckedIndex(index);
    if (d->mode == EditMode::None)
        throw KernelError(NoEditInProgress);
    d->buffer[index] = Written(value, d->fields[index]);
    d->changed[index] = true;
}

bool Recordset::Updatable() const
{
    return !d->baseTable.isEmpty();
}

size_t Recordset::MemoryBytes() const
{
    return d->rows.MemoryBytes();
}
