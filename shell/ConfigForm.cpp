#include "shell/ConfigForm.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/ui/TranslateWidgets.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/iUser.h"
#include "kernelapi/iUsers.h"
#include "shell/Artwork.h"
#include "shell/InitForm.h"
#include <QGridLayout>
#include <QLabel>
#include <QToolButton>

namespace {
const QString Object = QStringLiteral("ConfigForm");

// The screen each button opens; the back button (9) has none.
QString TargetOf(int index)
{
    switch (index) {
    case 0: return QStringLiteral("FrmChangePassword");
    case 1: return QStringLiteral("FrmConfigEditor");
    case 3: return QStringLiteral("FrmConfigSound");
    case 4: return QStringLiteral("ConfigBases");
    case 7: return QStringLiteral("ConfigFiles");
    case 10: return QStringLiteral("FrmLanguage");
    default: return {};
    }
}

bool AdministratorsOnly(int index)
{
    return index == 3 || index == 4 || index == 7 || index == 10;
}
}

ConfigForm::ConfigForm()
    : Form(QStringLiteral("ConfigForm"))
{
    setWindowTitle(QStringLiteral("Configuration"));
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(24, 20, 24, 20);
    layout->setSpacing(14);
    auto* title = new QLabel(QStringLiteral("Configuration"), this);
    title->setProperty("role", QStringLiteral("title"));
    layout->addWidget(title, 0, 0, 1, 4);
    AddButton(0, QStringLiteral("Change password"), 1, 0);
    AddButton(1, QStringLiteral("Configuration editor"), 1, 1);
    AddButton(10, QStringLiteral("Language"), 1, 2);
    AddButton(3, QStringLiteral("Sound configuration"), 2, 0);
    AddButton(4, QStringLiteral("Databases"), 2, 1);
    AddButton(7, QStringLiteral("Files"), 2, 2);
    AddButton(9, QStringLiteral("Back"), 2, 3);
    setFixedSize(720, 380);
}

void ConfigForm::AddButton(int index, const QString& caption, int row, int column)
{
    auto* button = new QToolButton(this);
    button->setObjectName(QStringLiteral("Cmd%1").arg(index));
    button->setText(caption);
    button->setIcon(QIcon(Artwork::ConfigIcon(index, QSize(64, 64))));
    button->setIconSize(QSize(64, 64));
    button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    button->setFixedSize(152, 128);
    connect(button, &QToolButton::clicked, this, [this, index] { Cmd_Click(index); });
    static_cast<QGridLayout*>(layout())->addWidget(button, row, column);
    m_buttons.insert(index, button);
}

void ConfigForm::Form_Load()
{
    Guarded(Object, QStringLiteral("Form_Load"), [this] {
        TranslateWithKernel(this);
        const auto user = Globals::Users()->CurrentUser();
        const bool administrator = user && user->Privilege() == 1;
        for (auto it = m_buttons.cbegin(); it != m_buttons.cend(); ++it)
            if (AdministratorsOnly(it.key()))
                it.value()->setEnabled(administrator);
    });
}

void ConfigForm::Cmd_Click(int index)
{
    Guarded(Object, QStringLiteral("Cmd_Click"), [this, index] {
        const QString target = TargetOf(index);
        // Leave first, so that the screen opened next replaces the menu that leaving shows.
        Unload();
        if (!target.isEmpty())
            InitForm::Instance()->MenuSelector_OpenForm(target);
    });
}

void ConfigForm::Form_Unload()
{
    ReturnToMenu();
}
