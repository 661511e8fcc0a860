#pragma once
#include "kernelapi/KernelError.h"
#include <QString>
#include <memory>

class AudioFile;
class AudioFileInfo;
class Database;

// Brings one audio file after another (WAV, AIFF, FLAC, OGG, MP2, MP3 and whatever else
// libsndfile reads) into the catalogue as sound carts of one family. Each file is decoded in
// full, copied into the sound folder under its cart's ID, and gets its energy file and a Cart
// and a Sound row whose lengths are the decoded length in ms. The title is "Artist - Title"
// from the file's tags, the title alone, or else the file's name without its extension. IDs
// take the first free numbers of the family from 0000. Used by the kernel's Import (on a
// worker thread, with a connection of its own) and by korvane-station import.
class SoundImport
{
public:
    // The file itself cannot come in (not audio, damaged, empty); trying again changes nothing.
    class Refusal : public KernelError
    {
    public:
        using KernelError::KernelError;
    };

    // Throws KernelError when the family ID is not three letters.
    SoundImport(std::shared_ptr<Database> db, const QString& soundFolder, const QString& family);
    ~SoundImport();

    const QString& Family() const { return m_family; }

    // Creates the family, readable by everybody, when it does not exist; true when it made it.
    bool EnsureFamily();
    // Imports one file and gives the new cart's ID; a file that cannot be imported leaves
    // nothing behind. Throws Refusal for a fault of the file, KernelError for any other
    // failure (the sound folder, the catalogue).
    QString ImportFile(const QString& path);

private:
    AudioFileInfo Check(const QString& path, QString& title) const;
    QString FreeID() const;
    QString TargetFor(const QString& id, const QString& source) const;
    void WriteRows(const QString& id, const QString& title, const QString& target, const AudioFileInfo& info);

    QString m_family;
    std::shared_ptr<Database> m_db;
    QString m_soundFolder;
};
