// Two workstations on one catalogue edit the same playlist: an edit made over a version that
// the other workstation has replaced, or on a list it deleted, is refused with an ERROR line
// and a KernelError, and nothing the other stored is overwritten. On the station's SQLite files
// and on the test server.
#include "KernelTest.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCarts.h"
#include "kernelapi/iPlayList.h"
#include "kernelapi/iPlayListItem.h"
#include "kernelapi/iPlayLists.h"
#include "support/TestServer.h"
#include <QSignalSpy>
#include <QTemporaryDir>
#include "KernelChecks.h"

using KernelChecks::Failure;
using KernelChecks::RowIDs;

namespace {
// The walk both engines run: each workstation holds the list, one edits, the other's edit over
// the old version is refused and it sees the stored rows, then edits on top of them; a list the
// one deletes is gone for the other at its next edit.
void EditTheSameList(CKernel& one, CKernel& two, const QString& id)
{
    const auto mine = one.PlayLists()->Item(id);
    const auto theirs = two.PlayLists()->Item(id);
    const auto jingle = one.Carts()->Cart(QStringLiteral("JIN0001"));
    ASSERT_EQ(RowIDs(*mine), RowIDs(*theirs));

    mine->Insert(1, jingle);
    const QStringList stored = RowIDs(*mine);
    QSignalSpy content(theirs.get(), &iPlayList::ContentChanged);
    EXPECT_EQ(Failure([&] { theirs->Insert(1, nullptr); }),
              QStringLiteral("Playlist %1 was changed on another workstation since it was read here: this change was not "
                             "stored, and the list now shows the stored one")
                  .arg(id));
    EXPECT_EQ(RowIDs(*theirs), stored) << "the other workstation's rows, not the refused edit";
    EXPECT_GE(content.count(), 1);
    EXPECT_EQ(RowIDs(*one.PlayLists()->Item(id)), stored);

    // On top of the stored version the edit goes through, and now the first is behind.
    theirs->SetName(QStringLiteral("Evening"));
    EXPECT_FALSE(Failure([&] { mine->SetChained(!mine->Chained()); }).isEmpty());
    EXPECT_EQ(mine->Name(), QStringLiteral("Evening"));
    mine->SetChained(true);
    QObject::connect(theirs.get(), &iPlayList::RequestNameToSave, [](QString* name) { *name = QStringLiteral("MES0020"); });
    QObject::connect(theirs.get(), &iPlayList::RequestDescriptionToSave, [](QString* text) { *text = QStringLiteral("Evening"); });
    EXPECT_FALSE(Failure([&] { theirs->Save(); }).isEmpty()) << "a save over an older version is refused too";
    EXPECT_FALSE(one.Carts()->Exists(QStringLiteral("MES0020"))) << "refused before the macro is written";

    // Deleted on one workstation: the other's next edit says so and the list leaves its
    // collection.
    const int before = two.PlayLists()->Count();
    one.PlayLists()->Remove(id);
    QSignalSpy counted(two.PlayLists().get(), &iPlayLists::ChangedCount);
    EXPECT_EQ(Failure([&] { theirs->Insert(1, nullptr); }),
              QStringLiteral("Playlist %1 was deleted on another workstation: this change was not stored").arg(id));
    EXPECT_EQ(counted.count(), 1);
    EXPECT_EQ(two.PlayLists()->Count(), before - 1);
    EXPECT_EQ(two.PlayLists()->IndexOf(id), 0);
}
}

class PlayListWorkstationsTest : public KernelTest
{
};

TEST_F(PlayListWorkstationsTest, AnEditOverAnotherWorkstationsNewerListIsRefusedAndReported)
{
    const auto other = Reopen();
    EditTheSameList(*kernel, *other, QStringLiteral("PL0002"));
    EXPECT_GE(LogLinesWith(QStringLiteral("was changed on another workstation")).size(), 2);
    EXPECT_EQ(LogLinesWith(QStringLiteral("was deleted on another workstation")).size(), 1);
    EXPECT_TRUE(LogLinesWith(QStringLiteral("was deleted on another workstation")).first().contains(QStringLiteral("ERROR")));
}

TEST_F(PlayListWorkstationsTest, AStationMadeBeforeListsHadVersionsGetsTheColumn)
{
    kernel.reset();
    {
        auto db = OpenData("Kernel.MDB");
        db->ExecuteNative(QStringLiteral("ALTER TABLE PlayList DROP COLUMN Version"));
    }
    kernel = Reopen();
    const auto list = kernel->PlayLists()->Item(QStringLiteral("PL0001"));
    list->SetName(QStringLiteral("Renamed"));
    EXPECT_EQ(Read("Kernel.MDB", QStringLiteral("SELECT Version FROM PlayList WHERE ID = 'PL0001'")).toInt(), 1);
}

TEST(PlayListsOnServer, AnEditOverAnotherWorkstationsNewerListIsRefusedAndReported)
{
    const QString location = FreshServerStation();
    if (location.isEmpty())
        GTEST_SKIP() << NoTestServer;
    CreateServerCatalogue(location);
    OpenServerKernel(location)->Execute(
        QStringLiteral("INSERT INTO Cart (ID, Descripcio, Type, Time) VALUES ('JIN0001', 'Morning jingle', 'S', 3000)"));
    QTemporaryDir firstDir, secondDir;
    const auto first = EmbeddedKernel::Open(ServerStationFolder(firstDir, QStringLiteral("ONE"), location), nullptr);
    const auto second = EmbeddedKernel::Open(ServerStationFolder(secondDir, QStringLiteral("TWO"), location), nullptr);
    const QString id = first->PlayLists()->Add()->ID();
    ASSERT_GE(second->PlayLists()->IndexOf(id), 1);
    EditTheSameList(*first, *second, id);
}
