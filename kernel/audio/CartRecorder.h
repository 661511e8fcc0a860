#pragma once
#include "kernel/KernelLog.h"
#include "kernel/RecorderTarget.h"
#include "kernel/audio/EngineListener.h"
#include "kernelapi/iCartRecorder.h"
#include <memory>
#include <optional>

class AudioEngine;
class Capture;
class CartWorld;

// The recorder of one stream of a recording channel, used like a cassette machine: a target
// is loaded (a cart, or a blank tape proposed in a family), Record runs, Pause holds and
// Resume goes on with nothing missing and nothing twice, Stop ends the take and makes it the
// cart's sound. The audio goes from the device through the stream's Capture into a new file
// in the station's recording format; Stop writes its energy file (measured while recording)
// and commits the cart through RecorderTarget. A take with no frames leaves nothing behind.
//
// Record followed by Pause before control returns to the event loop arms the recorder: it is
// Paused without having been Recording, and nothing of the moment between is kept. So Record
// announces Recording only once the event loop (or the engine's next tick) comes round.
//
// Events follow the order of their declaration: the display texts (name, time, title), then
// the load state, then the recording state; each only when it changed.
//
// A take that cannot be written (no room, no right) stops the recorder with one ERROR line; its
// file keeps what was written and the cart keeps its old sound. An input device lost during a
// take ends it, with one ERROR line, as Stop does, with what was captured.
class CartRecorder : public iCartRecorder, private EngineListener
{
    Q_OBJECT
public:
    using Catalogue = std::weak_ptr<CartWorld>;

    // catalogue: the kernel's cart world, set once the kernel has one.
    CartRecorder(std::shared_ptr<AudioEngine> engine, int channel, int stream, std::shared_ptr<const Catalogue> catalogue,
                 KernelLog log);
    ~CartRecorder() override;

    qint32 RecordingState() const override { return m_recording; }
    qint32 LoadState() const override { return m_load; }
    QString DisplayTime() const override { return m_time; }
    QString DisplayTitle() const override { return m_title; }
    QString DisplayName() const override { return m_name; }
    void Load(const std::shared_ptr<iCart>& cart) override;
    void LoadBlank(const std::shared_ptr<iFamily>& family) override;
    void Eject() override;
    void Record() override;
    void Stop() override;
    void Pause() override;
    void Resume() override;

    // The file of the take under way; empty when none.
    QString TakePath() const { return m_takePath; }

private:
    void OnEngineEvent(const EngineEvent&) override {}
    void OnEngineTick() override;
    void AnnounceRecording();

    std::shared_ptr<CartWorld> World() const;
    ::Capture& Capture() const;
    void RequireStopped(const QString& procedure) const;
    void SetTarget(std::optional<RecorderTarget> target, qint32 load);
    void ShowTarget();
    void BeginTake();
    void EndTake();
    void Abandon(const QString& reason);
    void CheckTake();
    qint32 TakeMs() const;

    void Publish(qint32 recording);
    void SetDisplay(const QString& name, const QString& time, const QString& title);
    void ShowTakeTime();
    QString StoppedTime() const;

    std::shared_ptr<AudioEngine> m_engine;
    const int m_channel;
    const int m_stream;
    std::shared_ptr<const Catalogue> m_catalogue;
    KernelLog m_log;

    std::optional<RecorderTarget> m_target;
    qint32 m_recording = Stopped;
    qint32 m_load = Free;
    qint32 m_announcedLoad = Free;
    qint32 m_announcedRecording = Stopped;
    bool m_announcePending = false;
    bool m_inputSeen = false; // the input device ran during the take
    QString m_takePath;
    QString m_name;
    QString m_time;
    QString m_title;
    int m_shownTenth = -1;
};
