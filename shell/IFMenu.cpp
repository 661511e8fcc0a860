#include "shell/IFMenu.h"
#include "foundation/ui/SilenceDescendants.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/Log.h"
#include "foundation/ui/ElasticPanel.h"
#include "foundation/ui/TranslateWidgets.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/iUsers.h"
#include <QPushButton>
#include <QVBoxLayout>

IFMenu::IFMenu(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("IFMenu"));
    ElaHolder = new ElasticPanel(this);
    ElaHolder->setObjectName(QStringLiteral("ElaHolder"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(ElaHolder);

    auto* pattern = new QPushButton(QStringLiteral("Login"), this);
    pattern->setObjectName(QStringLiteral("CmdMenu0"));
    pattern->hide();
    m_buttons.append(pattern);

    Guarded(QStringLiteral("IFMenu"), QStringLiteral("UserControl_Initialize"), [this] {
        m_items = std::make_unique<CMenuItems>();
        m_ready = m_items->Ready;
        if (m_ready)
            LoadControls();
    });
}

IFMenu::~IFMenu()
{
    SilenceDescendants(*this);
}

QPushButton* IFMenu::CmdMenu(int k) const
{
    return k > 0 && k < m_buttons.size() ? m_buttons[k] : nullptr;
}

void IFMenu::LoadControls()
{
    Guarded(QStringLiteral("IFMenu"), QStringLiteral("LoadControls"), [this] {
        auto addColumn = [this](const QRectF& place) {
            auto* column = new ElasticPanel(ElaHolder);
            column->setObjectName(QStringLiteral("ElaColumn%1").arg(ElaColumn.size()));
            ElaHolder->Place(column, place);
            column->show();
            ElaColumn.append(column);
        };
        // There are always exactly two columns: a third one cannot be shown. Columns and
        // buttons stand on a pitch of 100 units; each takes most of its cell so that the
        // captions of a studio menu fit on any screen.
        addColumn(QRectF(0, 0, 92, 100));
        addColumn(QRectF(100, 0, 92, 100));

        int k = 1;
        for (int r = 1; r <= m_items->Rows; ++r) {
            for (int c = 1; c <= m_items->Columns; ++c) {
                if (c - 1 >= ElaColumn.size())
                    throw KernelError(QStringLiteral("Column %1 of the menu does not exist").arg(c));
                auto* button = new QPushButton(m_items->Item(k).Caption, ElaColumn[c - 1]);
                button->setObjectName(QStringLiteral("CmdMenu%1").arg(k));
                KeepUntranslated(button);
                button->setEnabled(false);
                ElaColumn[c - 1]->Place(button, QRectF(c * 100, r * 100, 92, 80));
                // A place of the grid without an entry stays empty.
                button->setVisible(!button->text().isEmpty());
                connect(button, &QPushButton::clicked, this, [this, k] { CmdMenu_Click(k); });
                m_buttons.append(button);
                ++k;
            }
        }
    });
}

void IFMenu::SyncEnables()
{
    Guarded(QStringLiteral("IFMenu"), QStringLiteral("SyncEnables"), [this] {
        const bool loggedIn = Globals::Users()->CurrentUser() != nullptr;
        for (int k = 1; k < m_buttons.size(); ++k) {
            const bool isLogin = m_buttons[k]->text() == QLatin1String("Login");
            m_buttons[k]->setEnabled(isLogin ? !loggedIn : loggedIn);
        }
    });
}

void IFMenu::CmdMenu_Click(int k)
{
    Guarded(QStringLiteral("IFMenu"), QStringLiteral("CmdMenu_Click"), [this, k] {
        const CMenuItem& item = m_items->Item(k);
        const QString object = QStringLiteral("IFMenu"), procedure = QStringLiteral("CmdMenu_Click");
        switch (item.action) {
        case CMenuItem::Logout:
            LogOk(object, procedure, QStringLiteral("MT_Logout."));
            Q_EMIT Logout();
            break;
        case CMenuItem::OpenForm:
            LogOk(object, procedure, QStringLiteral("MT_OpenForm."));
            Q_EMIT OpenForm(item.FormName);
            break;
        case CMenuItem::Exit:
            LogOk(object, procedure, QStringLiteral("MT_Exit."));
            Q_EMIT QueryExit();
            break;
        case CMenuItem::Dummy:
            LogOk(object, procedure, QStringLiteral("MT_Dummy."));
            break;
        }
    });
}
