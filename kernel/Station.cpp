#include "kernel/Station.h"
#include "foundation/Ini.h"
#include <QDir>

namespace {
const QString ServerScheme = QStringLiteral("postgresql://");

// A positive size from the station file, else the default.
float Dimension(const IniFile& ini, const QString& key, float defaultValue)
{
    bool ok = false;
    const float value = ReadIni(ini, QStringLiteral("Resolution"), key, QString()).toFloat(&ok);
    return ok && value > 0 ? value : defaultValue;
}

// kernel.ini [Data] Path: a server URI as it stands, a folder resolved against the station
// and ended by the separator; the station's data/ when unset.
QString DataLocation(const StationFolder& folder)
{
    const IniFile ini = IniFile::Load(folder.KernelIni());
    const QString path = ReadIni(ini, QStringLiteral("Data"), QStringLiteral("Path"), QString());
    if (path.isEmpty())
        return folder.DataDir();
    if (path.startsWith(ServerScheme, Qt::CaseInsensitive))
        return path;
    const QString absolute = QDir::cleanPath(QDir(folder.Root()).absoluteFilePath(path));
    return absolute.endsWith(QLatin1Char('/')) ? absolute : absolute + QLatin1Char('/');
}
}

Station::Station(const StationFolder& folder, QObject* parent)
    : iStation(parent), m_folder(folder), m_databasePath(DataLocation(folder))
{
    const ::IniFile ini = ::IniFile::Load(folder.StationIni());
    m_id = ReadIni(ini, QStringLiteral("Station"), QStringLiteral("ID"), QString());
    m_resolutionX = Dimension(ini, QStringLiteral("X"), DefaultResolutionX);
    m_resolutionY = Dimension(ini, QStringLiteral("Y"), DefaultResolutionY);
}

bool Station::OnServer() const
{
    return m_databasePath.startsWith(ServerScheme, Qt::CaseInsensitive);
}
