#pragma once
#include "kernel/KernelLog.h"
#include "kernel/audio/EngineListener.h"
#include "kernel/audio/PlayQueue.h"
#include "kernelapi/iCartPlayer.h"
#include <cstdint>
#include <memory>
#include <optional>

class AudioEngine;
class StreamMix;
class Voice;

// The player of one stream. It plays a sound cart between its marks, the sound steps of a
// macro one into the next without a gap, or the rows of a playlist; positions are ms from the
// start mark of the sound that plays. Of the stream's voices the "front" holds what the status
// is about; the "outgoing" one keeps sounding an old cart after a Load until the next command
// (so that Play(chained) can follow it without a gap); the "next" one holds the next step of a
// macro or chained playlist ready to start on the frame the front ends. Every new sound goes
// to a voice that is quiet, so that what a command stops always fades out.
//
// Files are opened by the engine's disk workers: after Load, Cue, Recue or Position the player
// is Cueing until its sound is ready, then Cued (at once on a virtual clock); a Play in between
// sounds as soon as the sound is ready; a file that cannot be opened writes an ERROR line and
// empties the player.
//
// Status: Ready (empty, or at rest after a stop or the end), Cued (Load, Cue, Recue, Position),
// Cueing (while the sound is made ready, and while FastForward or Rewind wind a player at
// rest; Cued again WindSettleMs after the last step), Playing, Paused, Expiring (playing, not
// looping, nothing following by itself, and less than the station's ExpiringSeconds left). Sync is never entered: the embedded kernel has
// no source to follow. The cart's default volume is its property "DefaultVolume" (dB), 0 dB
// when absent; Load applies it.
class CartPlayer : public iCartPlayer, private EngineListener
{
    Q_OBJECT
public:
    using MacroSource = PlayQueue::MacroSource;
    static constexpr int WindSettleMs = 250;
    static constexpr qint16 SilenceDb = -110;
    static constexpr qint16 MaxVolumeDb = 18;
    static inline const QString DefaultVolumeProperty = QStringLiteral("DefaultVolume");

    // macros: reads a macro by its cart ID; an empty function once the kernel is gone.
    CartPlayer(std::shared_ptr<AudioEngine> engine, int channel, int stream, std::shared_ptr<const MacroSource> macros,
               KernelLog log);
    ~CartPlayer() override;
    void SetStream(std::weak_ptr<iStream> stream) { m_stream = std::move(stream); }

    bool Loaded() const override { return !m_queue.Empty(); }
    std::shared_ptr<iStream> Stream() const override { return m_stream.lock(); }
    bool Loop() const override { return m_loop; }
    void SetLoop(bool loop) override;
    qint16 Volume() const override { return m_volume; }
    void SetVolume(qint16 volume) override;
    qint32 CuePosition() const override { return m_cue; }
    qint32 CueRemaining() const override { return Length() - m_cue; }
    void SetPosition(qint32 position) override;
    qint32 PausePosition() const override { return FrontPosition(); }
    qint32 PauseRemaining() const override { return Length() - FrontPosition(); }
    using iCartPlayer::PlayPosition;
    qint32 PlayPosition() const override { return FrontPosition(); }
    qint32 Status() const override { return static_cast<qint32>(m_status); }
    QString DisplayTitle() const override { return m_title; }
    std::shared_ptr<iCart> Cart() const override { return m_queue.Cart(); }
    void VolumeToZero() override { SetVolume(0); }
    void VolumeToCartDefault() override { SetVolume(CartDefaultVolume()); }
    void SaveDefaultVolume() override;
    void Load(const std::shared_ptr<iCart>& cart) override;
    void Load(const std::shared_ptr<iPlayList>& playList) override;
    void Play(bool chained = false, bool reserved = false, const std::shared_ptr<iStream>& preferredStream = nullptr,
              bool immediate = false, qint32 latency = 2000) override;
    void Pause() override;
    void Eject() override;
    void Cue() override;
    void Recue() override;
    void FastForward(qint32 speed) override { Wind(speed); }
    void Rewind(qint32 speed) override { Wind(-speed); }
    void Skip() override;
    void Stop() override;

    // Loads a stretch of a sound file with no cart behind it (previews, tests).
    void LoadSource(const PlaySource& source, const QString& title);
    // Callbacks that found a voice's ring empty while it should sound.
    std::uint64_t Underruns() const;

    // The playlist the player reads its steps from, if any, and the row of the step it holds.
    const iPlayList* LoadedList() const { return m_queue.List().get(); }
    int CurrentRow() const { return Loaded() ? m_queue.Current().row : 0; }
    // The playlist stops feeding the player: the step it holds plays on, nothing follows.
    void LetGoOf(const iPlayList* list);
    // Plays what is loaded on the first engine tick at or after that time of the channel's
    // clock; none forgets it, as any later Load, Play, Stop or Eject does.
    void PlayAt(std::optional<std::int64_t> clockMs);
    bool WaitsToPlay() const { return m_playAtMs.has_value(); }
    // The clock of the player's channel: ms of audio its device has processed.
    std::int64_t ClockMs() const;

Q_SIGNALS:
    // The playlist row the player sounds (or holds paused) changed: row is the list's row, 0
    // when the player sounds none of that list any more (it ended, waits for a Play, or holds
    // something else).
    void RowChanged(const iPlayList* list, int row);

private:
    void OnEngineEvent(const EngineEvent& event) override;
    void OnEngineTick() override;
    void OnPrepared(Voice& voice, std::uint32_t generation);
    void OnPrepareFailed(Voice& voice, std::uint32_t generation);
    void OnEnded(Voice& voice);
    void OnStarted(Voice& voice);

    Voice& VoiceAt(int index) const;
    Voice* VoiceWithId(int id) const;
    Voice& FreeVoice() const;
    void Retire(Voice*& voice);
    void LoadQueue(PlayQueue queue);
    bool PrepareVoice(Voice& voice, const PlayStep& step, int position);
    bool Switch(const PlayStep& step, int position);
    void SettleCued();
    void ToCued(int position);
    void Wind(int delta);
    void StartNextStep(const PlayStep& step, bool sounding);
    void PlayOn(const std::shared_ptr<iStream>& stream, bool chained);
    void StepEnded();
    void NextStarted();
    void Finish();
    void Rest();
    void ArmNext();
    void DisarmNext();
    void StopOutgoing();
    void EnterPlaying();
    void RequireLoaded() const;

    bool Sounding() const;
    CartPlayerStatus PlayingStatus() const;
    bool Loops() const;
    int Length() const;
    int FrontPosition() const;
    int ShownPosition() const;
    float Gain() const;
    void ApplyGain();
    qint16 CartDefaultVolume() const;
    void ReportRow();
    void MarkStarted();

    void SetStatus(CartPlayerStatus status);
    void SetTitle(const QString& title);
    void PublishTime();
    void ReportTruncated() const;

    std::shared_ptr<AudioEngine> m_engine;
    const int m_channel;
    StreamMix& m_mix;
    std::shared_ptr<const MacroSource> m_macros;
    KernelLog m_log;
    std::weak_ptr<iStream> m_stream;

    PlayQueue m_queue;
    Voice* m_front;
    Voice* m_outgoing = nullptr;
    Voice* m_next = nullptr;
    // The next step that could not be armed is not tried again from the tick, so that a
    // broken file costs one ERROR line and one decode, not one every tick.
    const iCart* m_unarmableCart = nullptr;
    int m_unarmableRow = -1;
    CartPlayerStatus m_status = CartPlayerStatus::Ready;
    QString m_title;
    int m_cue = 0;
    bool m_loop = false;
    qint16 m_volume = 0;
    int m_shownTenth = -1;
    std::int64_t m_windClockMs = 0;
    std::optional<std::int64_t> m_playAtMs;
    std::shared_ptr<iPlayList> m_reportedList; // the list RowChanged last spoke of
    int m_reportedRow = 0;
};
