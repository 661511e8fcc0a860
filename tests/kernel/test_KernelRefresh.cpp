// The kernel's Refresh reads families, carts, playlists and the configuration again and raises
// their change events, so that what another connection wrote shows without waiting for the
// store watcher.
#include "KernelTest.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCarts.h"
#include "kernelapi/iFamilies.h"
#include "kernelapi/iFamily.h"
#include "kernelapi/iPlayList.h"
#include "kernelapi/iPlayLists.h"
#include <QSignalSpy>

namespace {
class KernelRefreshTest : public KernelTest
{
protected:
    std::shared_ptr<EmbeddedKernel> other = Reopen(); // another workstation on the same catalogue
};
}

TEST_F(KernelRefreshTest, FamiliesAndTheCartsThatChangedRaiseTheirEvents)
{
    const auto jingles = kernel->Families()->Item(QStringLiteral("JIN"));
    const int before = jingles->Count();
    const auto changed = kernel->Carts()->Cart(QStringLiteral("JIN0001"));
    const auto unchanged = kernel->Carts()->Cart(QStringLiteral("JIN0002"));
    QSignalSpy list(kernel->Families().get(), &iFamilies::Changed);
    QSignalSpy contents(jingles.get(), &iFamily::ChangedContents);
    QSignalSpy changedCart(changed.get(), &iCart::ChangedProperties);
    QSignalSpy unchangedCart(unchanged.get(), &iCart::ChangedProperties);

    Run("Sound.MDB", QStringLiteral("UPDATE Cart SET Descripcio = 'Written elsewhere' WHERE ID = 'JIN0001'"));
    Run("Sound.MDB", QStringLiteral("INSERT INTO Cart (ID, Descripcio, Type, Time) VALUES ('JIN0777', 'New elsewhere', 'C', 0)"));
    Run("User.MDB", QStringLiteral("INSERT INTO Familia (ID, Descripcio, Tothom) VALUES ('ZZZ', 'Made elsewhere', 1)"));
    kernel->Refresh();

    EXPECT_EQ(list.count(), 1);
    EXPECT_TRUE(kernel->Families()->Exists(QStringLiteral("ZZZ")));
    EXPECT_EQ(contents.count(), 1);
    EXPECT_EQ(jingles->Count(), before + 1);
    EXPECT_EQ(changedCart.count(), 1);
    EXPECT_EQ(changed->Description(), QStringLiteral("Written elsewhere"));
    EXPECT_EQ(unchangedCart.count(), 0) << "a cart as stored is left alone";
    EXPECT_EQ(kernel->Families()->Item(QStringLiteral("JIN")), jingles) << "families stay the same objects";
    EXPECT_EQ(LogLinesWith(QStringLiteral("read again from the catalogue")).size(), 1);
}

TEST_F(KernelRefreshTest, PlaylistsChangedMadeOrDeletedElsewhereAreTakenUp)
{
    const auto lists = kernel->PlayLists();
    const int count = lists->Count();
    ASSERT_GE(count, 1);
    const QString id = lists->Item(1)->ID();
    const auto mine = lists->Item(id);
    QSignalSpy content(mine.get(), &iPlayList::ContentChanged);
    QSignalSpy counted(lists.get(), &iPlayLists::ChangedCount);

    other->PlayLists()->Item(id)->Insert(1, other->Carts()->Cart(QStringLiteral("JIN0001")));
    const QString made = other->PlayLists()->Add()->ID();
    kernel->Refresh();

    EXPECT_EQ(content.count(), 1);
    EXPECT_EQ(mine->Count(), other->PlayLists()->Item(id)->Count());
    EXPECT_EQ(counted.count(), 1);
    EXPECT_EQ(lists->Count(), count + 1);
    EXPECT_EQ(lists->IndexOf(made), count + 1);

    other->PlayLists()->Remove(made);
    kernel->Refresh();
    EXPECT_EQ(counted.count(), 2);
    EXPECT_EQ(lists->IndexOf(made), 0);
    kernel->Refresh();
    EXPECT_EQ(counted.count(), 2) << "nothing new, nothing raised";
    EXPECT_EQ(content.count(), 1);
}

TEST_F(KernelRefreshTest, TheConfigurationIsReadAgain)
{
    other->SetConfig(QStringLiteral("RelaxedSearch"), QStringLiteral("yes"));
    other->SetStationConfig(QStringLiteral("RefreshForcesMenu"), QStringLiteral("yes"));
    kernel->Refresh();
    EXPECT_EQ(kernel->Config(QStringLiteral("RelaxedSearch")).toString(), QStringLiteral("yes"));
    EXPECT_EQ(kernel->StationConfig(QStringLiteral("RefreshForcesMenu")).toString(), QStringLiteral("yes"));
}
