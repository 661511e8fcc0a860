#pragma once
#include <QObject>
#include <memory>

class iCart;

// An ordered list of carts, collected by the client to fill a macro.
class iCartList : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~iCartList() override = default;

    // Appends a cart at the end.
    virtual void Add(const std::shared_ptr<iCart>& cart) = 0;
    virtual int Count() const = 0;
    // The cart at a place, 1 to Count; throws KernelError outside that range.
    virtual std::shared_ptr<iCart> Item(int index) const = 0;
};
