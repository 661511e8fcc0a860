#include "kernel/audio/CartRecorder.h"
#include "foundation/Strings.h"
#include "kernel/CartWorld.h"
#include "kernel/EnergyFile.h"
#include "kernel/audio/AudioEngine.h"
#include "kernel/audio/Capture.h"
#include "kernel/audio/ChannelMix.h"
#include "kernel/audio/Take.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iFamily.h"
#include <QFile>

namespace {
const QString Object = QStringLiteral("iCartRecorder");
}

CartRecorder::CartRecorder(std::shared_ptr<AudioEngine> engine, int channel, int stream,
                           std::shared_ptr<const Catalogue> catalogue, KernelLog log)
    : m_engine(std::move(engine)), m_channel(channel), m_stream(stream), m_catalogue(std::move(catalogue)), m_log(std::move(log))
{
    m_engine->Listen(this, {});
}

// A take under way when the kernel goes is kept as a file: the catalogue may be gone already.
CartRecorder::~CartRecorder()
{
    m_engine->Unlisten(this);
    if (m_recording == Stopped)
        return;
    Capture().SetMode(Capture::Mode::Idle);
    if (std::unique_ptr<Take> take = Capture().End()) {
        try {
            take->Finish();
        } catch (const KernelError&) {
        }
        m_log.Warn(Object, QStringLiteral("Close"), QStringLiteral("The recorder closed during a recording: the take is kept in '%1'").arg(take->Path()));
    }
}

std::shared_ptr<CartWorld> CartRecorder::World() const
{
    std::shared_ptr<CartWorld> world = m_catalogue ? m_catalogue->lock() : nullptr;
    if (!world)
        throw KernelError(QStringLiteral("The recorder has no catalogue to record into"));
    return world;
}

Capture& CartRecorder::Capture() const
{
    return m_engine->Channel(m_channel).CaptureOf(m_stream);
}

void CartRecorder::RequireStopped(const QString& procedure) const
{
    if (m_recording != Stopped)
        throw KernelError(QStringLiteral("%1 is refused while the recorder records: stop it first").arg(procedure));
}

// --- loading ---

void CartRecorder::Load(const std::shared_ptr<iCart>& cart)
{
    RequireStopped(QStringLiteral("Load"));
    if (!cart)
        throw KernelError(QStringLiteral("There is no cart to load into the recorder"));
    SetTarget(RecorderTarget::OfCart(World(), cart->ID()), Loaded);
    Publish(m_recording);
}

// A family with no free number leaves the recorder empty.
void CartRecorder::LoadBlank(const std::shared_ptr<iFamily>& family)
{
    RequireStopped(QStringLiteral("LoadBlank"));
    if (!family)
        throw KernelError(QStringLiteral("There is no family to propose a blank tape in"));
    std::optional<RecorderTarget> blank = RecorderTarget::Blank(World(), family->ID());
    const qint32 load = blank ? Proposed : Free;
    if (!blank)
        m_log.Warn(Object, QStringLiteral("LoadBlank"), QStringLiteral("The family %1 has no free number for a new cart").arg(family->ID()));
    SetTarget(std::move(blank), load);
    Publish(m_recording);
}

void CartRecorder::Eject()
{
    if (m_recording != Stopped)
        Stop();
    SetTarget(std::nullopt, Free);
    Publish(m_recording);
}

void CartRecorder::SetTarget(std::optional<RecorderTarget> target, qint32 load)
{
    m_target = std::move(target);
    m_load = load;
    ShowTarget();
}

void CartRecorder::ShowTarget()
{
    if (!m_target)
        SetDisplay({}, {}, {});
    else
        SetDisplay(m_target->IsBlank() ? m_target->FamilyID() : m_target->CartID(), StoppedTime(), m_target->Title());
}

QString CartRecorder::StoppedTime() const
{
    return m_target ? MsToHuman(m_target->LengthMs()) : QString();
}

// --- transport ---

void CartRecorder::Record()
{
    if (m_recording != Stopped)
        return;
    if (!m_target)
        throw KernelError(QStringLiteral("The recorder has nothing loaded to record into"));
    BeginTake();
    m_announcePending = true;
    m_recording = Recording;
    m_shownTenth = -1;
    QMetaObject::invokeMethod(this, &CartRecorder::AnnounceRecording, Qt::QueuedConnection);
}

void CartRecorder::BeginTake()
{
    const QString path = m_target->NewTakePath(m_engine->Settings().record.Extension());
    try {
        Capture().Begin(std::make_unique<Take>(m_engine->Settings().record, path, m_engine->Settings().sampleRate));
    } catch (const KernelError& e) {
        m_log.Error(Object, QStringLiteral("Record"), QStringLiteral("Cannot record into %1: %2").arg(m_target->CartID(), e.Description()));
        throw;
    }
    m_takePath = path;
    m_inputSeen = m_engine->Active(m_channel);
    Capture().SetMode(Capture::Mode::Running);
    m_engine->WakeCaptureWriter();
}

// Right after Record, Pause arms: what was captured in between is dropped.
void CartRecorder::Pause()
{
    if (m_recording != Recording)
        return;
    Capture().SetMode(Capture::Mode::Armed);
    if (m_announcePending)
        Capture().Restart();
    m_announcePending = false;
    Publish(Paused);
}

void CartRecorder::Resume()
{
    if (m_recording != Paused)
        return;
    Capture().SetMode(Capture::Mode::Running);
    Publish(Recording);
}

void CartRecorder::Stop()
{
    if (m_recording == Stopped)
        return;
    EndTake();
    m_announcePending = false;
    if (!m_target->IsBlank())
        m_load = Loaded;
    ShowTarget();
    Publish(Stopped);
}

// The take becomes the cart's sound; an empty one is removed, and one that cannot be
// committed is kept where it is.
void CartRecorder::EndTake()
{
    Capture().SetMode(Capture::Mode::Idle);
    const std::unique_ptr<Take> take = Capture().End();
    m_takePath.clear();
    if (!take)
        return;
    if (const std::uint64_t lost = Capture().Overruns())
        m_log.Warn(Object, QStringLiteral("Stop"), QStringLiteral("Frames lost so far because the disk did not keep up: %1").arg(lost));
    const QString procedure = QStringLiteral("Stop");
    try {
        const AudioFileInfo info = take->Finish();
        if (take->Failed())
            throw KernelError(take->Failure());
        if (info.frames == 0) {
            QFile::remove(take->Path());
            return;
        }
        EnergyFile::Write(EnergyFile::PathFor(take->Path()), info);
        m_target->Commit(take->Path(), info);
    } catch (const KernelError& e) {
        m_log.Error(Object, procedure, QStringLiteral("The recording into %1 could not be saved: %2. What was recorded is kept in '%3'")
                                           .arg(m_target->CartID(), e.Description(), take->Path()));
    }
}

// A take that failed ends at once; its file keeps what was written, the cart its sound.
void CartRecorder::Abandon(const QString& reason)
{
    Capture().SetMode(Capture::Mode::Idle);
    if (const std::unique_ptr<Take> take = Capture().End()) {
        qint64 frames = take->Frames();
        try {
            frames = take->Finish().frames;
        } catch (const KernelError&) {
        }
        const QString kept = frames > 0 ? QStringLiteral("what was recorded is kept in '%1'").arg(take->Path())
                                        : QStringLiteral("nothing was recorded");
        if (frames == 0)
            QFile::remove(take->Path());
        m_log.Error(Object, QStringLiteral("Record"), QStringLiteral("The recording into %1 failed: %2. The recorder stopped; %3, and the cart keeps its sound")
                                                         .arg(m_target->CartID(), reason, kept));
    }
    m_takePath.clear();
    m_announcePending = false;
    ShowTarget();
    Publish(Stopped);
}

// --- engine ---

void CartRecorder::OnEngineTick()
{
    AnnounceRecording();
    if (m_recording == Stopped)
        return;
    CheckTake();
    if (m_recording != Stopped)
        ShowTakeTime();
}

void CartRecorder::AnnounceRecording()
{
    if (!m_announcePending)
        return;
    m_announcePending = false;
    Publish(m_recording);
}

// A device is lost when it ran during the take and runs no more; one that has not opened yet
// (it opens on the device thread) is not.
void CartRecorder::CheckTake()
{
    const bool active = m_engine->Active(m_channel);
    m_inputSeen = m_inputSeen || active;
    if (Capture().Failed()) {
        Abandon(Capture().Failure());
    } else if (m_inputSeen && !active) {
        m_log.Error(Object, QStringLiteral("Record"),
                    QStringLiteral("The input device '%1' went away during the recording into %2: the take ends with what was captured")
                        .arg(m_engine->DeviceName(m_channel), m_target->CartID()));
        Stop();
    }
}

qint32 CartRecorder::TakeMs() const
{
    return AudioFileInfo::Ms(static_cast<qint64>(Capture().Captured()), m_engine->Settings().sampleRate);
}

void CartRecorder::ShowTakeTime()
{
    const qint32 ms = TakeMs();
    if (ms / 100 == m_shownTenth)
        return;
    m_shownTenth = ms / 100;
    SetDisplay(m_name, MsToHuman(ms), m_title);
}

// --- events ---

void CartRecorder::SetDisplay(const QString& name, const QString& time, const QString& title)
{
    if (name != m_name)
        Q_EMIT DisplayNameChanged(m_name = name);
    if (time != m_time)
        Q_EMIT DisplayTimeChanged(m_time = time);
    if (title != m_title)
        Q_EMIT DisplayTitleChanged(m_title = title);
}

// The recording state is announced only once a pending Record has come round.
void CartRecorder::Publish(qint32 recording)
{
    m_recording = recording;
    if (m_load != m_announcedLoad)
        Q_EMIT LoadStateChanged(m_announcedLoad = m_load);
    if (!m_announcePending && m_recording != m_announcedRecording)
        Q_EMIT RecordingStateChanged(m_announcedRecording = m_recording);
}
