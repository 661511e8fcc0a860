#include "foundation/Ini.h"
#include "foundation/Strings.h"
#include "foundation/db/Database.h"
#include "kernel/EmbeddedKernel.h"
#include "kernelapi/iRecordset.h"
#include "kernelapi/iStation.h"
#include "kernelapi/iUser.h"
#include "kernelapi/iUsers.h"
#include <QTemporaryDir>
#include "support/TestServer.h"
#include <gtest/gtest.h>

namespace {
// The station's three catalogues on the test server, made afresh and filled.
void FillCatalogue(Database& db)
{
    db.Query(QStringLiteral("INSERT INTO Usuari (ID, Password, Privilege, Fails) VALUES ('ON AIR', ?, 0, 0)"),
             {ScramblePassword(QStringLiteral("pw"))});
    db.Execute(QStringLiteral("INSERT INTO Cart (ID, Descripcio, Type) VALUES ('JIN0001', 'Morning jingle', 'S')"));
}

}

TEST(KernelOnServer, TwoStationsShareTheCatalogueOfAServer)
{
    const QString location = FreshServerStation();
    if (location.isEmpty())
        GTEST_SKIP() << NoTestServer;
    CreateServerCatalogue(location);
    FillCatalogue(*OpenServerKernel(location));

    QTemporaryDir firstDir, secondDir;
    const auto first = EmbeddedKernel::Open(ServerStationFolder(firstDir, QStringLiteral("ONE"), location), nullptr);
    const auto second = EmbeddedKernel::Open(ServerStationFolder(secondDir, QStringLiteral("TWO"), location), nullptr);
    EXPECT_EQ(first->Station()->DatabasePath(), location);

    first->SetConfig(QStringLiteral("Shared.Key"), QStringLiteral("seen by both"));
    EXPECT_TRUE(first->SetStationConfig(QStringLiteral("GGainA"), QStringLiteral("4")));
    second->ConfigRecordChanged(QVariant());
    EXPECT_EQ(second->Config(QStringLiteral("Shared.Key")).toString(), "seen by both");
    EXPECT_EQ(second->StationConfig(QStringLiteral("GGainA")).toString(), "");

    EXPECT_FALSE(first->Users()->Login(QStringLiteral("ON AIR"), QStringLiteral("no")));
    ASSERT_TRUE(second->Users()->Login(QStringLiteral("ON AIR"), QStringLiteral("pw")));
    EXPECT_EQ(second->Users()->CurrentUser()->Fails(), "1");

    auto found = first->Execute(QStringLiteral(
        "SELECT * FROM cart WHERE ID like '%jin%'  OR Descripcio like '%jin%' OR Comentari like '%jin%'"));
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->Text(QStringLiteral("Descripcio")), "Morning jingle");
}
