#pragma once
#include <QStringList>
#include <memory>

class SoundImport;

// Brings audio files into a station from the command line as sound carts of one family, as the
// kernel's SoundImport does (which see). A family that does not exist is created, readable by
// all.
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

    const QString& Family() const;

private:
    std::unique_ptr<SoundImport> m_import;
};
