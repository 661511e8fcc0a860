#pragma once
#include <QObject>
#include <memory>

class iSelectionItem;

// The selection of a sound editor, as a collection; editors keep one item.
class iSelection : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~iSelection() override = default;

    virtual int Count() const = 0;
    // The item at a place, 1 to Count; throws KernelError outside that range.
    virtual std::shared_ptr<iSelectionItem> Item(int index) const = 0;
};
