#include "kernel/FamilySlots.h"
#include "kernel/CartID.h"

FamilySlots::FamilySlots(const QString& familyID, const QBitArray& occupied, QObject* parent)
    : iFamilySlots(parent), m_familyID(familyID), m_occupied(occupied)
{
}

bool FamilySlots::Contains(const QString& cartID) const
{
    const int number = CartID::NumberOf(cartID);
    return number >= 0 && CartID::FamilyOf(CartID::Normalized(cartID)) == m_familyID && m_occupied.testBit(number);
}
