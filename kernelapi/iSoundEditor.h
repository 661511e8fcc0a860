#pragma once
#include <QObject>
#include <QString>
#include <memory>

class iSelection;
class iSound;

// The editor of one sound: its selection, its noise gate, frame energy of compressed files,
// and the operations that change the audio. The client makes one for each editing control
// with KernelFactory::CreateSoundEditor and keeps it as long as the control lives. Positions
// are ms from the start of the file. A failed call throws KernelError; operations that answer
// a flag report a refused edit through it instead.
class iSoundEditor : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~iSoundEditor() override = default;

    struct FrameEnergy
    {
        float left = 0.0f; // 0 to 1, on the scale of the energy files
        float right = 0.0f;
    };

    // Binds the editor to a sound; every later operation acts on it. Null unbinds it and
    // clears the selection.
    virtual void SetSound(const std::shared_ptr<iSound>& sound) = 0;
    // Opens frame-by-frame energy reading of a compressed file; pair it with EndFrameEnergy.
    virtual void BeginFrameEnergy() = 0;
    // Closes frame-by-frame energy reading.
    virtual void EndFrameEnergy() = 0;
    // The energy of one frame, 0 to FrameCount - 1.
    virtual FrameEnergy GetFrameEnergy(qint32 frame) = 0;
    // Empties the selection. Raises ChangedSelection.
    virtual void ClearSelection() = 0;
    // Prepares the frame table of a compressed file; called once before FrameCount.
    virtual void PrepareFrameEnergy() = 0;
    // Number of frames of a compressed file.
    virtual qint32 FrameCount() const = 0;
    // Sets the selection's first point, making it a single point. Raises ChangedSelection.
    virtual void SetSelectionStart(qint32 ms) = 0;
    // Sets the second point; with a first point present the selection becomes a range.
    // Raises ChangedSelection.
    virtual void SetSelectionStop(qint32 ms) = 0;
    // Moves the first point of an existing selection. Raises ChangedSelection.
    virtual void MoveSelectionStart(qint32 ms) = 0;
    // Moves the second point of an existing selection. Raises ChangedSelection.
    virtual void MoveSelectionStop(qint32 ms) = 0;
    // The mouse button was released on the wave at that position.
    virtual void MouseReleasedAt(qint32 ms) = 0;
    // The selection.
    virtual std::shared_ptr<iSelection> Selection() const = 0;
    // Removes the selected range from the sound; true on success.
    virtual bool EliminateSelected() = 0;
    // Keeps only the selected range; true on success.
    virtual bool EliminateNotSelected() = 0;
    // Reloads the sound from its file, for instance after a normalisation. Raises ChangedFile.
    virtual void Reload() = 0;
    // Takes the last edit back; true on success.
    virtual bool Undo() = 0;
    // Writes the selected range into the sound bound at this moment (the new cart's sound);
    // true on success.
    virtual bool ExtractCut() = 0;
    // Removes the stretches whose energy, read from the energy file, stays below the gate, a
    // linear amplitude from 0 to 1; true on success.
    virtual bool RemoveSilences(const QString& energyFile, double gate) = 0;
    // The noise gate in dB.
    virtual float NoiseGate() const = 0;
    // Sets the noise gate in dB. Raises ChangedNoiseGate.
    virtual void SetNoiseGate(float gate) = 0;

Q_SIGNALS:
    // The selection changed: holders redraw its marks and enable their commands.
    void ChangedSelection();
    // The audio changed: holders repaint the wave.
    void ChangedFile();
    // The noise gate, in dB, changed.
    void ChangedNoiseGate(float gate);
};
