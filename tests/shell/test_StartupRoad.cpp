#include "ShellFixture.h"
#include "foundation/Globals.h"
#include "foundation/db/Database.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/iChannels.h"
#include "shell/BackGround.h"
#include "shell/CInterface.h"
#include "shell/IFMenu.h"
#include "shell/IFStationID.h"
#include "shell/IFUserInfo.h"
#include "shell/InitForm.h"
#include "shell/modInterface.h"
#include <QDir>
#include <QPushButton>
#include <QTemporaryDir>

using StartupRoad = ShellFixture;

TEST_F(StartupRoad, ReachesTheMenuWithOnlyLoginEnabled)
{
    ASSERT_TRUE(Start());
    EXPECT_TRUE(endedWith.isEmpty());
    EXPECT_TRUE(dialogs->boxes.isEmpty());
    ASSERT_TRUE(InitForm::Instance()->isVisible());
    ASSERT_NE(Menu(), nullptr);
    EXPECT_EQ(Menu()->ButtonCount(), 10); // five rows of two: the last place is empty
    EXPECT_TRUE(MenuButton(QStringLiteral("Login"))->isEnabled());
    EXPECT_FALSE(MenuButton(QStringLiteral("Configuration"))->isEnabled());
    EXPECT_FALSE(MenuButton(QStringLiteral("Live"))->isEnabled());
    EXPECT_FALSE(MenuButton(QStringLiteral("Exit"))->isEnabled());

    auto* user = InitForm::Instance()->findChild<IFUserInfo*>(QStringLiteral("IFUserInfo1"));
    ASSERT_NE(user, nullptr);
    EXPECT_EQ(user->ShownName(), QStringLiteral("<None>"));
    auto* stationID = InitForm::Instance()->findChild<IFStationID*>(QStringLiteral("IFStationID1"));
    ASSERT_NE(stationID, nullptr);
    EXPECT_TRUE(stationID->Caption().startsWith(QStringLiteral("Station ID: ")));
    EXPECT_EQ(modInterface::InterfaceStarted(), 1);
    EXPECT_EQ(Globals::Kernel()->Channels()->Count(), 3); // A, B and Rec were walked at start
    EXPECT_EQ(Globals::Data().All().size(), 9u);
    for (auto* recordset : Globals::Data().All())
        EXPECT_NE(recordset, nullptr);

    const QString log = LogText();
    EXPECT_TRUE(log.contains(QStringLiteral("OK: Korvane_Interface_v1_2_c.modInterface.StartInterface: Interface version = ")
                             + CInterface::Version()));
    EXPECT_FALSE(log.contains(QStringLiteral("ERROR: ")));
}

TEST_F(StartupRoad, AFolderThatIsNoStationEndsWithTheKernelBoxes)
{
    QTemporaryDir empty;
    qputenv("KORVANE_STATION", empty.path().toUtf8());
    EXPECT_FALSE(Start());
    ASSERT_EQ(dialogs->boxes.size(), 2);
    EXPECT_TRUE(dialogs->boxes[0].text.startsWith(QStringLiteral("Korvane_Interface.modKernel.StartKernel()\r\nCKernel\r\n")));
    EXPECT_EQ(dialogs->boxes[1].text, QStringLiteral("Korvane_Interface.modMain.Main(): Interface is not trying to be loaded as Kernel was not started properly"));
    EXPECT_TRUE(dialogs->boxes[1].title.isEmpty());
    EXPECT_EQ(endedWith, QVector<int>{1});
    EXPECT_FALSE(InitForm::Exists());
}

TEST_F(StartupRoad, AMissingMenuFileEndsTheProgram)
{
    SetStationKey(QStringLiteral("Menu"), QStringLiteral("File"), QStringLiteral("nomenu.ini"));
    Start();
    ASSERT_EQ(dialogs->boxes.size(), 2);
    EXPECT_EQ(dialogs->boxes[0].text, QStringLiteral("Korvane_Interface.CMenuItems.LoadMenuItems()\r\n Filename '")
                                          + station->Dir() + QStringLiteral("nomenu.ini' does not exist"));
    EXPECT_EQ(dialogs->boxes[1].text, QStringLiteral("Volmar Korvane is going to finish because:\r\nMenu was not loaded"));
    EXPECT_FALSE(endedWith.isEmpty());
}

TEST_F(StartupRoad, AMenuOfThreeColumnsStopsAtTheMissingColumn)
{
    SetStationKey(QStringLiteral("Menu"), QStringLiteral("Columns"), QStringLiteral("3"));
    ASSERT_TRUE(Start());
    EXPECT_EQ(Menu()->ButtonCount(), 2);
    EXPECT_TRUE(LogText().contains(QStringLiteral("ERROR: Korvane_Interface_v1_2_c.IFMenu.LoadControls: Column 3 of the menu does not exist")));
}

TEST_F(StartupRoad, AFileThatIsNoDatabaseIsRefusedByName)
{
    QFile sound(station->DataDir() + QStringLiteral("Sound.MDB"));
    ASSERT_TRUE(sound.open(QIODevice::WriteOnly | QIODevice::Truncate));
    sound.write(QByteArray(4096, 'x'));
    sound.close();
    EXPECT_FALSE(Start());
    ASSERT_FALSE(dialogs->boxes.isEmpty());
    EXPECT_TRUE(dialogs->boxes[0].text.contains(QStringLiteral("Sound.MDB"))) << dialogs->boxes[0].text.toStdString();
    EXPECT_TRUE(dialogs->boxes[0].text.contains(QStringLiteral("not a database")));
    EXPECT_EQ(endedWith.value(0), 1);
}

TEST_F(StartupRoad, AMissingSharedTableIsAGraveError)
{
    Database::Open(station->DataDir() + QStringLiteral("Sound.MDB"))->Execute(QStringLiteral("DROP TABLE RMacro"));
    Start();
    ASSERT_FALSE(dialogs->boxes.isEmpty());
    const auto& grave = dialogs->boxes.last();
    EXPECT_EQ(grave.title, QStringLiteral("Error"));
    EXPECT_EQ(grave.text, QStringLiteral("Error grave al iniciar la interfaz\r\nLa aplicación se cerrará"));
    EXPECT_EQ(grave.icon, Dialogs::Icon::Critical);
    EXPECT_EQ(endedWith.value(0), 1);
    EXPECT_TRUE(LogText().contains(QStringLiteral("ERROR: Korvane_Interface_v1_2_c.InitForm.Form_Initialize.SetRecordsets: ")));
}

TEST_F(StartupRoad, TheWatchdogBringsTheMenuBackOnTheEleventhTick)
{
    ASSERT_TRUE(Start());
    InitForm::Instance()->close(); // closing the menu window only hides it
    EXPECT_TRUE(InitForm::Exists());
    EXPECT_FALSE(InitForm::Instance()->isVisible());
    BackGround::Instance()->show(); // a visible background still counts as an empty desktop
    for (int tick = 0; tick < 10; ++tick)
        BackGround::Instance()->Timer1_Timer();
    EXPECT_FALSE(InitForm::Instance()->isVisible());
    BackGround::Instance()->Timer1_Timer();
    EXPECT_TRUE(InitForm::Instance()->isVisible());
}

TEST_F(StartupRoad, SwitchesMatchYesInAnyCase)
{
    SetConfig(QStringLiteral("T_StationID"), QStringLiteral("YES"));
    SetConfig(QStringLiteral("T_Application"), QStringLiteral("no"));
    ASSERT_TRUE(Start());
    EXPECT_NE(InitForm::Instance()->findChild<IFStationID*>(), nullptr);
    EXPECT_EQ(InitForm::Instance()->VersionText(), QStringLiteral("Korvane ") + CInterface::Version());
}
