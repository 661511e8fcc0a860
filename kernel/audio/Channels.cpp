#include "kernel/audio/Channels.h"
#include "kernel/audio/AudioEngine.h"
#include "kernel/audio/Channel.h"
#include "kernel/audio/ChannelMix.h"
#include "kernel/audio/Stream.h"
#include "kernel/audio/Streams.h"
#include "kernelapi/KernelError.h"

Channels::Channels(const AudioSettings& settings, const KernelLog& log, PlayQueue::MacroSource macros, DeviceFactory devices)
    : m_engine(std::make_shared<AudioEngine>(settings, log, std::move(devices))),
      m_macros(std::make_shared<PlayQueue::MacroSource>(std::move(macros))),
      m_catalogue(std::make_shared<CartRecorder::Catalogue>())
{
    for (int c = 0; c < m_engine->ChannelCount(); ++c) {
        std::vector<std::shared_ptr<::Stream>> streams;
        for (int s = 0; s < m_engine->Channel(c).StreamCount(); ++s)
            streams.push_back(::Stream::Create(m_engine, c, s, m_macros, m_catalogue, log));
        m_channels.push_back(std::make_shared<::Channel>(m_engine, c, std::make_shared<::Streams>(std::move(streams))));
    }
}

Channels::~Channels()
{
    ForgetKernel();
}

void Channels::ForgetKernel()
{
    *m_macros = nullptr;
}

std::shared_ptr<iChannel> Channels::Item(int index) const
{
    if (index < 1 || index > Count())
        throw KernelError(QStringLiteral("There is no channel number %1: the station has %2").arg(index).arg(Count()));
    return m_channels[static_cast<std::size_t>(index - 1)];
}

std::shared_ptr<iChannel> Channels::Item(const QString& name) const
{
    if (std::shared_ptr<::Channel> channel = Find(name))
        return channel;
    throw KernelError(QStringLiteral("There is no channel named '%1'").arg(name));
}

bool Channels::Exists(const QString& name) const
{
    return Find(name) != nullptr;
}

// Names compare without regard to case.
std::shared_ptr<::Channel> Channels::Find(const QString& name) const
{
    for (const auto& channel : m_channels)
        if (channel->Name().compare(name, Qt::CaseInsensitive) == 0)
            return channel;
    return nullptr;
}
