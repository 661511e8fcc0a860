#pragma once
#include <QObject>
#include <QString>
#include <memory>

class iCart;
class iMacroItem;
class iObjectWithProperties;

// A macro: a cart of type Macro whose contents are an ordered list of carts. A failed call
// throws KernelError.
class iMacro : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~iMacro() override = default;

    // Empties a fresh macro, as made by NewMacro.
    virtual void Clear() = 0;
    // The macro's own cart (its ID and description).
    virtual std::shared_ptr<iCart> Cart() const = 0;
    // The entry at a place, 1 to Count; an entry may be null. Throws KernelError outside that range.
    virtual std::shared_ptr<iMacroItem> Item(int index) const = 0;
    // Number of entries.
    virtual int Count() const = 0;
    // Drops every entry, before the entries are added again for a save.
    virtual void RemoveAll() = 0;
    // Appends an entry for a cart, with a copy of the given properties (may be null).
    virtual void Add(const std::shared_ptr<iCart>& cart, const std::shared_ptr<iObjectWithProperties>& properties) = 0;
    // Loads a stored macro by its cart ID.
    virtual void LoadByID(const QString& cartID) = 0;
    // Writes the macro; an empty description keeps the present one. When the macro has no ID
    // or no description, RequestNameToSave or RequestDescriptionToSave is raised first, and
    // an answer left empty cancels the save.
    virtual void Save(const QString& description) = 0;

Q_SIGNALS:
    // The macro has no ID to be saved under: the holder writes one into *name, or leaves it
    // empty to cancel the save.
    void RequestNameToSave(QString* name);
    // The macro has no description: the holder writes one into *description, or leaves it
    // empty to cancel the save.
    void RequestDescriptionToSave(QString* description);
};
