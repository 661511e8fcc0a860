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
    // Whether the channel's device is open and running.
    virtual bool Active() const = 0;
    // Whether the channel is on air now: active, and its device keeps taking its audio.
    virtual bool ChannelOn() const = 0;
    // The present levels of the channel's mix.
    virtual AudioLevels GetLevels() const = 0;
    // Gaps in the channel's audio since the kernel started: the device lost audio, or a
    // sound was not read in time.
    virtual qint64 Underruns() const = 0;
    // The streams that run on this channel.
    virtual std::shared_ptr<iStreams> Streams() const = 0;
};
