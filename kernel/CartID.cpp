#include "kernel/CartID.h"
#include "kernelapi/KernelError.h"
#include <algorithm>

namespace {
bool IsAsciiLetter(QChar c)
{
    return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z');
}

bool IsLetters(QStringView text)
{
    return std::all_of(text.begin(), text.end(), IsAsciiLetter);
}

bool IsDigits(QStringView text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}
}

QString CartID::Normalized(const QString& id)
{
    return id.trimmed().toUpper();
}

bool CartID::IsValid(const QString& id)
{
    const QString text = id.trimmed();
    return text.size() == Length && IsLetters(QStringView(text).left(FamilyLength))
           && IsDigits(QStringView(text).mid(FamilyLength));
}

bool CartID::IsValidFamily(const QString& familyID)
{
    const QString text = familyID.trimmed();
    return text.size() == FamilyLength && IsLetters(text);
}

QString CartID::Require(const QString& id)
{
    if (!IsValid(id))
        throw KernelError(QStringLiteral("'%1' is not a cart ID: a cart ID is three letters and four digits").arg(id));
    return Normalized(id);
}

QString CartID::RequireFamily(const QString& familyID)
{
    if (!IsValidFamily(familyID))
        throw KernelError(QStringLiteral("'%1' is not a family ID: a family ID is three letters").arg(familyID));
    return Normalized(familyID);
}

QString CartID::FamilyOf(const QString& id)
{
    return id.left(FamilyLength);
}

int CartID::NumberOf(const QString& id)
{
    return IsValid(id) ? id.trimmed().mid(FamilyLength).toInt() : -1;
}

QString CartID::Make(const QString& familyID, int number)
{
    return familyID + (QStringLiteral("0000") + QString::number(number)).right(4);
}
