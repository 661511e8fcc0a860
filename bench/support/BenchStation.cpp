#include "support/BenchStation.h"
#include "foundation/Ini.h"
#include "tools/StationBuilder.h"
#include "tools/StationOptions.h"
#include <QDir>
#include <QFileInfo>

namespace BenchStation {
namespace {
QString Make(const QString& name, int carts)
{
    const QString dir = QStringLiteral(KORVANE_BIN_DIR "/../bench-stations/") + name;
    if (QFileInfo::exists(dir + QStringLiteral("/station.ini")))
        return QDir(dir).absolutePath();
    QDir().mkpath(QFileInfo(dir).absolutePath());
    StationOptions options;
    options.dir = dir;
    options.carts = carts;
    StationBuilder(options).Create();
    return QDir(dir).absolutePath();
}
}

QString Demo()
{
    return Make(QStringLiteral("demo"), 0);
}

QString Catalogue100k()
{
    return Make(QStringLiteral("catalogue-100k"), 100000);
}

QString OwnDemo(const QString& name)
{
    return Make(name, 0);
}

QString VirtualClock()
{
    const bool made = QFileInfo::exists(QStringLiteral(KORVANE_BIN_DIR "/../bench-stations/onair-virtual/station.ini"));
    const QString dir = Make(QStringLiteral("onair-virtual"), 0);
    if (!made) {
        const QString kernelIni = dir + QStringLiteral("/kernel.ini");
        WriteIni(QStringLiteral("Audio"), QStringLiteral("Clock"), QStringLiteral("virtual"), kernelIni);
        WriteIni(QStringLiteral("Audio"), QStringLiteral("ExpiringSeconds"), QStringLiteral("0"), kernelIni);
    }
    return dir;
}
}
