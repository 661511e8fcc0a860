#pragma once
#include <QObject>
#include <QString>
#include <memory>

class iFamily;

// All families of the station, walked in order with Count and Item or looked up by ID.
// Asking twice for a live family gives the same object. A failed call throws KernelError.
class iFamilies : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~iFamilies() override = default;

    virtual int Count() const = 0;
    // The family at a place, 1 to Count; throws KernelError outside that range.
    virtual std::shared_ptr<iFamily> Item(int index) const = 0;
    // The family of that ID; throws KernelError when there is none.
    virtual std::shared_ptr<iFamily> Item(const QString& familyID) const = 0;
    // Deletes a family; its holders get QueryClear first. Raises Changed.
    virtual void Remove(const QString& familyID) = 0;
    // Creates a family with a three-letter name and a description. Raises Changed.
    virtual void Add(const QString& name, const QString& description) = 0;
    // Reloads the list of families from the catalogue. Raises Changed.
    virtual void Refresh() = 0;
    // Whether a family of that ID exists.
    virtual bool Exists(const QString& familyID) const = 0;

Q_SIGNALS:
    // Families were added, removed or reloaded.
    void Changed();
};
