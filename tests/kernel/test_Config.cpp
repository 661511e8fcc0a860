#include "KernelTest.h"
#include "foundation/Ini.h"
#include "kernelapi/iRecordset.h"
#include "kernelapi/iStation.h"
#include <QDir>
#include <QTemporaryDir>

namespace {
// A second workstation: its own station.ini and ID, sharing the first station's data folder.
StationFolder SecondStation(const QTemporaryDir& dir, const QString& dataDir)
{
    const StationFolder folder(dir.path());
    WriteIni(QStringLiteral("Station"), QStringLiteral("ID"), QStringLiteral("STUDIO-2"), folder.StationIni());
    WriteIni(QStringLiteral("Data"), QStringLiteral("Path"), dataDir, folder.KernelIni());
    return folder;
}
}

TEST_F(KernelTest, SharedStoreReadsWhatWasWrittenAndAbsentKeysAsEmpty)
{
    EXPECT_EQ(kernel->Config(QStringLiteral("No.Such.Key")), QVariant(QString()));
    EXPECT_EQ(kernel->Config(QStringLiteral("No.Such.Key")).toString(), "");
    EXPECT_EQ(kernel->Config(QStringLiteral("T_Refresh")).toString(), "yes");

    kernel->SetConfig(QStringLiteral("T_Refresh"), QStringLiteral("no"));
    kernel->SetConfig(QStringLiteral("Brand.New"), 42);
    EXPECT_EQ(kernel->Config(QStringLiteral("T_Refresh")).toString(), "no");
    EXPECT_EQ(kernel->Config(QStringLiteral("Brand.New")).toString(), "42");

    const auto reopened = Reopen();
    EXPECT_EQ(reopened->Config(QStringLiteral("T_Refresh")).toString(), "no");
    EXPECT_EQ(reopened->Config(QStringLiteral("Brand.New")).toString(), "42");
    EXPECT_EQ(Read("Kernel.MDB", QStringLiteral("SELECT COUNT(*) FROM Config WHERE ID = 'T_Refresh'")).toInt(), 1);
}

TEST_F(KernelTest, StationStoreIsKeptPerStationWhileTheSharedStoreIsCommon)
{
    QTemporaryDir dir;
    const auto second = EmbeddedKernel::Open(SecondStation(dir, station.DataDir()), logger);
    EXPECT_EQ(second->StationID(), "STUDIO-2");
    EXPECT_EQ(second->Station()->DatabasePath(), station.DataDir());

    EXPECT_EQ(second->StationConfig(QStringLiteral("GGainA")).toString(), "") << "nothing stored for STUDIO-2 yet";
    EXPECT_TRUE(second->SetStationConfig(QStringLiteral("GGainA"), QStringLiteral("3")));
    second->SetConfig(QStringLiteral("RelaxedSearch"), QStringLiteral("no"));

    kernel->ConfigRecordChanged(QVariant());
    EXPECT_EQ(kernel->StationConfig(QStringLiteral("GGainA")).toString(), "0");
    EXPECT_EQ(second->StationConfig(QStringLiteral("GGainA")).toString(), "3");
    EXPECT_EQ(kernel->Config(QStringLiteral("RelaxedSearch")).toString(), "no");
}

TEST_F(KernelTest, ConfigTableEditsAreSeenAfterConfigRecordChanged)
{
    auto table = kernel->OpenConfigTable(QStringLiteral("Config"), QStringLiteral("ID"));
    ASSERT_NE(table, nullptr);
    table->MoveLast();
    table->MoveFirst();
    EXPECT_GT(table->RecordCount(), 20);
    QString previous;
    for (; !table->IsEOF(); table->MoveNext()) {
        EXPECT_LE(previous, table->Text(QStringLiteral("ID")));
        previous = table->Text(QStringLiteral("ID"));
    }

    table->FindFirst(QStringLiteral("ID = 'WorkLevel'"));
    ASSERT_FALSE(table->NoMatch());
    table->Edit();
    table->SetValue(QStringLiteral("Value"), QStringLiteral("-9"));
    table->Update();
    kernel->ConfigRecordChanged(QVariant());
    EXPECT_EQ(kernel->Config(QStringLiteral("WorkLevel")).toString(), "-9");
}
