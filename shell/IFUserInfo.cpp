#include "shell/IFUserInfo.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/Tr.h"
#include "foundation/ui/TranslateWidgets.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/iTranslator.h"
#include "kernelapi/iUser.h"
#include "kernelapi/iUsers.h"
#include <QGridLayout>
#include <QLabel>

namespace {
const QString Object = QStringLiteral("IFUserInfo");
}

IFUserInfo::IFUserInfo(QWidget* parent)
    : QFrame(parent)
{
    setObjectName(QStringLiteral("IFUserInfo"));
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(12, 10, 12, 10);
    grid->setVerticalSpacing(6);
    Label1 = new QLabel(QStringLiteral("Connected User:"), this);
    Label1->setObjectName(QStringLiteral("Label1"));
    grid->addWidget(Label1, 0, 0, 1, 2);
    LblID = new QLabel(this);
    LblID->setObjectName(QStringLiteral("LblID"));
    KeepUntranslated(LblID);
    grid->addWidget(LblID, 1, 0, 1, 2);
    LblLastLogin = AddRow(QStringLiteral("Last login:"), QStringLiteral("LblLastLogin"), 2);
    LblFails = AddRow(QStringLiteral("Fails:"), QStringLiteral("LblFails"), 3);
    LblPrivilegeDescription = AddRow(QStringLiteral("Privilege:"), QStringLiteral("LblPrivilegeDescription"), 4);
    grid->setRowStretch(5, 1);
    TranslateMe();
}

QLabel* IFUserInfo::AddRow(const QString& caption, const QString& name, int row)
{
    auto* grid = static_cast<QGridLayout*>(layout());
    auto* label = new QLabel(caption, this);
    label->setProperty("role", QStringLiteral("caption"));
    grid->addWidget(label, row, 0);
    auto* value = new QLabel(QStringLiteral("-"), this);
    value->setObjectName(name);
    KeepUntranslated(value);
    grid->addWidget(value, row, 1);
    return value;
}

void IFUserInfo::TranslateMe()
{
    TranslateWithKernel(this);
}

void IFUserInfo::Init()
{
    Guarded(Object, QStringLiteral("Init"), [this] {
        m_users = Globals::Users();
        connect(m_users.get(), &iUsers::CurrentUserChanged, this, &IFUserInfo::iUsers_CurrentUserChanged, Qt::UniqueConnection);
        SetCurrentUser();
    });
}

void IFUserInfo::SetCurrentUser()
{
    Guarded(Object, QStringLiteral("SetCurrentUser"), [this] {
        m_user = m_users ? m_users->CurrentUser() : nullptr;
        Refresh();
    });
}

void IFUserInfo::Refresh()
{
    Guarded(Object, QStringLiteral("Refresh"), [this] {
        if (!m_user) {
            LblID->setText(Tr(QStringLiteral("<None>")));
            for (QLabel* label : {LblLastLogin, LblFails, LblPrivilegeDescription})
                label->setText(QStringLiteral("-"));
            return;
        }
        LblID->setText(m_user->Name());
        LblLastLogin->setText(m_user->LastLogin());
        LblFails->setText(m_user->Fails());
        LblPrivilegeDescription->setText(m_user->PrivilegeDescription());
    });
}

void IFUserInfo::iUsers_CurrentUserChanged()
{
    SetCurrentUser();
}

QString IFUserInfo::ShownName() const
{
    return LblID->text();
}
