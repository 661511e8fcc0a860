#pragma once
#include "kernelapi/AudioLevels.h"
#include <QObject>
#include <QString>
#include <memory>

class iStreams;

// One audio channel: a device path that plays or records, with its streams.
class iChannel : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~iChannel() override = default;

    // The name shown under its meter.
    virtual QString Name() const = 0;
    // 1 for a recording channel; any other value plays.
    virtual qint32 Direction() const = 0;
    // Whether the channel is configured to be used.
    virtual bool Active() const = 0;
    // Whether the channel is running now.
    virtual bool ChannelOn() const = 0;
    // The present levels of the channel's mix.
    virtual AudioLevels GetLevels() const = 0;
    // The streams that run on this channel.
    virtual std::shared_ptr<iStreams> Streams() const = 0;
};
