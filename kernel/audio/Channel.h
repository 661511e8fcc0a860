#pragma once
#include "kernelapi/iChannel.h"
#include <memory>

class AudioEngine;
class Streams;

// One channel of the audio engine, as the kernel contract shows it.
class Channel : public iChannel
{
    Q_OBJECT
public:
    Channel(std::shared_ptr<AudioEngine> engine, int index, std::shared_ptr<::Streams> streams);

    QString Name() const override;
    // 1 records, 0 plays.
    qint32 Direction() const override;
    // The channel's device is open and running.
    bool Active() const override;
    // Active, and the device's periods keep coming: the channel is on air.
    bool ChannelOn() const override;
    // No signal, and not valid, while the channel is off air.
    AudioLevels GetLevels() const override;
    qint64 Underruns() const override;
    std::shared_ptr<iStreams> Streams() const override;
    // The device the channel is configured on.
    QString DeviceName() const;

private:
    std::shared_ptr<AudioEngine> m_engine;
    const int m_index;
    std::shared_ptr<::Streams> m_streams;
};
