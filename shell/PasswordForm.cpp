#include "shell/PasswordForm.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/Tr.h"
#include "foundation/ui/Dialogs.h"
#include "foundation/ui/TranslateWidgets.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/iUsers.h"
#include "shell/InitForm.h"
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {
const QString Object = QStringLiteral("PasswordForm");
}

PasswordForm::PasswordForm()
    : Form(QStringLiteral("PasswordForm"))
{
    setWindowTitle(QStringLiteral("Password"));
    setWindowModality(Qt::ApplicationModal);
    auto* identification = new QGroupBox(QStringLiteral("User identification"), this);
    auto* grid = new QGridLayout(identification);
    grid->addWidget(new QLabel(QStringLiteral("User"), identification), 0, 0);
    Text1 = new QLineEdit(identification);
    Text1->setObjectName(QStringLiteral("Text1"));
    grid->addWidget(Text1, 0, 1);
    grid->addWidget(new QLabel(QStringLiteral("Password"), identification), 1, 0);
    Text2 = new QLineEdit(identification);
    Text2->setObjectName(QStringLiteral("Text2"));
    Text2->setEchoMode(QLineEdit::Password);
    grid->addWidget(Text2, 1, 1);

    auto* control = new QGroupBox(QStringLiteral("Control"), this);
    auto* buttons = new QHBoxLayout(control);
    Command1 = new QPushButton(QStringLiteral("Accept"), control);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command2 = new QPushButton(QStringLiteral("Cancel"), control);
    Command2->setObjectName(QStringLiteral("Command2"));
    buttons->addStretch();
    buttons->addWidget(Command1);
    buttons->addWidget(Command2);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(identification);
    layout->addWidget(control);
    setFixedSize(380, 230);

    Text1->installEventFilter(this);
    connect(Text2, &QLineEdit::returnPressed, this, &PasswordForm::Command1_Click);
    connect(Command1, &QPushButton::clicked, this, &PasswordForm::Command1_Click);
    connect(Command2, &QPushButton::clicked, this, &PasswordForm::Unload);
}

void PasswordForm::Form_Load()
{
    TranslateWithKernel(this);
    Text1->setFocus();
}

bool PasswordForm::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != Text1 || event->type() != QEvent::KeyPress)
        return Form::eventFilter(watched, event);
    auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
        Text2->setFocus();
        return true;
    }
    // Typed characters become upper case; pasted text does not pass through here.
    const QString typed = key->text();
    if (!typed.isEmpty() && typed.at(0).isPrint() && typed != typed.toUpper() && !(key->modifiers() & (Qt::ControlModifier | Qt::AltModifier))) {
        Text1->insert(typed.toUpper());
        return true;
    }
    return false;
}

void PasswordForm::Command1_Click()
{
    Guarded(Object, QStringLiteral("Command1_Click"), [this] {
        if (!Globals::Users()->Login(Text1->text(), Text2->text())) {
            Dialogs::MessageBox(Tr(QStringLiteral("User not accepted.")), Dialogs::Buttons::Ok, QStringLiteral("LOGIN"),
                                Dialogs::Icon::Warning);
            Text1->clear();
            Text2->clear();
            Text1->setFocus();
            return;
        }
        InitForm::Instance()->RefreshInitForm();
        Unload();
    });
}

void PasswordForm::Form_Unload()
{
    Guarded(Object, QStringLiteral("Form_Unload"), [this] {
        InitForm::Instance()->setEnabled(true);
        InitForm::Instance()->RefreshInitForm();
        ReturnToMenu();
    });
}
