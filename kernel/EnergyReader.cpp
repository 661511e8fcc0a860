#include "kernel/EnergyReader.h"
#include "kernelapi/KernelError.h"
#include <QFile>

void EnergyReader::SetFileName(const QString& fileName)
{
    m_fileName.clear();
    m_data = EnergyData();
    if (fileName.isEmpty())
        return;
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        throw KernelError(QStringLiteral("Cannot open the energy file '%1': %2").arg(fileName, file.errorString()));
    m_data = EnergyData::Parse(file.readAll(), fileName);
    m_fileName = fileName;
}
