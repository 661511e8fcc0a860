#pragma once
#include <QObject>
#include <QString>
#include <QVariant>

// The physical audio file behind a sound. A failed call throws KernelError.
class iSoundFile : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~iSoundFile() override = default;

    struct EnergyFile
    {
        QString fileName;       // the energy file that belongs to the sound
        bool available = false; // whether it exists and can be read
    };

    // The file's name as shown to the user.
    virtual QString FileName() const = 0;
    // Total length of the file in ms.
    virtual qint32 Length() const = 0;
    // Raises the whole file to full level and rewrites its energy file. target: the peak
    // level in dB, null for full scale; keepUndo keeps the old audio so that the sound
    // editor's Undo can take the change back. The holder reloads its editor afterwards.
    virtual void Normalize(const QVariant& target, bool keepUndo) = 0;
    // Rewrites the audio file from what the sound editor holds. format: the file type to
    // write, null to keep the present one; keepUndo as for Normalize; quality: the encoder
    // setting, null for the station's default.
    virtual void RewriteFile(const QVariant& format, bool keepUndo, const QVariant& quality) = 0;
    // Whether the file is of the frame-compressed kind, whose energy is read frame by frame
    // through the sound editor and not from an energy file.
    virtual bool IsCompressedFrames() const = 0;
    // The energy file of the sound and whether it can be read.
    virtual EnergyFile GetEnergyFile() const = 0;
};
