// The whole workstation as main runs it, on a fresh demo station: log in, open a screen, log
// out and leave, with real mouse and key events; and the real executable on a folder that is
// no station. The walk photographs each screen into build/screenshots.
#include "e2e/WorkstationSteps.h"
#include "e2e/WorkstationTest.h"
#include "foundation/ui/ScriptedDialogs.h"
#include "metering/IFChannelMonitor.h"
#include "shell/ConfigForm.h"
#include "shell/FrmLevels.h"
#include "shell/InitForm.h"
#include "shell/PasswordForm.h"
#include "shell/Theme.h"
#include "shell/modMain.h"
#include "support/Photograph.h"
#include "support/TempStation.h"
#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>

namespace {
QString BuildDir()
{
    return QStringLiteral(KORVANE_BUILD_DIR);
}
}

using namespace WorkstationSteps;
using Workstation = WorkstationTest;

TEST_F(Workstation, LogsInOpensAScreenLogsOutAndLeaves)
{
    int ended = -1;
    ScriptedDialogs* dialogs = Start(ended);
    Photograph(InitForm::Instance(), QStringLiteral("menu-logged-out"));

    Click(MenuButton(QStringLiteral("Login")));
    auto* password = qobject_cast<PasswordForm*>(Form::Find(QStringLiteral("PasswordForm")));
    ASSERT_NE(password, nullptr);
    QTest::keyClicks(password->Text1, QStringLiteral("admin"));
    QTest::keyClick(password->Text1, Qt::Key_Return);
    QTest::keyClicks(password->Text2, QStringLiteral("korvane"));
    Photograph(password, QStringLiteral("login"));
    QTest::keyClick(password->Text2, Qt::Key_Return);
    QCoreApplication::processEvents();
    ASSERT_TRUE(InitForm::Instance()->isVisible());
    Photograph(InitForm::Instance(), QStringLiteral("menu-logged-in"));

    Click(MenuButton(QStringLiteral("Levels")));
    auto* levels = qobject_cast<FrmLevels*>(Form::Find(QStringLiteral("FrmLevels")));
    ASSERT_NE(levels, nullptr);
    EXPECT_TRUE(levels->isVisible());
    levels->Monitor()->TmrChannelMonitor_Timer();
    Photograph(levels, QStringLiteral("levels"));
    Click(levels->findChild<QPushButton*>(QStringLiteral("CmdExit")));
    EXPECT_TRUE(InitForm::Instance()->isVisible());

    Click(MenuButton(QStringLiteral("Configuration")));
    auto* config = qobject_cast<ConfigForm*>(Form::Find(QStringLiteral("ConfigForm")));
    ASSERT_NE(config, nullptr);
    EXPECT_TRUE(config->isVisible());
    EXPECT_TRUE(config->Cmd(3)->isEnabled());
    Photograph(config, QStringLiteral("configuration"));
    Click(config->Cmd(9));
    EXPECT_TRUE(InitForm::Instance()->isVisible());

    Click(MenuButton(QStringLiteral("Logout")));
    EXPECT_TRUE(MenuButton(QStringLiteral("Login"))->isEnabled());
    EXPECT_FALSE(MenuButton(QStringLiteral("Exit"))->isEnabled());

    // Exit is a menu entry of a logged-in user: log in again, then leave.
    Click(MenuButton(QStringLiteral("Login")));
    password = qobject_cast<PasswordForm*>(Form::Find(QStringLiteral("PasswordForm")));
    ASSERT_NE(password, nullptr);
    password->Text1->setText(QStringLiteral("PRESENTER"));
    password->Text2->setText(QStringLiteral("onair"));
    Click(password->Command1);
    Click(MenuButton(QStringLiteral("Exit")));
    ASSERT_EQ(dialogs->boxes.size(), 1);
    EXPECT_EQ(dialogs->boxes[0].text, QStringLiteral("Do you really want to exit?"));
    EXPECT_EQ(ended, 0);

    const QString text = TodaysLog(station.Dir());
    EXPECT_FALSE(text.contains(QStringLiteral("ERROR: "))) << text.toStdString();
    for (const char* step : {"Interface version = ", "MT_OpenForm.", "Opening form 'PasswordForm'", "Opening form 'ConfigForm'", "Opening form 'FrmLevels'", "MT_Logout.", "MT_Exit."})
        EXPECT_TRUE(text.contains(QString::fromLatin1(step))) << step;
}

TEST(Executable, EndsWhenTheFolderIsNoStation)
{
    QTemporaryDir empty;
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("KORVANE_STATION"), empty.path());
    environment.insert(QStringLiteral("KORVANE_DIALOGS"), QStringLiteral("print"));
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    program.setProcessEnvironment(environment);
    program.start(BuildDir() + QStringLiteral("/bin/korvane"), {});
    ASSERT_TRUE(program.waitForFinished(30000)) << program.errorString().toStdString();
    EXPECT_EQ(program.exitCode(), 1);
    const QString errors = QString::fromUtf8(program.readAllStandardError());
    EXPECT_TRUE(errors.contains(QStringLiteral("Korvane_Interface.modKernel.StartKernel()"))) << errors.toStdString();
    EXPECT_TRUE(errors.contains(QStringLiteral("Interface is not trying to be loaded as Kernel was not started properly")));
    EXPECT_TRUE(QDir(empty.path()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries).isEmpty()); // nothing written there
}
