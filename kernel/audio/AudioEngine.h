#pragma once
#include "kernel/KernelLog.h"
#include "kernel/audio/AudioSettings.h"
#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <cstdint>
#include <memory>
#include <vector>

class AudioDevice;
class ChannelMix;
class DeviceMixer;
class DiskWorkers;
class EngineListener;
class Voice;
struct EngineEvent;

// The audio engine of the kernel: the channels' mixes, one device and real-time callback for
// each device named in the settings, and the disk workers. It lives on the UI thread, where a
// timer collects the voices' events every few ms and hands them to the listeners (the
// players) in the order they happened. A device that is absent, refuses to start or stops delivering
// audio is reported in an ERROR line and replaced by the Null device, so that its channels
// keep playing in real time.
class AudioEngine : public QObject
{
    Q_OBJECT
public:
    static constexpr int DrainMs = 10;
    // A device whose callback has not come for this long is taken as gone.
    static constexpr int StallMs = 2000;
    // Threads that open and decode files on a real-time clock.
    static constexpr int DiskWorkerCount = 4;

    AudioEngine(AudioSettings settings, KernelLog log);
    ~AudioEngine() override;

    const AudioSettings& Settings() const { return m_settings; }
    int ChannelCount() const { return static_cast<int>(m_channels.size()); }
    ChannelMix& Channel(int index) const { return *m_channels[static_cast<std::size_t>(index)]; }
    // The device a channel runs on now ("null" after a fall back) and whether it runs.
    AudioDevice& Device(int channel) const;
    QString DeviceName(int channel) const;
    bool ChannelOn(int channel) const;
    // The clock of a channel's device: ms of audio it has processed.
    std::int64_t ClockMs(int channel) const;

    // The listener hears the events of the given voices and every tick.
    void Listen(EngineListener* listener, const std::vector<int>& voices);
    void Unlisten(EngineListener* listener);
    // Lets the disk workers open files and top the rings up now.
    void WakeDisk();
    // On a virtual clock, voices open their files on the calling thread, at once.
    bool PreparesSynchronously() const { return m_settings.virtualClock; }
    // Events the voices posted and events handed to listeners; once every thread is quiet, the
    // difference counts postings about a preparation that a newer one had replaced.
    std::uint64_t EventsPosted() const;
    std::uint64_t EventsCollected() const;

    // Virtual clock only: fills the rings, runs every device for that many frames, a period
    // at a time, and drains the events after each period, all on the calling thread.
    void Advance(std::int64_t frames);
    // Hands the voices' events to their listeners in the order they were posted and ticks
    // every listener; on the real-time clock also watches the devices. Called by the timer.
    void Drain();

private:
    struct DeviceSlot
    {
        QString name;
        std::vector<int> channels;
        std::unique_ptr<DeviceMixer> mixer;
        std::unique_ptr<AudioDevice> device;
        std::uint64_t lastFrames = 0;
        QElapsedTimer quietFor;
    };

    void BuildChannels();
    DeviceSlot& SlotFor(const QString& device);
    void StartDevice(DeviceSlot& slot);
    std::unique_ptr<AudioDevice> OpenDevice(const DeviceSlot& slot);
    std::unique_ptr<AudioDevice> NullFor(const DeviceSlot& slot) const;
    void FallBack(DeviceSlot& slot, const QString& reason);
    void Watch(DeviceSlot& slot);
    void Dispatch(const EngineEvent& event);
    QString ChannelNames(const DeviceSlot& slot) const;
    const DeviceSlot& SlotOf(int channel) const;
    std::vector<Voice*> FindVoices() const;

    AudioSettings m_settings;
    KernelLog m_log;
    std::vector<std::unique_ptr<ChannelMix>> m_channels;
    std::vector<DeviceSlot> m_slots;
    std::vector<int> m_slotOfChannel;
    std::vector<Voice*> m_voices;
    std::unique_ptr<DiskWorkers> m_disk;
    std::vector<EngineEvent> m_collected;
    std::vector<EngineListener*> m_listenerOfVoice;
    std::vector<EngineListener*> m_listeners;
    QTimer m_drainTimer;
    bool m_draining = false;
};
