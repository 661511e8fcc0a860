#include "foundation/Ini.h"
#include "foundation/db/Database.h"
#include "kernel/CartWorld.h"
#include "kernel/EmbeddedKernel.h"
#include "kernel/StoreWatcher.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCarts.h"
#include "kernelapi/iFamilies.h"
#include "kernelapi/iFamily.h"
#include "kernelapi/iMacro.h"
#include "kernelapi/iMacroItem.h"
#include "kernelapi/iPlayList.h"
#include "kernelapi/iPlayListItem.h"
#include "kernelapi/iPlayLists.h"
#include "kernelapi/iRecalculation.h"
#include "tools/ToneFile.h"
#include <QDir>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTest>
#include "support/TestServer.h"
#include <gtest/gtest.h>

namespace {
// The cart world's SQL on the test server, in a station's three catalogues made afresh.
void FillCatalogue(Database& db)
{
    const QStringList rows{
        "INSERT INTO Familia (ID, Descripcio, Tothom) VALUES ('JIN', 'Jingles', TRUE)",
        "INSERT INTO Familia (ID, Descripcio, Tothom) VALUES ('MES', 'Macros', FALSE)",
        "INSERT INTO Grup (ID, Descripcio) VALUES ('DJ', 'Presenters')",
        "INSERT INTO RGrup (GrupID, UserID) VALUES ('DJ', 'ON AIR')",
        "INSERT INTO RFamilia (GrupID, familia, [Write]) VALUES ('DJ', 'JIN', TRUE)",
        "INSERT INTO RFamilia (GrupID, familia, [Write]) VALUES ('DJ', 'MES', FALSE)",
        "INSERT INTO Cart (ID, Descripcio, Type, Time) VALUES ('JIN0001', 'Morning jingle', 'S', 3000)",
        "INSERT INTO Sound (ID, Filename, Start, Stop, StartMark, StopMark) VALUES ('JIN0001', 'JIN0001.wav', 0, 3000, 300, 2700)",
        "INSERT INTO Cart (ID, Descripcio, Type, Time) VALUES ('JIN0002', 'Sweeper', 'C', 0)",
        "INSERT INTO Cart (ID, Descripcio, Type, Time) VALUES ('MES0001', 'Hour', 'M', 3000)",
        "INSERT INTO RMacro (MacroID, [Index], SoundID) VALUES ('MES0001', 1, 'JIN0002')",
        "INSERT INTO RMacro (MacroID, [Index], SoundID) VALUES ('MES0001', 2, 'JIN0001')",
    };
    for (const QString& row : rows)
        db.Execute(row);
}

std::shared_ptr<EmbeddedKernel> OpenKernel(const QTemporaryDir& dir, const QString& id, const QString& location)
{
    return EmbeddedKernel::Open(ServerStationFolder(dir, id, location), nullptr);
}

qint32 StoredTime(const QString& location, const QString& cartID)
{
    QSqlQuery query = OpenServerKernel(location)->Query(QStringLiteral("SELECT Time FROM Cart WHERE ID = ?"), {cartID});
    return query.next() ? query.value(0).toInt() : -1;
}

// Runs a family's recalculation to its end; the number of carts that failed, -1 when it hangs.
int Recalculate(EmbeddedKernel& kernel, const QString& familyID)
{
    const std::shared_ptr<iRecalculation> run = kernel.Families()->Item(familyID)->Recalculate(true);
    if (!QTest::qWaitFor([&] { return !run->Running(); }, 60000))
        return -1;
    return run->Failed();
}

QStringList IDsOf(const iFamily& family)
{
    QStringList ids;
    for (int i = 1; i <= family.Count(); ++i)
        ids << family.Item(i)->ID();
    return ids;
}
}

TEST(CartsOnServer, CartsFamiliesMacrosAndPlaylistsWorkOnAServerCatalogue)
{
    const QString location = FreshServerStation();
    if (location.isEmpty())
        GTEST_SKIP() << NoTestServer;
    CreateServerCatalogue(location);
    FillCatalogue(*OpenServerKernel(location));
    QTemporaryDir firstDir, secondDir;
    const auto first = OpenKernel(firstDir, QStringLiteral("ONE"), location);
    const auto second = OpenKernel(secondDir, QStringLiteral("TWO"), location);

    const auto carts = first->Carts();
    const auto jingle = carts->Cart(QStringLiteral("JIN0001"));
    EXPECT_EQ(jingle->Type(), CartType::Sound);
    EXPECT_EQ(jingle->UsefulTime(), 2400);
    EXPECT_EQ(jingle->EndDate(), QDateTime(QDate(2099, 1, 1), QTime(0, 0)));
    jingle->SetDescription(QStringLiteral("Morning jingle, new"));
    jingle->SetStartDate(QDateTime(QDate(2025, 5, 1), QTime(6, 0)));
    jingle->Save();

    const auto family = second->Families()->Item(QStringLiteral("JIN"));
    EXPECT_EQ(IDsOf(*family), QStringList({"JIN0001", "JIN0002"}));
    EXPECT_EQ(family->Item(1)->Description(), QStringLiteral("Morning jingle, new"));
    EXPECT_EQ(family->Item(1)->StartDate(), QDateTime(QDate(2025, 5, 1), QTime(6, 0)));
    EXPECT_TRUE(family->MayWrite(QStringLiteral("ON AIR")));
    EXPECT_FALSE(second->Families()->Item(QStringLiteral("MES"))->MayWrite(QStringLiteral("ON AIR")));
    EXPECT_TRUE(second->Families()->Item(QStringLiteral("MES"))->MayRead(QStringLiteral("ON AIR")));
    EXPECT_TRUE(family->EveryBody());
    EXPECT_FALSE(family->EveryBodyWrite());

    ASSERT_TRUE(carts->CopyCart(QStringLiteral("JIN0002"), QStringLiteral("JIN0005")));
    ASSERT_TRUE(carts->MoveCart(QStringLiteral("JIN0002"), QStringLiteral("JIN0003")));
    EXPECT_FALSE(carts->CopyCart(QStringLiteral("JIN0001"), QStringLiteral("JIN0003")));
    EXPECT_FALSE(carts->DeleteCart(QStringLiteral("JIN0005"), false).failed);
    second->Watcher().Tick(); // the other studio's writes reach the family read before
    EXPECT_EQ(IDsOf(*family), QStringList({"JIN0001", "JIN0003"}));
    EXPECT_EQ(family->FreeSlots(QStringLiteral("JIN0001"), 0), QList<int>({0, 2, 4, 5, 6, 7, 8, 9, 10, 11}));

    const auto macro = second->Carts()->NewMacro();
    macro->LoadByID(QStringLiteral("MES0001"));
    ASSERT_EQ(macro->Count(), 2);
    EXPECT_EQ(macro->Item(1)->Cart()->ID(), QStringLiteral("JIN0003")) << "the move renumbered the step";
    macro->Add(nullptr, nullptr);
    macro->Save(QStringLiteral("Hour, longer"));
    EXPECT_EQ(first->MacroByID(QStringLiteral("MES0001"))->Count(), 3);

    const auto list = first->PlayLists()->AddFromMacro(QStringLiteral("MES0001"));
    list->Put(5, carts->Cart(QStringLiteral("JIN0001")));
    list->Item(1)->SetLooped(true);
    const auto seen = second->PlayLists()->Item(list->ID());
    EXPECT_EQ(seen->Count(), 5);
    EXPECT_TRUE(seen->Item(1)->Looped());
    EXPECT_TRUE(seen->Modified());
    EXPECT_EQ(seen->LoadedMacro()->Cart()->ID(), QStringLiteral("MES0001"));

    second->Families()->Add(QStringLiteral("NEW"), QStringLiteral("News"));
    EXPECT_TRUE(first->Families()->Exists(QStringLiteral("NEW")));
    first->Families()->Remove(QStringLiteral("NEW"));
    second->Watcher().Tick();
    EXPECT_FALSE(second->Families()->Exists(QStringLiteral("NEW")));
}

TEST(CartsOnServer, ARecalculationWritesTheServerCatalogueFromItsOwnConnection)
{
    const QString location = FreshServerStation();
    if (location.isEmpty())
        GTEST_SKIP() << NoTestServer;
    CreateServerCatalogue(location);
    FillCatalogue(*OpenServerKernel(location));
    QTemporaryDir dir;
    const auto kernel = OpenKernel(dir, QStringLiteral("ONE"), location);
    const QString sound = kernel->World()->SoundFolder();
    ASSERT_TRUE(QDir().mkpath(sound));
    ToneFile{ToneFile::Format::Wav16, 8000, 1, 1000}.Write(sound + QStringLiteral("JIN0001.wav"));
    const qsizetype connections = QSqlDatabase::connectionNames().size();

    EXPECT_EQ(Recalculate(*kernel, QStringLiteral("JIN")), 0);
    EXPECT_EQ(StoredTime(location, QStringLiteral("JIN0001")), 1000) << "the stop mark was fitted to the file";
    EXPECT_EQ(StoredTime(location, QStringLiteral("JIN0002")), 0);
    EXPECT_EQ(Recalculate(*kernel, QStringLiteral("MES")), 0);
    EXPECT_EQ(StoredTime(location, QStringLiteral("MES0001")), 1000) << "the macro is the sum of its steps";
    EXPECT_EQ(QSqlDatabase::connectionNames().size(), connections) << "each run closed its connection";
    EXPECT_EQ(kernel->Carts()->Cart(QStringLiteral("JIN0001"))->Time(), 1000);
}
