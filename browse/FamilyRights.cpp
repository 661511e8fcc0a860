#include "browse/FamilyRights.h"
#include "kernelapi/iFamily.h"

FamilyRights::FamilyRights(bool readable, bool writable, int specialIcon)
    : m_rights(!readable ? 1 : (writable ? 3 : 2)), m_specialIcon(specialIcon)
{
}

FamilyRights FamilyRights::Of(const iFamily& family, const QString& tmpFamily, const QString& conFamily)
{
    const QString id = family.ID();
    const bool readable = family.MayRead(QString()) || family.EveryBody();
    const bool writable = family.MayWrite(QString()) || family.EveryBodyWrite();
    int special = 0;
    if (tmpFamily.left(3) == id)
        special = 4;
    if (conFamily.left(3) == id)
        special = 5;
    return FamilyRights(readable, writable, special);
}

int FamilyRights::Icon() const
{
    return m_specialIcon ? m_specialIcon : m_rights;
}

bool FamilyRights::Shown(bool showAll, int filterLevel) const
{
    switch (m_rights) {
    case 1:
        return showAll && filterLevel == 0;
    case 2:
        return filterLevel <= 0;
    default:
        return true;
    }
}
