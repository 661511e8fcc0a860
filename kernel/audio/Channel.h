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
    // Every configured channel is in use.
    bool Active() const override { return true; }
    bool ChannelOn() const override;
    AudioLevels GetLevels() const override;
    std::shared_ptr<iStreams> Streams() const override;
    // The device the channel runs on now.
    QString DeviceName() const;

private:
    std::shared_ptr<AudioEngine> m_engine;
    const int m_index;
    std::shared_ptr<::Streams> m_streams;
};
