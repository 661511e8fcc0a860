#include "kernel/audio/Channel.h"
#include "kernel/audio/AudioEngine.h"
#include "kernel/audio/ChannelMix.h"
#include "kernel/audio/Streams.h"

Channel::Channel(std::shared_ptr<AudioEngine> engine, int index, std::shared_ptr<::Streams> streams)
    : m_engine(std::move(engine)), m_index(index), m_streams(std::move(streams))
{
}

QString Channel::Name() const
{
    return m_engine->Settings().channels[m_index].name;
}

qint32 Channel::Direction() const
{
    return m_engine->Channel(m_index).Records() ? 1 : 0;
}

bool Channel::Active() const
{
    return m_engine->Active(m_index);
}

bool Channel::ChannelOn() const
{
    return m_engine->ChannelOn(m_index);
}

AudioLevels Channel::GetLevels() const
{
    return m_engine->Levels(m_index, m_engine->Channel(m_index).Meter());
}

qint64 Channel::Underruns() const
{
    return static_cast<qint64>(m_engine->Underruns(m_index));
}

std::shared_ptr<iStreams> Channel::Streams() const
{
    return m_streams;
}

QString Channel::DeviceName() const
{
    return m_engine->DeviceName(m_index);
}
