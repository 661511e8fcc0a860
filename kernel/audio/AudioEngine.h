#pragma once
#include "kernel/KernelLog.h"
#include "kernel/audio/AudioSettings.h"
#include "kernel/audio/DeviceRequest.h"
#include "kernelapi/AudioLevels.h"
#include <QObject>
#include <QTimer>
#include <cstdint>
#include <memory>
#include <vector>

class AudioDevice;
class CaptureWriter;
class ChannelMix;
class DeviceHost;
class DeviceSlot;
class DiskWorkers;
class EngineListener;
class PeakMeter;
class Voice;
struct EngineEvent;

// The audio engine of the kernel: the channels' mixes, one device slot (device and real-time
// callback) for each device named in the settings, the device thread that opens and watches
// them, and the disk workers. It lives on the UI thread, where a timer collects the voices'
// events every few ms and hands them to the listeners (the players) in the order they
// happened. A
// channel whose device is absent or goes away is off air while a Null device keeps its time,
// until the device comes back (see DeviceSlot).
class AudioEngine : public QObject
{
    Q_OBJECT
public:
    static constexpr int DrainMs = 10;
    // Threads that open and decode files on a real-time clock.
    static constexpr int DiskWorkerCount = 4;
    // On the virtual clock captured audio goes to its file in blocks of at least this many
    // frames (and whatever is left when a take ends).
    static constexpr int VirtualWriteFrames = 8192;

    // devices opens the configured devices (not "null"); by default, on the virtual clock a
    // Null device each, on the real-time clock JACK clients and PortAudio devices.
    AudioEngine(AudioSettings settings, KernelLog log, DeviceFactory devices = {});
    ~AudioEngine() override;

    const AudioSettings& Settings() const { return m_settings; }
    int ChannelCount() const { return static_cast<int>(m_channels.size()); }
    ChannelMix& Channel(int index) const { return *m_channels[static_cast<std::size_t>(index)]; }
    // The device a channel is configured on ("null" for the Null device).
    QString DeviceName(int channel) const;
    // The channel's device is open and running.
    bool Active(int channel) const;
    // Active, and the device's periods keep coming: the channel is on air.
    bool ChannelOn(int channel) const;
    // What a meter of the channel reads: no signal, and not valid, while it is off air.
    AudioLevels Levels(int channel, const PeakMeter& meter) const;
    // Gaps in the channel's audio since the engine started.
    std::uint64_t Underruns(int channel) const;
    // Virtual clock only: the device that carries the channel now (a stand-in while its own
    // is lost).
    AudioDevice& Device(int channel) const;
    // The clock of a channel's device: ms of audio it has processed.
    std::int64_t ClockMs(int channel) const;

    // The listener hears the events of the given voices and every tick.
    void Listen(EngineListener* listener, const std::vector<int>& voices);
    void Unlisten(EngineListener* listener);
    // Lets the disk workers open files and top the rings up now.
    void WakeDisk();
    // A take has begun on a capture: its writer keeps up from now on.
    void WakeCaptureWriter();
    // On a virtual clock, voices open their files on the calling thread, at once.
    bool PreparesSynchronously() const { return m_settings.virtualClock; }
    // Events the voices posted and events handed to listeners; once every thread is quiet, the
    // difference counts postings about a preparation that a newer one had replaced.
    std::uint64_t EventsPosted() const;
    std::uint64_t EventsCollected() const;

    // Virtual clock only: fills the rings, runs every device for that many frames, a period
    // at a time, and watches the devices and drains the events after each period, all on the
    // calling thread.
    void Advance(std::int64_t frames);
    // Hands the voices' events to their listeners in the order they were posted and ticks
    // every listener. Called by the timer.
    void Drain();

private:
    void BuildChannels();
    void BuildSlots(DeviceFactory devices);
    DeviceFactory DefaultDevices() const;
    DeviceFactory NullDevices() const;
    void BuildCaptureWriter();
    void StartDevices();
    std::int64_t VirtualMs() const;
    void Dispatch(const EngineEvent& event);
    DeviceSlot& SlotOf(int channel) const;
    std::vector<Voice*> FindVoices() const;

    AudioSettings m_settings;
    KernelLog m_log;
    std::vector<std::unique_ptr<ChannelMix>> m_channels;
    std::vector<std::unique_ptr<DeviceSlot>> m_slots;
    std::vector<int> m_slotOfChannel;
    std::unique_ptr<DeviceHost> m_deviceHost;
    std::int64_t m_virtualFrames = 0;
    std::vector<Voice*> m_voices;
    std::unique_ptr<DiskWorkers> m_disk;
    std::unique_ptr<CaptureWriter> m_captureWriter;
    std::vector<EngineEvent> m_collected;
    std::vector<EngineListener*> m_listenerOfVoice;
    std::vector<EngineListener*> m_listeners;
    QTimer m_drainTimer;
    bool m_draining = false;
};
