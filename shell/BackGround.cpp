#include "shell/BackGround.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/Yield.h"
#include "foundation/db/Recordset.h"
#include "foundation/ui/Dialogs.h"
#include "foundation/ui/Twips.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/iStation.h"
#include "shell/Artwork.h"
#include "shell/CInterface.h"
#include "shell/modInterface.h"
#include <QLabel>
#include <QPointer>
#include <QTimer>

namespace {
QPointer<BackGround> g_instance;
}

BackGround* BackGround::Instance()
{
    if (!g_instance)
        g_instance = new BackGround;
    return g_instance;
}

bool BackGround::Exists()
{
    return !g_instance.isNull();
}

BackGround::BackGround()
    : Form(QStringLiteral("BackGround"))
{
    setAttribute(Qt::WA_DeleteOnClose, false);
    setWindowFlag(Qt::WindowStaysOnBottomHint);
    setStyleSheet(QStringLiteral("BackGround { background: rgb(10, 12, 16); }"));
    Image1 = new QLabel(this);
    Image1->setObjectName(QStringLiteral("Image1"));
    Image1->setScaledContents(true);
    Timer1 = new QTimer(this);
    Timer1->setObjectName(QStringLiteral("Timer1"));
    Timer1->setInterval(1000);
    connect(Timer1, &QTimer::timeout, this, &BackGround::Timer1_Timer);
    Timer1->start();
    ResetResolution();
}

void BackGround::ResetResolution()
{
    GuardedWith(QStringLiteral("ResetResolution"), [this](Step&) {
        Image1->hide();
        if (Globals::ConfigIsYes(QStringLiteral("ShowBackground"))) {
            showMaximized();
            Yield();
        }
        auto station = Globals::Kernel()->Station();
        Image1->resize(int(station->ResolutionX()), int(station->ResolutionY()));
        Image1->setPixmap(Artwork::Backdrop(Image1->size()));
        Image1->move((width() - Image1->width()) / 2, (height() - Image1->height()) / 2);
        Image1->show();
    }, [](const QString&, const QString&) {
        Dialogs::MessageBox(QStringLiteral("Korvane_Interface.Background.Timer1_Timer().ResetResolution"));
    });
}

void BackGround::RefreshAllRecordset()
{
    Guarded(QStringLiteral("Background"), QStringLiteral("Timer1_Timer.RefreshAllRecordset"), [] {
        for (Recordset* recordset : Globals::Data().All())
            if (recordset)
                recordset->Requery();
    });
}

void BackGround::Timer1_Timer()
{
    RefreshAllRecordset();
    Guarded(QStringLiteral("Background"), QStringLiteral("Timer1_Timer.PushMenu"), [] {
        if (CInterface* ui = modInterface::Interface())
            ui->PushMenu();
    });
}
