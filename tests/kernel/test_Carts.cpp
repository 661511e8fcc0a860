#include "test_CartsFixture.h"
#include "kernelapi/iObjectWithProperties.h"
#include "kernelapi/iSound.h"
#include <QSignalSpy>
#include <QTemporaryDir>

using CartsTest = CartWorldTest;

TEST_F(CartsTest, OneLiveObjectPerIDWhileHeldAndUnknownIDsReadAsUnknownCarts)
{
    EXPECT_EQ(kernel->Carts(), carts);
    EXPECT_EQ(kernel->Families(), families);
    const auto jingle = carts->Cart(QStringLiteral("JIN0001"));
    EXPECT_EQ(carts->Cart(QStringLiteral("JIN0001")), jingle);
    EXPECT_EQ(carts->Cart(QStringLiteral(" jin0001 ")), jingle) << "IDs are trimmed and kept in upper case";
    EXPECT_EQ(jingle->Type(), CartType::Sound);
    EXPECT_EQ(jingle->Title(), QStringLiteral("Station ID \"Korvane FM\""));
    EXPECT_EQ(jingle->Family(), families->Item(QStringLiteral("JIN")));

    const std::weak_ptr<iCart> released = carts->Cart(QStringLiteral("MUS0001"));
    EXPECT_TRUE(released.expired()) << "the kernel does not keep carts nobody holds";
    EXPECT_EQ(carts->Cart(QStringLiteral("MUS0001"))->Description(), QStringLiteral("L'Hora del Jazz"));

    const auto unknown = carts->Cart(QStringLiteral("JIN9999"));
    EXPECT_EQ(unknown->Type(), CartType::Unknown);
    EXPECT_EQ(unknown->ID(), QStringLiteral("JIN9999"));
    EXPECT_EQ(unknown->Title(), QStringLiteral("[Unknown]"));
    EXPECT_EQ(unknown->TypeName(), QStringLiteral("Unknown Type"));
    EXPECT_EQ(unknown->Sound(), nullptr);
    EXPECT_FALSE(carts->Exists(QStringLiteral("JIN9999")));
    EXPECT_TRUE(carts->Exists(QStringLiteral("jin0001")));
    EXPECT_FALSE(carts->Exists(QStringLiteral("JIN01")));

    EXPECT_THROW(carts->Cart(QStringLiteral("JIN01")), KernelError);
    EXPECT_THROW(carts->Cart(QStringLiteral("12A0001")), KernelError);
    EXPECT_THROW(carts->NumberOf(QStringLiteral("JINX124")), KernelError);
    EXPECT_EQ(carts->NumberOf(QStringLiteral("JIN0124")), 124);
    EXPECT_EQ(carts->FamilyIDOf(QStringLiteral("JIN0124")), QStringLiteral("JIN"));
}

TEST_F(CartsTest, SavedCartsReadBackTheSameAfterReopeningWithTextsCutToTheirFields)
{
    const auto cart = carts->NewCart();
    EXPECT_TRUE(cart->ID().isEmpty());
    EXPECT_THROW(cart->Save(), KernelError) << "a cart without ID is not saved";
    cart->SetID(QStringLiteral("con0100"));
    cart->SetType(CartType::Control);
    cart->SetDescription(QStringLiteral("  ") + QString(300, u'd'));
    cart->SetComment(QStringLiteral("Starts the news  "));
    const QDateTime from(QDate(2024, 3, 1), QTime(8, 30));
    cart->SetStartDate(from);
    QSignalSpy changed(cart.get(), &iCart::ChangedProperties);
    cart->Save();
    EXPECT_EQ(changed.count(), 1);

    const auto reopened = Reopen()->Carts()->Cart(QStringLiteral("CON0100"));
    EXPECT_EQ(reopened->Type(), CartType::Control);
    EXPECT_EQ(reopened->Description(), QString(255, u'd'));
    EXPECT_EQ(reopened->Comment(), QStringLiteral("Starts the news"));
    EXPECT_EQ(reopened->StartDate(), from);
    EXPECT_EQ(reopened->EndDate(), QDateTime(QDate(2099, 1, 1), QTime(0, 0))) << "no date of its own: always valid";
    EXPECT_TRUE(CartField(QStringLiteral("StopDate"), QStringLiteral("CON0100")).isNull());

    // Separators and reserved carts have letters of their own; the always-valid dates are no dates.
    const auto spacer = carts->NewCart();
    spacer->SetID(QStringLiteral("JIN0010"));
    spacer->SetType(CartType::Separator);
    spacer->SetDescription(QStringLiteral("New spacer"));
    spacer->SetStartDate(QDateTime(QDate(2001, 1, 1), QTime(0, 0)));
    spacer->Save();
    EXPECT_EQ(CartField(QStringLiteral("Type"), QStringLiteral("JIN0010")).toString(), QStringLiteral("X"));
    EXPECT_TRUE(CartField(QStringLiteral("StartDate"), QStringLiteral("JIN0010")).isNull());
    EXPECT_EQ(Reopen()->Carts()->Cart(QStringLiteral("JIN0010"))->Type(), CartType::Separator);
    Run(SoundDb, QStringLiteral("UPDATE Cart SET Type = 'Q' WHERE ID = 'JIN0010'"));
    EXPECT_EQ(Reopen()->Carts()->Cart(QStringLiteral("JIN0010"))->Type(), CartType::Unknown) << "an unknown letter";
}

TEST_F(CartsTest, AWriteThroughAnotherObjectReachesTheLiveCart)
{
    const auto live = carts->Cart(QStringLiteral("PUB0001"));
    QSignalSpy changed(live.get(), &iCart::ChangedProperties);
    const auto other = carts->NewCart();
    other->SetID(QStringLiteral("PUB0001"));
    other->SetType(CartType::Control);
    other->SetDescription(QStringLiteral("Replaced"));
    other->Save();
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(live->Description(), QStringLiteral("Replaced"));
    EXPECT_EQ(live->Type(), CartType::Control);
    EXPECT_FALSE(HasRow(SoundDb, QStringLiteral("Sound"), QStringLiteral("PUB0001"))) << "a control cart has no sound row";

    const auto temporary = carts->Cart(QStringLiteral("JIN0002"))->TemporaryCopy();
    temporary->Sound()->SetFileStart(500);
    EXPECT_NE(carts->Cart(QStringLiteral("JIN0002"))->Sound()->FileStart(), 500);
    EXPECT_THROW(temporary->Save(), KernelError) << "a temporary copy never overwrites its cart";
}

TEST_F(CartsTest, SoundCartsTakeTheirLengthsFromTheirSound)
{
    const auto cart = carts->Cart(QStringLiteral("JIN0001"));
    const auto sound = cart->Sound();
    ASSERT_NE(sound, nullptr);
    EXPECT_TRUE(QFileInfo(sound->FileName()).isFile());
    EXPECT_EQ(cart->Time(), sound->FileStop() - sound->FileStart());
    EXPECT_EQ(cart->UsefulTime(), sound->FileStopMark() - sound->FileStartMark());
    EXPECT_EQ(carts->Cart(QStringLiteral("CON0001"))->Sound(), nullptr);

    sound->SetFileStart(100);
    cart->Save();
    EXPECT_EQ(CartField(QStringLiteral("Time"), QStringLiteral("JIN0001")).toInt(), sound->FileStop() - 100);

    QSignalSpy changed(cart.get(), &iCart::ChangedProperties);
    EXPECT_TRUE(cart->Recalculate(true));
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(cart->Time(), sound->FileStop() - sound->FileStart());
    EXPECT_TRUE(carts->Cart(QStringLiteral("MES0001"))->Recalculate(false));

    QFile::remove(sound->FileName());
    EXPECT_FALSE(cart->Recalculate(false)) << "a missing file is refused";
    EXPECT_EQ(LogLinesWith(QStringLiteral("ERROR: Korvane_Kernel.iCart.Recalculate: JIN0001")).size(), 1);
}

TEST_F(CartsTest, DeletingRemovesTheRowsAndTheFileOnlyWhenAskedAndNotShared)
{
    const QString kept = station.SoundDir() + StoredFile(QStringLiteral("JIN0002"));
    EXPECT_FALSE(carts->DeleteCart(QStringLiteral("JIN0002"), false).failed);
    EXPECT_FALSE(carts->Exists(QStringLiteral("JIN0002")));
    EXPECT_FALSE(HasRow(SoundDb, QStringLiteral("Sound"), QStringLiteral("JIN0002")));
    EXPECT_TRUE(QFileInfo(kept).isFile());

    const QString removed = station.SoundDir() + StoredFile(QStringLiteral("JIN0003"));
    const auto live = carts->Cart(QStringLiteral("JIN0003"));
    EXPECT_FALSE(carts->DeleteCart(QStringLiteral("JIN0003"), true).failed);
    EXPECT_FALSE(QFileInfo(removed).exists());
    EXPECT_EQ(live->Type(), CartType::Unknown) << "the live object reads the deletion";

    // A file that another sound names stays.
    const QString shared = StoredFile(QStringLiteral("MUS0001"));
    Run(SoundDb, QStringLiteral("UPDATE Sound SET Filename = ? WHERE ID = 'MUS0002'"), {shared});
    EXPECT_FALSE(carts->DeleteCart(QStringLiteral("MUS0002"), true).failed);
    EXPECT_TRUE(QFileInfo(station.SoundDir() + shared).isFile());

    const Outcome missing = carts->DeleteCart(QStringLiteral("JIN0003"), false);
    EXPECT_TRUE(missing.failed);
    EXPECT_TRUE(missing.message.contains(QStringLiteral("JIN0003"))) << missing.message.toStdString();
    EXPECT_TRUE(carts->DeleteCart(QStringLiteral("bad"), false).failed);
    EXPECT_FALSE(carts->DeleteCart(QStringLiteral("MES0002"), false).failed);
    EXPECT_EQ(Read(SoundDb, QStringLiteral("SELECT COUNT(*) FROM RMacro WHERE MacroID = 'MES0002'")).toInt(), 0);
}

TEST_F(CartsTest, CopyAndMoveRefuseAMissingSourceOrATakenDestination)
{
    EXPECT_FALSE(carts->CopyCart(QStringLiteral("JIN0001"), QStringLiteral("JIN0002")));
    EXPECT_FALSE(carts->MoveCart(QStringLiteral("JIN0001"), QStringLiteral("JIN0002")));
    EXPECT_FALSE(carts->CopyCart(QStringLiteral("JIN0999"), QStringLiteral("JIN0998")));
    EXPECT_FALSE(carts->MoveCart(QStringLiteral("JIN0999"), QStringLiteral("JIN0998")));
    EXPECT_FALSE(carts->MoveCart(QStringLiteral("JIN0001"), QStringLiteral("JIN01")));
    EXPECT_FALSE(carts->CopyCart(QStringLiteral("JIN0001"), QStringLiteral("JIN0001")));
    EXPECT_FALSE(carts->Exists(QStringLiteral("JIN0998")));

    // A copy of a sound gets its own audio and energy files, named after it.
    ASSERT_TRUE(carts->CopyCart(QStringLiteral("JIN0001"), QStringLiteral("ESP0050")));
    const QString copy = StoredFile(QStringLiteral("ESP0050"));
    EXPECT_TRUE(copy.startsWith(QStringLiteral("ESP0050."))) << copy.toStdString();
    EXPECT_TRUE(QFileInfo(station.SoundDir() + copy).isFile());
    EXPECT_EQ(carts->Cart(QStringLiteral("ESP0050"))->Description(), carts->Cart(QStringLiteral("JIN0001"))->Description());
    ASSERT_TRUE(carts->CopyCart(QStringLiteral("MES0001"), QStringLiteral("MES0050")));
    EXPECT_EQ(Read(SoundDb, QStringLiteral("SELECT COUNT(*) FROM RMacro WHERE MacroID = 'MES0050'")).toInt(), 3);

    // A move renumbers the cart and the steps that name it; the file stays where it is.
    const QString file = StoredFile(QStringLiteral("JIN0003"));
    ASSERT_TRUE(carts->MoveCart(QStringLiteral("JIN0003"), QStringLiteral("JIN0030")));
    EXPECT_FALSE(carts->Exists(QStringLiteral("JIN0003")));
    EXPECT_EQ(StoredFile(QStringLiteral("JIN0030")), file);
    EXPECT_EQ(Read(SoundDb, QStringLiteral("SELECT COUNT(*) FROM RMacro WHERE SoundID = 'JIN0030'")).toInt(), 1);
    EXPECT_EQ(Read(SoundDb, QStringLiteral("SELECT COUNT(*) FROM RMacro WHERE SoundID = 'JIN0003'")).toInt(), 0);
}

TEST_F(CartsTest, PropertiesAreKeptWithTheCartAndFollowItsCopiesMovesAndDeletion)
{
    const auto cart = carts->Cart(QStringLiteral("JIN0002"));
    cart->Properties()->SetProperty(QStringLiteral("DefaultVolume"), -7);
    cart->Save();
    EXPECT_EQ(Reopen()->Carts()->Cart(QStringLiteral("JIN0002"))->Properties()->Property(QStringLiteral("DefaultVolume")).toInt(), -7);

    ASSERT_TRUE(carts->CopyCart(QStringLiteral("JIN0002"), QStringLiteral("JIN0060")));
    ASSERT_TRUE(carts->MoveCart(QStringLiteral("JIN0002"), QStringLiteral("JIN0061")));
    const auto reopened = Reopen()->Carts();
    EXPECT_EQ(reopened->Cart(QStringLiteral("JIN0060"))->Properties()->Property(QStringLiteral("DefaultVolume")).toInt(), -7);
    EXPECT_EQ(reopened->Cart(QStringLiteral("JIN0061"))->Properties()->Property(QStringLiteral("DefaultVolume")).toInt(), -7);

    // A cart made again under a deleted ID starts with no properties.
    ASSERT_FALSE(carts->DeleteCart(QStringLiteral("JIN0061"), false).failed);
    const auto fresh = carts->NewCart();
    fresh->SetID(QStringLiteral("JIN0061"));
    fresh->SetType(CartType::Control);
    fresh->Save();
    EXPECT_FALSE(Reopen()->Carts()->Cart(QStringLiteral("JIN0061"))->Properties()->HasProperty(QStringLiteral("DefaultVolume")));
}

TEST_F(CartsTest, EmptyExportAndPrint)
{
    const auto cart = carts->Cart(QStringLiteral("JIN0004"));
    const QString file = cart->Sound()->FileName();
    QTemporaryDir exports;
    const QString folder = exports.path() + QStringLiteral("/web");
    EXPECT_TRUE(cart->Export(folder, false));
    EXPECT_TRUE(QFileInfo(folder + u'/' + QFileInfo(file).fileName()).isFile());
    EXPECT_FALSE(cart->Export(folder, false)) << "an exported file is not replaced unless asked";
    EXPECT_TRUE(cart->Export(folder, true));
    EXPECT_FALSE(carts->Cart(QStringLiteral("CON0001"))->Export(folder, true));

    cart->Print(true, true);
    carts->Cart(QStringLiteral("MES0001"))->Print(true, true);
    const QStringList reports = Reports();
    ASSERT_EQ(reports.size(), 2);
    EXPECT_EQ(Head(reports[0], 4), QByteArray("%PDF"));
    EXPECT_GT(QFileInfo(reports[1]).size(), 500);

    EXPECT_TRUE(cart->Empty());
    EXPECT_EQ(cart->Time(), 0);
    EXPECT_EQ(cart->Type(), CartType::Sound);
    EXPECT_FALSE(HasRow(SoundDb, QStringLiteral("Sound"), QStringLiteral("JIN0004")));
    EXPECT_TRUE(HasRow(SoundDb, QStringLiteral("Cart"), QStringLiteral("JIN0004")));
    EXPECT_TRUE(QFileInfo(file).isFile()) << "emptying leaves the file";
    EXPECT_FALSE(cart->Export(folder, true));
    EXPECT_FALSE(carts->Cart(QStringLiteral("CON0001"))->Empty());
}
