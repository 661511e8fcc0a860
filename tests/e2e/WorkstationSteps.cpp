#include "e2e/WorkstationSteps.h"
#include "foundation/ui/ScriptedDialogs.h"
#include "shell/IFMenu.h"
#include "shell/InitForm.h"
#include "shell/PasswordForm.h"
#include "shell/Theme.h"
#include "shell/modMain.h"
#include <QApplication>
#include <QDate>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace WorkstationSteps {
ScriptedDialogs* Start(int& endedWith)
{
    auto scripted = std::make_unique<ScriptedDialogs>();
    ScriptedDialogs* dialogs = scripted.get();
    Dialogs::SetHandler(std::move(scripted));
    modMain::SetProcessEnder([&endedWith](int code) { endedWith = code; });
    Theme::Apply(*qApp);
    EXPECT_TRUE(modMain::Main());
    QCoreApplication::processEvents();
    return dialogs;
}

QAbstractButton* MenuButton(const QString& caption)
{
    IFMenu* menu = InitForm::Instance()->MenuSelector();
    for (int k = 1; k <= menu->ButtonCount(); ++k)
        if (menu->CmdMenu(k)->text() == caption)
            return menu->CmdMenu(k);
    return nullptr;
}

void Click(QAbstractButton* button)
{
    ASSERT_NE(button, nullptr);
    QTest::mouseClick(button, Qt::LeftButton);
    QCoreApplication::processEvents();
}

void LogIn(const QString& name, const QString& password)
{
    Click(MenuButton(QStringLiteral("Login")));
    auto* form = qobject_cast<PasswordForm*>(Form::Find(QStringLiteral("PasswordForm")));
    ASSERT_NE(form, nullptr);
    QTest::keyClicks(form->Text1, name);
    QTest::keyClick(form->Text1, Qt::Key_Return);
    QTest::keyClicks(form->Text2, password);
    QTest::keyClick(form->Text2, Qt::Key_Return);
    QCoreApplication::processEvents();
}

QString TodaysLog(const QString& stationDir)
{
    QFile log(stationDir + QStringLiteral("log/") + QDate::currentDate().toString(Qt::ISODate) + QStringLiteral(".log"));
    return log.open(QIODevice::ReadOnly) ? QString::fromUtf8(log.readAll()) : QString();
}
}
