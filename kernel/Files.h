#pragma once
#include "kernelapi/iFiles.h"

// File services: tests, lengths and energy of sound files, read with libsndfile. Energy is on
// the scale of the energy files, so that a wave drawn from either looks the same.
class Files : public iFiles
{
    Q_OBJECT
public:
    using iFiles::iFiles;

    bool FileExists(const QString& path) const override;
    // The length the file's header gives.
    qint32 FileLengthMs(const QString& soundFile) const override;
    // The length counted by decoding every frame: what a player plays, also where a
    // compressed file's header only estimates its length.
    qint32 FilePlayLengthMs(const QString& soundFile) const override;
    // The peak of each of the first two channels over the stretch; right is 0 for a
    // one-channel file, and a stretch past the end is silence. Throws KernelError for a
    // negative begin or length.
    Energy FileEnergy(const QString& soundFile, qint32 beginMs, qint32 lengthMs) const override;
};
