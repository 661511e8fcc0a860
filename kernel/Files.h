#pragma once
#include "kernelapi/iFiles.h"

// File services. Lengths and energy of sound files need the audio engine and are not
// available yet: they throw KernelError.
class Files : public iFiles
{
    Q_OBJECT
public:
    using iFiles::iFiles;

    bool FileExists(const QString& path) const override;
    qint32 FileLengthMs(const QString& soundFile) const override;
    qint32 FilePlayLengthMs(const QString& soundFile) const override;
    Energy FileEnergy(const QString& soundFile, qint32 beginMs, qint32 lengthMs) const override;
};
