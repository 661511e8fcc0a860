#include "kernel/Files.h"
#include "kernelapi/KernelError.h"
#include <QFileInfo>

bool Files::FileExists(const QString& path) const
{
    return !path.isEmpty() && QFileInfo(path).isFile();
}

qint32 Files::FileLengthMs(const QString&) const
{
    throw NotAvailable("iFiles.FileLengthMs");
}

qint32 Files::FilePlayLengthMs(const QString&) const
{
    throw NotAvailable("iFiles.FilePlayLengthMs");
}

iFiles::Energy Files::FileEnergy(const QString&, qint32, qint32) const
{
    throw NotAvailable("iFiles.FileEnergy");
}
