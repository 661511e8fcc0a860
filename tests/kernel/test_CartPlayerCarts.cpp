#include "foundation/Ini.h"
#include "kernel/EmbeddedKernel.h"
#include "kernel/FileLogger.h"
#include "kernel/audio/AudioEngine.h"
#include "kernel/audio/Channels.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCartPlayer.h"
#include "kernelapi/iCarts.h"
#include "kernelapi/iChannel.h"
#include "kernelapi/iObjectWithProperties.h"
#include "kernelapi/iPlayList.h"
#include "kernelapi/iPlayLists.h"
#include "kernelapi/iSound.h"
#include "kernelapi/iStream.h"
#include "kernelapi/iStreams.h"
#include "support/TempStation.h"
#include <QFile>
#include <QUrl>
#include <gtest/gtest.h>
#include "KernelChecks.h"

using KernelChecks::Failure;

namespace {
constexpr qint32 Ready = static_cast<qint32>(CartPlayerStatus::Ready);
constexpr qint32 Playing = static_cast<qint32>(CartPlayerStatus::Playing);
constexpr qint32 Cued = static_cast<qint32>(CartPlayerStatus::Cued);

}

// The demo station's carts, macros and playlists on a player of the kernel, on the virtual
// clock.
class CartPlayerCartsTest : public ::testing::Test
{
protected:
    CartPlayerCartsTest()
    {
        WriteIni(QStringLiteral("Audio"), QStringLiteral("Clock"), QStringLiteral("virtual"), station.KernelIniFile());
        WriteIni(QStringLiteral("Audio"), QStringLiteral("ExpiringSeconds"), QStringLiteral("0"), station.KernelIniFile());
        kernel = EmbeddedKernel::Open(station.Folder(), logger);
    }

    std::shared_ptr<iCartPlayer> Player(int stream = 1) const
    {
        return kernel->Channels()->Item(QStringLiteral("A"))->Streams()->Item(stream)->CartPlayer();
    }

    void AdvanceMs(int ms) const
    {
        dynamic_cast<Channels&>(*kernel->Channels()).Engine().Advance(static_cast<std::int64_t>(ms) * 48);
    }

    std::shared_ptr<iCart> Cart(const QString& id) const { return kernel->Carts()->Cart(id); }

    int Length(const QString& id) const
    {
        const auto sound = Cart(id)->Sound();
        return sound->FileStop() - sound->FileStart();
    }

    // The titles and statuses a player raises, in order.
    void Follow(iCartPlayer& player)
    {
        QObject::connect(&player, &iCartPlayer::DisplayTitleChanged, [this](const QString& title) { titles << title; });
        QObject::connect(&player, &iCartPlayer::StatusChanged, [this](qint32 status) { statuses << status; });
    }

    TempStation station;
    std::shared_ptr<FileLogger> logger = std::make_shared<FileLogger>(station.Folder().LogDir());
    std::shared_ptr<EmbeddedKernel> kernel;
    QStringList titles;
    QList<qint32> statuses;
};

TEST_F(CartPlayerCartsTest, ASoundCartPlaysBetweenTheMarksOfItsSound)
{
    const auto player = Player();
    const auto cart = Cart(QStringLiteral("JIN0001"));
    player->Load(cart);
    EXPECT_EQ(player->Cart(), cart);
    EXPECT_EQ(player->DisplayTitle(), cart->Title());
    EXPECT_EQ(player->CueRemaining(), Length(QStringLiteral("JIN0001")));

    // A window of the sound, as the wave editor plays one.
    const auto window = cart->TemporaryCopy();
    window->Sound()->SetFileStart(20);
    window->Sound()->SetFileStop(80);
    player->Load(window);
    EXPECT_EQ(player->CueRemaining(), 60);
    player->Play();
    AdvanceMs(50);
    EXPECT_EQ(player->Status(), Playing);
    EXPECT_NEAR(player->PlayPosition(), 50, 6);
    AdvanceMs(20);
    EXPECT_EQ(player->Status(), Ready);
}

TEST_F(CartPlayerCartsTest, WhatCannotBePlayedIsRefusedAndThePlayerStaysUsable)
{
    const auto player = Player(2);
    EXPECT_EQ(Failure([&] { player->Load(Cart(QStringLiteral("JIN0999"))); }), QStringLiteral("Cart JIN0999 does not exist"));
    EXPECT_EQ(Failure([&] { player->Load(Cart(QStringLiteral("CON0001"))); }),
              QStringLiteral("Cart CON0001 is a Control cart and cannot be played"));
    EXPECT_EQ(Failure([&] { player->Load(std::shared_ptr<iCart>()); }), QStringLiteral("There is no cart to load"));
    const QString file = Cart(QStringLiteral("ESP0001"))->Sound()->FileName();
    ASSERT_TRUE(QFile::remove(file));
    EXPECT_EQ(Failure([&] { player->Load(Cart(QStringLiteral("ESP0001"))); }), QStringLiteral("Sound file '%1' does not exist").arg(file));
    EXPECT_FALSE(player->Loaded());

    player->Load(Cart(QStringLiteral("JIN0002")));
    player->Play();
    AdvanceMs(30);
    EXPECT_EQ(player->Status(), Playing);
}

TEST_F(CartPlayerCartsTest, DroppedTextNamesACartOrAFileAndAFilePlaysWithoutACatalogueRow)
{
    const auto byID = kernel->FillCartFromText(kernel->Carts()->NewCart(), QStringLiteral("  jin0001 Morning jingle\n"));
    ASSERT_TRUE(byID.ok);
    EXPECT_EQ(byID.cart, Cart(QStringLiteral("JIN0001")));
    EXPECT_FALSE(kernel->FillCartFromText(kernel->Carts()->NewCart(), QStringLiteral("JIN0999")).ok);
    EXPECT_FALSE(kernel->FillCartFromText(kernel->Carts()->NewCart(), QStringLiteral("no cart at all")).ok);
    EXPECT_FALSE(kernel->FillCartFromText(kernel->Carts()->NewCart(), QString()).ok);

    const QString file = Cart(QStringLiteral("JIN0002"))->Sound()->FileName();
    const auto byFile = kernel->FillCartFromText(kernel->Carts()->NewCart(), QUrl::fromLocalFile(file).toString());
    ASSERT_TRUE(byFile.ok);
    EXPECT_TRUE(byFile.cart->ID().isEmpty());
    EXPECT_EQ(byFile.cart->Sound()->FileName(), file);
    const auto player = Player();
    player->Load(byFile.cart);
    player->Play();
    AdvanceMs(30);
    EXPECT_EQ(player->Status(), Playing);
}

TEST_F(CartPlayerCartsTest, AMacroPlaysItsSoundStepsOneIntoTheNextWithoutAGap)
{
    const auto player = Player();
    Follow(*player);
    const auto macro = Cart(QStringLiteral("MES0002"));
    player->Load(macro);
    EXPECT_EQ(player->Cart(), macro);
    player->Play();
    const int whole = Length("JIN0004") + Length("NEW0002") + Length("NEW0001");
    AdvanceMs(whole - 10);
    EXPECT_EQ(player->Status(), Playing);
    AdvanceMs(18); // one period and a little: a gap at either step would still be playing
    EXPECT_EQ(player->Status(), Ready);
    EXPECT_EQ(titles, QStringList({Cart("JIN0004")->Title(), Cart("NEW0002")->Title(), Cart("NEW0001")->Title(),
                                   Cart("JIN0004")->Title()}));
    EXPECT_EQ(statuses, QList<qint32>({Cued, Playing, Ready})) << "no stop between the steps";

    // Skip goes on to the next step; after the last one the macro stands at its first again.
    player->Play();
    player->Skip();
    EXPECT_EQ(player->DisplayTitle(), Cart("NEW0002")->Title());
    EXPECT_EQ(player->Status(), Playing);
    player->Skip();
    player->Skip();
    EXPECT_EQ(player->Status(), Ready);
    EXPECT_EQ(player->DisplayTitle(), Cart("JIN0004")->Title());

    // Control carts in a macro are passed over.
    player->Load(Cart(QStringLiteral("MES0001")));
    EXPECT_EQ(player->DisplayTitle(), Cart("JIN0001")->Title());
}

TEST_F(CartPlayerCartsTest, TheDefaultVolumeIsKeptWithTheCartAndAppliedWhenItIsLoaded)
{
    const auto player = Player();
    const auto cart = Cart(QStringLiteral("JIN0002"));
    player->Load(cart);
    EXPECT_EQ(player->Volume(), 0);
    player->SetVolume(-7);
    player->SaveDefaultVolume();
    EXPECT_EQ(cart->Properties()->Property(QStringLiteral("DefaultVolume")).toInt(), -7);
    player->Load(Cart(QStringLiteral("JIN0001")));
    EXPECT_EQ(player->Volume(), 0);
    player->Load(cart);
    EXPECT_EQ(player->Volume(), -7);
    player->VolumeToZero();
    player->VolumeToCartDefault();
    EXPECT_EQ(player->Volume(), -7);
}

TEST_F(CartPlayerCartsTest, APlaylistPlaysRowByRowAndGoesOnByItselfWhenChained)
{
    const auto player = Player(3);
    Follow(*player);
    const auto list = kernel->PlayLists()->Add();
    const QStringList rows{"JIN0001", "JIN0002", "ESP0001", "ESP0002", QString(), "NEW0002"};
    for (int row = 1; row <= rows.size(); ++row)
        list->Put(row, rows[row - 1].isEmpty() ? nullptr : Cart(rows[row - 1]));
    ASSERT_FALSE(list->Chained());
    player->Load(list);
    EXPECT_EQ(player->Cart(), Cart("JIN0001"));
    player->Play();
    EXPECT_EQ(list->NextIndex(), 2) << "the arrow moves past the row that plays";
    AdvanceMs(Length("JIN0001") + 10);
    EXPECT_EQ(player->Status(), Cued) << "an unchained list cues its next row";
    EXPECT_EQ(player->Cart(), Cart("JIN0002"));

    list->SetNextIndex(4);
    player->Skip();
    EXPECT_EQ(player->Cart(), Cart("ESP0002")) << "the moved arrow decides what comes next";
    list->SetChained(true);
    statuses.clear();
    player->Play();
    AdvanceMs(Length("ESP0002") + Length("NEW0002") + 10);
    EXPECT_EQ(statuses, QList<qint32>({Playing, Ready}));
    EXPECT_EQ(titles.mid(titles.size() - 2), QStringList({Cart("ESP0002")->Title(), Cart("NEW0002")->Title()}))
        << "the blank row is passed over";
}
