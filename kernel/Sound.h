#pragma once
#include "kernelapi/iSound.h"
#include <memory>

class ConfigStore;
class Database;
class SoundFile;
class StationFolder;

// The sound of one sound cart over its row of the Sound table. Marks are held in the object
// until Save writes them; the backup of the marks lives in the kernel's SoundBackup table
// (made on first use in an older station).
// The row's Filename is relative to the sound folder (an absolute one is kept as it is).
class Sound : public iSound
{
    Q_OBJECT
public:
    // The sound of cartID, read from db (the kernel's connection, which reaches the Sound
    // table and SoundBackup). soundFolder is where relative file names point; see Folder.
    // A cart with no Sound row gives an empty sound whose Save inserts the row.
    Sound(std::shared_ptr<Database> db, const QString& cartID, const QString& soundFolder, QObject* parent = nullptr);
    ~Sound() override;

    // The folder of a station's sound files, ending in '/': the shared key SoundPath(1)
    // (relative to the station folder when relative), else <station>/sound/.
    static QString Folder(const ConfigStore& shared, const StationFolder& station);

    QString ID() const override { return m_id; }
    QString FileName() const override;
    void SetFileName(const QString& fileName) override;
    qint32 FileStart() const override { return m_marks.start; }
    void SetFileStart(qint32 ms) override { m_marks.start = ms; }
    qint32 FileStop() const override { return m_marks.stop; }
    void SetFileStop(qint32 ms) override { m_marks.stop = ms; }
    qint32 FileStartMark() const override { return m_marks.startMark; }
    void SetFileStartMark(qint32 ms) override { m_marks.startMark = ms; }
    qint32 FileStopMark() const override { return m_marks.stopMark; }
    void SetFileStopMark(qint32 ms) override { m_marks.stopMark = ms; }
    QString Customer() const override { return m_customer; }
    void SetCustomer(const QString& customer) override { m_customer = customer; }
    std::shared_ptr<iSoundFile> SoundFile() const override;
    bool HasBackup() const override;
    void Backup() override;
    void Restore() override;
    void Save() override;
    void Update() override;

    // Measures the file again and rewrites its energy file. accurate decodes the whole file
    // to count its frames; otherwise the count in the file's header is taken. A stop mark of
    // 0 or past the new end becomes the end, and marks past the end are brought inside it;
    // the row is saved. Returns the length in ms. Throws KernelError when the file cannot be
    // read.
    qint32 Recalculate(bool accurate);
    // Takes a length measured elsewhere: the marks are fitted to it as by Recalculate and the
    // row is saved.
    void TakeLength(qint32 lengthMs);

    // Removes the Sound row and the backup of the marks; with deleteFile also the audio file
    // and its energy file. The object is then an empty sound again.
    void Remove(bool deleteFile);
    // Deletes an audio file and its energy file.
    static void DeleteFiles(const QString& file);

private:
    struct Marks
    {
        qint32 start = 0;
        qint32 stop = 0;
        qint32 startMark = 0;
        qint32 stopMark = 0;
    };

    void Load();
    void EnsureBackupTable() const;
    // The file object for the present file name, made when the name changed.
    std::shared_ptr<::SoundFile> File() const;
    void FitMarks(qint32 lengthMs);

    std::shared_ptr<Database> m_db;
    QString m_id;
    QString m_folder;
    QString m_storedName; // the row's Filename: relative to m_folder or absolute
    Marks m_marks;
    QString m_customer;
    mutable std::shared_ptr<::SoundFile> m_file; // made on first use, dropped when the name changes
};
