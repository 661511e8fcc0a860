#pragma once
#include <QObject>
#include <QString>
#include <memory>

class iSoundFile;

// The sound behind a sound cart: its file and its marks, all in ms from the start of the file.
// Setters change the object; Update makes them take effect and Save writes them. A failed
// call throws KernelError.
class iSound : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~iSound() override = default;

    // The ID of the cart that owns the sound.
    virtual QString ID() const = 0;
    // Full path of the audio file.
    virtual QString FileName() const = 0;
    virtual void SetFileName(const QString& fileName) = 0;
    // Start mark: where the sound begins to play on air.
    virtual qint32 FileStart() const = 0;
    virtual void SetFileStart(qint32 ms) = 0;
    // Stop mark: where the sound ends on air.
    virtual qint32 FileStop() const = 0;
    virtual void SetFileStop(qint32 ms) = 0;
    // Auxiliary start mark, where a playlist chains into this sound.
    virtual qint32 FileStartMark() const = 0;
    virtual void SetFileStartMark(qint32 ms) = 0;
    // Auxiliary stop mark, where a playlist chains to the next sound.
    virtual qint32 FileStopMark() const = 0;
    virtual void SetFileStopMark(qint32 ms) = 0;
    // The customer the sound belongs to.
    virtual QString Customer() const = 0;
    virtual void SetCustomer(const QString& customer) = 0;
    // The physical file; null when no file is attached.
    virtual std::shared_ptr<iSoundFile> SoundFile() const = 0;
    // Whether a backup of the marks exists to restore.
    virtual bool HasBackup() const = 0;
    // Keeps the present marks as the backup.
    virtual void Backup() = 0;
    // Brings the backed-up marks back. Raises SoundChanged.
    virtual void Restore() = 0;
    // Writes the sound's data to the catalogue.
    virtual void Save() = 0;
    // Makes the fields just written take effect (rereads the file after FileName changed).
    virtual void Update() = 0;

Q_SIGNALS:
    // Any field changed: holders reload everything they show of the sound.
    void SoundChanged();
};
