#pragma once
#include "kernel/KernelLog.h"
#include "kernel/audio/DeviceMixer.h"
#include "kernel/audio/DeviceRequest.h"
#include "kernel/audio/NullDevice.h"
#include <atomic>
#include <cstdint>
#include <limits>
#include <memory>
#include <vector>

class ChannelMix;

// One device of the engine and the channels it carries. While the configured device is open
// and its periods keep coming, its channels are on air. When it is absent, stops, or sends
// nothing for StallMs, its channels go off air (one ERROR line), a Null device of the same
// clock stands in so that their players keep time, and the device is tried again every
// RetryMs; when it opens again (one OK line) the channels go on there from where their
// players are. A channel configured on the Null device is always on air. Underruns are
// logged at most every ReportMs per channel.
//
// The state is published in atomics that any thread reads. Everything else belongs to the
// device thread: the engine's DeviceHost on the real-time clock, the caller of Advance on the
// virtual one. It alone opens, starts, polls, stops and closes devices.
class DeviceSlot
{
public:
    // No period for this long, or two periods if longer: off air.
    static constexpr int QuietMs = 250;
    // No period for this long, or four periods if longer: the device has gone.
    static constexpr int StallMs = 2000;
    static constexpr int RetryMs = 2000;   // a device that is not there is tried this often
    static constexpr int ReportMs = 10000; // the least time between two underrun lines of a channel

    // A channel that the device carries, with what its last underrun line said.
    struct Channel
    {
        QString name;
        ChannelMix* mix = nullptr;
        std::uint64_t reported = 0;
        std::int64_t reportedAtMs = std::numeric_limits<std::int64_t>::min() / 2;
    };

    // open opens the configured device; for the Null device ("null") a Null device of the
    // given clock.
    DeviceSlot(DeviceRequest request, std::vector<Channel> channels, DeviceFactory open, NullDevice::Clock clock, KernelLog log);
    ~DeviceSlot();
    DeviceSlot(const DeviceSlot&) = delete;
    DeviceSlot& operator=(const DeviceSlot&) = delete;

    const QString& Name() const { return m_request.name; }
    DeviceMixer& Mixer() { return m_mixer; }

    // --- any thread ---
    // The configured device is open and running.
    bool Active() const;
    // Active, and no period of the device has been missing for long (QuietMs).
    bool OnAir() const;

    // --- device thread ---
    // Opens the device when it is due, notices a device that went away, publishes the state
    // and logs the underruns. nowMs: the device thread's clock.
    void Watch(std::int64_t nowMs);
    // Stops and closes the devices.
    void Stop();
    // Virtual clock: runs the device that carries the channels for that many frames.
    void Advance(int frames);
    // The device that carries the channels now: the configured one, or the stand-in.
    AudioDevice& Carrier();

private:
    void TryOpen(std::int64_t nowMs);
    void Check(std::int64_t nowMs);
    void Lose(const QString& reason, std::int64_t nowMs);
    void Retire(std::unique_ptr<AudioDevice> device);
    void ReportOffAir(const QString& reason);
    void ReportUnderruns(std::int64_t nowMs);
    QString ChannelNames() const;

    const DeviceRequest m_request;
    const bool m_alwaysOn;
    const int m_quietMs;
    const int m_stallMs;
    std::vector<Channel> m_channels;
    DeviceMixer m_mixer;
    DeviceFactory m_open;
    KernelLog m_log;
    NullDevice m_standIn;
    std::unique_ptr<AudioDevice> m_device;
    std::int64_t m_retryAtMs = std::numeric_limits<std::int64_t>::min();
    std::int64_t m_lastPeriodMs = 0;
    std::uint64_t m_lastFrames = 0;
    bool m_offAirLogged = false;
    std::atomic<bool> m_active{false};
    std::atomic<bool> m_onAir{false};
};
