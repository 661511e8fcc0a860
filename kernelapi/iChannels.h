#pragma once
#include <QObject>
#include <QString>
#include <memory>

class iChannel;

// The audio channels of the station ("A" and "B" play, "Rec" records), walked in order with
// Count and Item or looked up by name.
class iChannels : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~iChannels() override = default;

    virtual int Count() const = 0;
    // The channel at a place, 1 to Count; throws KernelError outside that range.
    virtual std::shared_ptr<iChannel> Item(int index) const = 0;
    // The channel of that name; throws KernelError when there is none.
    virtual std::shared_ptr<iChannel> Item(const QString& name) const = 0;
    // Whether a channel of that name exists.
    virtual bool Exists(const QString& name) const = 0;
};
