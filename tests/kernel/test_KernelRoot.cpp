#include "KernelTest.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/KernelServer.h"
#include "kernelapi/iApplication.h"
#include "kernelapi/iFiles.h"
#include "kernelapi/iRecordset.h"
#include "kernelapi/iStation.h"
#include <QTemporaryDir>
#include "KernelChecks.h"

using KernelChecks::Failure;

namespace {
// The description of the KernelError that opening the folder throws; empty when it opens.
QString OpenFailure(const StationFolder& folder)
{
    try {
        EmbeddedKernel::Open(folder, nullptr);
        return {};
    } catch (const KernelError& e) {
        return e.Description();
    }
}

void WriteFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(content);
}

// The description of the KernelError a kernel call throws; empty when it does not throw.
}

TEST(KernelOpen, AFolderWithoutStationIniIsNotAStation)
{
    QTemporaryDir dir;
    const StationFolder folder(dir.path());
    EXPECT_EQ(OpenFailure(folder), QStringLiteral("'%1' is not a station: station.ini is missing").arg(folder.Root()));
}

TEST(KernelOpen, MissingOrDamagedDatabasesAreNamed)
{
    TempStation station;
    const QString data = station.DataDir();
    ASSERT_TRUE(QFile::rename(data + "Sound.MDB", data + "Sound.bak"));
    EXPECT_EQ(OpenFailure(station.Folder()), QStringLiteral("'%1Sound.MDB' is missing").arg(data));
    ASSERT_TRUE(QFile::rename(data + "Sound.bak", data + "Sound.MDB"));

    WriteFile(data + "Kernel.MDB", QByteArray("this is no database, just text that goes on long enough").repeated(40));
    EXPECT_TRUE(OpenFailure(station.Folder()).startsWith(QStringLiteral("'%1Kernel.MDB' is not a database").arg(data)))
        << OpenFailure(station.Folder()).toStdString();

    QFile::remove(data + "User.MDB");
    Database::Open(data + "User.MDB", Database::OpenMode::Create);
    QFile::remove(data + "Kernel.MDB");
    CatalogueSchema::CreateKernelSchema(*Database::Open(data + "Kernel.MDB", Database::OpenMode::Create));
    EXPECT_EQ(OpenFailure(station.Folder()), QStringLiteral("'%1User.MDB' has no table Usuari").arg(data));
}

TEST_F(KernelTest, RootHandsOutTheStationsServicesAndAlwaysTheSameObjects)
{
    EXPECT_EQ(kernel->StationID(), "KORVANE-DEMO");
    EXPECT_TRUE(kernel->Version().startsWith("Korvane kernel "));
    EXPECT_EQ(kernel->Station(), kernel->Station());
    EXPECT_EQ(kernel->Users(), kernel->Users());
    EXPECT_EQ(kernel->Translator(), kernel->Translator());
    EXPECT_EQ(kernel->Application(), kernel->Application());
    EXPECT_EQ(kernel->Files(), kernel->Files());

    const auto stationData = kernel->Station();
    EXPECT_EQ(stationData->DatabasePath(), station.DataDir());
    EXPECT_TRUE(stationData->DatabasePath().endsWith('/'));
    EXPECT_EQ(stationData->IniFile(), station.IniFile());
    EXPECT_GT(stationData->ResolutionX(), 0);

    EXPECT_EQ(kernel->Application()->Name(), "Korvane");
    EXPECT_FALSE(kernel->Application()->Version().isEmpty());

    const auto files = kernel->Files();
    EXPECT_TRUE(files->FileExists(station.IniFile()));
    EXPECT_FALSE(files->FileExists(station.Dir() + "nothing.wav"));
    EXPECT_FALSE(files->FileExists(station.DataDir()));
    EXPECT_FALSE(files->FileExists(QString()));
    EXPECT_TRUE(Failure([&] { files->FileLengthMs(station.IniFile()); }).startsWith("Cannot read the sound file"));
}

TEST_F(KernelTest, StationDataComesFromItsIniFilesWithDefaults)
{
    WriteIni("Resolution", "X", "1920", station.IniFile());
    WriteIni("Resolution", "Y", "1080", station.IniFile());
    WriteIni("Data", "Path", "./data", station.KernelIniFile());
    const auto wide = Reopen()->Station();
    EXPECT_EQ(wide->ResolutionX(), 1920.0f);
    EXPECT_EQ(wide->ResolutionY(), 1080.0f);
    EXPECT_EQ(wide->DatabasePath(), station.DataDir()) << "a relative folder is the station's, ended by '/'";

    WriteIni("Resolution", "X", "", station.IniFile());
    WriteIni("Resolution", "Y", "wide", station.IniFile());
    const auto plain = Reopen()->Station();
    EXPECT_EQ(plain->ResolutionX(), 1280.0f);
    EXPECT_EQ(plain->ResolutionY(), 800.0f);
}

TEST_F(KernelTest, ExecuteRunsKernelSqlOnTheWholeCatalogue)
{
    const QString search = QStringLiteral(
        "SELECT * FROM cart WHERE ID like '%JIN%'  OR Descripcio like '%JIN%' OR Comentari like '%JIN%'");
    auto found = kernel->Execute(search);
    ASSERT_NE(found, nullptr);
    found->MoveLast();
    EXPECT_GT(found->RecordCount(), 0);

    auto users = kernel->Execute(QStringLiteral("SELECT * FROM Usuari WHERE ID = 'ADMIN'"));
    ASSERT_NE(users, nullptr);
    EXPECT_EQ(users->Text("ID"), "ADMIN");

    auto macros = kernel->Execute(QStringLiteral("SELECT DISTINCT MacroID FROM RMacro"));
    ASSERT_NE(macros, nullptr);
    ASSERT_FALSE(macros->IsEOF());
    const QString macro = macros->Text("MacroID");
    EXPECT_EQ(kernel->Execute(QStringLiteral("DELETE FROM RMacro WHERE MacroID = '%1'").arg(macro)), nullptr);
    EXPECT_EQ(Read("Sound.MDB", QStringLiteral("SELECT COUNT(*) FROM RMacro WHERE MacroID = ?"), {macro}).toInt(), 0);
}

TEST_F(KernelTest, AFailingStatementThrowsWithTheDriverTextAndTheSql)
{
    const QString bad = QStringLiteral("SELECT * FROM NoSuchTable WHERE ID = 'x'");
    const QString failure = Failure([&] { kernel->Execute(bad); });
    EXPECT_TRUE(failure.contains("NoSuchTable")) << failure.toStdString();
    EXPECT_TRUE(failure.contains(bad)) << failure.toStdString();
    EXPECT_TRUE(failure.contains("no such table")) << failure.toStdString();

    EXPECT_FALSE(Failure([&] { kernel->Execute(QStringLiteral("DELETE FROM Nowhere")); }).isEmpty());
    EXPECT_FALSE(Failure([&] { kernel->Execute(QStringLiteral("SELECT * FROM cart WHERE ID = 'O'Brien'")); }).isEmpty());
    EXPECT_FALSE(Failure([&] { kernel->OpenConfigTable(QStringLiteral("Config"), QStringLiteral("NoField")); }).isEmpty());
    EXPECT_EQ(LogLinesWith(QStringLiteral("ERROR: Korvane_Kernel.CKernel.Execute: ")).size(), 3);
    EXPECT_EQ(LogLinesWith(QStringLiteral("ERROR: Korvane_Kernel.CKernel.OpenConfigTable: ")).size(), 1);
}

TEST_F(KernelTest, OperationsOfLaterWorkSayTheyAreNotAvailable)
{
    EXPECT_EQ(Failure([&] { kernel->CdRoms(); }), "CKernel.CdRoms: not available");
}

TEST(KernelServer, GivesOneLoggerAndOneRootWhileHeldAndOpensTheStationOfTheEnvironmentAnewAfterwards)
{
    QString firstIni;
    {
        TempStation station; // names itself in KORVANE_STATION
        const auto logger = KernelServer::ObtainLogger();
        EXPECT_EQ(logger, KernelServer::ObtainLogger());
        const auto kernel = KernelServer::ObtainKernel();
        EXPECT_EQ(kernel, KernelServer::ObtainKernel());
        EXPECT_EQ(kernel->Station()->IniFile(), station.IniFile());
        firstIni = station.IniFile();
    }
    TempStation second;
    const auto kernel = KernelServer::ObtainKernel();
    EXPECT_EQ(kernel->Station()->IniFile(), second.IniFile());
    EXPECT_NE(second.IniFile(), firstIni);
}
