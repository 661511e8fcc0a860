#include "shell/InitForm.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/Log.h"
#include "foundation/Tr.h"
#include "foundation/ui/Dialogs.h"
#include "foundation/ui/ElasticPanel.h"
#include "foundation/ui/TranslateWidgets.h"
#include "foundation/ui/Twips.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/iApplication.h"
#include "kernelapi/iChannels.h"
#include "kernelapi/iUsers.h"
#include "shell/Artwork.h"
#include "shell/CInterface.h"
#include "shell/IFMenu.h"
#include "shell/IFStationID.h"
#include "shell/IFUserInfo.h"
#include "shell/Registry.h"
#include "shell/modGlobals.h"
#include "shell/modInterface.h"
#include "shell/modMain.h"
#include <QCoreApplication>
#include <QDir>
#include <QFrame>
#include <QLabel>
#include <QPainter>

namespace {
QPointer<InitForm> g_instance;
const QString Object = QStringLiteral("InitForm");

QString TypeName(const Form* form)
{
    return form ? QString::fromLatin1(form->metaObject()->className()) : QStringLiteral("Nothing");
}
}

InitForm* InitForm::Instance()
{
    if (!g_instance)
        g_instance = new InitForm;
    return g_instance;
}

bool InitForm::Exists()
{
    return !g_instance.isNull();
}

InitForm::InitForm()
    : Form(QStringLiteral("InitForm"))
{
    setAttribute(Qt::WA_DeleteOnClose, false);
    setWindowTitle(QStringLiteral("Volmar Korvane"));
    setFixedSize(Twips::ToPixels(7800), Twips::ToPixels(6300));

    BackPannel = new QFrame(this);
    BackPannel->setObjectName(QStringLiteral("BackPannel"));
    BackPannel->setGeometry(rect());
    FraMenu = new QFrame(this);
    FraMenu->setObjectName(QStringLiteral("FraMenu"));
    FraMenu->setGeometry(Twips::Rect(240, 240, 4200, 4920));
    ElaMenu = new ElasticPanel(FraMenu);
    ElaMenu->setObjectName(QStringLiteral("ElaMenu"));
    ElaMenu->SetDesignSize(QSizeF(2100, 2100));
    ElaMenu->setGeometry(FraMenu->rect());
    Image1 = new QLabel(this);
    Image1->setObjectName(QStringLiteral("Image1"));
    Image1->setGeometry(Twips::Rect(4680, 2820, 2850, 2340));
    Image1->setPixmap(Artwork::Logo(Image1->size()));
    LblVersion = new QLabel(this);
    LblVersion->setObjectName(QStringLiteral("LblVersion"));
    LblVersion->setGeometry(Twips::Rect(4680, 5280, 2850, 780));
    LblVersion->setAlignment(Qt::AlignRight | Qt::AlignBottom);
    LblVersion->setText(QStringLiteral("Korvane ") + CInterface::Version());
    KeepUntranslated(LblVersion);

    Form_Initialize();
}

void InitForm::Form_Initialize()
{
    m_finishText = Tr(QStringLiteral("Volmar Korvane is going to finish because:")) + QStringLiteral("\r\n");
    m_menuNotLoaded = Tr(QStringLiteral("Menu was not loaded"));
    m_menuHasNoInterface = Tr(QStringLiteral("Menu has not an interface"));
    m_menuNotCreated = Tr(QStringLiteral("Menu was not created"));

    GuardedWith(QStringLiteral("Form_Initialize"), [this](Step& step) {
        step(QStringLiteral("FinishApp"));
        modGlobals::FinishApp();
        step(QStringLiteral("InitGlobals"));
        modGlobals::InitGlobals();
        step(QStringLiteral("SetRecordsets"));
        modGlobals::SetRecordsets();
        step(QStringLiteral("Channels"));
        TouchChannels(step);
        step(QStringLiteral("Menu"));
        PlaceMenu();
        if (!m_menuSelector || !m_menuSelector->Ready())
            return;
        if (Globals::ConfigIsYes(QStringLiteral("T_StationID"))) {
            step(QStringLiteral("StationID"));
            PlaceControl(QStringLiteral("Korvane_Interface.IFStationID"), QStringLiteral("IFStationID1"), 240, 5400, 4335, 495);
        }
        step(QStringLiteral("UserInfo"));
        PlaceControl(QStringLiteral("Korvane_Interface.IFUserInfo"), QStringLiteral("IFUserInfo1"), 4680, 240, 2850, 2415);
        if (Globals::ConfigIsYes(QStringLiteral("T_AutoLogin"))) {
            step(QStringLiteral("AutomaticLogin"));
            TryAutomaticLogin();
        }
        if (Globals::ConfigIsYes(QStringLiteral("T_Application"))) {
            step(QStringLiteral("Application"));
            ShowApplication();
        }
        if (Globals::ConfigIsYes(QStringLiteral("T_Refresh"))) {
            step(QStringLiteral("Refresh"));
            RefreshInitForm();
        }
    }, [](const QString& step, const QString& description) {
        LogError(Object, QStringLiteral("Form_Initialize.") + step, description);
        Dialogs::MessageBox(QStringLiteral("Error grave al iniciar la interfaz\r\nLa aplicación se cerrará"),
                            Dialogs::Buttons::Ok, QStringLiteral("Error"), Dialogs::Icon::Critical);
        modMain::EndProcess(1);
    });
}

void InitForm::TouchChannels(Step& step)
{
    // Every channel object is reached once, which starts the audio engine of the kernel.
    step(QStringLiteral("Channels.Loop"));
    auto channels = Globals::Kernel()->Channels();
    for (int i = 1; i <= channels->Count(); ++i)
        channels->Item(i);
    step(QStringLiteral("Channels.Rec"));
    step(QStringLiteral("Channels.Play1"));
    step(QStringLiteral("Channels.Play2"));
}

void InitForm::PlaceMenu()
{
    m_menuSelector = nullptr;
    QWidget* control = Registry::Create(QStringLiteral("Korvane_Interface.IFMenu"), ElaMenu);
    if (!control)
        return MenuFailed(m_menuNotCreated);
    control->setObjectName(QStringLiteral("IFMenu1"));
    m_menuSelector = qobject_cast<IFMenu*>(control);
    if (!m_menuSelector)
        return MenuFailed(m_menuHasNoInterface);
    if (!m_menuSelector->Ready())
        return MenuFailed(m_menuNotLoaded);
    m_menuSelector->raise();
    m_menuSelector->setVisible(true);
    ElaMenu->Place(m_menuSelector, QRectF(100, 100, 1900, 1900));
    ConnectMenu();
}

void InitForm::MenuFailed(const QString& reason)
{
    Dialogs::MessageBox(m_finishText + reason);
    modMain::UnloadApplication();
}

void InitForm::ConnectMenu()
{
    connect(m_menuSelector, &IFMenu::OpenForm, this, [this](const QString& name) {
        LogOk(Object, QStringLiteral("MenuSelector_ObjectEvent"), QStringLiteral("Opening form '") + name + QLatin1Char('\''));
        MenuSelector_OpenForm(name);
    });
    connect(m_menuSelector, &IFMenu::QueryExit, this, &InitForm::QueryUnloadApplication);
    connect(m_menuSelector, &IFMenu::Logout, this, [this] {
        Guarded(Object, QStringLiteral("MenuSelector_ObjectEvent"), [this] {
            Globals::Users()->Logout();
            RefreshInitForm();
        });
    });
}

void InitForm::PlaceControl(const QString& className, const QString& name, double left, double top, double width, double height)
{
    QWidget* control = Registry::Create(className, this);
    if (!control)
        throw KernelError(QStringLiteral("The control '%1' does not exist").arg(className));
    control->setObjectName(name);
    control->raise();
    control->setVisible(true);
    control->setGeometry(Twips::Rect(left, top, width, height));
    if (auto* userInfo = qobject_cast<IFUserInfo*>(control))
        userInfo->Init();
}

void InitForm::ShowApplication()
{
    auto application = Globals::Kernel()->Application();
    LblVersion->setText(application->Name() + QStringLiteral(" v") + application->Version() + QStringLiteral("\n\r")
                        + QStringLiteral("Open: ") + application->OpenText() + QStringLiteral(" - Closed: ")
                        + application->ClosedText());
}

QString InitForm::VersionText() const
{
    return LblVersion->text();
}

void InitForm::TranslateAgain()
{
    Guarded(Object, QStringLiteral("TranslateAgain"), [this] {
        TranslateWithKernel(this);
        for (auto* station : findChildren<IFStationID*>())
            station->TranslateMe();
        for (auto* user : findChildren<IFUserInfo*>())
            user->Refresh();
    });
}

void InitForm::Form_Load()
{
    Guarded(Object, QStringLiteral("Form_Load"), [this](Step& step) {
        step(QStringLiteral("Translation"));
        TranslateWithKernel(this);
        step(QStringLiteral("Visible"));
        setVisible(true);
        step(QStringLiteral("ChDir"));
        QDir::setCurrent(QCoreApplication::applicationDirPath());
    });
}

bool InitForm::Form_QueryUnload()
{
    // Closing the menu window never ends the program: it only hides it.
    hide();
    return false;
}

void InitForm::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.drawPixmap(0, 0, Artwork::Backdrop(size()));
}

void InitForm::SyncState()
{
    if (m_menuSelector)
        m_menuSelector->SyncEnables();
}

void InitForm::TryAutomaticLogin()
{
    Globals::Kernel()->AutomaticLogin();
    RefreshInitForm();
}

void InitForm::RefreshInitForm()
{
    SyncState();
}

void InitForm::HideForm()
{
    hide();
}

void InitForm::MenuSelector_OpenForm(const QString& name)
{
    const QString procedure = QStringLiteral("MenuSelector_OpenForm");
    Guarded(Object, procedure, [&] {
        CInterface* ui = modInterface::Interface();
        LogOk(Object, procedure, QStringLiteral("TR_CannotLoadScreen = '") + Tr(QStringLiteral("Cannot load the screen")) + QStringLiteral("'."));
        LogOk(Object, procedure, QStringLiteral("Entering function."));
        QPointer<Form> form = Form::Find(name);
        LogOk(Object, procedure, QStringLiteral("Found form. Typename = ") + TypeName(form));
        ui->MessagePush(Tr(QStringLiteral("Loading screen")));
        LogOk(Object, procedure, QStringLiteral("Pushing msgbox."));
        if (!form) {
            LogOk(Object, procedure, QStringLiteral("Adding the form '") + name + QLatin1Char('\''));
            QWidget* created = Registry::Create(name);
            form = qobject_cast<Form*>(created);
            if (created && !form)
                delete created; // a control's name is no screen
            LogOk(Object, procedure, QStringLiteral("The form '") + name + QStringLiteral("' has been added."));
            LogOk(Object, procedure, QStringLiteral("The form '") + name + QStringLiteral("' has been located. Typename = ")
                                        + TypeName(form));
        }
        if (!form) {
            LogError(Object, procedure, QStringLiteral("Form could not be added."));
            ui->MessagePop();
            Dialogs::MessageBox(Tr(QStringLiteral("This form can't be viewed")));
            return;
        }
        LogOk(Object, procedure, QStringLiteral("Form is ready to be shown. Update the MegWindow."));
        ui->MessageUpdate(Tr(QStringLiteral("Showing screen")));
        LogOk(Object, procedure, QStringLiteral("MegWindow updated. Hiding Me."));
        HideForm();
        LogOk(Object, procedure, QStringLiteral("Me hided. Showing F."));
        if (!form)
            throw KernelError(QStringLiteral("The form '%1' went away while it was being shown").arg(name));
        form->show();
        form->raise();
        form->activateWindow();
        LogOk(Object, procedure, QStringLiteral("F shown."));
    });
}

void InitForm::QueryUnloadApplication()
{
    const auto answer = Dialogs::MessageBox(Tr(QStringLiteral("Do you really want to exit?")), Dialogs::Buttons::YesNo,
                                            Tr(QStringLiteral("ATTENTION!")), Dialogs::Icon::Question);
    if (answer == Dialogs::Answer::Yes)
        modMain::UnloadApplication();
}
