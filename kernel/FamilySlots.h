#pragma once
#include "kernelapi/iFamilySlots.h"
#include <QBitArray>

// The occupied slot numbers of one family, as they stood when it was asked for.
class FamilySlots : public iFamilySlots
{
    Q_OBJECT
public:
    FamilySlots(const QString& familyID, const QBitArray& occupied, QObject* parent = nullptr);

    int Count() const override { return m_occupied.count(true); }
    bool Contains(const QString& cartID) const override;

private:
    QString m_familyID;
    QBitArray m_occupied;
};
