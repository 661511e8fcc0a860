#include "kernel/StationFolder.h"
#include <QDir>
#include <QFileInfo>

namespace {
QString WithSeparator(const QString& path)
{
    return path.endsWith(QLatin1Char('/')) ? path : path + QLatin1Char('/');
}

QString EnvironmentPath(const char* name)
{
    return QString::fromLocal8Bit(qgetenv(name)).trimmed();
}
}

StationFolder::StationFolder(const QString& root)
    : m_root(WithSeparator(QDir::cleanPath(QDir(root).absolutePath())))
{
}

StationFolder StationFolder::Default()
{
    const QString named = EnvironmentPath("KORVANE_STATION");
    if (!named.isEmpty())
        return StationFolder(named);
    QString dataHome = EnvironmentPath("XDG_DATA_HOME");
    if (dataHome.isEmpty())
        dataHome = QDir::homePath() + QStringLiteral("/.local/share");
    return StationFolder(dataHome + QStringLiteral("/korvane/station"));
}

QString StationFolder::StationIni() const { return m_root + QStringLiteral("station.ini"); }
QString StationFolder::KernelIni() const { return m_root + QStringLiteral("kernel.ini"); }
QString StationFolder::DataDir() const { return m_root + QStringLiteral("data/"); }
QString StationFolder::SoundDir() const { return m_root + QStringLiteral("sound/"); }
QString StationFolder::LogDir() const { return m_root + QStringLiteral("log/"); }

bool StationFolder::IsStation() const { return QFileInfo(StationIni()).isFile(); }
