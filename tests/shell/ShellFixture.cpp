#include "ShellFixture.h"
#include "foundation/Globals.h"
#include "foundation/Ini.h"
#include "foundation/db/Database.h"
#include "kernelapi/CKernel.h"
#include "shell/IFMenu.h"
#include "shell/InitForm.h"
#include "shell/PasswordForm.h"
#include "shell/modMain.h"
#include <QDate>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

void ShellFixture::SetUp()
{
    station = std::make_unique<TempStation>();
    auto scripted = std::make_unique<ScriptedDialogs>();
    dialogs = scripted.get();
    Dialogs::SetHandler(std::move(scripted));
    modMain::SetProcessEnder([this](int code) { endedWith.append(code); });
}

// The workstation ends as the program's end ends it, so that the next test of the process
// starts one of its own on its own station.
void ShellFixture::TearDown()
{
    modMain::TearDown();
    for (QWidget* window : QApplication::topLevelWidgets())
        window->hide();
}

bool ShellFixture::Start()
{
    return modMain::Main();
}

IFMenu* ShellFixture::Menu() const
{
    return InitForm::Exists() ? InitForm::Instance()->MenuSelector() : nullptr;
}

QPushButton* ShellFixture::MenuButton(const QString& caption) const
{
    for (int k = 1; k <= Menu()->ButtonCount(); ++k)
        if (Menu()->CmdMenu(k)->text() == caption)
            return Menu()->CmdMenu(k);
    return nullptr;
}

void ShellFixture::ClickMenu(const QString& caption)
{
    QPushButton* button = MenuButton(caption);
    ASSERT_NE(button, nullptr) << caption.toStdString();
    QTest::mouseClick(button, Qt::LeftButton);
}

namespace {
// Types each character as a key of its own; unlike QTest::keyClicks it is not limited to Latin-1.
void Type(QWidget* field, const QString& text)
{
    for (QChar c : text)
        QTest::sendKeyEvent(QTest::Click, field, Qt::Key_unknown, QString(c), Qt::NoModifier);
}
}

bool ShellFixture::Login(const QString& user, const QString& password)
{
    ClickMenu(QStringLiteral("Login"));
    auto* form = qobject_cast<PasswordForm*>(Form::Find(QStringLiteral("PasswordForm")));
    if (!form || !form->isVisible())
        return false;
    Type(form->Text1, user);
    QTest::keyClick(form->Text1, Qt::Key_Return);
    Type(form->Text2, password);
    QTest::keyClick(form->Text2, Qt::Key_Return);
    QCoreApplication::processEvents();
    return !Form::Find(QStringLiteral("PasswordForm")) && InitForm::Instance()->isVisible();
}

QString ShellFixture::LogText() const
{
    QFile file(station->Dir() + QStringLiteral("log/") + QDate::currentDate().toString(Qt::ISODate) + QStringLiteral(".log"));
    file.open(QIODevice::ReadOnly);
    return QString::fromUtf8(file.readAll());
}

void ShellFixture::SetStationKey(const QString& section, const QString& key, const QString& value)
{
    ASSERT_TRUE(WriteIni(section, key, value, station->IniFile()));
}

void ShellFixture::SetConfig(const QString& key, const QString& value)
{
    auto kernelDb = Database::Open(station->DataDir() + QStringLiteral("Kernel.MDB"));
    kernelDb->Query(QStringLiteral("DELETE FROM Config WHERE ID = ?"), {key});
    kernelDb->Query(QStringLiteral("INSERT INTO Config (ID, Value) VALUES (?, ?)"), {key, value});
}
