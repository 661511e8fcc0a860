#pragma once
#include <QObject>
#include <memory>

class iStream;

// The streams of one channel, in order.
class iStreams : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~iStreams() override = default;

    virtual int Count() const = 0;
    // The stream at a place, 1 to Count; throws KernelError outside that range.
    virtual std::shared_ptr<iStream> Item(int index) const = 0;
};
