#include "kernel/audio/AudioEngine.h"
#include "kernel/audio/ChannelMix.h"
#include "kernel/audio/DeviceMixer.h"
#include "kernel/audio/DiskWorkers.h"
#include "kernel/audio/EngineListener.h"
#include "kernel/audio/Voice.h"
#include "kernel/audio/NullDevice.h"
#include "kernel/audio/PortAudioDevice.h"
#include "kernelapi/KernelError.h"
#include <QScopedValueRollback>
#include <QStringList>
#include <algorithm>
#include <thread>

namespace {
const QString Object = QStringLiteral("AudioEngine");
}

AudioEngine::AudioEngine(AudioSettings settings, KernelLog log) : m_settings(std::move(settings)), m_log(std::move(log))
{
    BuildChannels();
    m_voices = FindVoices();
    m_disk = std::make_unique<DiskWorkers>(m_voices, m_settings.virtualClock ? 0 : DiskWorkerCount);
    for (DeviceSlot& slot : m_slots)
        StartDevice(slot);
    if (m_settings.virtualClock)
        return;
    m_disk->Start();
    connect(&m_drainTimer, &QTimer::timeout, this, &AudioEngine::Drain);
    m_drainTimer.start(DrainMs);
}

AudioEngine::~AudioEngine()
{
    for (DeviceSlot& slot : m_slots)
        slot.device->Stop();
    m_disk.reset();
}

void AudioEngine::BuildChannels()
{
    int voices = 0;
    for (const AudioSettings::Channel& settings : m_settings.channels) {
        auto channel = std::make_unique<ChannelMix>(settings.streams, settings.records, voices, m_settings.sampleRate);
        voices += channel->VoiceCount();
        SlotFor(settings.device).channels.push_back(ChannelCount());
        m_channels.push_back(std::move(channel));
    }
    m_listenerOfVoice.assign(static_cast<std::size_t>(voices), nullptr);
    m_slotOfChannel.resize(m_channels.size());
    for (std::size_t i = 0; i < m_slots.size(); ++i) {
        std::vector<ChannelMix*> mixes;
        for (int channel : m_slots[i].channels) {
            mixes.push_back(m_channels[static_cast<std::size_t>(channel)].get());
            m_slotOfChannel[static_cast<std::size_t>(channel)] = static_cast<int>(i);
        }
        m_slots[i].mixer = std::make_unique<DeviceMixer>(std::move(mixes));
    }
}

// Channels that name the same device share it (every Null channel shares one Null device).
AudioEngine::DeviceSlot& AudioEngine::SlotFor(const QString& device)
{
    const QString name = AudioSettings::IsNullDevice(device) ? QStringLiteral("null") : device;
    for (DeviceSlot& slot : m_slots)
        if (slot.name == name)
            return slot;
    m_slots.push_back(DeviceSlot{name, {}, nullptr, nullptr, 0, {}});
    return m_slots.back();
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

void AudioEngine::StartDevice(DeviceSlot& slot)
{
    slot.device = OpenDevice(slot);
    try {
        slot.device->Start(slot.mixer.get());
    } catch (const KernelError& e) {
        FallBack(slot, e.Description());
    }
    slot.quietFor.start();
}

std::unique_ptr<AudioDevice> AudioEngine::OpenDevice(const DeviceSlot& slot)
{
    if (m_settings.virtualClock || slot.name == QLatin1String("null"))
        return NullFor(slot);
    const bool plays = std::any_of(slot.channels.begin(), slot.channels.end(),
                                   [this](int channel) { return !Channel(channel).Records(); });
    try {
        return std::make_unique<PortAudioDevice>(slot.name, m_settings.sampleRate, m_settings.periodFrames, plays,
                                                 slot.mixer->Records());
    } catch (const KernelError& e) {
        m_log.Error(Object, QStringLiteral("OpenDevice"),
                    QStringLiteral("%1; channel %2 runs on the Null device").arg(e.Description(), ChannelNames(slot)));
        return NullFor(slot);
    }
}

std::unique_ptr<AudioDevice> AudioEngine::NullFor(const DeviceSlot& slot) const
{
    return std::make_unique<NullDevice>(m_settings.sampleRate, m_settings.periodFrames, slot.mixer->Records() ? 2 : 0,
                                        m_settings.virtualClock ? NullDevice::Clock::Virtual : NullDevice::Clock::RealTime);
}

void AudioEngine::FallBack(DeviceSlot& slot, const QString& reason)
{
    m_log.Error(Object, QStringLiteral("FallBack"),
                QStringLiteral("Device '%1': %2; channel %3 runs on the Null device").arg(slot.device->Name(), reason, ChannelNames(slot)));
    // Closing a device that has gone away can block inside its driver for minutes: it is
    // detached here and closed on a thread of its own.
    slot.device->Detach();
    std::thread([gone = std::move(slot.device)]() mutable { gone.reset(); }).detach();
    slot.device = NullFor(slot);
    slot.device->Start(slot.mixer.get());
    slot.quietFor.start();
}

QString AudioEngine::ChannelNames(const DeviceSlot& slot) const
{
    QStringList names;
    for (int channel : slot.channels)
        names << m_settings.channels[channel].name;
    return names.join(QStringLiteral(", "));
}

const AudioEngine::DeviceSlot& AudioEngine::SlotOf(int channel) const
{
    return m_slots[static_cast<std::size_t>(m_slotOfChannel[static_cast<std::size_t>(channel)])];
}

AudioDevice& AudioEngine::Device(int channel) const
{
    return *SlotOf(channel).device;
}

QString AudioEngine::DeviceName(int channel) const
{
    return Device(channel).Name();
}

bool AudioEngine::ChannelOn(int channel) const
{
    return SlotOf(channel).device->Running();
}

std::int64_t AudioEngine::ClockMs(int channel) const
{
    return static_cast<std::int64_t>(SlotOf(channel).mixer->Frames() * 1000 / static_cast<std::uint64_t>(m_settings.sampleRate));
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

void AudioEngine::Advance(std::int64_t frames)
{
    if (!m_settings.virtualClock)
        throw KernelError(QStringLiteral("The audio engine runs in real time: it cannot be advanced"));
    while (frames > 0) {
        const int period = static_cast<int>(std::min<std::int64_t>(frames, m_settings.periodFrames));
        m_disk->FillAll();
        for (DeviceSlot& slot : m_slots)
            static_cast<NullDevice&>(*slot.device).Advance(period);
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
    if (!m_settings.virtualClock)
        for (DeviceSlot& slot : m_slots)
            Watch(slot);
}

void AudioEngine::Dispatch(const EngineEvent& event)
{
    if (EngineListener* listener = m_listenerOfVoice[static_cast<std::size_t>(event.voice)])
        listener->OnEngineEvent(event);
}

// A device that stopped, or whose callback has not come for StallMs, has gone away.
void AudioEngine::Watch(DeviceSlot& slot)
{
    if (slot.device->Name() == QLatin1String("null"))
        return;
    const std::uint64_t frames = slot.mixer->Frames();
    if (!slot.device->Running())
        FallBack(slot, QStringLiteral("the device stopped"));
    else if (frames != slot.lastFrames)
        slot.quietFor.start();
    else if (slot.quietFor.elapsed() > StallMs)
        FallBack(slot, QStringLiteral("no audio for %1 ms").arg(StallMs));
    slot.lastFrames = slot.mixer->Frames();
}
