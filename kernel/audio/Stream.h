#pragma once
#include "kernel/KernelLog.h"
#include "kernel/audio/CartRecorder.h"
#include "kernel/audio/PlayQueue.h"
#include "kernelapi/iStream.h"
#include <memory>

class AudioEngine;
class CartPlayer;

// One stream of a channel. A playing stream has its cart player; a recording stream its
// recorder.
class Stream : public iStream
{
    Q_OBJECT
public:
    static std::shared_ptr<Stream> Create(std::shared_ptr<AudioEngine> engine, int channel, int index,
                                          std::shared_ptr<const PlayQueue::MacroSource> macros,
                                          std::shared_ptr<const CartRecorder::Catalogue> catalogue, const KernelLog& log);

    QString Name() const override { return m_name; }
    AudioLevels GetLevels() const override;
    std::shared_ptr<iCartPlayer> CartPlayer() const override;
    std::shared_ptr<iCartRecorder> CartRecorder() const override;

private:
    Stream(std::shared_ptr<AudioEngine> engine, int channel, int index);

    std::shared_ptr<AudioEngine> m_engine;
    const int m_channel;
    const int m_index;
    QString m_name;
    std::shared_ptr<::CartPlayer> m_player;
    std::shared_ptr<::CartRecorder> m_recorder;
};
