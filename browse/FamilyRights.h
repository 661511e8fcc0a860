#pragma once
#include <QString>

class iFamily;

// What the family browser shows of a family for the current user: its icon (1 not readable,
// 2 readable, 3 readable and writable; 4 and 5 mark the station's special families named by
// the settings "FamEspTmp" and "FamEspCon", for the picture only) and whether the row is
// listed at a filter level.
class FamilyRights
{
public:
    FamilyRights(bool readable, bool writable, int specialIcon = 0);
    // Reads the rights of the current user and the two settings.
    static FamilyRights Of(const iFamily& family, const QString& tmpFamily, const QString& conFamily);

    int Icon() const;
    bool Shown(bool showAll, int filterLevel) const;

private:
    int m_rights;      // 1 to 3
    int m_specialIcon; // 0, 4 or 5
};
