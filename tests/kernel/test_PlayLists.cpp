#include "test_CartsFixture.h"
#include "kernelapi/iMacro.h"
#include "kernelapi/iObjectWithProperties.h"
#include "kernelapi/iPlayList.h"
#include "kernelapi/iPlayListItem.h"
#include <QSignalSpy>
#include "KernelChecks.h"

using KernelChecks::RowIDs;

class PlayListsTest : public CartWorldTest
{
protected:
    std::shared_ptr<iCart> CartOf(const char* id) const { return carts->Cart(QString::fromLatin1(id)); }

    std::shared_ptr<iPlayLists> lists = kernel->PlayLists();
};

TEST_F(PlayListsTest, TheDemoListsAreLiveObjectsFromTheKernelTables)
{
    EXPECT_EQ(kernel->PlayLists(), lists);
    ASSERT_EQ(lists->Count(), 2);
    const auto hour = lists->Item(QStringLiteral("PL0001"));
    EXPECT_EQ(lists->Item(1), hour);
    EXPECT_EQ(lists->IndexOf(QStringLiteral("PL0002")), 2);
    EXPECT_EQ(lists->IndexOf(QStringLiteral("PL0099")), 0);
    EXPECT_THROW(lists->Item(QStringLiteral("PL0099")), KernelError);
    EXPECT_THROW(lists->Item(3), KernelError);

    EXPECT_EQ(hour->Name(), QStringLiteral("Top of the hour"));
    EXPECT_EQ(hour->LoadState(), 1);
    ASSERT_NE(hour->LoadedMacro(), nullptr);
    EXPECT_EQ(hour->LoadedMacro()->Cart()->ID(), QStringLiteral("MES0001"));
    EXPECT_TRUE(hour->Chained());
    EXPECT_EQ(RowIDs(*hour), QStringList({"CON0003", "JIN0001", "MUS0001"}));
    EXPECT_EQ(hour->Item(2)->Cart(), CartOf("JIN0001")) << "rows hold the live carts";

    const auto pads = lists->Item(QStringLiteral("PL0002"));
    EXPECT_EQ(pads->LoadState(), 0);
    EXPECT_EQ(RowIDs(*pads), QStringList({"JIN0001", "JIN0002", "ESP0001", "ESP0002", "-", "NEW0002"}));
    EXPECT_FALSE(pads->Modified());
}

TEST_F(PlayListsTest, EditsRaiseTheirEventsKeepTheNextRowAndAreStoredAtOnce)
{
    QSignalSpy counted(lists.get(), &iPlayLists::ChangedCount);
    const auto list = lists->Add();
    EXPECT_EQ(counted.count(), 1);
    EXPECT_EQ(list->ID(), QStringLiteral("PL0003"));
    EXPECT_EQ(list->Count(), 0);
    EXPECT_EQ(list->NextIndex(), 1);

    QSignalSpy content(list.get(), &iPlayList::ContentChanged);
    QSignalSpy item(list.get(), &iPlayList::ChangedPlayListItem);
    QSignalSpy next(list.get(), &iPlayList::ChangedNextIndex);
    QSignalSpy status(list.get(), &iPlayList::StatusChanged);
    list->Insert(1, CartOf("JIN0001"));
    list->Insert(2, CartOf("JIN0002"));
    list->Insert(3, nullptr);
    EXPECT_EQ(content.count(), 3);
    EXPECT_TRUE(list->Modified());
    EXPECT_EQ(status.count(), 1) << "Modified changed once";
    EXPECT_EQ(next.count(), 0) << "the next row stays on the first row";

    list->SetNextIndex(2);
    ASSERT_EQ(next.count(), 1);
    EXPECT_EQ(next[0], QVariantList({1, 2}));
    list->Insert(1, CartOf("MUS0001"));
    EXPECT_EQ(list->NextIndex(), 3) << "the next row follows its cart";
    list->LiftUp(3);
    EXPECT_EQ(RowIDs(*list), QStringList({"MUS0001", "JIN0002", "JIN0001", "-"}));
    EXPECT_EQ(list->NextIndex(), 2);
    list->LiftDown(1);
    EXPECT_EQ(list->NextIndex(), 1);
    list->Delete(1);
    EXPECT_EQ(RowIDs(*list), QStringList({"MUS0001", "JIN0001", "-"}));
    EXPECT_EQ(list->NextIndex(), 1);
    EXPECT_THROW(list->LiftUp(1), KernelError);
    EXPECT_THROW(list->LiftDown(3), KernelError);
    EXPECT_THROW(list->Delete(4), KernelError);
    EXPECT_THROW(list->Insert(5, nullptr), KernelError);
    EXPECT_THROW(list->SetNextIndex(5), KernelError);
    list->SetNextIndex(4); // one past the last row is allowed

    const int contentBefore = content.count();
    list->Put(2, CartOf("ESP0001"));
    EXPECT_EQ(item.count(), 1);
    EXPECT_EQ(item.last()[0].toInt(), 2);
    list->Put(6, CartOf("ESP0002"));
    EXPECT_EQ(content.count(), contentBefore + 1);
    EXPECT_EQ(RowIDs(*list), QStringList({"MUS0001", "ESP0001", "-", "-", "-", "ESP0002"}));
    list->Item(2)->SetLooped(true);
    list->Item(6)->Properties()->SetProperty(QStringLiteral("SerializedPadColors"), QStringLiteral("1;2;3"));
    list->SetName(QStringLiteral("Pads"));

    const auto stored = Reopen()->PlayLists()->Item(QStringLiteral("PL0003"));
    EXPECT_EQ(RowIDs(*stored), RowIDs(*list));
    EXPECT_EQ(stored->Name(), QStringLiteral("Pads"));
    EXPECT_EQ(stored->NextIndex(), 4);
    EXPECT_TRUE(stored->Item(2)->Looped());
    EXPECT_TRUE(stored->Modified());
    EXPECT_EQ(stored->Item(6)->Properties()->Property(QStringLiteral("SerializedPadColors")).toString(), QStringLiteral("1;2;3"));

    list->Shuffle(); // from the next row on: the first three stay
    EXPECT_EQ(RowIDs(*list).mid(0, 3), QStringList({"MUS0001", "ESP0001", "-"}));
    EXPECT_EQ(RowIDs(*list).mid(3).count(QStringLiteral("ESP0002")), 1);

    lists->Remove(QStringLiteral("PL0003"));
    EXPECT_EQ(counted.count(), 2);
    EXPECT_EQ(Reopen()->PlayLists()->Count(), 2);
    EXPECT_THROW(lists->Remove(QStringLiteral("PL0003")), KernelError);
}

TEST_F(PlayListsTest, SavingWritesTheMacroAfterAskingForWhatIsMissing)
{
    const auto pads = lists->Item(QStringLiteral("PL0002"));
    int asked = 0;
    QString name;
    QObject::connect(pads.get(), &iPlayList::RequestNameToSave, [&](QString* answer) { ++asked, *answer = name; });
    QObject::connect(pads.get(), &iPlayList::RequestDescriptionToSave, [&](QString* answer) { ++asked, *answer = QStringLiteral("Pads"); });
    pads->Save();
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(pads->LoadState(), 0) << "no name: not saved";

    pads->Put(1, CartOf("MUS0001"));
    EXPECT_TRUE(pads->Item(1)->Modified());
    name = QStringLiteral("MES0020");
    QSignalSpy status(pads.get(), &iPlayList::StatusChanged);
    pads->Save();
    EXPECT_EQ(asked, 3);
    EXPECT_FALSE(pads->Modified());
    EXPECT_FALSE(pads->Item(1)->Modified());
    EXPECT_GE(status.count(), 1);
    EXPECT_EQ(pads->LoadState(), 1);
    EXPECT_EQ(pads->Description(), QStringLiteral("Pads"));
    EXPECT_EQ(CartOf("MES0020")->Type(), CartType::Macro);

    // Reload drops what was not saved; a list made from the macro holds the same rows.
    pads->Delete(1);
    pads->Reload();
    EXPECT_EQ(RowIDs(*pads), QStringList({"MUS0001", "JIN0002", "ESP0001", "ESP0002", "-", "NEW0002"}));
    EXPECT_FALSE(pads->Modified());
    const auto copy = lists->AddFromMacro(QStringLiteral("MES0020"));
    EXPECT_EQ(RowIDs(*copy), RowIDs(*pads));
    EXPECT_EQ(copy->Name(), QStringLiteral("MES0020"));
    EXPECT_THROW(lists->AddFromMacro(QStringLiteral("JIN0001")), KernelError);
    EXPECT_EQ(lists->Count(), 3) << "a refused macro makes no list";
}

TEST_F(PlayListsTest, ListRowsFollowAMovedCart)
{
    const auto hour = lists->Item(QStringLiteral("PL0001"));
    ASSERT_TRUE(carts->MoveCart(QStringLiteral("JIN0001"), QStringLiteral("JIN0099")));
    EXPECT_EQ(RowIDs(*hour), QStringList({"CON0003", "JIN0099", "MUS0001"}));
    EXPECT_EQ(RowIDs(*Reopen()->PlayLists()->Item(QStringLiteral("PL0001"))), RowIDs(*hour));
    EXPECT_FALSE(hour->Modified()) << "renumbering is no edit of the list";
}
