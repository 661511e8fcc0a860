#include "shell/CInterface.h"
#include "browse/drag/CDrag.h"
#include "browse/drag/CMouseController.h"
#include "shell/components/CComponents.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/Log.h"
#include "foundation/Yield.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/iUsers.h"
#include "shell/FrmMessage.h"
#include "shell/InitForm.h"
#include "shell/NoticeWindow.h"

CInterface::CInterface()
    : m_mouseController(std::make_unique<CMouseController>())
    , m_drag(std::make_unique<CDrag>())
    , m_components(std::make_unique<CComponents>())
{
    GuardedWith(QStringLiteral("Class_Initialize"), [this](Step& step) {
        step(QStringLiteral("Notices"));
        if (const std::shared_ptr<CKernel> kernel = Globals::Kernel())
            connect(kernel.get(), &CKernel::Shouted, this, &CInterface::ShowNotice);
        step(QStringLiteral("ShowMenu"));
        ShowMenu();
    }, [](const QString& step, const QString& description) {
        LogError(QStringLiteral("CInterface"), QStringLiteral("Class_Initialize"), step + QStringLiteral(" - ") + description);
    });
}

CInterface::~CInterface()
{
    MessagePop();
}

void CInterface::CleanUp()
{
    MessagePop();
    m_notice.reset();
    m_components->Clear();
}

QString CInterface::Version()
{
    return QStringLiteral("v%1.%2.%3.Compiled").arg(KORVANE_VERSION_MAJOR).arg(KORVANE_VERSION_MINOR).arg(KORVANE_VERSION_PATCH);
}

void CInterface::MessagePush(const QString& text)
{
    MessagePop();
    m_message = new FrmMessage;
    const QPoint pointer = m_mouseController->Pointer();
    m_message->SetCaption(text);
    m_message->move(pointer.x() - m_message->width() / 2, pointer.y() - m_message->height() / 2 - 15);
    m_message->show();
    Yield();
}

void CInterface::MessageUpdate(const QString& text)
{
    if (!m_message)
        return;
    m_message->SetCaption(text);
    Yield();
}

void CInterface::MessagePop()
{
    if (!m_message)
        return;
    m_message->hide();
    delete m_message;
}

QString CInterface::MessageText() const
{
    return m_message ? m_message->Caption() : QString();
}

void CInterface::ShowNotice(const QString& from, const QString& text)
{
    if (!m_notice)
        m_notice = std::make_unique<NoticeWindow>();
    m_notice->Add(from, text);
}

QString CInterface::NoticeText() const
{
    return m_notice ? m_notice->Text() : QString();
}

void CInterface::DumpForms()
{
    const auto forms = Form::OpenForms();
    for (int i = 0; i < forms.size(); ++i)
        LogDump(QStringLiteral("CInterface"), QStringLiteral("DumpForms"),
                QStringLiteral("Forms(%1).Name = '%2'").arg(i).arg(forms[i]->objectName()));
}

void CInterface::ShowMenu()
{
    InitForm::Instance()->show();
    InitForm::Instance()->raise();
}

void CInterface::PushMenu()
{
    Guarded(QStringLiteral("CInterface"), QStringLiteral("PushMenu"), [this](Step& step) {
        step(QStringLiteral("Previous"));
        if (++m_menuCounter <= 10)
            return;
        step(QStringLiteral("BeforeLoop"));
        bool found = false;
        for (Form* form : Form::OpenForms()) {
            step(QStringLiteral("InsideLoop"));
            if (form->isVisible() && form->objectName().toLower() != QLatin1String("background")) {
                step(QStringLiteral("Visible=True"));
                found = true;
                break;
            }
            step(QStringLiteral("Visible=False"));
        }
        if (!found) {
            step(QStringLiteral("FoundRare"));
            ShowMenu();
        }
        m_menuCounter = 0;
    });
}

std::shared_ptr<iUser> CInterface::CurrentUser() const
{
    return Globals::Users()->CurrentUser();
}
