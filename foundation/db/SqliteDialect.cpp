#include "foundation/db/SqliteDialect.h"
#include <QHash>

QString SqliteDialect::RowIdentity() const
{
    return QStringLiteral("rowid");
}

QString SqliteDialect::IdentityMatch() const
{
    return QStringLiteral("rowid = ?");
}

QString SqliteDialect::QuoteIdentifier(const QString& name) const
{
    QString quoted = name;
    quoted.replace(u'"', QStringLiteral("\"\""));
    return u'"' + quoted + u'"';
}

QString SqliteDialect::ColumnType(iRecordset::FieldType kind, int size, bool autoNumber) const
{
    using Type = iRecordset::FieldType;
    switch (kind) {
    case Type::Text:
        return size > 0 ? QStringLiteral("VARCHAR(%1) COLLATE NOCASE").arg(size) : QStringLiteral("TEXT COLLATE NOCASE");
    case Type::Integer:
        return autoNumber ? QStringLiteral("INTEGER PRIMARY KEY AUTOINCREMENT") : QStringLiteral("INTEGER");
    case Type::Real:
        return QStringLiteral("REAL");
    case Type::Boolean:
        return QStringLiteral("BOOLEAN");
    case Type::DateTime:
        return QStringLiteral("DATETIME");
    case Type::Other:
        break;
    }
    return QStringLiteral("BLOB");
}

QStringList SqliteDialect::SchemaPreamble(const QVector<int>&) const
{
    return {};
}

QVariant SqliteDialect::BindValue(const QVariant& value) const
{
    switch (value.typeId()) {
    case QMetaType::QDateTime:
        return value.toDateTime().isValid() ? QVariant(DateTimeText(value.toDateTime())) : QVariant(QMetaType(QMetaType::QString));
    case QMetaType::QDate:
        return value.toDate().toString(Qt::ISODate);
    case QMetaType::QTime:
        return value.toTime().toString(QStringLiteral("HH:mm:ss"));
    default:
        return value;
    }
}

// The form in which the Qt driver itself stores a local date and time, so that values bound
// directly and values written through this dialect compare alike.
QString SqliteDialect::DateTimeText(const QDateTime& value)
{
    return value.toLocalTime().toString(QStringLiteral("yyyy-MM-ddTHH:mm:ss.zzz"));
}

QString SqliteDialect::BooleanLiteral(bool value) const
{
    return value ? QStringLiteral("1") : QStringLiteral("0");
}

QString SqliteDialect::LikeOperator() const
{
    return QStringLiteral("LIKE");
}

QString SqliteDialect::FunctionName(const QString& name) const
{
    static const QHash<QString, QString> names{
        {"chr", "char"}, {"chr$", "char"}, {"ucase", "upper"}, {"lcase", "lower"}, {"len", "length"}, {"mid", "substr"}};
    return names.value(name);
}

QString SqliteDialect::DateLiteral(const QDateTime& value) const
{
    return StringLiteral(DateTimeText(value));
}
