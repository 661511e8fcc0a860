#pragma once
#include <QObject>
#include <memory>

class iCart;
class iObjectWithProperties;

// One entry of a macro.
class iMacroItem : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~iMacroItem() override = default;

    // The entry's cart; null for a blank entry.
    virtual std::shared_ptr<iCart> Cart() const = 0;
    // Properties stored with the entry (a pad's colours, the entry's place).
    virtual std::shared_ptr<iObjectWithProperties> Properties() const = 0;
};
