#include "test_CartsFixture.h"
#include "kernelapi/iFamilySlots.h"
#include "kernel/StoreWatcher.h"
#include "support/TempStation.h"
#include <QSignalSpy>

namespace {
const QString Admin = QStringLiteral("ADMIN");
const QString Presenter = QStringLiteral("PRESENTER");

QStringList IDsOf(const iFamily& family)
{
    QStringList ids;
    for (int i = 1; i <= family.Count(); ++i)
        ids << family.Item(i)->ID();
    return ids;
}
}

using FamiliesTest = CartWorldTest;

TEST_F(FamiliesTest, FamiliesAreLiveObjectsInIDOrderAndBadIDsAreRefused)
{
    QStringList ids;
    for (int i = 1; i <= families->Count(); ++i)
        ids << families->Item(i)->ID();
    EXPECT_EQ(ids, QStringList({"CON", "ESP", "JIN", "MES", "MUS", "NEW", "PAU", "PUB", "TMP"}));
    const auto jingles = families->Item(QStringLiteral("JIN"));
    EXPECT_EQ(families->Item(QStringLiteral("jin")), jingles);
    EXPECT_EQ(jingles->Description(), QStringLiteral("Jingles and station IDs"));
    EXPECT_TRUE(families->Exists(QStringLiteral("MUS")));
    EXPECT_FALSE(families->Exists(QStringLiteral("XYZ")));
    EXPECT_FALSE(families->Exists(QStringLiteral("MU")));
    EXPECT_THROW(families->Item(QStringLiteral("JI")), KernelError);
    EXPECT_THROW(families->Item(QStringLiteral("JINX")), KernelError);
    EXPECT_THROW(families->Item(QStringLiteral("XYZ")), KernelError);
    EXPECT_THROW(families->Item(0), KernelError);

    families->Refresh();
    EXPECT_EQ(families->Item(QStringLiteral("JIN")), jingles) << "a family keeps its object across Refresh";
}

TEST_F(FamiliesTest, RightsComeFromTheUsersGroupsAndTheEverybodyRules)
{
    struct Expected
    {
        const char* family;
        bool adminWrites, presenterReads, presenterWrites;
    };
    // ADMIN is in TECHNICS (write everywhere); PRESENTER in PRESENTERS.
    const Expected table[] = {{"JIN", true, true, false}, {"PUB", true, true, false}, {"NEW", true, true, true},
                              {"TMP", true, true, true},  {"CON", true, false, false}, {"ESP", true, false, false}};
    for (const Expected& row : table) {
        const auto family = families->Item(QString::fromLatin1(row.family));
        SCOPED_TRACE(row.family);
        EXPECT_TRUE(family->MayRead(Admin));
        EXPECT_EQ(family->MayWrite(Admin), row.adminWrites);
        EXPECT_EQ(family->MayRead(Presenter), row.presenterReads);
        EXPECT_EQ(family->MayWrite(Presenter), row.presenterWrites);
    }
    const auto special = families->Item(QStringLiteral("ESP"));
    EXPECT_TRUE(special->EveryBody()) << "ESP is readable by everybody (Tothom)";
    EXPECT_FALSE(families->Item(QStringLiteral("CON"))->EveryBody());
    EXPECT_FALSE(special->MayRead(QStringLiteral("NOBODY")));

    EXPECT_FALSE(special->MayRead(QString())) << "nobody logged in";
    ASSERT_TRUE(Login(Presenter, QStringLiteral("onair")));
    EXPECT_TRUE(families->Item(QStringLiteral("NEW"))->MayWrite(QString()));
    EXPECT_FALSE(families->Item(QStringLiteral("MUS"))->MayWrite(QString()));

    // Writable by everybody: the group EVERYBODY with the write right.
    const auto control = families->Item(QStringLiteral("CON"));
    EXPECT_FALSE(control->EveryBodyWrite());
    Run(UserDb, QStringLiteral("INSERT INTO RFamilia (GrupID, familia, [Write]) VALUES ('EVERYBODY', 'CON', ?)"), {true});
    EXPECT_TRUE(control->EveryBodyWrite());
    EXPECT_TRUE(control->EveryBody());
    EXPECT_FALSE(control->MayWrite(Presenter)) << "the user's own rights are unchanged";
}

TEST_F(FamiliesTest, CartsComeInSlotOrderWithTheirSlotsAndFreeNumbers)
{
    const auto jingles = families->Item(QStringLiteral("JIN"));
    EXPECT_EQ(IDsOf(*jingles), QStringList({"JIN0001", "JIN0002", "JIN0003", "JIN0004"}));
    EXPECT_EQ(jingles->Item(1), carts->Cart(QStringLiteral("JIN0001"))) << "items are the live carts";
    EXPECT_THROW(jingles->Item(5), KernelError);

    ASSERT_TRUE(carts->CopyCart(QStringLiteral("JIN0001"), QStringLiteral("JIN0010")));
    const auto slots = jingles->Slots();
    EXPECT_EQ(slots->Count(), 5);
    EXPECT_TRUE(slots->Contains(QStringLiteral("JIN0010")));
    EXPECT_FALSE(slots->Contains(QStringLiteral("JIN0005")));
    EXPECT_FALSE(slots->Contains(QStringLiteral("MUS0001")));

    const QList<int> around{0, 5, 6, 7, 8, 9, 11, 12, 13, 14};
    EXPECT_EQ(jingles->FreeSlots(QStringLiteral("JIN0003"), 0), around);
    EXPECT_EQ(jingles->FreeSlots(QStringLiteral("JIN0020"), 0), QList<int>({15, 16, 17, 18, 19, 20, 21, 22, 23, 24}));
    EXPECT_EQ(jingles->FreeSlots(QStringLiteral("MUS9999"), 0), QList<int>({9994, 9995, 9996, 9997, 9998, 9999}));
    EXPECT_EQ(jingles->FreeSlots(QString(), 1), around);
    EXPECT_EQ(jingles->FreeSlots(QString(), 2), QList<int>({11, 12, 13, 14, 15, 16, 17, 18, 19, 20}));
    EXPECT_THROW(jingles->FreeSlots(QString(), 7), KernelError);
}

TEST_F(FamiliesTest, ChangesOfCartsReachTheirFamilyAsEvents)
{
    const auto jingles = families->Item(QStringLiteral("JIN"));
    ASSERT_EQ(jingles->Count(), 4);
    QSignalSpy contents(jingles.get(), &iFamily::ChangedContents);
    QSignalSpy slightly(jingles.get(), &iFamily::SlightlyChangedContents);

    const auto cart = carts->Cart(QStringLiteral("JIN0002"));
    cart->SetDescription(QStringLiteral("Renamed sweeper"));
    cart->Save();
    EXPECT_EQ(slightly.count(), 1);
    EXPECT_EQ(contents.count(), 0);
    EXPECT_EQ(jingles->Item(2)->Title(), QStringLiteral("Renamed sweeper"));

    const auto spacer = carts->NewCart();
    spacer->SetID(QStringLiteral("JIN0000"));
    spacer->SetType(CartType::Separator);
    spacer->SetDescription(QStringLiteral("New spacer"));
    spacer->Save();
    EXPECT_EQ(contents.count(), 1);
    EXPECT_EQ(jingles->Count(), 5);
    EXPECT_EQ(jingles->Item(1)->Type(), CartType::Separator);

    ASSERT_FALSE(carts->DeleteCart(QStringLiteral("JIN0004"), false).failed);
    ASSERT_TRUE(carts->MoveCart(QStringLiteral("JIN0001"), QStringLiteral("JIN0100")));
    EXPECT_EQ(contents.count(), 3);
    EXPECT_EQ(IDsOf(*jingles), QStringList({"JIN0000", "JIN0002", "JIN0003", "JIN0100"}));

    // A cart written behind the kernel's back shows after Refresh.
    Run(SoundDb, QStringLiteral("INSERT INTO Cart (ID, Descripcio, Type, Time) VALUES ('JIN0050', 'Elsewhere', 'C', 0)"));
    jingles->Refresh();
    EXPECT_EQ(contents.count(), 4);
    EXPECT_EQ(jingles->Count(), 5);
    EXPECT_TRUE(jingles->Reload(QString()));
    EXPECT_FALSE(jingles->Reload(QStringLiteral("MUS")));
}

TEST_F(FamiliesTest, AddAndRemoveFamilies)
{
    QSignalSpy changed(families.get(), &iFamilies::Changed);
    EXPECT_THROW(families->Add(QStringLiteral("JIN"), QStringLiteral("Again")), KernelError);
    EXPECT_THROW(families->Add(QStringLiteral("AB"), QStringLiteral("Short")), KernelError);
    EXPECT_THROW(families->Add(QStringLiteral("A1B"), QStringLiteral("Digit")), KernelError);
    EXPECT_EQ(changed.count(), 0);

    ASSERT_TRUE(Login(Presenter, QStringLiteral("onair")));
    families->Add(QStringLiteral("sho"), QStringLiteral("Morning show"));
    EXPECT_EQ(changed.count(), 1);
    const auto show = families->Item(QStringLiteral("SHO"));
    EXPECT_EQ(show->Description(), QStringLiteral("Morning show"));
    EXPECT_EQ(show->Count(), 0);
    EXPECT_TRUE(show->MayWrite(QString())) << "its maker's private group may write it";
    EXPECT_FALSE(show->MayRead(Admin));
    EXPECT_EQ(Reopen()->Families()->Count(), 10);

    // Removing a family takes its rights; its carts stay.
    const auto news = families->Item(QStringLiteral("NEW"));
    QSignalSpy clear(news.get(), &iFamily::QueryClear);
    families->Remove(QStringLiteral("NEW"));
    EXPECT_EQ(clear.count(), 1);
    EXPECT_EQ(changed.count(), 2);
    EXPECT_FALSE(families->Exists(QStringLiteral("NEW")));
    EXPECT_EQ(Read(UserDb, QStringLiteral("SELECT COUNT(*) FROM RFamilia WHERE familia = 'NEW'")).toInt(), 0);
    EXPECT_TRUE(carts->Exists(QStringLiteral("NEW0001")));
    EXPECT_EQ(carts->Cart(QStringLiteral("NEW0001"))->Family(), nullptr);
    EXPECT_THROW(families->Remove(QStringLiteral("NEW")), KernelError);
}

namespace {
// The pages of a PDF written by the reports (each page object is written uncompressed).
int PdfPages(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? int(file.readAll().count("/Type /Page\n") + 0) : -1;
}
}

TEST_F(FamiliesTest, PrintingAFamilyWritesAPdfReportWithPagesAsTheListNeeds)
{
    families->Item(QStringLiteral("MUS"))->Print(true, false);
    for (int i = 0; i < 150; ++i)
        ASSERT_TRUE(carts->CopyCart(QStringLiteral("MUS0001"), QStringLiteral("MUS%1").arg(1000 + i)));
    families->Item(QStringLiteral("MUS"))->Print(true, true);
    const QStringList reports = Reports();
    ASSERT_EQ(reports.size(), 2);
    EXPECT_TRUE(QFileInfo(reports[0]).fileName().startsWith(QStringLiteral("family-MUS-")));
    EXPECT_EQ(Head(reports[0], 5), QByteArray("%PDF-"));
    EXPECT_EQ(PdfPages(reports[0]), 1);
    EXPECT_GE(PdfPages(reports[1]), 3);
    EXPECT_EQ(LogLinesWith(QStringLiteral("Family MUS printed to ") + reports[1]).size(), 1);
}

// A printer the print service does not know loses nothing: the report becomes a PDF and the
// log says why. A reports folder that cannot be made is an ERROR line, and the kernel goes on.
TEST_F(FamiliesTest, AReportThatCannotGoWhereAskedIsLogged)
{
    ASSERT_TRUE(kernel->SetStationConfig(QStringLiteral("Printer"), QStringLiteral("No Such Printer")));
    families->Item(QStringLiteral("MUS"))->Print(true, true);
    ASSERT_EQ(Reports().size(), 1);
    const QStringList errors = LogLinesWith(QStringLiteral("ERROR"));
    ASSERT_EQ(errors.filter(QStringLiteral("'No Such Printer' is not known to the print service")).size(), 1);
    EXPECT_TRUE(errors.filter(QStringLiteral("No Such Printer")).first().contains(Reports().first()));

    ASSERT_TRUE(QDir(station.Dir() + QStringLiteral("reports")).removeRecursively());
    QFile blocker(station.Dir() + QStringLiteral("reports"));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    families->Item(QStringLiteral("MUS"))->Print(false, true);
    EXPECT_TRUE(Reports().isEmpty());
    EXPECT_EQ(LogLinesWith(QStringLiteral("Family MUS was not printed: The reports folder")).size(), 1);
}

// A full family of the benchmark station comes in whole and in order, read a page at a time as
// it is walked; another workstation's delete in a part not yet read still reaches it.
TEST(FamilyOfTenThousand, IteratesEveryCartInSlotOrder)
{
    TempStation big(10000);
    const auto kernel = EmbeddedKernel::Open(big.Folder(), nullptr);
    const auto family = kernel->Families()->Item(QStringLiteral("BAA"));
    ASSERT_EQ(family->Count(), 10000);
    EXPECT_EQ(family->Item(1500)->ID(), QStringLiteral("BAA1499"));
    const auto other = EmbeddedKernel::Open(big.Folder(), nullptr);
    ASSERT_FALSE(other->Carts()->DeleteCart(QStringLiteral("BAA9000"), false).failed);
    QSignalSpy contents(family.get(), &iFamily::ChangedContents);
    kernel->Watcher().Tick();
    EXPECT_EQ(contents.count(), 1);
    EXPECT_EQ(family->Count(), 9999);
    ASSERT_TRUE(other->Carts()->CopyCart(QStringLiteral("BAA9001"), QStringLiteral("BAA9000")));
    kernel->Watcher().Tick();
    ASSERT_EQ(family->Count(), 10000);
    int inOrder = 0;
    for (int i = 1; i <= family->Count(); ++i)
        inOrder += family->Item(i)->ID() == QStringLiteral("BAA%1").arg(i - 1, 4, 10, QLatin1Char('0'));
    EXPECT_EQ(inOrder, 10000);
    EXPECT_EQ(family->Slots()->Count(), 10000);
    EXPECT_TRUE(family->FreeSlots(QStringLiteral("BAA5000"), 0).isEmpty());
}

// Two workstations on one catalogue: what one writes reaches the other's families at the
// next tick of its store watcher, and a tick with nothing new raises nothing.
TEST(TwoWorkstations, AnotherWorkstationsCartsAndFamiliesArriveAtTheNextWatcherTick)
{
    TempStation station;
    const auto here = EmbeddedKernel::Open(station.Folder(), nullptr);
    const auto there = EmbeddedKernel::Open(station.Folder(), nullptr);
    const auto jingles = here->Families()->Item(QStringLiteral("JIN"));
    const int before = jingles->Count();
    QSignalSpy contents(jingles.get(), &iFamily::ChangedContents);
    QSignalSpy list(here->Families().get(), &iFamilies::Changed);

    here->Watcher().Tick();
    EXPECT_EQ(contents.count(), 0);

    const auto cart = there->Carts()->NewCart();
    cart->SetID(QStringLiteral("JIN0500"));
    cart->SetType(CartType::Separator);
    cart->SetDescription(QStringLiteral("Written in the other studio"));
    cart->Save();
    here->Watcher().Tick();
    EXPECT_EQ(contents.count(), 1);
    EXPECT_EQ(jingles->Count(), before + 1);
    here->Watcher().Tick();
    EXPECT_EQ(contents.count(), 1) << "nothing new since";
    EXPECT_EQ(list.count(), 0);

    there->Families()->Add(QStringLiteral("ZZZ"), QStringLiteral("The other studio's family"));
    here->Watcher().Tick();
    EXPECT_EQ(list.count(), 1);
    EXPECT_TRUE(here->Families()->Exists(QStringLiteral("ZZZ")));
}
