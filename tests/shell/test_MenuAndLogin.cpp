#include "ShellFixture.h"
#include "foundation/Globals.h"
#include "foundation/Strings.h"
#include "foundation/db/Database.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/iUser.h"
#include "kernelapi/iUsers.h"
#include "shell/CInterface.h"
#include "shell/ConfigForm.h"
#include "shell/FrmChangePassword.h"
#include "shell/FrmMessage.h"
#include "shell/IFMenu.h"
#include "shell/IFUserInfo.h"
#include "shell/InitForm.h"
#include "shell/PasswordForm.h"
#include "shell/modInterface.h"
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

using MenuAndLogin = ShellFixture;

namespace {
IFUserInfo* UserPanel()
{
    return InitForm::Instance()->findChild<IFUserInfo*>(QStringLiteral("IFUserInfo1"));
}

ConfigForm* OpenConfiguration(ShellFixture&)
{
    return qobject_cast<ConfigForm*>(Form::Find(QStringLiteral("ConfigForm")));
}
}

TEST_F(MenuAndLogin, LoginEnablesTheMenuAndLogoutTakesItBack)
{
    ASSERT_TRUE(Start());
    ASSERT_TRUE(Login(QStringLiteral("admin"), QStringLiteral("korvane"))); // typed lower case
    EXPECT_FALSE(MenuButton(QStringLiteral("Login"))->isEnabled());
    EXPECT_TRUE(MenuButton(QStringLiteral("Configuration"))->isEnabled());
    EXPECT_TRUE(MenuButton(QStringLiteral("Logout"))->isEnabled());
    EXPECT_EQ(UserPanel()->ShownName(), QStringLiteral("ADMIN"));
    EXPECT_TRUE(UserPanel()->findChild<QLabel*>(QStringLiteral("LblPrivilegeDescription"))->text() == QStringLiteral("Super Usuari"));

    ClickMenu(QStringLiteral("Logout"));
    EXPECT_EQ(Globals::Kernel()->Users()->CurrentUser(), nullptr);
    EXPECT_TRUE(MenuButton(QStringLiteral("Login"))->isEnabled());
    EXPECT_FALSE(MenuButton(QStringLiteral("Configuration"))->isEnabled());
    EXPECT_EQ(UserPanel()->ShownName(), QStringLiteral("<None>"));
    const QString log = LogText();
    EXPECT_TRUE(log.contains(QStringLiteral("OK: Korvane_Interface_v1_2_c.IFMenu.CmdMenu_Click: MT_OpenForm.")));
    EXPECT_TRUE(log.contains(QStringLiteral("OK: Korvane_Interface_v1_2_c.IFMenu.CmdMenu_Click: MT_Logout.")));
    EXPECT_TRUE(log.contains(QStringLiteral("OK: Korvane_Interface_v1_2_c.InitForm.MenuSelector_ObjectEvent: Opening form 'PasswordForm'")));
}

TEST_F(MenuAndLogin, AUserStoredInMixedCaseLogsInByTypingAPasswordOfTheWesternCodePage)
{
    auto users = Database::Open(station->DataDir() + QStringLiteral("User.MDB"));
    users->Query(QStringLiteral("INSERT INTO Usuari (ID, Password, Privilege, Fails) VALUES (?, ?, 0, 0)"),
                 {QStringLiteral("McKay"), ScramblePassword(QStringLiteral("5€ “Œuvre”"))});
    ASSERT_TRUE(Start());
    ASSERT_TRUE(Login(QStringLiteral("mckay"), QStringLiteral("5€ “Œuvre”")));
    EXPECT_EQ(UserPanel()->ShownName(), QStringLiteral("McKay"));
}

TEST_F(MenuAndLogin, AWrongLoginClearsBothFieldsAndKeepsTheForm)
{
    ASSERT_TRUE(Start());
    EXPECT_FALSE(Login(QStringLiteral("ADMIN"), QStringLiteral("wrong")));
    ASSERT_EQ(dialogs->boxes.size(), 1);
    EXPECT_EQ(dialogs->boxes[0].title, QStringLiteral("LOGIN"));
    EXPECT_EQ(dialogs->boxes[0].text, QStringLiteral("User not accepted."));
    auto* form = qobject_cast<PasswordForm*>(Form::Find(QStringLiteral("PasswordForm")));
    ASSERT_NE(form, nullptr);
    EXPECT_TRUE(form->Text1->text().isEmpty());
    EXPECT_TRUE(form->Text2->text().isEmpty());
    EXPECT_TRUE(form->Text1->hasFocus() || !QApplication::focusWidget());

    // Cancelling still brings the menu back, refreshed.
    QTest::mouseClick(form->Command2, Qt::LeftButton);
    QCoreApplication::processEvents();
    EXPECT_EQ(Form::Find(QStringLiteral("PasswordForm")), nullptr);
    EXPECT_TRUE(InitForm::Instance()->isVisible());
}

TEST_F(MenuAndLogin, OnlyTypedNamesAreRaisedToUpperCase)
{
    ASSERT_TRUE(Start());
    ClickMenu(QStringLiteral("Login"));
    auto* form = qobject_cast<PasswordForm*>(Form::Find(QStringLiteral("PasswordForm")));
    ASSERT_NE(form, nullptr);
    QTest::keyClicks(form->Text1, QStringLiteral("presenter"));
    EXPECT_EQ(form->Text1->text(), QStringLiteral("PRESENTER"));
    form->Text1->clear();
    QApplication::clipboard()->setText(QStringLiteral("pasted"));
    form->Text1->paste();
    EXPECT_EQ(form->Text1->text(), QStringLiteral("pasted"));
    QTest::keyClicks(form->Text2, QStringLiteral("MiXed"));
    EXPECT_EQ(form->Text2->text(), QStringLiteral("MiXed"));
}

TEST_F(MenuAndLogin, ConfigurationGatesTheSystemSettingsByPrivilege)
{
    ASSERT_TRUE(Start());
    ASSERT_TRUE(Login(QStringLiteral("PRESENTER"), QStringLiteral("onair")));
    ClickMenu(QStringLiteral("Configuration"));
    ConfigForm* config = OpenConfiguration(*this);
    ASSERT_NE(config, nullptr);
    EXPECT_FALSE(InitForm::Instance()->isVisible());
    for (int index : {3, 4, 7, 10})
        EXPECT_FALSE(config->Cmd(index)->isEnabled()) << index;
    for (int index : {0, 1, 9})
        EXPECT_TRUE(config->Cmd(index)->isEnabled()) << index;

    // A screen that does not exist yet gives the refusal, and the menu is back.
    QTest::mouseClick(config->Cmd(1), Qt::LeftButton);
    QCoreApplication::processEvents();
    ASSERT_FALSE(dialogs->boxes.isEmpty());
    EXPECT_EQ(dialogs->boxes.last().text, QStringLiteral("This form can't be viewed"));
    EXPECT_EQ(modInterface::Interface()->MessageText(), QString());
    EXPECT_EQ(Form::Find(QStringLiteral("ConfigForm")), nullptr);
    EXPECT_TRUE(InitForm::Instance()->isVisible());
    EXPECT_TRUE(LogText().contains(QStringLiteral("ERROR: Korvane_Interface_v1_2_c.InitForm.MenuSelector_OpenForm: Form could not be added.")));

    ClickMenu(QStringLiteral("Logout"));
    ASSERT_TRUE(Login(QStringLiteral("ADMIN"), QStringLiteral("korvane")));
    ClickMenu(QStringLiteral("Configuration"));
    config = OpenConfiguration(*this);
    ASSERT_NE(config, nullptr);
    for (int index : {3, 4, 7, 10})
        EXPECT_TRUE(config->Cmd(index)->isEnabled()) << index;
    QTest::mouseClick(config->Cmd(0), Qt::LeftButton);
    QCoreApplication::processEvents();
    auto* change = Form::Find(QStringLiteral("FrmChangePassword"));
    ASSERT_NE(change, nullptr);
    EXPECT_TRUE(change->isVisible());
    EXPECT_FALSE(InitForm::Instance()->isVisible());
}

TEST_F(MenuAndLogin, ChangePasswordFollowsTheRules)
{
    ASSERT_TRUE(Start());
    ASSERT_TRUE(Login(QStringLiteral("ADMIN"), QStringLiteral("korvane")));
    InitForm::Instance()->MenuSelector_OpenForm(QStringLiteral("FrmChangePassword"));
    auto* form = qobject_cast<FrmChangePassword*>(Form::Find(QStringLiteral("FrmChangePassword")));
    ASSERT_NE(form, nullptr);

    // Two different new passwords: a box, and the fields stay as they were.
    form->TxtOldPassword->setText(QStringLiteral("korvane"));
    form->TxtNewPassword->setText(QStringLiteral("studio1"));
    form->TxtNewPassword2->setText(QStringLiteral("studio2"));
    QTest::mouseClick(form->CmdAccept, Qt::LeftButton);
    ASSERT_EQ(dialogs->boxes.size(), 1);
    EXPECT_EQ(dialogs->boxes[0].title, QStringLiteral("ERROR"));
    EXPECT_EQ(dialogs->boxes[0].text, QStringLiteral("Comprobation is not correct. Please, re-insert password."));
    EXPECT_EQ(form->TxtNewPassword2->text(), QStringLiteral("studio2"));

    // A wrong old password: the kernel's own reason.
    form->TxtOldPassword->setText(QStringLiteral("nope"));
    form->TxtNewPassword2->setText(QStringLiteral("studio1"));
    QTest::mouseClick(form->CmdAccept, Qt::LeftButton);
    ASSERT_EQ(dialogs->boxes.size(), 2);
    EXPECT_EQ(dialogs->boxes[1].title, QStringLiteral("ERROR"));
    EXPECT_FALSE(dialogs->boxes[1].text.isEmpty());
    ASSERT_NE(Form::Find(QStringLiteral("FrmChangePassword")), nullptr);

    // Enter walks the fields, and an accepted change closes the form.
    form->TxtOldPassword->setText(QStringLiteral("korvane"));
    form->TxtOldPassword->setFocus();
    QTest::keyClick(form->TxtOldPassword, Qt::Key_Return);
    EXPECT_TRUE(form->TxtNewPassword->hasFocus() || !QApplication::focusWidget());
    QTest::mouseClick(form->CmdAccept, Qt::LeftButton);
    QCoreApplication::processEvents();
    EXPECT_EQ(Form::Find(QStringLiteral("FrmChangePassword")), nullptr);
    EXPECT_TRUE(InitForm::Instance()->isVisible());

    ClickMenu(QStringLiteral("Logout"));
    EXPECT_FALSE(Login(QStringLiteral("ADMIN"), QStringLiteral("korvane")));
    Form::Find(QStringLiteral("PasswordForm"))->close();
    EXPECT_TRUE(Login(QStringLiteral("ADMIN"), QStringLiteral("studio1")));
}

TEST_F(MenuAndLogin, ExitAsksAndEndsOnlyOnYes)
{
    ASSERT_TRUE(Start());
    ASSERT_TRUE(Login(QStringLiteral("ADMIN"), QStringLiteral("korvane")));
    dialogs->answers.push_back(Dialogs::Answer::No);
    ClickMenu(QStringLiteral("Exit"));
    ASSERT_EQ(dialogs->boxes.size(), 1);
    EXPECT_EQ(dialogs->boxes[0].text, QStringLiteral("Do you really want to exit?"));
    EXPECT_EQ(dialogs->boxes[0].title, QStringLiteral("ATTENTION!"));
    EXPECT_EQ(dialogs->boxes[0].buttons, Dialogs::Buttons::YesNo);
    EXPECT_TRUE(endedWith.isEmpty());

    dialogs->answers.push_back(Dialogs::Answer::Yes);
    ClickMenu(QStringLiteral("Exit"));
    EXPECT_EQ(endedWith, QVector<int>{0});
    EXPECT_EQ(modInterface::Interface(), nullptr);
    EXPECT_EQ(modInterface::InterfaceStarted(), 0);
}

TEST_F(MenuAndLogin, AnUnknownScreenIsRefusedAndTheMessageWindowGoes)
{
    ASSERT_TRUE(Start());
    InitForm::Instance()->MenuSelector_OpenForm(QStringLiteral("NoSuchScreen"));
    ASSERT_EQ(dialogs->boxes.size(), 1);
    EXPECT_EQ(dialogs->boxes[0].text, QStringLiteral("This form can't be viewed"));
    EXPECT_EQ(Form::Find(QStringLiteral("FrmMessage")), nullptr);
    EXPECT_TRUE(InitForm::Instance()->isVisible());
    // A control's name is no screen either.
    InitForm::Instance()->MenuSelector_OpenForm(QStringLiteral("Korvane_Interface.IFMenu"));
    EXPECT_EQ(dialogs->boxes.size(), 2);
}

TEST_F(MenuAndLogin, TheMessageWindowIsNeverDoubled)
{
    ASSERT_TRUE(Start());
    CInterface* ui = modInterface::Interface();
    ui->MessageUpdate(QStringLiteral("nothing to update"));
    ui->MessagePop();
    ui->MessagePush(QStringLiteral("first"));
    ui->MessagePush(QStringLiteral("second"));
    int windows = 0;
    for (Form* form : Form::OpenForms())
        windows += form->objectName() == QLatin1String("FrmMessage");
    EXPECT_EQ(windows, 1);
    ui->MessageUpdate(QStringLiteral("third"));
    EXPECT_EQ(ui->MessageText(), QStringLiteral("third"));
    ui->MessagePop();
    EXPECT_EQ(Form::Find(QStringLiteral("FrmMessage")), nullptr);
    ui->DumpForms();
    EXPECT_TRUE(LogText().contains(QStringLiteral("DUMP: Korvane_Interface_v1_2_c.CInterface.DumpForms: Forms(0).Name = '")));
}

TEST_F(MenuAndLogin, AutomaticLoginLogsTheStationsUserIn)
{
    SetConfig(QStringLiteral("T_AutoLogin"), QStringLiteral("yes"));
    ASSERT_TRUE(Start());
    Globals::Kernel()->SetStationConfig(QStringLiteral("AutoLoginUser"), QStringLiteral("PRESENTER"));
    InitForm::Instance()->TryAutomaticLogin();
    ASSERT_NE(Globals::Kernel()->Users()->CurrentUser(), nullptr);
    EXPECT_EQ(Globals::Kernel()->Users()->CurrentUser()->Name(), QStringLiteral("PRESENTER"));
    EXPECT_FALSE(MenuButton(QStringLiteral("Login"))->isEnabled());
    EXPECT_EQ(UserPanel()->ShownName(), QStringLiteral("PRESENTER"));
}
