#pragma once
#include <QString>

// Cart and family IDs. A cart ID is seven characters: a three-letter family ID and four
// decimal digits, the slot number in that family ("JIN0124"). IDs are kept in upper case.
class CartID
{
public:
    static constexpr int Length = 7;
    static constexpr int FamilyLength = 3;
    static constexpr int Slots = 10000; // slot numbers 0000 to 9999

    // The ID trimmed and in upper case.
    static QString Normalized(const QString& id);
    static bool IsValid(const QString& id);
    static bool IsValidFamily(const QString& familyID);
    // The normalized ID; throws KernelError naming the ID when it is not a cart ID.
    static QString Require(const QString& id);
    // The normalized family ID; throws KernelError when it is not three letters.
    static QString RequireFamily(const QString& familyID);
    // The first three characters, as they stand.
    static QString FamilyOf(const QString& id);
    // The slot number of a valid ID; -1 for anything else.
    static int NumberOf(const QString& id);
    // The ID of a slot: the family followed by the number in four digits.
    static QString Make(const QString& familyID, int number);
};
