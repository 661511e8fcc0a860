#include "kernel/audio/Stream.h"
#include "kernel/audio/AudioEngine.h"
#include "kernel/audio/CartPlayer.h"
#include "kernel/audio/ChannelMix.h"

std::shared_ptr<Stream> Stream::Create(std::shared_ptr<AudioEngine> engine, int channel, int index,
                                       std::shared_ptr<const PlayQueue::MacroSource> macros,
                                       std::shared_ptr<const CartRecorder::Catalogue> catalogue, const KernelLog& log)
{
    std::shared_ptr<Stream> stream(new Stream(engine, channel, index));
    if (engine->Channel(channel).Records()) {
        stream->m_recorder = std::make_shared<::CartRecorder>(engine, channel, index, std::move(catalogue), log);
        return stream;
    }
    stream->m_player = std::make_shared<::CartPlayer>(engine, channel, index, std::move(macros), log);
    stream->m_player->SetStream(stream);
    return stream;
}

// Streams are named after their channel and place: "A1", "A2", ...
Stream::Stream(std::shared_ptr<AudioEngine> engine, int channel, int index)
    : m_engine(std::move(engine)), m_channel(channel), m_index(index),
      m_name(m_engine->Settings().channels[channel].name + QString::number(index + 1))
{
}

// A recording stream shows the level of what comes in.
AudioLevels Stream::GetLevels() const
{
    ChannelMix& channel = m_engine->Channel(m_channel);
    return m_engine->Levels(m_channel, channel.Records() ? channel.Meter() : channel.Stream(m_index).Meter());
}

std::shared_ptr<iCartPlayer> Stream::CartPlayer() const
{
    return m_player;
}

std::shared_ptr<iCartRecorder> Stream::CartRecorder() const
{
    return m_recorder;
}
