// The cart and format helpers over the shared recordsets of a demo station.
#include "../controls/RecordingLogger.h"
#include "foundation/AppStatus.h"
#include "foundation/CartNumbers.h"
#include "foundation/DatabaseName.h"
#include "foundation/Globals.h"
#include "foundation/Launch.h"
#include "foundation/Ranges.h"
#include "foundation/db/Database.h"
#include "foundation/db/Recordset.h"
#include "foundation/ui/FormatLists.h"
#include "foundation/ui/GetCartInfo.h"
#include "foundation/ui/PointInside.h"
#include "foundation/ui/ScriptedDialogs.h"
#include "kernel/EmbeddedKernel.h"
#include "shell/modGlobals.h"
#include "support/TempStation.h"
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QListWidget>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {
class CartHelpers : public ::testing::Test
{
protected:
    void SetUp() override
    {
        auto scripted = std::make_unique<ScriptedDialogs>();
        dialogs = scripted.get();
        Dialogs::SetHandler(std::move(scripted));
        kernel = EmbeddedKernel::Open(station.Folder(), nullptr);
        Globals::SetKernel(kernel);
        modGlobals::SetRecordsets();
    }
    void TearDown() override
    {
        Globals::Data().Close();
        Globals::SetKernel(nullptr);
    }
    // Runs a statement on Sound.MDB and lets the shared recordsets see it.
    void Sound(const QString& sql)
    {
        Globals::Data().SoundDB->Execute(sql);
        for (Recordset* recordset : Globals::Data().All())
            if (recordset)
                recordset->Requery();
    }

    TempStation station;
    std::shared_ptr<EmbeddedKernel> kernel;
    ScriptedDialogs* dialogs = nullptr;
};
}

TEST_F(CartHelpers, GetCartInfoReadsCartAndSoundRows)
{
    const CartInfo sound = GetCartInfo(QStringLiteral(" MUS0001 "));
    EXPECT_EQ(sound.ID, QStringLiteral("MUS0001"));
    EXPECT_EQ(sound.Descripcio, QStringLiteral("L'Hora del Jazz"));
    EXPECT_EQ(sound.Type, QStringLiteral("S"));
    EXPECT_FALSE(sound.Filename.isEmpty());
    EXPECT_FALSE(sound.Stop.isEmpty());
    EXPECT_TRUE(sound.StartDate.isEmpty()) << "no date of its own reads as empty";

    const CartInfo macro = GetCartInfo(QStringLiteral("MES0001"));
    EXPECT_EQ(macro.Type, QStringLiteral("M"));
    EXPECT_FALSE(macro.Time.isEmpty());
    EXPECT_TRUE(macro.Filename.isEmpty() && macro.Stop.isEmpty() && macro.ClientID.isEmpty());

    EXPECT_EQ(GetCartInfo(QStringLiteral("   ")), CartInfo{});
    EXPECT_EQ(GetCartInfo(QStringLiteral("ZZZ0001")), CartInfo{});
    EXPECT_EQ(GetCartInfo(QStringLiteral("O'B0001")), CartInfo{}) << "a quote in an ID is text, not SQL";
    EXPECT_TRUE(dialogs->boxes.isEmpty());
}

TEST_F(CartHelpers, ASoundCartWithoutItsSoundRowShowsOneBoxAndReadsEmpty)
{
    Sound(QStringLiteral("DELETE FROM Sound WHERE ID = 'MUS0002'"));
    EXPECT_EQ(GetCartInfo(QStringLiteral("MUS0002")), CartInfo{});
    ASSERT_EQ(dialogs->boxes.size(), 1);
    EXPECT_EQ(dialogs->boxes[0].text, QStringLiteral("Error loading this sound. \nYou must call to the administrator or super user. \n"
                                                     "Rutine: GetCartInfo() Cart: MUS0002"));
}

TEST_F(CartHelpers, GetCartFieldReadsOneFieldOfCart)
{
    EXPECT_EQ(GetCartField(QStringLiteral("Comentari"), QStringLiteral("MUS0003")), QStringLiteral("Slow chords, fades out"));
    EXPECT_EQ(GetCartField(QStringLiteral("Descripcio"), QStringLiteral("XYZ9999")), QString());
    Sound(QStringLiteral("UPDATE Cart SET Comentari = NULL WHERE ID = 'MUS0003'"));
    EXPECT_EQ(GetCartField(QStringLiteral("Comentari"), QStringLiteral("MUS0003")), QString());
}

TEST_F(CartHelpers, FreeCartNumberAfterTheLastOrInTheFirstHole)
{
    EXPECT_EQ(FreeCartNumber(QStringLiteral("ZZZ"), false), QStringLiteral("0000"));
    EXPECT_EQ(FreeCartNumber(QStringLiteral("ZZZ"), true), QStringLiteral("0000"));
    for (const char* id : {"ZZZ0000", "ZZZ0001", "ZZZ0003"})
        Sound(QStringLiteral("INSERT INTO Cart (ID, Type) VALUES ('%1', 'C')").arg(QLatin1String(id)));
    EXPECT_EQ(FreeCartNumber(QStringLiteral("ZZZ"), false), QStringLiteral("0004"));
    EXPECT_EQ(FreeCartNumber(QStringLiteral("ZZZ"), true), QStringLiteral("0002"));
    EXPECT_EQ(FreeCartNumber(QStringLiteral("MUS"), true), QStringLiteral("0000")) << "the demo's music starts at 0001";
    Sound(QStringLiteral("INSERT INTO Cart (ID, Type) VALUES ('ZZZ9999', 'C')"));
    EXPECT_EQ(FreeCartNumber(QStringLiteral("ZZZ"), false), QStringLiteral("0000")) << "10000 keeps its last four digits";
}

TEST(Ranges, ClampBetweenMaxOfMinOf)
{
    EXPECT_EQ(Clamp(-4, 0, 10), 0);
    EXPECT_EQ(Clamp(14, 0, 10), 10);
    EXPECT_EQ(Clamp(7, 0, 10), 7);
    EXPECT_TRUE(Between(5, 5, 5));
    EXPECT_FALSE(Between(4, 5, 6));
    const int a = 3, b = 3;
    EXPECT_EQ(&MaxOf(a, b), &b) << "a tie gives the second";
    EXPECT_EQ(&MinOf(a, b), &b);
    EXPECT_EQ(MaxOf(2.5, 1.0), 2.5);
    EXPECT_EQ(MinOf(2.5, 1.0), 1.0);
}

TEST(FormatListsFill, ComboBoxesAndListsInTheirOrder)
{
    QComboBox modes;
    FormatLists::FillModes(&modes);
    ASSERT_EQ(modes.count(), 3);
    EXPECT_EQ(modes.itemText(2), QStringLiteral("Extra Stereo"));
    EXPECT_EQ(modes.itemData(0).toInt(), 1);
    EXPECT_EQ(modes.itemData(2).toInt(), 2);
    QListWidget rates;
    FormatLists::FillBitRates(&rates);
    EXPECT_EQ(rates.count(), 23);
    EXPECT_EQ(rates.item(22)->text(), QStringLiteral("448"));
    QComboBox frequencies, types, compressions;
    FormatLists::FillFrequencies(&frequencies);
    FormatLists::FillFileTypes(&types);
    FormatLists::FillCompressions(&compressions);
    EXPECT_EQ(frequencies.itemText(6), QStringLiteral("44100"));
    EXPECT_EQ(types.itemText(0), QStringLiteral(".Raw (Tots)"));
    EXPECT_EQ(compressions.itemText(4), QStringLiteral("Linear 16 bit Motorola"));
}

TEST(PointInsideContainer, EdgesCountAsInside)
{
    QWidget box;
    box.resize(100, 50);
    EXPECT_TRUE(PointInside(&box, 0, 0));
    EXPECT_TRUE(PointInside(&box, 100, 50));
    EXPECT_FALSE(PointInside(&box, -1, 10));
    EXPECT_FALSE(PointInside(&box, 10, 51));
}

TEST(LaunchPrograms, ALauncherFileGivesItsCommandWithoutFieldCodes)
{
    QTemporaryDir first, second;
    const auto write = [](const QString& path, const QByteArray& text) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    };
    write(second.filePath(QStringLiteral("editor.desktop")),
          "[Desktop Action New]\nExec=wrong\n[Desktop Entry]\nName=Editor\nExec=\"/opt/my editor/run\" --new %F\n");
    write(first.filePath(QStringLiteral("broken.desktop")), "[Desktop Entry]\nName=No command\n");
    const QStringList folders{first.path(), second.path()};
    EXPECT_EQ(Launcher::FileOf(QStringLiteral("editor"), folders), second.filePath(QStringLiteral("editor.desktop")));
    EXPECT_EQ(Launcher::Command(Launcher::FileOf(QStringLiteral("editor"), folders)), QStringList({"/opt/my editor/run", "--new"}));
    EXPECT_TRUE(Launcher::Command(first.filePath(QStringLiteral("broken.desktop"))).isEmpty());
    EXPECT_TRUE(Launcher::FileOf(QStringLiteral("../editor"), folders).isEmpty());
    EXPECT_TRUE(Launcher::FileOf(QString(), folders).isEmpty());
}

TEST(LaunchPrograms, AnUnknownNameWritesTheFailureLine)
{
    const auto logger = RecordingLogger::Install();
    Launch(QStringLiteral("no-such-program-here"));
    EXPECT_EQ(logger->Errors(), QStringList({"ERROR Globals.Launch: Could not launch 'no-such-program-here'"}));
    Log::SetLogger(nullptr);
}

TEST(SmallHelpers, AppStatusAndDatabaseName)
{
    EXPECT_EQ(AppStatus(), 1);
    Globals::TheStation().DatabasePath = QStringLiteral("/srv/station/data/");
    QString name = QStringLiteral("Sound.MDB");
    SetDatabaseName(name);
    EXPECT_EQ(name, QStringLiteral("/srv/station/data/Sound.MDB"));
    Globals::TheStation().DatabasePath.clear();
}
