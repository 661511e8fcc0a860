// The Live screen's buttons: the way out (a click, or the menu of the right button), the menu
// form on top, the continuity program, the cart search and the diagnostic walk.
#include "onair/Directe.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/Launch.h"
#include "foundation/Tr.h"
#include "foundation/db/Database.h"
#include "foundation/ui/Dialogs.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iFamilies.h"
#include "kernelapi/iFamily.h"
#include "onair/CartSearchDialog.h"
#include "shell/CInterface.h"
#include "shell/modInterface.h"

namespace {
const QString Object = QStringLiteral("Directe");
const QString TestFamily = QStringLiteral("XAV");

// The carts of a family whose ID starts with the test family's letters.
int CountTestCarts(const std::shared_ptr<iFamily>& family)
{
    int count = 0;
    for (int i = 1; i <= family->Count(); ++i)
        if (const auto cart = family->Item(i); cart && cart->ID().left(3) == TestFamily)
            ++count;
    return count;
}
}

// The menu comes back as the screen unloads (Form_Unload).
void Directe::ExitDirecte()
{
    Unload();
}

void Directe::CmdExit_RightClick(const QPoint& globalPos)
{
    const QVector<Dialogs::PopupLine> lines{
        Dialogs::PopupLine::Item(QStringLiteral("-") + Tr(QStringLiteral("Exit"))),
        Dialogs::PopupLine::Item(Tr(QStringLiteral("Exit from the Live screen")), QStringLiteral("Exit")),
        Dialogs::PopupLine::Item(QStringLiteral("-") + Tr(QStringLiteral("Cancel"))),
        Dialogs::PopupLine::Item(Tr(QStringLiteral("Cancel")), QStringLiteral("Cancel")),
    };
    if (Dialogs::PopupMenu(lines, globalPos) == QLatin1String("Exit"))
        ExitDirecte();
}

void Directe::asxToolButton1_Click()
{
    Guarded(Object, QStringLiteral("asxToolButton1_Click"), [] {
        if (CInterface* ui = modInterface::Interface())
            ui->ShowMenu();
    });
}

void Directe::CmdContinuity_Click()
{
    Launch(QStringLiteral("Volmar_Tessary_Interface"));
}

void Directe::CmdSearch_Click()
{
    Guarded(Object, QStringLiteral("CmdSearch_Click"), [this] {
        const std::optional<QString> text = Dialogs::InputBox(Tr(QStringLiteral("What do you want to search?")));
        if (!text)
            return;
        Database* sound = Globals::Data().SoundDB.get();
        if (!sound)
            throw KernelError(QStringLiteral("The sound database is not open"));
        if (m_searchResults)
            m_searchResults->close();
        m_searchResults = new CartSearchDialog(CartSearch::Find(*sound, *text), this);
        m_searchResults->setWindowFlag(Qt::Window);
        m_searchResults->show();
    });
}

int Directe::CmdTest_Click()
{
    int count = 0;
    Guarded(Object, QStringLiteral("CmdTest_Click"), [&] {
        const std::shared_ptr<iFamilies> families = Globals::Kernel()->Families();
        if (families->Exists(TestFamily))
            count += CountTestCarts(families->Item(TestFamily));
        for (int i = 1; i <= families->Count(); ++i)
            count += CountTestCarts(families->Item(i));
    });
    return count;
}

CartSearchDialog* Directe::SearchResults() const
{
    return m_searchResults;
}
