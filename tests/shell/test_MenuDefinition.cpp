#include "ShellFixture.h"
#include "shell/CMenuItem.h"
#include "shell/FrmModalDelay.h"
#include "shell/MenuForm.h"
#include "foundation/Ini.h"

TEST(MenuDefinition, ActionWordsMapAsTheMenuFileSays)
{
    EXPECT_EQ(CMenuItem::ActionFromWord(QStringLiteral("OpenForm")), CMenuItem::OpenForm);
    EXPECT_EQ(CMenuItem::ActionFromWord(QStringLiteral("Exit")), CMenuItem::Exit);
    EXPECT_EQ(CMenuItem::ActionFromWord(QString()), CMenuItem::Dummy);
    EXPECT_EQ(CMenuItem::ActionFromWord(QStringLiteral("Dummy")), CMenuItem::Dummy);
    EXPECT_EQ(CMenuItem::ActionFromWord(QStringLiteral("Exti")), CMenuItem::Logout); // misspelt acts as Logout
}

TEST(MenuDefinition, EntriesReadTheirSectionAndFormOnlyForOpenForm)
{
    const IniFile ini = IniFile::Parse("[Menu_3]\nAction=Exit\nForm=Ignored\nCaption= Leave \n[Menu_4]\nAction=OpenForm\nForm=ConfigForm\n");
    CMenuItem exit;
    exit.Load(ini, 3);
    EXPECT_EQ(exit.action, CMenuItem::Exit);
    EXPECT_TRUE(exit.FormName.isEmpty());
    EXPECT_EQ(exit.Caption, QStringLiteral("Leave"));
    CMenuItem open;
    open.Load(ini, 4);
    EXPECT_EQ(open.FormName, QStringLiteral("ConfigForm"));
    EXPECT_TRUE(open.Caption.isEmpty());
}

TEST(ModalDelay, WaitsForTheWatchedDigit)
{
    using Mode = FrmModalDelay::Mode;
    EXPECT_EQ(FrmModalDelay::DestinationMask(5, Mode::UniMin), QStringLiteral("--:-5:--"));
    EXPECT_EQ(FrmModalDelay::DestinationMask(3, Mode::DecSec), QStringLiteral("--:--:3-"));
    EXPECT_EQ(FrmModalDelay::DestinationMask(7, Mode::DecUniMin), QStringLiteral("--:07:--"));
    EXPECT_EQ(FrmModalDelay::SecondsRemaining(QTime(12, 34, 50), 5, Mode::UniMin), 10);
    EXPECT_EQ(FrmModalDelay::SecondsRemaining(QTime(12, 35, 10), 5, Mode::UniMin), 0);
    EXPECT_EQ(FrmModalDelay::SecondsRemaining(QTime(23, 59, 59), 0, Mode::DecHour), 1);
    EXPECT_EQ(FrmModalDelay::ModeFromName(QStringLiteral("Weekly")), Mode::Unknown);
}

using ModalDelayForm = ShellFixture;

TEST_F(ModalDelayForm, AnUnknownModeSaysSo)
{
    FrmModalDelay form;
    form.SetDestination(1, QStringLiteral("Weekly"));
    ASSERT_EQ(dialogs->boxes.size(), 1);
    EXPECT_EQ(dialogs->boxes[0].text, QStringLiteral("Altres sincronitzacions"));
}

using PopupMenus = ShellFixture;

TEST_F(PopupMenus, ColoursRememberTheClickAndCancelClearsIt)
{
    MenuForm* menus = MenuForm::Instance();
    EXPECT_FALSE(menus->isVisible());
    dialogs->popupChoices.push_back(QStringLiteral("MenuForm.UMColors(1)"));
    menus->PopupColors({});
    EXPECT_TRUE(menus->UMColorsChosen);
    EXPECT_EQ(menus->UMColorsIndex, 1);
    dialogs->popupChoices.push_back(QStringLiteral("MenuForm.UMCancel"));
    menus->PopupColors({});
    EXPECT_FALSE(menus->UMColorsChosen);

    dialogs->popupChoices.push_back(QStringLiteral("MenuForm.ActionOnSoundRecalculateFast"));
    EXPECT_EQ(menus->PopupActionOnSound({}), QStringLiteral("ActionOnSoundRecalculateFast"));
    dialogs->popupChoices.push_back(QStringLiteral("MenuForm.ActionOnSoundCancel"));
    EXPECT_TRUE(menus->PopupActionOnSound({}).isEmpty());
    EXPECT_EQ(dialogs->menus[2].first().text, QStringLiteral("-Listen"));
}
