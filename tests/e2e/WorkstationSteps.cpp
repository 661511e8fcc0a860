#include "e2e/WorkstationSteps.h"
#include "browse/BrowserRowModel.h"
#include "browse/IFBrowserCart.h"
#include "browse/IFBrowserFamily.h"
#include "foundation/Globals.h"
#include "foundation/Ini.h"
#include "foundation/ui/ScriptedDialogs.h"
#include "kernel/audio/AudioEngine.h"
#include "kernel/audio/Channels.h"
#include "kernelapi/CKernel.h"
#include "shell/IFMenu.h"
#include "onair/Directe.h"
#include "shell/InitForm.h"
#include "shell/PasswordForm.h"
#include "shell/Theme.h"
#include "shell/modMain.h"
#include <QApplication>
#include <QDate>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>
#include <QTest>
#include "support/TempStation.h"
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

Directe* OpenLive(TempStation& station, ScriptedDialogs** dialogs)
{
    WriteIni(QStringLiteral("Audio"), QStringLiteral("Clock"), QStringLiteral("virtual"), station.KernelIniFile());
    WriteIni(QStringLiteral("Audio"), QStringLiteral("ExpiringSeconds"), QStringLiteral("0"), station.KernelIniFile());
    // The process ender writes here after this returns, when the workstation ends.
    static int ended = -1;
    ScriptedDialogs* scripted = Start(ended);
    if (dialogs)
        *dialogs = scripted;
    LogIn(QStringLiteral("admin"), QStringLiteral("korvane"));
    Click(MenuButton(QStringLiteral("Live")));
    auto* live = qobject_cast<Directe*>(Form::Find(QStringLiteral("Directe")));
    EXPECT_NE(live, nullptr);
    if (!live)
        return nullptr;
    EXPECT_TRUE(live->isVisible());
    EXPECT_TRUE(live->TmrLoader.isActive()) << "the loader waits for the screen to paint";
    live->TmrLoader_Timer();
    EXPECT_FALSE(live->TmrLoader.isActive());
    return live;
}

QStringList ErrorLines(const QString& log)
{
    QStringList errors;
    for (const QString& line : log.split(QLatin1Char('\n')))
        if (line.contains(QLatin1String("ERROR: ")))
            errors << line;
    return errors;
}

void OpenFamily(Directe* live, const QString& familyID)
{
    QTreeView* families = live->IFBrowserFamily1->ListView1;
    QTest::mouseClick(families->viewport(), Qt::LeftButton, {}, RowCentre(families, familyID));
    for (int k = 0; k < 100 && live->IFBrowserCart1->Rows().rowCount() == 0; ++k)
        QCoreApplication::processEvents();
    EXPECT_GT(live->IFBrowserCart1->Rows().rowCount(), 0) << familyID.toStdString();
}

QString TodaysLog(const QString& stationDir)
{
    QFile log(stationDir + QStringLiteral("log/") + QDate::currentDate().toString(Qt::ISODate) + QStringLiteral(".log"));
    return log.open(QIODevice::ReadOnly) ? QString::fromUtf8(log.readAll()) : QString();
}

void AdvanceMs(int ms)
{
    AudioEngine& engine = dynamic_cast<Channels&>(*Globals::Kernel()->Channels()).Engine();
    engine.Advance(static_cast<std::int64_t>(ms) * engine.Settings().sampleRate / 1000);
    QCoreApplication::processEvents();
}

void Press(QWidget* button)
{
    ASSERT_NE(button, nullptr);
    QTest::mousePress(button, Qt::LeftButton);
    QTest::mouseRelease(button, Qt::LeftButton);
    AdvanceMs(30);
}

QPoint RowCentre(QTreeView* list, const QString& id)
{
    const QModelIndexList found = list->model()->match(list->model()->index(0, 0), Qt::DisplayRole, id, 1, Qt::MatchExactly);
    EXPECT_FALSE(found.isEmpty()) << id.toStdString();
    if (found.isEmpty())
        return {};
    list->scrollTo(found.first());
    return list->visualRect(found.first()).center();
}

void DragRowOnto(QTreeView* list, const QString& id, QWidget* target)
{
    DragRowOnto(list, id, target, target->rect().center());
}

void DragRowOnto(QTreeView* list, const QString& id, QWidget* target, const QPoint& at)
{
    QWidget* viewport = list->viewport();
    const QPoint from = RowCentre(list, id);
    const QPoint onTarget = viewport->mapFromGlobal(target->mapToGlobal(at));
    QTest::mousePress(viewport, Qt::LeftButton, {}, from);
    QTest::mouseMove(viewport, from + QPoint(0, 12));
    QTest::mouseMove(viewport, onTarget);
    QTest::mouseMove(viewport, onTarget + QPoint(2, 0));
    QTest::mouseRelease(viewport, Qt::LeftButton, {}, onTarget + QPoint(2, 0));
}
}
