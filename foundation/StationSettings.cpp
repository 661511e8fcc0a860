#include "foundation/StationSettings.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/Ini.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/iStation.h"
#include <QFileInfo>

namespace StationSettings {
namespace {
const QString True = QStringLiteral("True");
const QString False = QStringLiteral("False");
}

QString File()
{
    QString file;
    Guarded(QStringLiteral("StationSettings"), QStringLiteral("File"), [&] {
        const auto kernel = Globals::Kernel();
        const auto station = kernel ? kernel->Station() : nullptr;
        if (station)
            file = QFileInfo(station->IniFile()).absolutePath() + QLatin1Char('/') + QLatin1String(FileName);
    });
    return file;
}

QString Read(const QString& control, const QString& property, const QString& defaultValue)
{
    const QString file = File();
    if (file.isEmpty())
        return defaultValue;
    const QString value = IniFile::Load(file).Value(control, property);
    return value.isNull() ? defaultValue : value;
}

bool Write(const QString& control, const QString& property, const QString& value)
{
    const QString file = File();
    return !file.isEmpty() && WriteIni(control, property, value, file);
}

bool ReadFlag(const QString& control, const QString& property, bool defaultValue)
{
    const QString value = Read(control, property, {});
    if (value.compare(True, Qt::CaseInsensitive) == 0)
        return true;
    if (value.compare(False, Qt::CaseInsensitive) == 0)
        return false;
    return defaultValue;
}

bool WriteFlag(const QString& control, const QString& property, bool value)
{
    return Write(control, property, value ? True : False);
}
}
