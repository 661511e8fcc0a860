#include "shell/FrmChangePassword.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/Log.h"
#include "foundation/Tr.h"
#include "foundation/ui/Dialogs.h"
#include "foundation/ui/TranslateWidgets.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/iUser.h"
#include "kernelapi/iUsers.h"
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

FrmChangePassword::FrmChangePassword()
    : Form(QStringLiteral("FrmChangePassword"))
{
    setWindowTitle(QStringLiteral("Change password"));
    setWindowModality(Qt::ApplicationModal);
    auto* layout = new QVBoxLayout(this);
    auto* fields = new QFormLayout;
    layout->addLayout(fields);
    TxtOldPassword = AddPasswordField(QStringLiteral("Original password"), QStringLiteral("TxtOldPassword"), fields);
    TxtNewPassword = AddPasswordField(QStringLiteral("New password"), QStringLiteral("TxtNewPassword"), fields);
    TxtNewPassword2 = AddPasswordField(QStringLiteral("New password (comprobation)"), QStringLiteral("TxtNewPassword2"), fields);

    auto* buttons = new QHBoxLayout;
    CmdAccept = new QPushButton(QStringLiteral("Accept"), this);
    CmdAccept->setObjectName(QStringLiteral("CmdAccept"));
    CmdCancel = new QPushButton(QStringLiteral("Cancel"), this);
    CmdCancel->setObjectName(QStringLiteral("CmdCancel"));
    buttons->addStretch();
    buttons->addWidget(CmdAccept);
    buttons->addWidget(CmdCancel);
    layout->addLayout(buttons);
    setFixedSize(440, 190);

    connect(CmdAccept, &QPushButton::clicked, this, &FrmChangePassword::CmdAccept_Click);
    connect(CmdCancel, &QPushButton::clicked, this, &FrmChangePassword::Unload);
}

QLineEdit* FrmChangePassword::AddPasswordField(const QString& caption, const QString& name, QFormLayout* layout)
{
    auto* field = new QLineEdit(this);
    field->setObjectName(name);
    field->setEchoMode(QLineEdit::Password);
    field->installEventFilter(this);
    layout->addRow(new QLabel(caption, this), field);
    return field;
}

void FrmChangePassword::Form_Load()
{
    TranslateWithKernel(this);
    TxtOldPassword->setFocus();
}

bool FrmChangePassword::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            // Enter walks old -> new -> confirmation -> Accept.
            if (watched == TxtOldPassword)
                TxtNewPassword->setFocus();
            else if (watched == TxtNewPassword)
                TxtNewPassword2->setFocus();
            else if (watched == TxtNewPassword2)
                CmdAccept->setFocus();
            return true;
        }
    }
    return Form::eventFilter(watched, event);
}

void FrmChangePassword::CmdAccept_Click()
{
    if (TxtNewPassword->text() != TxtNewPassword2->text()) {
        Dialogs::MessageBox(Tr(QStringLiteral("Comprobation is not correct. Please, re-insert password.")),
                            Dialogs::Buttons::Ok, QStringLiteral("ERROR"));
        return;
    }
    try {
        const auto user = Globals::Users()->CurrentUser();
        if (!user)
            throw KernelError(QStringLiteral("No user is logged in"));
        const auto change = user->ChangePassword(TxtOldPassword->text(), TxtNewPassword->text());
        if (change.accepted)
            Unload();
        else
            Dialogs::MessageBox(change.message, Dialogs::Buttons::Ok, QStringLiteral("ERROR"));
    } catch (...) {
        LogError(QStringLiteral("FrmChangePassword"), QStringLiteral("CmdAccept_Click"), DescribeException(std::current_exception()));
        Dialogs::MessageBox(QStringLiteral("Korvane_Interface.FrmChangePassword.CmdAccept_Click()\r\nNo es pot accedir a la jerarquia d'objectes"));
    }
}

void FrmChangePassword::Form_Unload()
{
    ReturnToMenu();
}
