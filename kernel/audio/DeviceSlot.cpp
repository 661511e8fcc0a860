#include "kernel/audio/DeviceSlot.h"
#include "kernel/audio/ChannelMix.h"
#include "kernelapi/KernelError.h"
#include <QStringList>
#include <algorithm>

namespace {
const QString Object = QStringLiteral("AudioEngine");
const QString Procedure = QStringLiteral("Watch");

std::vector<ChannelMix*> Mixes(const std::vector<DeviceSlot::Channel>& channels)
{
    std::vector<ChannelMix*> mixes;
    for (const DeviceSlot::Channel& channel : channels)
        mixes.push_back(channel.mix);
    return mixes;
}

int PeriodMs(const DeviceRequest& request)
{
    return (request.periodFrames * 1000 + request.sampleRate - 1) / request.sampleRate;
}
}

DeviceSlot::DeviceSlot(DeviceRequest request, std::vector<Channel> channels, DeviceFactory open, NullDevice::Clock clock,
                       KernelLog log)
    : m_request(std::move(request)), m_alwaysOn(m_request.name == QLatin1String("null")),
      m_quietMs(std::max(QuietMs, 2 * PeriodMs(m_request))), m_stallMs(std::max(StallMs, 4 * PeriodMs(m_request))),
      m_channels(std::move(channels)),
      m_mixer(Mixes(m_channels)), m_open(std::move(open)), m_log(std::move(log)),
      m_standIn(m_request.sampleRate, m_request.periodFrames, m_request.records ? 2 : 0, clock)
{
}

DeviceSlot::~DeviceSlot()
{
    Stop();
}

bool DeviceSlot::Active() const
{
    return m_alwaysOn || m_active.load(std::memory_order_acquire);
}

bool DeviceSlot::OnAir() const
{
    return m_alwaysOn || m_onAir.load(std::memory_order_acquire);
}

void DeviceSlot::Watch(std::int64_t nowMs)
{
    if (m_device)
        Check(nowMs);
    else if (nowMs >= m_retryAtMs)
        TryOpen(nowMs);
    m_onAir.store(m_device && nowMs - m_lastPeriodMs <= m_quietMs, std::memory_order_release);
    ReportUnderruns(nowMs);
}

// The stand-in stops before the device starts: the mixer has one caller at a time.
void DeviceSlot::TryOpen(std::int64_t nowMs)
{
    std::unique_ptr<AudioDevice> device;
    try {
        device = m_open(m_request);
        m_standIn.Stop();
        device->Start(&m_mixer);
    } catch (const KernelError& e) {
        Retire(std::move(device));
        m_retryAtMs = nowMs + RetryMs;
        ReportOffAir(e.Description());
        return;
    }
    m_device = std::move(device);
    m_lastFrames = m_mixer.Frames();
    m_lastPeriodMs = nowMs;
    m_active.store(true, std::memory_order_release);
    if (m_offAirLogged)
        m_log.Ok(Object, Procedure, QStringLiteral("Device '%1' is back: channel %2 is on air again").arg(Name(), ChannelNames()));
    m_offAirLogged = false;
}

// A device that stopped, or whose periods have not come for a long while, has gone away.
void DeviceSlot::Check(std::int64_t nowMs)
{
    if (const std::uint64_t frames = m_mixer.Frames(); frames != m_lastFrames) {
        m_lastFrames = frames;
        m_lastPeriodMs = nowMs;
    }
    if (!m_device->Running())
        Lose(QStringLiteral("Device '%1' stopped").arg(Name()), nowMs);
    else if (nowMs - m_lastPeriodMs > m_stallMs)
        Lose(QStringLiteral("Device '%1' has sent no audio for %2 ms").arg(Name()).arg(m_stallMs), nowMs);
}

// The line is written and the channels are off air before the device is closed, which may
// take a while with a device that has gone away.
void DeviceSlot::Lose(const QString& reason, std::int64_t nowMs)
{
    ReportOffAir(reason);
    m_onAir.store(false, std::memory_order_release);
    m_active.store(false, std::memory_order_release);
    Retire(std::move(m_device));
    m_retryAtMs = nowMs + RetryMs;
}

// One ERROR line from the loss of the device to its return, however often it is tried.
void DeviceSlot::ReportOffAir(const QString& reason)
{
    if (!m_offAirLogged)
        m_log.Error(Object, Procedure, QStringLiteral("%1; channel %2 is off air: its players keep time, and the device is tried again every %3 s")
                                           .arg(reason, ChannelNames()).arg(RetryMs / 1000));
    m_offAirLogged = true;
}

// The stand-in takes over before the device is closed.
void DeviceSlot::Retire(std::unique_ptr<AudioDevice> device)
{
    if (device)
        device->Detach();
    if (!m_standIn.Running())
        m_standIn.Start(&m_mixer);
    device.reset();
}

void DeviceSlot::ReportUnderruns(std::int64_t nowMs)
{
    for (Channel& channel : m_channels) {
        const std::uint64_t count = channel.mix->Underruns();
        if (count == channel.reported || nowMs - channel.reportedAtMs < ReportMs)
            continue;
        m_log.Warn(Object, Procedure, QStringLiteral("Channel %1: gaps in its audio (underruns: %2 since the last line about them, %3 in all)")
                                          .arg(channel.name).arg(count - channel.reported).arg(count));
        channel.reported = count;
        channel.reportedAtMs = nowMs;
    }
}

void DeviceSlot::Stop()
{
    m_onAir.store(false, std::memory_order_release);
    m_active.store(false, std::memory_order_release);
    m_device.reset();
    m_standIn.Stop();
}

void DeviceSlot::Advance(int frames)
{
    auto* device = dynamic_cast<NullDevice*>(&Carrier());
    if (!device)
        throw KernelError(QStringLiteral("Device '%1' runs in real time: it cannot be advanced").arg(Name()));
    device->Advance(frames);
}

AudioDevice& DeviceSlot::Carrier()
{
    return m_device ? *m_device : m_standIn;
}

QString DeviceSlot::ChannelNames() const
{
    QStringList names;
    for (const Channel& channel : m_channels)
        names << channel.name;
    return names.join(QStringLiteral(", "));
}
