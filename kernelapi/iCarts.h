#pragma once
#include "kernelapi/Outcome.h"
#include <QObject>
#include <QString>
#include <memory>

class iCart;
class iCartList;
class iMacro;

// The cart catalogue: finds, creates, deletes, copies and moves carts by ID. Asking twice for
// a live cart gives the same object. A failed call throws KernelError.
class iCarts : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~iCarts() override = default;

    // Whether the ID is a cart in the catalogue.
    virtual bool Exists(const QString& cartID) const = 0;
    // The slot number of an ID inside its family (its last four digits).
    virtual int NumberOf(const QString& cartID) const = 0;
    // The family part of an ID (its first three characters).
    virtual QString FamilyIDOf(const QString& cartID) const = 0;
    // A new cart in memory, with no ID, not yet saved.
    virtual std::shared_ptr<iCart> NewCart() = 0;
    // A new empty ordered list for collecting the carts of a macro.
    virtual std::shared_ptr<iCartList> NewCollection() = 0;
    // A new empty macro in memory.
    virtual std::shared_ptr<iMacro> NewMacro() = 0;
    // The cart of that ID; an ID not in the catalogue gives a cart of type Unknown.
    virtual std::shared_ptr<iCart> Cart(const QString& cartID) = 0;
    // Deletes a cart, and its sound file too when removeFile is set; the outcome says why a
    // deletion was refused.
    virtual Outcome DeleteCart(const QString& cartID, bool removeFile) = 0;
    // Duplicates a cart under a free destination ID; false when refused.
    virtual bool CopyCart(const QString& sourceID, const QString& destinationID) = 0;
    // Gives a cart a free destination ID; false when refused.
    virtual bool MoveCart(const QString& sourceID, const QString& destinationID) = 0;
};
