#include "foundation/Ini.h"
#include "foundation/Strings.h"
#include "foundation/db/Database.h"
#include "kernel/EmbeddedKernel.h"
#include "kernel/FileLogger.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/iApplication.h"
#include "kernelapi/iStation.h"
#include "kernelapi/iTranslator.h"
#include "kernelapi/iUser.h"
#include "kernelapi/iUsers.h"
#include "shell/Registry.h"
#include "support/TempStation.h"
#include "tools/BulkCatalogue.h"
#include "tools/StationBuilder.h"
#include "tools/StationCommand.h"
#include "tools/Translations.h"
#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QSet>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTextStream>
#include <gtest/gtest.h>
#include <sndfile.h>
#include <vector>

namespace {
int Count(Database& db, const QString& sql, const QVariantList& binds = {})
{
    QSqlQuery query = db.Query(sql, binds);
    return query.next() ? query.value(0).toInt() : -1;
}

QString Text(Database& db, const QString& sql, const QVariantList& binds = {})
{
    QSqlQuery query = db.Query(sql, binds);
    return query.next() ? query.value(0).toString() : QStringLiteral("<no row>");
}

std::unique_ptr<Database> OpenData(const TempStation& station, const char* file)
{
    return Database::Open(station.DataDir() + QLatin1String(file));
}

// Size and modification time of every file under a folder, by relative path.
QMap<QString, QPair<qint64, QDateTime>> Snapshot(const QString& dir)
{
    QMap<QString, QPair<qint64, QDateTime>> files;
    QDirIterator it(dir, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QFileInfo info(it.next());
        files.insert(info.filePath().mid(dir.size()), {info.size(), info.lastModified()});
    }
    return files;
}

struct AudioFile
{
    SF_INFO info{};
    std::vector<float> samples;
};

// Reads a whole sound file; info.frames is 0 when libsndfile cannot read it.
AudioFile ReadAudio(const QString& path)
{
    AudioFile audio;
    SNDFILE* file = sf_open(QFile::encodeName(path).constData(), SFM_READ, &audio.info);
    if (!file)
        return {};
    audio.samples.resize(std::size_t(audio.info.frames * audio.info.channels));
    audio.info.frames = sf_readf_float(file, audio.samples.data(), audio.info.frames);
    sf_close(file);
    return audio;
}

int RunCommand(const QStringList& arguments, QString* errors = nullptr)
{
    QString out, err;
    QTextStream outStream(&out), errStream(&err);
    const int code = StationCommand(outStream, errStream).Run(arguments);
    if (errors)
        *errors = err;
    return code;
}
}

TEST(StationTool, CreateMakesTheFilesFoldersAndDemoRows)
{
    TempStation station;
    for (const QString& dir : {station.DataDir(), station.SoundDir(), station.Dir() + "log/"})
        EXPECT_TRUE(QFileInfo(dir).isDir()) << dir.toStdString();

    const IniFile ini = IniFile::Load(station.IniFile());
    EXPECT_EQ(ini.Value("Station", "ID"), "KORVANE-DEMO");
    EXPECT_EQ(ini.Value("Resolution", "X"), "1280");
    EXPECT_EQ(ini.Value("Resolution", "Y"), "800");
    // Every entry of the demo menu acts, and every screen it opens exists.
    const int places = ini.Value("Menu", "Rows").toInt() * ini.Value("Menu", "Columns").toInt();
    EXPECT_EQ(places, 10);
    QStringList actions;
    for (int n = 1; n <= places && ini.HasSection(QStringLiteral("Menu_%1").arg(n)); ++n) {
        const QString section = QStringLiteral("Menu_%1").arg(n);
        actions << ini.Value(section, "Action");
        // The browser screen's library is linked by the workstation and web_tests only; web_tests
        // checks that it registers the screen.
        if (actions.last() == QLatin1String("OpenForm") && ini.Value(section, "Form") != QLatin1String("FrmBrowser")) {
            EXPECT_TRUE(Registry::Has(ini.Value(section, "Form"))) << ini.Value(section, "Form").toStdString();
        }
    }
    EXPECT_EQ(actions.size(), 9);
    EXPECT_TRUE(actions.contains("Logout") && actions.contains("Exit"));
    const IniFile kernelIni = IniFile::Load(station.KernelIniFile());
    EXPECT_TRUE(kernelIni.HasSection("Audio"));
    EXPECT_TRUE(kernelIni.Value("Data", "Path").isEmpty());

    const auto sound = OpenData(station, "Sound.MDB");
    EXPECT_EQ(Count(*sound, "SELECT COUNT(*) FROM Cart"), 28);
    EXPECT_EQ(Count(*sound, "SELECT COUNT(*) FROM Cart WHERE Type = 'S'"), 19);
    EXPECT_EQ(Count(*sound, "SELECT COUNT(*) FROM Cart WHERE Type = 'C'"), 4);
    EXPECT_EQ(Count(*sound, "SELECT COUNT(*) FROM Cart WHERE Type = 'M'"), 5);
    EXPECT_EQ(Count(*sound, "SELECT COUNT(*) FROM Sound"), 19);
    EXPECT_EQ(Count(*sound, "SELECT COUNT(*) FROM Cart WHERE Type = 'S' AND ID NOT IN (SELECT ID FROM Sound)"), 0);
    EXPECT_EQ(Count(*sound, "SELECT COUNT(*) FROM RMacro WHERE SoundID NOT IN (SELECT ID FROM Cart)"), 0);
    EXPECT_EQ(Text(*sound, "SELECT SoundID FROM RMacro WHERE MacroID = 'MES0001' ORDER BY [Index]"), "CON0003");
    EXPECT_EQ(Count(*sound, "SELECT COUNT(*) FROM Cart WHERE Descripcio = ?", {"L'Hora del Jazz"}), 1);
    EXPECT_EQ(Text(*sound, "SELECT ClientID FROM Sound WHERE ID = 'PUB0001'"), "CLI001");
    for (QSqlQuery files = sound->Query("SELECT Filename FROM Sound"); files.next();)
        EXPECT_TRUE(QFileInfo(station.SoundDir() + files.value(0).toString()).isFile()) << files.value(0).toString().toStdString();

    const auto user = OpenData(station, "User.MDB");
    EXPECT_EQ(Count(*user, "SELECT COUNT(*) FROM Usuari"), 2);
    EXPECT_EQ(Count(*user, "SELECT COUNT(*) FROM Grup"), 5);
    EXPECT_EQ(Count(*user, "SELECT COUNT(*) FROM RGrup WHERE GrupID = UserID"), 2); // private groups
    EXPECT_EQ(Count(*user, "SELECT COUNT(*) FROM Familia"), 9);
    EXPECT_EQ(Count(*user, "SELECT COUNT(*) FROM RFamilia"), 20);
    EXPECT_EQ(Count(*user, "SELECT COUNT(*) FROM RFamilia WHERE [Write] = False"), 6);
    EXPECT_EQ(Count(*user, "SELECT COUNT(*) FROM Familia WHERE Tothom = True"), 4);
    EXPECT_EQ(Count(*user, "SELECT COUNT(*) FROM Client WHERE Web <> '' AND CP <> ''"), 3);

    const auto kernel = OpenData(station, "Kernel.MDB");
    EXPECT_EQ(Text(*kernel, "SELECT Value FROM Config WHERE ID = 'FamEspMes'"), "MES");
    EXPECT_EQ(Text(*kernel, "SELECT Value FROM Config WHERE ID = 'SoundPath(1)'"), station.SoundDir());
    EXPECT_EQ(Count(*kernel, "SELECT COUNT(*) FROM Application"), 1);
    EXPECT_EQ(Count(*kernel, "SELECT COUNT(*) FROM Contents"), station.Report().translations);
    EXPECT_EQ(Count(*kernel, "SELECT COUNT(*) FROM Contents WHERE Language = 'CAT'"), station.Report().translations / 2);
}

TEST(StationTool, TheKernelOpensTheStationAndAdmitsTheDemoUsers)
{
    TempStation station;
    const auto user = OpenData(station, "User.MDB");
    EXPECT_EQ(Text(*user, "SELECT Password FROM Usuari WHERE ID = 'ADMIN'"), ScramblePassword("korvane"));
    EXPECT_EQ(Count(*user, "SELECT Privilege FROM Usuari WHERE ID = 'ADMIN'"), 1);
    EXPECT_EQ(Count(*user, "SELECT Privilege FROM Usuari WHERE ID = 'PRESENTER'"), 0);
    EXPECT_EQ(Text(*user, "SELECT LastDate FROM Usuari WHERE ID = 'ADMIN'").size(), 10);

    const auto kernel = EmbeddedKernel::Open(station.Folder(), std::make_shared<FileLogger>(station.Dir() + "log/"));
    EXPECT_EQ(kernel->StationID(), "KORVANE-DEMO");
    EXPECT_EQ(kernel->Station()->ResolutionX(), 1280);
    EXPECT_EQ(kernel->Application()->Name(), "Korvane");
    EXPECT_FALSE(kernel->Users()->Login("ADMIN", "wrong"));
    ASSERT_TRUE(kernel->Users()->Login("ADMIN", "korvane"));
    EXPECT_EQ(kernel->Users()->CurrentUser()->Privilege(), 1);
    EXPECT_TRUE(kernel->Users()->Login("PRESENTER", "onair"));

    EXPECT_EQ(kernel->Translator()->Translate("Password"), "Password");
    kernel->SetConfig("Translator.Language", "CAT");
    EXPECT_EQ(kernel->Translator()->Translate("Password"), "Contrasenya");
    kernel->SetConfig("Translator.Language", "ESP");
    EXPECT_EQ(kernel->Translator()->Translate("Do you really want to exit?"), QString::fromUtf8("¿Seguro que desea salir?"));
}

TEST(StationTool, RefusesAFolderThatHoldsAStationAndTouchesNothing)
{
    TempStation station;
    const auto before = Snapshot(station.Dir());
    StationOptions again;
    again.dir = station.Dir();
    try {
        StationBuilder(again).Create();
        ADD_FAILURE() << "a second create was not refused";
    } catch (const KernelError& e) {
        EXPECT_TRUE(e.Description().contains("already holds a station")) << e.what();
    }
    QString errors;
    EXPECT_EQ(RunCommand({"create", station.Dir()}, &errors), 1);
    EXPECT_TRUE(errors.contains("already holds a station")) << errors.toStdString();
    EXPECT_EQ(Snapshot(station.Dir()), before);

    // data/ alone is enough to count as a station.
    QTemporaryDir other;
    QDir(other.path()).mkdir("data");
    EXPECT_EQ(RunCommand({"create", other.path()}), 1);
    EXPECT_FALSE(QFileInfo::exists(other.filePath("station.ini")));
}

TEST(StationTool, CommandLineRefusesBadArgumentsWithAReason)
{
    QTemporaryDir parent;
    const QString dir = parent.filePath("new");
    QString errors;
    // Nothing listens on port 1: a server that is down is named with the reason.
    EXPECT_EQ(RunCommand({"create", dir, "--database", "postgresql://radio@127.0.0.1:1/korvane"}, &errors), 1);
    EXPECT_TRUE(errors.contains("cannot be reached")) << errors.toStdString();
    EXPECT_EQ(RunCommand({"create", dir, "--database", "postgresql://radio@127.0.0.1:1"}, &errors), 1);
    EXPECT_TRUE(errors.contains("no database name")) << errors.toStdString();
    EXPECT_EQ(RunCommand({"create", dir, "--database", "mysql://radio@host/korvane"}, &errors), 1);
    EXPECT_TRUE(errors.contains("Unknown database")) << errors.toStdString();
    EXPECT_EQ(RunCommand({"create", dir, "--workstation", "postgresql://studio@127.0.0.1:1/korvane"}, &errors), 1);
    EXPECT_TRUE(errors.contains("--workstation")) << errors.toStdString();
    EXPECT_EQ(RunCommand({"migrate", dir, "--to"}, &errors), 1);
    EXPECT_EQ(RunCommand({"migrate", dir, "--to", "postgresql://radio@127.0.0.1:1/korvane"}, &errors), 1);
    EXPECT_TRUE(errors.contains("not a station")) << errors.toStdString();
    EXPECT_EQ(RunCommand({"create", dir, "--carts", "many"}, &errors), 1);
    EXPECT_TRUE(errors.contains("--carts")) << errors.toStdString();
    EXPECT_EQ(RunCommand({"create", dir, "--carts", "-5"}), 1);
    EXPECT_EQ(RunCommand({"create", dir, "--carts"}), 1);
    EXPECT_EQ(RunCommand({"create", dir, "--colour", "red"}), 1);
    EXPECT_EQ(RunCommand({"create"}, &errors), 1);
    EXPECT_TRUE(errors.contains("No station folder")) << errors.toStdString();
    EXPECT_EQ(RunCommand({"import", dir}), 1);
    EXPECT_FALSE(QFileInfo::exists(dir));
}

TEST(StationTool, BenchmarkCartsFillFamiliesOfTenThousand)
{
    TempStation station(25000);
    EXPECT_EQ(station.Report().bulkCarts, 25000);
    const auto sound = OpenData(station, "Sound.MDB");
    const auto user = OpenData(station, "User.MDB");
    const struct
    {
        const char* family;
        int carts;
        const char* last;
    } expected[] = {{"BAA", 10000, "BAA9999"}, {"BAB", 10000, "BAB9999"}, {"BAC", 5000, "BAC4999"}};
    for (const auto& e : expected) {
        const QString inFamily = QString(" WHERE ID LIKE '%1*'").arg(e.family);
        EXPECT_EQ(Count(*sound, "SELECT COUNT(*) FROM Cart" + inFamily), e.carts) << e.family;
        EXPECT_EQ(Count(*sound, "SELECT COUNT(*) FROM Sound" + inFamily), e.carts) << e.family;
        EXPECT_EQ(Text(*sound, "SELECT MIN(ID) FROM Cart" + inFamily), QString(e.family) + "0000");
        EXPECT_EQ(Text(*sound, "SELECT MAX(ID) FROM Cart" + inFamily), QString(e.last));
        EXPECT_EQ(Count(*user, "SELECT COUNT(*) FROM Familia WHERE ID = ?", {e.family}), 1);
    }
    EXPECT_EQ(Count(*sound, "SELECT COUNT(*) FROM Cart WHERE ID LIKE 'BAD*'"), 0);
    EXPECT_EQ(Count(*sound, "SELECT COUNT(DISTINCT Filename) FROM Sound WHERE ID LIKE 'BA*'"), 4);
    for (QSqlQuery files = sound->Query("SELECT DISTINCT Filename FROM Sound WHERE ID LIKE 'BA*'"); files.next();)
        EXPECT_TRUE(QFileInfo(station.SoundDir() + files.value(0).toString()).isFile());
    EXPECT_EQ(BulkCatalogue::FamilyID(26), "BBA");
}

TEST(StationTool, GeneratedSoundsAreReadableDistinctAndAsLongAsStated)
{
    TempStation station(0, SoundLength::Full);
    const auto sound = OpenData(station, "Sound.MDB");
    QSet<QByteArray> fingerprints;
    QSet<int> formats, rates;
    int sounds = 0;
    for (QSqlQuery rows = sound->Query("SELECT Filename, Stop FROM Sound"); rows.next(); ++sounds) {
        const QString file = rows.value(0).toString();
        const int stop = rows.value(1).toInt();
        const AudioFile audio = ReadAudio(station.SoundDir() + file);
        ASSERT_GT(audio.info.frames, 0) << file.toStdString();
        EXPECT_EQ(audio.info.channels, 2) << file.toStdString();
        EXPECT_EQ(audio.info.frames * 1000 / audio.info.samplerate, stop) << file.toStdString();
        EXPECT_GE(stop, 3000);
        EXPECT_LE(stop, 30000);
        formats << (audio.info.format & (SF_FORMAT_TYPEMASK | SF_FORMAT_SUBMASK));
        rates << audio.info.samplerate;
        // Left and right differ: the sounds are really stereo.
        bool stereo = false;
        for (std::size_t i = 0; i + 1 < audio.samples.size() && !stereo; i += 2)
            stereo = std::abs(audio.samples[i] - audio.samples[i + 1]) > 0.01f;
        EXPECT_TRUE(stereo) << file.toStdString();
        // The first second of every sound is its own.
        const std::size_t second = std::min<std::size_t>(audio.samples.size(), std::size_t(audio.info.samplerate) * 2);
        fingerprints << QCryptographicHash::hash(
            QByteArray(reinterpret_cast<const char*>(audio.samples.data()), qsizetype(second * sizeof(float))),
            QCryptographicHash::Sha1);
    }
    EXPECT_EQ(sounds, 19);
    EXPECT_EQ(fingerprints.size(), sounds);
    EXPECT_EQ(formats, (QSet<int>{SF_FORMAT_WAV | SF_FORMAT_PCM_16, SF_FORMAT_WAV | SF_FORMAT_PCM_24,
                                   SF_FORMAT_FLAC | SF_FORMAT_PCM_16, SF_FORMAT_OGG | SF_FORMAT_VORBIS,
                                   SF_FORMAT_AIFF | SF_FORMAT_PCM_16}));
    EXPECT_EQ(rates, (QSet<int>{44100, 48000}));
}

TEST(StationTool, BuiltInTranslationsCoverBothLanguagesAndBadLinesAreRefused)
{
    const QVector<Translations::Row> rows = Translations::Builtin();
    QMap<QString, QSet<QString>> languages;
    for (const Translations::Row& row : rows) {
        EXPECT_FALSE(languages[row.original].contains(row.language)) << "twice: " << row.original.toStdString();
        EXPECT_FALSE(row.translation.isEmpty()) << row.original.toStdString();
        languages[row.original] << row.language;
    }
    EXPECT_GE(languages.size(), 57);
    for (auto it = languages.cbegin(); it != languages.cend(); ++it)
        EXPECT_EQ(it.value(), (QSet<QString>{"CAT", "ESP"})) << it.key().toStdString();
    EXPECT_TRUE(languages.contains("Station ID: ")); // the trailing blank is part of the text

    EXPECT_EQ(Translations::Parse("# comment\n\nUser\tCAT\tUsuari\r\n").size(), 1);
    try {
        Translations::Parse("User\tCAT\tUsuari\nPassword\tCAT\n");
        ADD_FAILURE() << "a line with two fields was accepted";
    } catch (const KernelError& e) {
        EXPECT_TRUE(e.Description().contains("line 2")) << e.what();
    }
}

TEST(StationTool, TempStationNamesItselfInTheEnvironmentWhileAlive)
{
    qputenv("KORVANE_STATION", "/somewhere/else");
    {
        TempStation station;
        EXPECT_EQ(QFile::decodeName(qgetenv("KORVANE_STATION")), station.Dir());
        EXPECT_TRUE(QFileInfo(station.IniFile()).isFile());
    }
    EXPECT_EQ(qgetenv("KORVANE_STATION"), "/somewhere/else");
    qunsetenv("KORVANE_STATION");
    {
        TempStation station;
    }
    EXPECT_FALSE(qEnvironmentVariableIsSet("KORVANE_STATION"));
}

TEST(StationTool, AFailedCreationRemovesWhatItMadeAndKeepsWhatWasThere)
{
    QTemporaryDir parent;
    QFile blocker(parent.filePath("sound")); // a file where the sound folder should go
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    blocker.close();
    QString errors;
    EXPECT_EQ(RunCommand({"create", parent.path()}, &errors), 1);
    EXPECT_TRUE(errors.contains("Cannot create the folder")) << errors.toStdString();
    EXPECT_EQ(QDir(parent.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList{"sound"});

    EXPECT_EQ(RunCommand({"create", parent.filePath("sound")}, &errors), 1);
    EXPECT_TRUE(errors.contains("is a file")) << errors.toStdString();
    EXPECT_TRUE(QFileInfo(parent.filePath("sound")).isFile());
}
