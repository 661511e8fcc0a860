#include "tools/KernelCatalogue.h"
#include "foundation/db/Database.h"
#include "kernel/StationFolder.h"
#include "tools/StationBuilder.h"
#include "tools/StationFiles.h"
#include "tools/StationReport.h"
#include "tools/TableWriter.h"
#include "tools/Translations.h"

namespace {
struct Rgb
{
    int red, green, blue;
};

// Default pad colours, in the order background, description, comment, shortcut, time.
const Rgb PadColors[] = {{40, 44, 52}, {255, 255, 255}, {176, 184, 196}, {255, 200, 0}, {0, 220, 120}};

QString Version()
{
    return QStringLiteral("%1.%2.%3").arg(KORVANE_VERSION_MAJOR).arg(KORVANE_VERSION_MINOR).arg(KORVANE_VERSION_PATCH);
}
}

QVector<KernelCatalogue::Setting> KernelCatalogue::SharedSettings(const StationFolder& folder)
{
    const QString export1 = StationBuilder::ExportDir(folder);
    QVector<Setting> settings = {
        {QStringLiteral("T_StationID"), QStringLiteral("yes")},
        {QStringLiteral("T_AutoLogin"), QStringLiteral("no")},
        {QStringLiteral("T_Application"), QStringLiteral("yes")},
        {QStringLiteral("T_Refresh"), QStringLiteral("yes")},
        {QStringLiteral("ShowBackground"), QStringLiteral("no")},
        {QStringLiteral("RelaxedSearch"), QStringLiteral("yes")},
        {QStringLiteral("DirAccessID"), QStringLiteral("MES0000")},
        {QStringLiteral("FamEspCon"), QStringLiteral("CON")},
        {QStringLiteral("FamEspPau"), QStringLiteral("PAU")},
        {QStringLiteral("FamEspEsp"), QStringLiteral("ESP")},
        {QStringLiteral("FamEspTmp"), QStringLiteral("TMP")},
        {QStringLiteral("FamEspMes"), QStringLiteral("MES")},
        {QStringLiteral("ExportDir(1)"), export1},
        {QStringLiteral("ExportDir(2)"), export1},
        {QStringLiteral("SoundPath(1)"), folder.SoundDir()},
        {QStringLiteral("CCartPlayerDark"), ColorValue(64, 64, 64)},
        {QStringLiteral("CCartPlayerLight"), ColorValue(192, 192, 192)},
        {QStringLiteral("LevelZeroPercent"), QStringLiteral("80")},
        {QStringLiteral("LevelTenPercent"), QStringLiteral("60")},
        {QStringLiteral("WorkLevel"), QStringLiteral("-12")},
        {QStringLiteral("NoiseLevel"), QStringLiteral("-60")},
        {QStringLiteral("StartAuxMarkTest"), QStringLiteral("JIN0002")},
        {QStringLiteral("StopAuxMarkTest"), QStringLiteral("JIN0003")},
        {QStringLiteral("TimeSync"), QStringLiteral("No")},
        {QStringLiteral("TimeSyncServer"), QStringLiteral("pool.ntp.org")},
        {QStringLiteral("Translator.Language"), QStringLiteral("English")},
    };
    for (int i = 0; i < int(std::size(PadColors)); ++i) {
        settings.append({QStringLiteral("DefaultR%1").arg(i), QString::number(PadColors[i].red)});
        settings.append({QStringLiteral("DefaultG%1").arg(i), QString::number(PadColors[i].green)});
        settings.append({QStringLiteral("DefaultB%1").arg(i), QString::number(PadColors[i].blue)});
    }
    return settings;
}

QVector<KernelCatalogue::Setting> KernelCatalogue::StationSettings(const StationFolder& folder)
{
    return {
        {QStringLiteral("AbsDummyFile"), folder.SoundDir() + QStringLiteral("RECORD.DUM")},
        {QStringLiteral("GGainA"), QStringLiteral("0")},
        {QStringLiteral("GGainB"), QStringLiteral("0")},
        {QStringLiteral("GGainRec"), QStringLiteral("0")},
        {QStringLiteral("NoiseA"), QStringLiteral("-60")},
        {QStringLiteral("NoiseB"), QStringLiteral("-60")},
        {QStringLiteral("NoiseRec"), QStringLiteral("-60")},
        {QStringLiteral("ScopeNPoints"), QStringLiteral("100")},
        {QStringLiteral("MasterDir"), folder.SoundDir()},
        {QStringLiteral("RipDir"), folder.SoundDir()},
        {QStringLiteral("PrintingMenus"), QStringLiteral("On")},
        {QStringLiteral("RefreshForcesMenu"), QStringLiteral("no")},
    };
}

void KernelCatalogue::Write(Database& kernelDb, const StationFolder& folder, StationReport& report)
{
    kernelDb.Transaction([&] {
        WriteSettings(kernelDb, folder);
        WriteApplication(kernelDb);
        WritePlayLists(kernelDb);
    });
    report.translations += Translations::Load(kernelDb);
}

void KernelCatalogue::WriteSettings(Database& kernelDb, const StationFolder& folder)
{
    TableWriter shared(kernelDb, QStringLiteral("Config"), {QStringLiteral("ID"), QStringLiteral("Value")});
    for (const Setting& setting : SharedSettings(folder))
        shared.Add({setting.first, setting.second});
    TableWriter station(kernelDb, QStringLiteral("StationConfig"),
                        {QStringLiteral("Station"), QStringLiteral("ID"), QStringLiteral("Value")});
    for (const Setting& setting : StationSettings(folder))
        station.Add({StationFiles::StationID, setting.first, setting.second});
}

void KernelCatalogue::WriteApplication(Database& kernelDb)
{
    TableWriter application(kernelDb, QStringLiteral("Application"),
                            {QStringLiteral("Name"), QStringLiteral("Version"), QStringLiteral("OpenText"),
                             QStringLiteral("ClosedText")});
    application.Add({QStringLiteral("Korvane"), Version(), QStringLiteral("07:00"), QStringLiteral("01:00")});
}

void KernelCatalogue::WritePlayLists(Database& kernelDb)
{
    TableWriter lists(kernelDb, QStringLiteral("PlayList"),
                      {QStringLiteral("ID"), QStringLiteral("Name"), QStringLiteral("Description"), QStringLiteral("MacroID"),
                       QStringLiteral("Chained"), QStringLiteral("AutoClose"), QStringLiteral("Modified"),
                       QStringLiteral("NextIndex")});
    lists.Add({QStringLiteral("PL0001"), QStringLiteral("Top of the hour"), QStringLiteral("Top of the hour"),
               QStringLiteral("MES0001"), true, true, false, 1});
    lists.Add({QStringLiteral("PL0002"), QStringLiteral("Morning pads"), QString(), QString(), false, false, false, 1});
    TableWriter rows(kernelDb, QStringLiteral("PlayListItem"),
                     {QStringLiteral("PlayListID"), QStringLiteral("Index"), QStringLiteral("CartID")});
    const QStringList topOfTheHour{QStringLiteral("CON0003"), QStringLiteral("JIN0001"), QStringLiteral("MUS0001")};
    const QStringList pads{QStringLiteral("JIN0001"), QStringLiteral("JIN0002"), QStringLiteral("ESP0001"),
                           QStringLiteral("ESP0002"), QString(), QStringLiteral("NEW0002")};
    for (int i = 0; i < topOfTheHour.size(); ++i)
        rows.Add({QStringLiteral("PL0001"), i + 1, topOfTheHour[i]});
    for (int i = 0; i < pads.size(); ++i)
        rows.Add({QStringLiteral("PL0002"), i + 1, pads[i]});
}

QString KernelCatalogue::ColorValue(int red, int green, int blue)
{
    return QString::number(red + green * 256 + blue * 65536);
}
