#pragma once
#include <QStringList>
#include <memory>

class AudioFileInfo;
class Database;

// Brings audio files (WAV, AIFF, FLAC, OGG, MP2, MP3 and whatever else libsndfile reads) into
// a station as sound carts of one family. Each file is copied into the sound folder under its
// cart's ID, gets its energy file, and a Cart and a Sound row whose lengths are the decoded
// length in ms; the title is the file's name without its extension. IDs take the first free
// numbers of the family from 0000. A family that does not exist is created, readable by all.
class StationImport
{
public:
    static const QString DefaultFamily;

    struct Outcome
    {
        QStringList ids;      // the carts made, in the order of the files
        QStringList failures; // one readable line per file that was skipped
    };

    // Throws KernelError when the folder is not a station, its databases cannot be used or
    // the family ID is not three letters.
    StationImport(const QString& stationDir, const QString& family = DefaultFamily);
    ~StationImport();

    // Imports the files one by one; a file that cannot be imported leaves nothing behind and
    // the next is taken.
    Outcome Import(const QStringList& files);

    const QString& Family() const { return m_family; }

private:
    QString ImportFile(const QString& path);
    void EnsureFamily();
    QString FreeID() const;
    QString TargetFor(const QString& id, const QString& source) const;
    void WriteRows(const QString& id, const QString& source, const QString& target, const AudioFileInfo& info);

    QString m_family;
    std::shared_ptr<Database> m_db;
    QString m_soundFolder;
};
