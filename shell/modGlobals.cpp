#include "shell/modGlobals.h"
#include "foundation/Globals.h"
#include "foundation/Ini.h"
#include "foundation/db/Database.h"
#include "foundation/db/Recordset.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/iStation.h"
#include "shell/BackGround.h"
#include <QGuiApplication>
#include <QScreen>

namespace modGlobals {
namespace {
std::unique_ptr<Recordset> Open(Database& db, const char* table)
{
    return std::make_unique<Recordset>(db, QString::fromLatin1(table));
}
}

void InitGlobals()
{
    auto& station = Globals::TheStation();
    const QString file = Globals::Kernel()->Station()->IniFile();
    station.StationID = ReadIni(QStringLiteral("Station"), QStringLiteral("ID"), QString(), file);
    const QSize screen = QGuiApplication::primaryScreen() ? QGuiApplication::primaryScreen()->size() : QSize(1280, 800);
    station.ResolutionX = ReadIni(QStringLiteral("Resolution"), QStringLiteral("X"), QString::number(screen.width()), file).toFloat();
    station.ResolutionY = ReadIni(QStringLiteral("Resolution"), QStringLiteral("Y"), QString::number(screen.height()), file).toFloat();
    BackGround::Instance()->ResetResolution();
}

void SetRecordsets()
{
    auto& data = Globals::Data();
    auto& station = Globals::TheStation();
    station.DatabasePath = Globals::Kernel()->Station()->DatabasePath();
    data.Close();
    data.SoundDB = Database::Open(station.DatabasePath + QStringLiteral("Sound.MDB"));
    data.UserDB = Database::Open(station.DatabasePath + QStringLiteral("User.MDB"));
    data.RsCart = Open(*data.SoundDB, "Cart");
    data.RsRMacro = Open(*data.SoundDB, "RMacro");
    data.RsSound = Open(*data.SoundDB, "Sound");
    data.RsClient = Open(*data.UserDB, "Client");
    data.RsFamilia = Open(*data.UserDB, "Familia");
    data.RsGrup = Open(*data.UserDB, "Grup");
    data.RsRFamilia = Open(*data.UserDB, "RFamilia");
    data.RsRGrup = Open(*data.UserDB, "RGrup");
    data.RsUsuari = Open(*data.UserDB, "Usuari");
}

void FinishApp()
{
}
}
