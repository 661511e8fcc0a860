#include "kernel/audio/CartPlayer.h"
#include "foundation/Strings.h"
#include "kernel/audio/AudioEngine.h"
#include "kernel/audio/ChannelMix.h"
#include "kernel/audio/EngineEvent.h"
#include "kernel/audio/Voice.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iObjectWithProperties.h"
#include "kernelapi/iStream.h"
#include <algorithm>
#include <cmath>

namespace {
const QString Object = QStringLiteral("CartPlayer");

// Runs work for the engine's drain, which must go on whatever one player does: a failure
// becomes an ERROR line.
template <typename Work> void Safely(const KernelLog& log, const char* procedure, Work work)
{
    try {
        work();
    } catch (const KernelError& e) {
        log.Error(Object, QLatin1String(procedure), e.Description());
    } catch (const std::exception& e) {
        log.Error(Object, QLatin1String(procedure), QString::fromUtf8(e.what()));
    }
}
}

CartPlayer::CartPlayer(std::shared_ptr<AudioEngine> engine, int channel, int stream,
                       std::shared_ptr<const MacroSource> macros, KernelLog log)
    : m_engine(std::move(engine)), m_channel(channel), m_mix(m_engine->Channel(channel).Stream(stream)),
      m_macros(std::move(macros)), m_log(std::move(log)), m_front(&m_mix.VoiceAt(0))
{
    std::vector<int> voices;
    for (int i = 0; i < StreamMix::VoiceCount; ++i)
        voices.push_back(m_mix.VoiceAt(i).Id());
    m_engine->Listen(this, voices);
}

CartPlayer::~CartPlayer()
{
    m_engine->Unlisten(this);
    for (int i = 0; i < StreamMix::VoiceCount; ++i)
        VoiceAt(i).Clear();
}

Voice& CartPlayer::VoiceAt(int index) const
{
    return m_mix.VoiceAt(index);
}

Voice* CartPlayer::VoiceWithId(int id) const
{
    for (int i = 0; i < StreamMix::VoiceCount; ++i)
        if (VoiceAt(i).Id() == id)
            return &VoiceAt(i);
    return nullptr;
}

// A voice that holds no part: a quiet one when there is one, so that it can take a new sound at
// once; else one still fading out, which takes it when the fade is over.
Voice& CartPlayer::FreeVoice() const
{
    Voice* fading = nullptr;
    for (int i = 0; i < StreamMix::VoiceCount; ++i) {
        Voice& voice = VoiceAt(i);
        if (&voice == m_front || &voice == m_outgoing || &voice == m_next)
            continue;
        if (voice.Quiet())
            return voice;
        if (!fading)
            fading = &voice;
    }
    return *fading;
}

// The voice fades out, its file closes, and it holds no part any more.
void CartPlayer::Retire(Voice*& voice)
{
    if (!voice)
        return;
    voice->Clear();
    voice = nullptr;
}

// --- loading ---

void CartPlayer::Load(const std::shared_ptr<iCart>& cart)
{
    LoadQueue(PlayQueue::OfCart(cart, *m_macros));
}

void CartPlayer::Load(const std::shared_ptr<iPlayList>& playList)
{
    LoadQueue(PlayQueue::OfPlayList(playList));
}

void CartPlayer::LoadSource(const PlaySource& source, const QString& title)
{
    LoadQueue(PlayQueue::OfSource(source, title));
}

// The new queue goes to a free voice; what sounds now goes on sounding until the next command,
// so that Play(chained) can follow it. Something loaded before and not played goes.
void CartPlayer::LoadQueue(PlayQueue queue)
{
    Voice& voice = FreeVoice();
    const bool ready = PrepareVoice(voice, queue.Current(), 0);
    m_playAtMs.reset();
    Retire(m_next);
    if (Sounding()) {
        Retire(m_outgoing);
        m_outgoing = m_front;
    } else {
        m_front->Clear();
    }
    m_front = &voice;
    m_queue = std::move(queue);
    m_cue = 0;
    m_volume = CartDefaultVolume();
    ApplyGain();
    SetTitle(m_queue.Current().title);
    Q_EMIT VolumeChanged(m_volume);
    m_windClockMs = ClockMs() - WindSettleMs;
    PublishTime();
    SetStatus(ready ? CartPlayerStatus::Cued : CartPlayerStatus::Cueing);
    if (ready)
        ReportTruncated();
}

// Returns whether the voice is ready at once (always on a virtual clock, unless it is still
// fading out what it played before).
bool CartPlayer::PrepareVoice(Voice& voice, const PlayStep& step, int position)
{
    voice.SetLoop(m_loop || step.loop);
    voice.SetGain(Gain());
    const bool ready = voice.Prepare(step.source, std::max(step.source.startMs, 0) + position, m_engine->PreparesSynchronously());
    m_engine->WakeDisk();
    return ready;
}

// Prepares the step at position on a quiet voice and makes it the front; the old front fades
// out. Returns whether the new front is ready.
bool CartPlayer::Switch(const PlayStep& step, int position)
{
    Voice& voice = m_front->Quiet() ? *m_front : FreeVoice();
    const bool ready = PrepareVoice(voice, step, position);
    if (&voice != m_front)
        m_front->Clear();
    m_front = &voice;
    return ready;
}

void CartPlayer::Eject()
{
    m_playAtMs.reset();
    m_front->Clear();
    Retire(m_outgoing);
    Retire(m_next);
    m_queue = PlayQueue();
    m_cue = 0;
    SetTitle(QString());
    SetStatus(CartPlayerStatus::Ready);
}

// --- transport ---

void CartPlayer::Play(bool chained, bool, const std::shared_ptr<iStream>& preferredStream, bool, qint32)
{
    if (preferredStream && preferredStream != Stream()) {
        PlayOn(preferredStream, chained);
        return;
    }
    RequireLoaded();
    m_playAtMs.reset();
    switch (m_status) {
    case CartPlayerStatus::Playing:
    case CartPlayerStatus::Expiring:
    case CartPlayerStatus::Sync:
        return;
    case CartPlayerStatus::Paused:
        m_front->Start();
        break;
    default:
        if (!m_front->Ready() && !m_front->Pending())
            Switch(m_queue.Current(), m_cue);
        if (chained && m_outgoing) {
            m_front->Start(true, m_outgoing->Index());
        } else {
            StopOutgoing();
            m_front->Start();
        }
    }
    MarkStarted();
    EnterPlaying();
}

void CartPlayer::PlayOn(const std::shared_ptr<iStream>& stream, bool chained)
{
    RequireLoaded();
    const std::shared_ptr<iCartPlayer> player = stream->CartPlayer();
    if (!player)
        throw KernelError(QStringLiteral("Stream %1 has no player").arg(stream->Name()));
    if (!Cart())
        throw KernelError(QStringLiteral("Only a cart can be played on another stream"));
    player->Load(Cart());
    player->Play(chained);
}

void CartPlayer::Pause()
{
    if (Sounding()) {
        m_front->Halt();
        StopOutgoing();
        DisarmNext();
        PublishTime();
        SetStatus(CartPlayerStatus::Paused);
    } else if (m_status == CartPlayerStatus::Paused) {
        m_front->Start();
        EnterPlaying();
    }
}

void CartPlayer::Stop()
{
    m_playAtMs.reset();
    StopOutgoing();
    DisarmNext();
    if (Loaded() && (Sounding() || m_status == CartPlayerStatus::Paused))
        Rest();
}

void CartPlayer::Cue()
{
    ToCued(m_cue);
}

void CartPlayer::Recue()
{
    ToCued(0);
}

void CartPlayer::SetPosition(qint32 position)
{
    ToCued(std::clamp(position, 0, std::max(0, Length() - 1)));
}

void CartPlayer::ToCued(int position)
{
    RequireLoaded();
    StopOutgoing();
    DisarmNext();
    const bool ready = Switch(m_queue.Current(), position);
    const bool moved = m_cue != position;
    m_cue = position;
    m_windClockMs = ClockMs() - WindSettleMs;
    PublishTime();
    if (!ready) {
        SetStatus(CartPlayerStatus::Cueing);
        return;
    }
    // A cued player whose cue point moved is reported again: what a deck offers (cue or
    // recue) depends on where it is cued.
    if (moved && m_status == CartPlayerStatus::Cued)
        Q_EMIT StatusChanged(static_cast<qint32>(m_status));
    SetStatus(CartPlayerStatus::Cued);
}

// One step of winding: a playing player jumps and plays on, a paused one stays paused at the
// new place, and one at rest cues there, Cueing until the winding stops.
void CartPlayer::Wind(int delta)
{
    RequireLoaded();
    const int target = std::clamp(ShownPosition() + delta, 0, std::max(0, Length() - 1));
    const bool sounding = Sounding();
    StopOutgoing();
    DisarmNext();
    Switch(m_queue.Current(), target);
    if (sounding) {
        m_front->Start();
        EnterPlaying();
    } else if (m_status == CartPlayerStatus::Paused) {
        PublishTime();
    } else {
        m_cue = target;
        m_windClockMs = ClockMs();
        PublishTime();
        SetStatus(CartPlayerStatus::Cueing);
    }
}

void CartPlayer::Skip()
{
    RequireLoaded();
    const bool sounding = Sounding();
    if (const std::optional<PlayStep> next = m_queue.Next())
        StartNextStep(*next, sounding);
    else if (sounding || m_status == CartPlayerStatus::Paused)
        Finish();
}

void CartPlayer::StartNextStep(const PlayStep& step, bool sounding)
{
    StopOutgoing();
    DisarmNext();
    const bool ready = Switch(step, 0);
    m_queue.Advance();
    m_cue = 0;
    SetTitle(step.title);
    if (sounding) {
        m_front->Start();
        MarkStarted();
        EnterPlaying();
    } else {
        m_windClockMs = ClockMs() - WindSettleMs;
        PublishTime();
        SetStatus(ready ? CartPlayerStatus::Cued : CartPlayerStatus::Cueing);
    }
}

// --- what the engine reports ---

void CartPlayer::OnEngineEvent(const EngineEvent& event)
{
    Voice* voice = VoiceWithId(event.voice);
    if (!voice || event.generation != voice->Generation())
        return; // about an earlier preparation of the voice
    Safely(m_log, "OnEngineEvent", [&] {
        switch (event.kind) {
        case EngineEvent::Kind::Prepared:
            OnPrepared(*voice, event.generation);
            break;
        case EngineEvent::Kind::PrepareFailed:
            OnPrepareFailed(*voice, event.generation);
            break;
        case EngineEvent::Kind::Ended:
            OnEnded(*voice);
            break;
        case EngineEvent::Kind::Started:
            OnStarted(*voice);
            break;
        case EngineEvent::Kind::ReadFailed:
            m_log.Error(Object, QStringLiteral("Play"),
                        QStringLiteral("Sound file '%1' stopped giving audio before its end").arg(voice->Info().fileName));
            break;
        }
    });
}

void CartPlayer::OnPrepared(Voice& voice, std::uint32_t generation)
{
    if (!voice.Accept(generation) || &voice != m_front || !Loaded())
        return;
    ReportTruncated();
    PublishTime();
    SettleCued();
}

// The front's sound cannot be opened: the player empties. The next step's: it is passed over.
void CartPlayer::OnPrepareFailed(Voice& voice, std::uint32_t generation)
{
    const QString failure = voice.Failure(generation);
    if (&voice == m_next) {
        m_log.Error(Object, QStringLiteral("ArmNext"), failure);
        m_unarmableCart = m_queue.Next() ? m_queue.Next()->cart.get() : nullptr;
        m_unarmableRow = m_queue.Next() ? m_queue.Next()->row : -1;
        DisarmNext();
    } else if (&voice == m_front && Loaded()) {
        m_log.Error(Object, QStringLiteral("Load"), failure);
        Eject();
    }
}

void CartPlayer::OnEnded(Voice& voice)
{
    if (&voice == m_front && Loaded())
        StepEnded();
    else if (&voice == m_outgoing)
        StopOutgoing();
}

void CartPlayer::OnStarted(Voice& voice)
{
    if (&voice == m_next)
        NextStarted();
    else if (&voice == m_front)
        StopOutgoing(); // what it was chained behind has ended
}

void CartPlayer::OnEngineTick()
{
    Safely(m_log, "OnEngineTick", [&] {
        SettleCued();
        if (m_playAtMs && ClockMs() >= *m_playAtMs) {
            m_playAtMs.reset();
            Play();
        }
        if (!Sounding())
            return;
        if (!m_next)
            ArmNext();
        if (FrontPosition() / 100 != m_shownTenth)
            PublishTime();
        SetStatus(PlayingStatus());
    });
}

// A player Cueing becomes Cued once its sound is ready and no winding step came for a while.
void CartPlayer::SettleCued()
{
    if (m_status != CartPlayerStatus::Cueing || !m_front->Ready() || ClockMs() - m_windClockMs < WindSettleMs)
        return;
    PublishTime();
    SetStatus(CartPlayerStatus::Cued);
}

// The front has played its last frame. A step armed behind it is sounding already (its
// Started event follows); otherwise the next step is started or cued, passing over steps that
// cannot be played, and after the last one the player comes to rest.
void CartPlayer::StepEnded()
{
    if (m_next)
        return;
    const bool goesOn = m_queue.GoesOnByItself();
    while (const std::optional<PlayStep> next = m_queue.Next()) {
        try {
            StartNextStep(*next, goesOn);
            return;
        } catch (const KernelError& e) {
            m_log.Error(Object, QStringLiteral("StepEnded"), e.Description());
            m_queue.Advance();
        }
    }
    Finish();
}

void CartPlayer::NextStarted()
{
    m_front->Clear();
    m_front = m_next;
    m_next = nullptr;
    m_queue.Advance();
    MarkStarted();
    m_cue = 0;
    SetTitle(m_queue.Current().title);
    EnterPlaying();
}

void CartPlayer::Finish()
{
    StopOutgoing();
    DisarmNext();
    m_queue.Restart();
    m_cue = 0;
    Rest();
}

// Silences the player and cues it again at the cue point, Ready for the next Play.
void CartPlayer::Rest()
{
    m_front->Halt();
    try {
        Switch(m_queue.Current(), m_cue);
    } catch (const KernelError& e) {
        m_log.Error(Object, QStringLiteral("Rest"), e.Description());
    }
    SetTitle(m_queue.Current().title);
    SetStatus(CartPlayerStatus::Ready);
}

// Puts the next step of a macro or chained playlist on a free voice, chained to start on the
// frame the front ends.
void CartPlayer::ArmNext()
{
    if (Loops() || !m_queue.GoesOnByItself())
        return;
    const std::optional<PlayStep> next = m_queue.Next();
    if (!next || (next->cart.get() == m_unarmableCart && next->row == m_unarmableRow))
        return;
    try {
        Voice& voice = FreeVoice();
        PrepareVoice(voice, *next, 0);
        voice.Start(true, m_front->Index());
        m_next = &voice;
        m_unarmableCart = nullptr;
        m_unarmableRow = -1;
    } catch (const KernelError& e) {
        m_log.Error(Object, QStringLiteral("ArmNext"), e.Description());
        m_unarmableCart = next->cart.get();
        m_unarmableRow = next->row;
    }
}

void CartPlayer::DisarmNext()
{
    Retire(m_next);
}

void CartPlayer::StopOutgoing()
{
    Retire(m_outgoing);
}

// Playing first, also near the end: the tick turns it to Expiring.
void CartPlayer::EnterPlaying()
{
    PublishTime();
    SetStatus(CartPlayerStatus::Playing);
}

void CartPlayer::RequireLoaded() const
{
    if (!Loaded())
        throw KernelError(QStringLiteral("No cart is loaded in the player"));
}

// --- state ---

bool CartPlayer::Sounding() const
{
    return m_status == CartPlayerStatus::Playing || m_status == CartPlayerStatus::Expiring;
}

CartPlayerStatus CartPlayer::PlayingStatus() const
{
    const int expiringMs = m_engine->Settings().expiringMs;
    const bool nearEnd = expiringMs > 0 && m_front->Ready() && Length() - FrontPosition() <= expiringMs;
    return nearEnd && !Loops() && !m_next ? CartPlayerStatus::Expiring : CartPlayerStatus::Playing;
}

bool CartPlayer::Loops() const
{
    return m_loop || (Loaded() && m_queue.Current().loop);
}

void CartPlayer::SetLoop(bool loop)
{
    m_loop = loop;
    m_front->SetLoop(Loops());
    if (loop)
        DisarmNext();
}

int CartPlayer::Length() const
{
    return m_front->Ready() ? m_front->Info().stopMs - m_front->Info().startMs : 0;
}

int CartPlayer::FrontPosition() const
{
    return m_front->Ready() ? m_front->PositionMs() - m_front->Info().startMs : 0;
}

// The position the time display is about: where the sound is while it plays or pauses, the
// cue point otherwise.
int CartPlayer::ShownPosition() const
{
    return Sounding() || m_status == CartPlayerStatus::Paused ? FrontPosition() : m_cue;
}

std::int64_t CartPlayer::ClockMs() const
{
    return m_engine->ClockMs(m_channel);
}

std::uint64_t CartPlayer::Underruns() const
{
    std::uint64_t underruns = 0;
    for (int i = 0; i < StreamMix::VoiceCount; ++i)
        underruns += VoiceAt(i).Underruns();
    return underruns;
}

// --- volume ---

void CartPlayer::SetVolume(qint16 volume)
{
    m_volume = std::clamp(volume, SilenceDb, MaxVolumeDb);
    ApplyGain();
    Q_EMIT VolumeChanged(m_volume);
}

float CartPlayer::Gain() const
{
    return m_volume <= SilenceDb ? 0.0f : std::pow(10.0f, static_cast<float>(m_volume) / 20.0f);
}

// An old cart still sounding after a Load keeps the volume it had.
void CartPlayer::ApplyGain()
{
    m_front->SetGain(Gain());
    if (m_next)
        m_next->SetGain(Gain());
}

qint16 CartPlayer::CartDefaultVolume() const
{
    const std::shared_ptr<iCart> cart = Cart();
    if (!cart)
        return 0;
    try {
        const std::shared_ptr<iObjectWithProperties> properties = cart->Properties();
        bool number = false;
        const int volume = properties ? properties->Property(DefaultVolumeProperty).toInt(&number) : 0;
        return number ? static_cast<qint16>(std::clamp<int>(volume, SilenceDb, MaxVolumeDb)) : 0;
    } catch (const KernelError& e) {
        m_log.Warn(Object, QStringLiteral("CartDefaultVolume"), e.Description() + QStringLiteral("; 0 dB is used"));
        return 0;
    }
}

void CartPlayer::SaveDefaultVolume()
{
    RequireLoaded();
    const std::shared_ptr<iCart> cart = Cart();
    const std::shared_ptr<iObjectWithProperties> properties = cart ? cart->Properties() : nullptr;
    if (!properties)
        throw KernelError(QStringLiteral("The player holds no cart to keep a default volume"));
    properties->SetProperty(DefaultVolumeProperty, static_cast<int>(m_volume));
    cart->Save();
}

// --- events ---

void CartPlayer::SetStatus(CartPlayerStatus status)
{
    if (m_status != status) {
        m_status = status;
        Q_EMIT StatusChanged(static_cast<qint32>(status));
    }
    ReportRow();
}

// Tells the playlists which of their rows sounds now; every change of what the player holds or
// does passes through SetStatus.
void CartPlayer::ReportRow()
{
    const std::shared_ptr<iPlayList> list = m_queue.List();
    const int row = list && (Sounding() || m_status == CartPlayerStatus::Paused) ? m_queue.Current().row : 0;
    const std::shared_ptr<iPlayList> before = std::exchange(m_reportedList, list);
    const int rowBefore = std::exchange(m_reportedRow, row);
    if (before && before != list)
        Q_EMIT RowChanged(before.get(), 0);
    if (list && (list != before || row != rowBefore))
        Q_EMIT RowChanged(list.get(), row);
}

void CartPlayer::LetGoOf(const iPlayList* list)
{
    if (!list || m_queue.List().get() != list)
        return;
    m_playAtMs.reset();
    DisarmNext();
    m_queue.LetGo();
    ReportRow();
}

void CartPlayer::PlayAt(std::optional<std::int64_t> clockMs)
{
    if (clockMs)
        RequireLoaded();
    m_playAtMs = clockMs;
}

// The step sounds: a playlist moves its next-row arrow past it. A list that cannot store that
// costs an ERROR line, never the player's state.
void CartPlayer::MarkStarted()
{
    Safely(m_log, "Play", [&] { m_queue.Started(); });
}

void CartPlayer::SetTitle(const QString& title)
{
    if (m_title == title)
        return;
    m_title = title;
    Q_EMIT DisplayTitleChanged(title);
}

// Elapsed and remaining time as running texts, the share still to go, and while sounding the
// position for a play cursor.
void CartPlayer::PublishTime()
{
    const int length = Length();
    const int position = std::clamp(ShownPosition(), 0, length);
    const int left = length - position;
    m_shownTenth = position / 100;
    Q_EMIT DisplayTimeChanged(MsToHuman(position), MsToHuman(-left));
    Q_EMIT PercentToGoChanged(length > 0 ? 100.0f * static_cast<float>(left) / static_cast<float>(length) : 0.0f);
    if (Sounding())
        Q_EMIT PlayPosition(position);
}

void CartPlayer::ReportTruncated() const
{
    if (m_front->Info().truncated)
        m_log.Error(Object, QStringLiteral("Load"),
                    QStringLiteral("Sound file '%1' holds less audio than its header announces: it plays up to where it breaks off")
                        .arg(m_front->Info().fileName));
}
