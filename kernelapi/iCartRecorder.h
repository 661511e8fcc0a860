#pragma once
#include <QObject>
#include <QString>
#include <memory>

class iCart;
class iFamily;

// A recorder of one recording stream: it records into a loaded cart, or into a blank tape
// proposed in a family. A failed call throws KernelError.
class iCartRecorder : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~iCartRecorder() override = default;

    // Values of RecordingState.
    enum RecordingStates : qint32 { Stopped = 0, Recording = 1, Paused = 2 };
    // Values of LoadState.
    enum LoadStates : qint32 { Free = 0, Proposed = 1, Loaded = 2 };

    // A RecordingStates value.
    virtual qint32 RecordingState() const = 0;
    // A LoadStates value.
    virtual qint32 LoadState() const = 0;
    // The time text to show.
    virtual QString DisplayTime() const = 0;
    // The title text to show.
    virtual QString DisplayTitle() const = 0;
    // The name text to show: the loaded cart's ID, or the blank tapes' family ID.
    virtual QString DisplayName() const = 0;
    // Loads a cart as the recording target. Raises LoadStateChanged.
    virtual void Load(const std::shared_ptr<iCart>& cart) = 0;
    // Proposes a blank tape, a new cart in the given family. Raises LoadStateChanged.
    virtual void LoadBlank(const std::shared_ptr<iFamily>& family) = 0;
    // Releases the loaded cart. Raises LoadStateChanged.
    virtual void Eject() = 0;
    // Starts recording. Raises RecordingStateChanged.
    virtual void Record() = 0;
    // Stops recording. Raises RecordingStateChanged.
    virtual void Stop() = 0;
    // Pauses; right after Record it arms the recorder without letting it run.
    virtual void Pause() = 0;
    // Resumes after a pause.
    virtual void Resume() = 0;

Q_SIGNALS:
    void DisplayNameChanged(const QString& name);
    void DisplayTimeChanged(const QString& time);
    void DisplayTitleChanged(const QString& title);
    // A LoadStates value.
    void LoadStateChanged(qint32 state);
    // A RecordingStates value.
    void RecordingStateChanged(qint32 state);
};
