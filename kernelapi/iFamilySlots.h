#pragma once
#include <QObject>
#include <QString>

// The occupied slot numbers of one family.
class iFamilySlots : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~iFamilySlots() override = default;

    // Number of occupied slots.
    virtual int Count() const = 0;
    // Whether the slot of that cart ID is occupied in this family.
    virtual bool Contains(const QString& cartID) const = 0;
};
