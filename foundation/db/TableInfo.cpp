#include "foundation/db/TableInfo.h"
#include <QRegularExpression>

namespace {
bool ContainsAny(const QString& text, std::initializer_list<const char*> parts)
{
    for (const char* part : parts) {
        if (text.contains(QLatin1String(part)))
            return true;
    }
    return false;
}

int DeclaredSize(const QString& type)
{
    static const QRegularExpression sized(QStringLiteral(R"((?:\(\s*|korvane_text_)(\d+))"));
    const QRegularExpressionMatch match = sized.match(type);
    return match.hasMatch() ? match.captured(1).toInt() : 0;
}

// Checked in this order: the first kind whose words the type contains.
iRecordset::FieldType KindOf(const QString& type)
{
    using Type = iRecordset::FieldType;
    if (ContainsAny(type, {"char", "text", "clob", "memo"}))
        return Type::Text;
    if (ContainsAny(type, {"bool", "bit", "yesno"}))
        return Type::Boolean;
    if (ContainsAny(type, {"date", "time"}))
        return Type::DateTime;
    if (type.contains(QLatin1String("int")) && !type.contains(QLatin1String("interval")))
        return Type::Integer;
    if (ContainsAny(type, {"real", "floa", "doub", "numeric", "decimal"}))
        return Type::Real;
    return Type::Other;
}
}

FieldInfo FieldInfo::FromDeclaredType(const QString& name, const QString& declaredType)
{
    const QString type = declaredType.toLower();
    const iRecordset::FieldType kind = KindOf(type);
    return {name, kind, kind == iRecordset::FieldType::Text ? DeclaredSize(type) : 0};
}

int TableInfo::IndexOf(const QString& field) const
{
    for (int i = 0; i < fields.size(); ++i) {
        if (fields[i].name.compare(field, Qt::CaseInsensitive) == 0)
            return i;
    }
    return -1;
}
