#include "kernel/audio/AudioEngine.h"
#include "kernel/audio/CaptureWriter.h"
#include "kernel/audio/ChannelMix.h"
#include "kernel/audio/DeviceHost.h"
#include "kernel/audio/DeviceOpener.h"
#include "kernel/audio/DeviceSlot.h"
#include "kernel/audio/DiskWorkers.h"
#include "kernel/audio/EngineListener.h"
#include "kernel/audio/NullDevice.h"
#include "kernel/audio/PeakMeter.h"
#include "kernel/audio/Voice.h"
#include "kernelapi/KernelError.h"
#include <QScopedValueRollback>
#include <QStringList>
#include <algorithm>

AudioEngine::AudioEngine(AudioSettings settings, KernelLog log, DeviceFactory devices)
    : m_settings(std::move(settings)), m_log(std::move(log))
{
    BuildChannels();
    BuildSlots(devices ? std::move(devices) : DefaultDevices());
    m_voices = FindVoices();
    m_disk = std::make_unique<DiskWorkers>(m_voices, m_settings.virtualClock ? 0 : DiskWorkerCount);
    BuildCaptureWriter();
    StartDevices();
    if (m_settings.virtualClock)
        return;
    m_disk->Start();
    connect(&m_drainTimer, &QTimer::timeout, this, &AudioEngine::Drain);
    m_drainTimer.start(DrainMs);
}

// The device thread closes every device before it is joined.
AudioEngine::~AudioEngine()
{
    m_deviceHost.reset();
    for (auto& slot : m_slots)
        slot->Stop();
    m_disk.reset();
    m_captureWriter.reset();
}

void AudioEngine::BuildChannels()
{
    int voices = 0;
    for (const AudioSettings::Channel& settings : m_settings.channels) {
        auto channel = std::make_unique<ChannelMix>(settings.streams, settings.records, voices, m_settings.sampleRate);
        voices += channel->VoiceCount();
        m_channels.push_back(std::move(channel));
    }
    m_listenerOfVoice.assign(static_cast<std::size_t>(voices), nullptr);
}

// Channels that name the same device share it (every Null channel shares one Null device).
void AudioEngine::BuildSlots(DeviceFactory devices)
{
    QStringList names;
    std::vector<std::vector<int>> members;
    for (int channel = 0; channel < ChannelCount(); ++channel) {
        const QString& device = m_settings.channels[channel].device;
        const QString name = AudioSettings::IsNullDevice(device) ? QStringLiteral("null") : device;
        if (!names.contains(name)) {
            names << name;
            members.emplace_back();
        }
        members[static_cast<std::size_t>(names.indexOf(name))].push_back(channel);
    }
    const auto clock = m_settings.virtualClock ? NullDevice::Clock::Virtual : NullDevice::Clock::RealTime;
    m_slotOfChannel.resize(m_channels.size());
    for (std::size_t i = 0; i < members.size(); ++i) {
        DeviceRequest request{names[static_cast<qsizetype>(i)], m_settings.sampleRate, m_settings.periodFrames, false, false};
        std::vector<DeviceSlot::Channel> channels;
        for (int channel : members[i]) {
            request.plays = request.plays || !Channel(channel).Records();
            request.records = request.records || Channel(channel).Records();
            channels.push_back({m_settings.channels[channel].name, &Channel(channel)});
            m_slotOfChannel[static_cast<std::size_t>(channel)] = static_cast<int>(i);
        }
        const DeviceFactory& open = AudioSettings::IsNullDevice(request.name) ? NullDevices() : devices;
        m_slots.push_back(std::make_unique<DeviceSlot>(request, std::move(channels), open, clock, m_log));
    }
}

// On the virtual clock every device is a Null device that the engine advances.
DeviceFactory AudioEngine::DefaultDevices() const
{
    return m_settings.virtualClock ? NullDevices() : DeviceFactory(DeviceOpener());
}

// Null devices of the engine's clock that hear the station's Null input.
DeviceFactory AudioEngine::NullDevices() const
{
    const auto clock = m_settings.virtualClock ? NullDevice::Clock::Virtual : NullDevice::Clock::RealTime;
    return [clock, input = m_settings.nullInput, log = m_log](const DeviceRequest& request) -> std::unique_ptr<AudioDevice> {
        auto device = std::make_unique<NullDevice>(request.sampleRate, request.periodFrames, request.records ? 2 : 0, clock);
        if (request.records)
            device->SetInput(std::make_unique<NullInput>(input, request.sampleRate, log));
        return device;
    };
}

// On the real-time clock the writer passes every half period (at least every ms).
void AudioEngine::BuildCaptureWriter()
{
    std::vector<Capture*> captures;
    for (const auto& channel : m_channels)
        for (int s = 0; channel->Records() && s < channel->StreamCount(); ++s)
            captures.push_back(&channel->CaptureOf(s));
    const int passMs = std::max(1, m_settings.periodFrames * 1000 / m_settings.sampleRate / 2);
    m_captureWriter = std::make_unique<CaptureWriter>(std::move(captures), passMs, !m_settings.virtualClock);
}

// On the real-time clock the devices open on the device thread, without keeping the UI
// waiting; on the virtual clock at once, on this thread.
void AudioEngine::StartDevices()
{
    if (m_settings.virtualClock) {
        for (auto& slot : m_slots)
            slot->Watch(VirtualMs());
        return;
    }
    std::vector<DeviceSlot*> slots;
    for (auto& slot : m_slots)
        slots.push_back(slot.get());
    m_deviceHost = std::make_unique<DeviceHost>(std::move(slots));
}

std::int64_t AudioEngine::VirtualMs() const
{
    return m_virtualFrames * 1000 / m_settings.sampleRate;
}

std::vector<Voice*> AudioEngine::FindVoices() const
{
    std::vector<Voice*> voices;
    for (const auto& channel : m_channels)
        for (int s = 0; s < channel->StreamCount(); ++s)
            for (int v = 0; channel->Stream(s).HasVoices() && v < StreamMix::VoiceCount; ++v)
                voices.push_back(&channel->Stream(s).VoiceAt(v));
    return voices;
}

DeviceSlot& AudioEngine::SlotOf(int channel) const
{
    return *m_slots[static_cast<std::size_t>(m_slotOfChannel[static_cast<std::size_t>(channel)])];
}

QString AudioEngine::DeviceName(int channel) const
{
    return SlotOf(channel).Name();
}

bool AudioEngine::Active(int channel) const
{
    return SlotOf(channel).Active();
}

bool AudioEngine::ChannelOn(int channel) const
{
    return SlotOf(channel).OnAir();
}

AudioLevels AudioEngine::Levels(int channel, const PeakMeter& meter) const
{
    return ChannelOn(channel) ? meter.Read() : AudioLevels();
}

std::uint64_t AudioEngine::Underruns(int channel) const
{
    return Channel(channel).Underruns();
}

AudioDevice& AudioEngine::Device(int channel) const
{
    return SlotOf(channel).Carrier();
}

std::int64_t AudioEngine::ClockMs(int channel) const
{
    return static_cast<std::int64_t>(SlotOf(channel).Mixer().Frames() * 1000 / static_cast<std::uint64_t>(m_settings.sampleRate));
}

void AudioEngine::Listen(EngineListener* listener, const std::vector<int>& voices)
{
    for (int voice : voices)
        m_listenerOfVoice.at(static_cast<std::size_t>(voice)) = listener;
    m_listeners.push_back(listener);
}

void AudioEngine::Unlisten(EngineListener* listener)
{
    std::replace(m_listenerOfVoice.begin(), m_listenerOfVoice.end(), listener, static_cast<EngineListener*>(nullptr));
    m_listeners.erase(std::remove(m_listeners.begin(), m_listeners.end(), listener), m_listeners.end());
}

void AudioEngine::WakeDisk()
{
    m_disk->Wake();
}

void AudioEngine::WakeCaptureWriter()
{
    m_captureWriter->Wake();
}

void AudioEngine::Advance(std::int64_t frames)
{
    if (!m_settings.virtualClock)
        throw KernelError(QStringLiteral("The audio engine runs in real time: it cannot be advanced"));
    while (frames > 0) {
        const int period = static_cast<int>(std::min<std::int64_t>(frames, m_settings.periodFrames));
        m_disk->FillAll();
        for (auto& slot : m_slots)
            slot->Advance(period);
        m_captureWriter->WriteAll(VirtualWriteFrames);
        m_virtualFrames += period;
        for (auto& slot : m_slots)
            slot->Watch(VirtualMs());
        Drain();
        frames -= period;
    }
}

std::uint64_t AudioEngine::EventsPosted() const
{
    std::uint64_t posted = 0;
    for (Voice* voice : m_voices)
        posted += voice->Events().Posted();
    return posted;
}

std::uint64_t AudioEngine::EventsCollected() const
{
    std::uint64_t collected = 0;
    for (Voice* voice : m_voices)
        collected += voice->Events().Collected();
    return collected;
}

void AudioEngine::Drain()
{
    if (m_draining)
        return; // a listener let the event loop run: the outer drain goes on afterwards
    const QScopedValueRollback<bool> draining(m_draining, true);
    m_collected.clear();
    for (Voice* voice : m_voices)
        voice->Events().Collect(voice->Id(), m_collected);
    std::sort(m_collected.begin(), m_collected.end(),
              [](const EngineEvent& a, const EngineEvent& b) { return EventLatches::Before(a.stamp, b.stamp); });
    for (const EngineEvent& event : m_collected)
        Dispatch(event);
    const std::vector<EngineListener*> listeners = m_listeners;
    for (EngineListener* listener : listeners)
        if (std::find(m_listeners.begin(), m_listeners.end(), listener) != m_listeners.end())
            listener->OnEngineTick();
}

void AudioEngine::Dispatch(const EngineEvent& event)
{
    if (EngineListener* listener = m_listenerOfVoice[static_cast<std::size_t>(event.voice)])
        listener->OnEngineEvent(event);
}
