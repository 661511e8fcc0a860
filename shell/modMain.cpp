#include "shell/modMain.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/Log.h"
#include "foundation/ui/Dialogs.h"
#include "shell/Form.h"
#include "shell/FrmLoadProgress.h"
#include "shell/modGlobals.h"
#include "shell/modInterface.h"
#include "shell/modKernel.h"
#include <QApplication>
#include <cstdio>
#include <cstdlib>

namespace modMain {
namespace {
int g_endedWith = -1;

std::function<void(int)>& Ender()
{
    static std::function<void(int)> ender = [](int code) {
        TearDown();
        std::fflush(nullptr);
        std::exit(code);
    };
    return ender;
}

void BoxOnly(const QString& text)
{
    Dialogs::MessageBox(text);
}
}

void TearDown()
{
    if (modInterface::Interface())
        modInterface::StopInterface();
    for (Form* form : Form::OpenForms())
        delete form;
    Globals::Data().Close();
    // The kernel and its logger go when their last holder lets go of them.
    Globals::SetKernel(nullptr);
    Log::SetLogger(nullptr);
}

void SetProcessEnder(std::function<void(int)> ender) { Ender() = std::move(ender); }

void EndProcess(int code)
{
    g_endedWith = code;
    Ender()(code);
}

int EndedWith() { return g_endedWith; }

bool Main()
{
    g_endedWith = -1;
    bool running = false;
    GuardedWith(QStringLiteral("Main"), [&](Step&) {
        auto* progress = new FrmLoadProgress;
        progress->show();
        progress->SetMessage(QStringLiteral("Loading Kernel"));
        if (!modKernel::StartKernel()) {
            BoxOnly(QStringLiteral("Korvane_Interface.modMain.Main(): Interface is not trying to be loaded as Kernel was not started properly"));
            delete progress;
            EndProcess(1);
            return;
        }
        progress->SetMessage(QStringLiteral("Loading Interface"));
        if (!modInterface::StartInterface()) {
            progress->SetMessage(QStringLiteral("Unloading Kernel"));
            delete progress;
            EndProcess(1);
            return;
        }
        progress->hide();
        delete progress;
        running = EndedWith() < 0;
    }, [](const QString&, const QString& description) {
        BoxOnly(QStringLiteral("Korvane_Interface.modMain.Main()\r\n") + description);
    });
    return running;
}

void EndApplication()
{
    GuardedWith(QStringLiteral("EndApplication"), [](Step&) {
        modInterface::StopInterface();
    }, [](const QString&, const QString&) {
        BoxOnly(QStringLiteral("Korvane_Interface.modMain.EndApplication()"));
    });
    EndProcess(0);
}

void UnloadApplication()
{
    modGlobals::FinishApp();
    EndApplication();
}
}
