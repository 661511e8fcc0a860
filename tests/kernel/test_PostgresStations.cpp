#include "foundation/Ini.h"
#include "foundation/db/Database.h"
#include "foundation/db/Recordset.h"
#include "kernel/EmbeddedKernel.h"
#include "kernel/Station.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCarts.h"
#include "kernelapi/iFamilies.h"
#include "kernelapi/iFamily.h"
#include "kernelapi/iUser.h"
#include "kernelapi/iUsers.h"
#include "support/TestServer.h"
#include "tools/StationBuilder.h"
#include "tools/StationCommand.h"
#include <QCoreApplication>
#include <QProcess>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <gtest/gtest.h>

// Stations whose catalogue is on the test server, made by the station tool, and two
// workstations in two processes: this test binary started again in a child mode
// (PostgresChild.Workstation), each process with its own embedded kernel.
namespace {
const char* const ChildStation = "KORVANE_PG_CHILD_STATION";
const char* const ChildTask = "KORVANE_PG_CHILD_TASK";
const QString Presenter = QStringLiteral("PRESENTER");
// What the child says starts with this; gtest's own lines do not.
const QByteArray Said = "korvane-child: ";
constexpr int FailedLogins = 25;

QString Text(const QByteArray& bytes)
{
    return QString::fromUtf8(bytes).trimmed();
}

// A demo station made with `create --database`: the owner makes the schemas, kernel.ini
// names the workstation role, which gets the row rights only.
StationOptions ServerStationOptions(const QTemporaryDir& dir)
{
    StationOptions options;
    options.dir = dir.path();
    options.database = FreshServerStation();
    options.workstation = ServerStation(TestServerWorkstationUri());
    options.soundLength = SoundLength::Short;
    return options;
}

// The child process: the same binary, running only the child test with a task.
class Child
{
public:
    Child(const QString& station, const QString& task)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(ChildStation, station);
        environment.insert(ChildTask, task);
        m_process.setProcessEnvironment(environment);
        m_process.setProcessChannelMode(QProcess::MergedChannels);
        m_process.start(QCoreApplication::applicationFilePath(),
                        {QStringLiteral("--gtest_filter=PostgresChild.Workstation")});
    }
    ~Child()
    {
        if (m_process.state() != QProcess::NotRunning) {
            m_process.kill();
            m_process.waitForFinished();
        }
    }

    // The next thing the child says on standard output; waits on the pipe, not on a clock.
    QString ReadLine()
    {
        for (;;) {
            while (!m_process.canReadLine()) {
                if (!m_process.waitForReadyRead(60000))
                    return QStringLiteral("<nothing: %1>").arg(Text(m_process.readAll()).right(2000));
            }
            const QByteArray line = m_process.readLine();
            if (line.startsWith(Said))
                return Text(line.mid(Said.size()));
        }
    }
    void Kill()
    {
        m_process.kill();
        m_process.waitForFinished();
    }
    bool Succeeded()
    {
        m_process.waitForFinished(60000);
        return m_process.exitStatus() == QProcess::NormalExit && m_process.exitCode() == 0;
    }

private:
    QProcess m_process;
};

void Say(const char* line)
{
    std::printf("%s%s\n", Said.constData(), line);
    std::fflush(stdout);
}

// The other workstation: fails logins while the parent does the same, then saves a cart and
// adds a family, and says when each is done.
void RunConcurrentWorkstation(const QString& station)
{
    const auto kernel = EmbeddedKernel::Open(StationFolder(station), nullptr);
    Say("open");
    for (int i = 0; i < FailedLogins; ++i)
        ASSERT_FALSE(kernel->Users()->Login(Presenter, QStringLiteral("wrong")));
    const auto cart = kernel->Carts()->NewCart();
    cart->SetID(QStringLiteral("JIN0777"));
    cart->SetType(CartType::Control);
    cart->SetDescription(QStringLiteral("Saved by the other studio"));
    cart->Save();
    Say("cart saved");
    ASSERT_TRUE(kernel->Users()->Login(QStringLiteral("ADMIN"), QStringLiteral("korvane")));
    kernel->Families()->Add(QStringLiteral("ZZZ"), QStringLiteral("Added by the other studio"));
    Say("family added");
}

// A multi-row save that never ends: every cart's title and the rows of a macro rewritten in one
// transaction; the child says it is inside and waits for the kill.
void RunSaveThatIsKilled(const QString& soundLocation)
{
    const auto db = Database::Open(soundLocation);
    db->Transaction([&] {
        db->Execute(QStringLiteral("UPDATE Cart SET Descripcio = 'half written'"));
        db->Execute(QStringLiteral("DELETE FROM RMacro"));
        for (int i = 0; i < 50; ++i)
            db->Query(QStringLiteral("INSERT INTO RMacro VALUES ('MES0001', ?, 'JIN0001')"), {i});
        Say("inside");
        char line[16];
        (void)std::fgets(line, sizeof line, stdin); // the parent kills the process before it answers
    });
}

QStringList Column(Database& db, const QString& sql)
{
    QStringList values;
    QSqlQuery query = db.Query(sql);
    while (query.next())
        values << query.value(0).toString();
    return values;
}
}

TEST(PostgresChild, Workstation)
{
    const QString station = qEnvironmentVariable(ChildStation);
    if (station.isEmpty())
        GTEST_SKIP() << "the second workstation of the two-process tests; it runs only when they start it";
    const QString task = qEnvironmentVariable(ChildTask);
    if (task == QLatin1String("concurrent"))
        RunConcurrentWorkstation(station);
    else
        RunSaveThatIsKilled(task);
}

TEST(PostgresStations, TwoWorkstationProcessesSeeEachOthersWritesAndLoseNoFailedLogin)
{
    if (TestServerUri().isEmpty() || TestServerWorkstationUri().isEmpty())
        GTEST_SKIP() << NoTestServer;
    QTemporaryDir dir;
    StationBuilder(ServerStationOptions(dir)).Create();
    const auto kernel = EmbeddedKernel::Open(StationFolder(dir.path()), nullptr);
    const QString dataPath = kernel->Station()->DatabasePath();
    ASSERT_TRUE(dataPath.contains("korvane_studio")) << "the workstation connects as the role with row rights only";
    // The shell's shared recordsets, as BackGround requeries them.
    const auto soundDB = Database::Open(dataPath + "Sound.MDB");
    const auto userDB = Database::Open(dataPath + "User.MDB");
    Recordset carts(*soundDB, "Cart");
    Recordset families(*userDB, "Familia");
    const auto jingles = kernel->Families()->Item(QStringLiteral("JIN"));
    const int jinglesBefore = jingles->Count();

    Child other(dir.path(), "concurrent");
    ASSERT_EQ(other.ReadLine(), "open");
    for (int i = 0; i < FailedLogins; ++i)
        ASSERT_FALSE(kernel->Users()->Login(Presenter, QStringLiteral("wrong")));

    ASSERT_EQ(other.ReadLine(), "cart saved");
    carts.Requery();
    carts.FindFirst("ID = 'JIN0777'");
    ASSERT_FALSE(carts.NoMatch()) << "a requery sees the other studio's cart";
    EXPECT_EQ(carts.Text("Descripcio"), "Saved by the other studio");
    jingles->Refresh();
    EXPECT_EQ(jingles->Count(), jinglesBefore + 1);

    ASSERT_EQ(other.ReadLine(), "family added");
    families.Requery();
    families.FindFirst("ID = 'ZZZ'");
    EXPECT_FALSE(families.NoMatch()) << "a requery sees the other studio's family";
    kernel->Families()->Refresh();
    EXPECT_TRUE(kernel->Families()->Exists(QStringLiteral("ZZZ")));
    ASSERT_TRUE(other.Succeeded());

    QSqlQuery fails = userDB->Query("SELECT Fails FROM Usuari WHERE ID = ?", {Presenter});
    ASSERT_TRUE(fails.next());
    EXPECT_EQ(fails.value(0).toInt(), 2 * FailedLogins) << "no failed login of either studio is lost";
}

namespace {
// The kill test on both engines: a SQLite station, or one on the test server.
class KilledSave : public ::testing::TestWithParam<bool>
{
};
}

TEST_P(KilledSave, AWorkstationKilledInTheMiddleOfASaveLeavesTheOldDataWhole)
{
    const bool onServer = GetParam();
    if (onServer && TestServerUri().isEmpty())
        GTEST_SKIP() << NoTestServer;
    QTemporaryDir dir;
    StationOptions options;
    options.dir = dir.path();
    options.soundLength = SoundLength::Short;
    if (onServer)
        options = ServerStationOptions(dir);
    StationBuilder(options).Create();
    const QString sound = Station(StationFolder(dir.path())).DatabasePath() + "Sound.MDB";
    const auto db = Database::Open(sound);
    const QStringList titles = Column(*db, "SELECT Descripcio FROM Cart ORDER BY ID");
    const QStringList steps = Column(*db, "SELECT SoundID FROM RMacro ORDER BY MacroID, [Index]");

    Child saver(dir.path(), sound);
    ASSERT_EQ(saver.ReadLine(), "inside");
    saver.Kill();

    EXPECT_EQ(Column(*db, "SELECT Descripcio FROM Cart ORDER BY ID"), titles);
    EXPECT_EQ(Column(*db, "SELECT SoundID FROM RMacro ORDER BY MacroID, [Index]"), steps);
    db->Transaction([&] { db->Execute("UPDATE Cart SET Comentari = 'written after the kill'"); });
    EXPECT_EQ(Column(*db, "SELECT DISTINCT Comentari FROM Cart"), QStringList{"written after the kill"})
        << "nothing of the killed save holds the rows";
}

INSTANTIATE_TEST_SUITE_P(Engines, KilledSave, ::testing::Values(false, true),
                         [](const auto& info) { return info.param ? "PostgreSQL" : "SQLite"; });

TEST(PostgresStations, MigrateCopiesASqliteStationRowForRowAndTheKernelRunsOnTheServer)
{
    if (TestServerUri().isEmpty())
        GTEST_SKIP() << NoTestServer;
    QTemporaryDir dir;
    StationOptions options;
    options.dir = dir.path();
    options.soundLength = SoundLength::Short;
    StationBuilder(options).Create();
    const QString server = FreshServerStation();
    const QString workstation = ServerStation(TestServerWorkstationUri());
    QString out, err;
    QTextStream outStream(&out), errStream(&err);
    StationCommand command(outStream, errStream);
    ASSERT_EQ(command.Run({"migrate", dir.path(), "--to", server, "--workstation", workstation}), 0) << err.toStdString();
    EXPECT_TRUE(out.contains("Sound.MDB/Cart: 28")) << out.toStdString();
    EXPECT_TRUE(out.contains("counts on the server match")) << out.toStdString();

    const auto kernel = EmbeddedKernel::Open(StationFolder(dir.path()), nullptr);
    EXPECT_EQ(kernel->Station()->DatabasePath(), workstation);
    ASSERT_TRUE(kernel->Users()->Login(QStringLiteral("ADMIN"), QStringLiteral("korvane")));
    EXPECT_EQ(kernel->Families()->Item(QStringLiteral("JIN"))->Item(1)->ID(), "JIN0001");

    EXPECT_EQ(command.Run({"migrate", dir.path(), "--to", server}), 1) << "a station on a server is not moved again";
    EXPECT_TRUE(err.contains("already on a server")) << err.toStdString();
}

TEST(PostgresStations, AServerThatIsDownOrARoleWithoutRightsStopsTheKernelWithAClearMessage)
{
    QTemporaryDir dir;
    const StationFolder folder(dir.path());
    WriteIni("Station", "ID", "NORTH", folder.StationIni());
    WriteIni("Data", "Path", "postgresql://studio@127.0.0.1:1/korvane?schema=north", folder.KernelIni());
    try {
        EmbeddedKernel::Open(folder, nullptr);
        ADD_FAILURE() << "a kernel opened on a server that is down";
    } catch (const KernelError& e) {
        EXPECT_TRUE(e.Description().contains("cannot be reached")) << e.Description().toStdString();
        EXPECT_TRUE(e.Description().contains("127.0.0.1:1")) << e.Description().toStdString();
    }
    if (TestServerUri().isEmpty() || TestServerWorkstationUri().isEmpty())
        GTEST_SKIP() << NoTestServer;

    // Schemas made without --workstation: the workstation role has no rights on them.
    CreateServerCatalogue(FreshServerStation());
    WriteIni("Data", "Path", ServerStation(TestServerWorkstationUri()), folder.KernelIni());
    try {
        EmbeddedKernel::Open(folder, nullptr);
        ADD_FAILURE() << "a kernel opened without rights";
    } catch (const KernelError& e) {
        EXPECT_TRUE(e.Description().contains("korvane_studio has no rights on the schema")) << e.Description().toStdString();
    }
}
