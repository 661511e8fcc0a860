#pragma once
#include "kernel/KernelLog.h"
#include "kernel/audio/AudioSettings.h"
#include "kernel/audio/CartRecorder.h"
#include "kernel/audio/DeviceRequest.h"
#include "kernel/audio/PlayQueue.h"
#include "kernelapi/iChannels.h"
#include <memory>
#include <vector>

class AudioEngine;
class Channel;

// The station's channels over a running audio engine, in the order of the settings.
class Channels : public iChannels
{
    Q_OBJECT
public:
    // Starts the engine. macros reads a macro by its cart ID for the players; devices opens the
    // configured devices in place of the engine's own way (tests).
    Channels(const AudioSettings& settings, const KernelLog& log, PlayQueue::MacroSource macros, DeviceFactory devices = {});
    ~Channels() override;

    int Count() const override { return static_cast<int>(m_channels.size()); }
    std::shared_ptr<iChannel> Item(int index) const override;
    std::shared_ptr<iChannel> Item(const QString& name) const override;
    bool Exists(const QString& name) const override;

    AudioEngine& Engine() const { return *m_engine; }
    // The cart world that the recorders record into.
    void SetCatalogue(CartRecorder::Catalogue world) { *m_catalogue = std::move(world); }
    // The kernel goes away: players that outlive it can no longer read macros.
    void ForgetKernel();

private:
    std::shared_ptr<::Channel> Find(const QString& name) const;

    std::shared_ptr<AudioEngine> m_engine;
    std::shared_ptr<PlayQueue::MacroSource> m_macros;
    std::shared_ptr<CartRecorder::Catalogue> m_catalogue;
    std::vector<std::shared_ptr<::Channel>> m_channels;
};
