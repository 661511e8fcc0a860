#include "foundation/Launch.h"
#include "foundation/Globals.h"
#include "foundation/Log.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/iStation.h"
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTextStream>

namespace Launcher {
namespace {
QString StationFolder()
{
    std::shared_ptr<CKernel> kernel = Globals::Kernel();
    if (!kernel)
        return {};
    try {
        return QFileInfo(kernel->Station()->IniFile()).absolutePath();
    } catch (...) {
        return {};
    }
}

// The Exec value of the [Desktop Entry] group, or empty.
QString ExecLine(QFile& file)
{
    QTextStream in(&file);
    bool inEntry = false;
    while (!in.atEnd()) {
        const QString line = in.readLine().trimmed();
        if (line.startsWith(QLatin1Char('[')))
            inEntry = line == QLatin1String("[Desktop Entry]");
        else if (inEntry && line.startsWith(QLatin1String("Exec=")))
            return line.mid(5).trimmed();
    }
    return {};
}
}

QStringList Folders()
{
    QStringList folders;
    const QString station = StationFolder();
    if (!station.isEmpty())
        folders << station + QStringLiteral("/launchers");
    folders << QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation);
    return folders;
}

QStringList Command(const QString& desktopFile)
{
    QFile file(desktopFile);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    QString exec = ExecLine(file);
    // Field codes stand for files and URLs given at launch; none are given here.
    static const QRegularExpression fieldCode(QStringLiteral("%[fFuUdDnNickvm]"));
    exec.replace(fieldCode, QString()).replace(QStringLiteral("%%"), QStringLiteral("%"));
    return QProcess::splitCommand(exec);
}

QString FileOf(const QString& name, const QStringList& folders)
{
    if (name.trimmed().isEmpty() || name.contains(QLatin1Char('/')))
        return {};
    for (const QString& folder : folders) {
        const QString path = folder + QLatin1Char('/') + name + QStringLiteral(".desktop");
        if (QFileInfo::exists(path))
            return path;
    }
    return {};
}
}

void Launch(const QString& name)
{
    const QStringList command = Launcher::Command(Launcher::FileOf(name, Launcher::Folders()));
    if (command.isEmpty() || !QProcess::startDetached(command.first(), command.mid(1)))
        LogError(QStringLiteral("Globals"), QStringLiteral("Launch"), QStringLiteral("Could not launch '") + name + QLatin1Char('\''));
}
