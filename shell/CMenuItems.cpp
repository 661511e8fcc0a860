#include "shell/CMenuItems.h"
#include "foundation/Globals.h"
#include "foundation/Ini.h"
#include "foundation/ui/Dialogs.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/iFiles.h"
#include "kernelapi/iStation.h"
#include <QFileInfo>

namespace {
// More buttons than this cannot be shown on any screen.
constexpr int MaxEntries = 200;

// A menu file named relative to the station file lies beside it.
QString BesideStationFile(const QString& name, const QString& stationFile)
{
    if (name.isEmpty() || QFileInfo(name).isAbsolute())
        return name;
    return QFileInfo(stationFile).absolutePath() + QLatin1Char('/') + name;
}
}

CMenuItems::CMenuItems()
{
    LoadMenuItems();
}

void CMenuItems::LoadMenuItems()
{
    auto kernel = Globals::Kernel();
    const QString stationFile = kernel->Station()->IniFile();
    FileName = BesideStationFile(ReadIni(QStringLiteral("Menu"), QStringLiteral("File"), QString(), stationFile), stationFile);
    const QString file = FileName.isEmpty() ? stationFile : FileName;

    if (!kernel->Files()->FileExists(file)) {
        Dialogs::MessageBox(QStringLiteral("Korvane_Interface.CMenuItems.LoadMenuItems()\r\n Filename '") + file
                            + QStringLiteral("' does not exist"));
        Ready = false;
        return;
    }

    const IniFile ini = IniFile::Load(file);
    Rows = static_cast<qint16>(ReadIni(ini, QStringLiteral("Menu"), QStringLiteral("Rows"), QStringLiteral("1")).toInt());
    Columns = static_cast<qint16>(ReadIni(ini, QStringLiteral("Menu"), QStringLiteral("Columns"), QStringLiteral("1")).toInt());
    if (Rows < 0 || Columns < 0 || Rows * Columns > MaxEntries)
        throw KernelError(QStringLiteral("The menu of %1 rows and %2 columns in '%3' is not usable").arg(Rows).arg(Columns).arg(file));
    m_items.clear();
    for (int n = 1; n <= Rows * Columns; ++n) {
        CMenuItem item;
        item.FileName = file;
        item.Load(ini, static_cast<qint16>(n));
        m_items.append(item);
    }
    Ready = true;
}
