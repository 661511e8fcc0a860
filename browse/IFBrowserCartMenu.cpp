// The cart browser's popup menu: the context it is built from and the work of the chosen line.
#include "browse/CartIDQuestion.h"
#include "browse/CartMenu.h"
#include "browse/IFBrowserCart.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/Tr.h"
#include "foundation/ui/WaitCursor.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCarts.h"
#include "kernelapi/iFamilies.h"
#include "kernelapi/iFamily.h"
#include <QApplication>
#include <QFileInfo>

namespace {
QString CartID(const QString& familyID, int number)
{
    return familyID + QStringLiteral("%1").arg(number, 4, 10, QLatin1Char('0'));
}

void Error(const QString& text = QStringLiteral("An error occured."))
{
    Dialogs::MessageBox(Tr(text), Dialogs::Buttons::Ok, {}, Dialogs::Icon::Warning);
}

// The families the current user may write, each with its first free slots.
QVector<CartMenu::Destination> Destinations(iFamilies& families)
{
    QVector<CartMenu::Destination> destinations;
    for (int index = 1; index <= families.Count(); ++index) {
        const std::shared_ptr<iFamily> family = families.Item(index);
        if (family->MayWrite({}))
            destinations.push_back({family->ID(), family->FreeSlots(CartID(family->ID(), 0), 1)});
    }
    return destinations;
}

// "PrintingMenus" is a workstation's own setting; a station may also set it for all.
bool PrintingMenus(CKernel& kernel)
{
    const QString key = QStringLiteral("PrintingMenus");
    QString value = kernel.StationConfig(key).toString();
    if (value.isEmpty())
        value = kernel.Config(key).toString();
    return value.compare(QStringLiteral("On"), Qt::CaseInsensitive) == 0;
}
}

// The browser's family in family mode, else the selected cart's.
std::shared_ptr<iFamily> IFBrowserCart::MenuFamily(const std::shared_ptr<iCart>& cart) const
{
    if (m_mode == FamilyMode && m_family)
        return m_family;
    return cart ? cart->Family() : nullptr;
}

void IFBrowserCart::ShowMenu(const QPoint& globalPos)
{
    QString chosen;
    Guarded(Object, QStringLiteral("ListView1_MouseUp"), [&] {
        std::shared_ptr<CKernel> kernel = Globals::Kernel();
        CartMenu::Context context;
        context.mode = m_mode;
        context.cartID = SelectedCartID();
        std::shared_ptr<iCart> cart;
        if (!context.cartID.isEmpty()) {
            cart = KernelCarts()->Cart(context.cartID);
            context.type = cart->Type();
            context.hasCart = true;
        }
        if (const std::shared_ptr<iFamily> family = MenuFamily(cart)) {
            context.familyID = family->ID();
            context.spacerSlots = family->FreeSlots(cart ? context.cartID : CartID(family->ID(), 0), 0);
        }
        context.destinations = Destinations(*kernel->Families());
        context.fastDeletion = m_fastDeletion;
        context.fastDeletionDeadline = m_fastDeletionDeadline;
        context.printingMenus = PrintingMenus(*kernel);
        chosen = Dialogs::PopupMenu(CartMenu::Lines(context), globalPos);
    });
    Dispatch(chosen);
}

void IFBrowserCart::Dispatch(const QString& key)
{
    const CartMenu::Choice choice = CartMenu::Parse(key);
    const QString& action = choice.action;
    Guarded(Object, QStringLiteral("Dispatch"), [&] {
        if (action == CartMenu::CartOwner + CartMenu::SendTo || action == CartMenu::CartOwner + CartMenu::DuplicateTo)
            MoveOrCopy(choice.familyID, choice.number, action.endsWith(CartMenu::DuplicateTo));
        else if (action == CartMenu::CartOwner + QStringLiteral("Export1") || action == CartMenu::CartOwner + QStringLiteral("Export2"))
            Export(action.right(1).toInt());
        else if (action == CartMenu::CartOwner + QStringLiteral("RecalculateFast") || action == CartMenu::CartOwner + QStringLiteral("RecalculateSlow"))
            Recalculate(action.endsWith(QStringLiteral("Slow")));
        else if (action == CartMenu::FamilyOwner + QStringLiteral("RecalculateFast") || action == CartMenu::FamilyOwner + QStringLiteral("RecalculateSlow"))
            PerformRecalculationOnFamily(action.endsWith(QStringLiteral("Slow")));
        else if (action == CartMenu::CartOwner + QStringLiteral("Empty"))
            EmptyCart();
        else if (action == CartMenu::FamilyOwner + QStringLiteral("DeleteCartLeaveFile") || action == CartMenu::FamilyOwner + QStringLiteral("DeleteCartDeleteFile"))
            DeleteCart(action.endsWith(QStringLiteral("DeleteFile")));
        else if (action == CartMenu::FamilyOwner + QStringLiteral("InsertSpacer"))
            InsertSpacer(choice.number);
        else if (action == CartMenu::CartOwner + QStringLiteral("Print"))
            PrintCart();
        else if (action.startsWith(CartMenu::FamilyOwner + QStringLiteral("Print")))
            PrintFamily(action.contains(QStringLiteral("Header")), action.contains(QStringLiteral("Contents")));
        else if (action == CartMenu::CartOwner + QStringLiteral("EditCartHeader"))
            Edit();
        else if (action == CartMenu::FamilyOwner + QStringLiteral("AllowFastDeletion"))
            StartFastDeletion();
        else if (action == CartMenu::FamilyOwner + QStringLiteral("ForbidFastDeletion"))
            StopFastDeletion();
    });
}

void IFBrowserCart::RefreshFamily(const QString& familyID)
{
    std::shared_ptr<iFamilies> families = Globals::Kernel()->Families();
    if (families->Exists(familyID))
        families->Item(familyID)->Refresh();
}

// A move or duplicate to a free slot; a slot taken meanwhile by another workstation is told
// and nothing moves.
void IFBrowserCart::MoveOrCopy(const QString& familyID, int number, bool copy)
{
    const QString source = SelectedCartID();
    if (source.isEmpty() || familyID.isEmpty())
        return;
    const std::optional<QString> destination = MoveDestination(source, familyID, number);
    if (!destination)
        return;
    std::shared_ptr<iCarts> carts = KernelCarts();
    // The first three characters, even of an answer that is no cart ID, which the kernel refuses.
    const QString destinationFamily = destination->left(3);
    if (carts->Exists(*destination)) {
        Error(Tr(QStringLiteral("The place %1 has just been taken. Nothing was changed.")).arg(*destination));
        RefreshFamily(destinationFamily);
        return;
    }
    if (!(copy ? carts->CopyCart(source, *destination) : carts->MoveCart(source, *destination)))
        Error();
    RefreshFamily(carts->FamilyIDOf(source));
    if (destinationFamily != carts->FamilyIDOf(source))
        RefreshFamily(destinationFamily);
}

std::optional<QString> IFBrowserCart::MoveDestination(const QString& source, const QString& familyID, int number)
{
    if (familyID != CartMenu::Others)
        return CartID(familyID, number);
    const std::optional<QString> answer = CartIDQuestion::Ask({CartIDQuestion::Kind::Open, 7, source, this});
    if (!answer)
        return std::nullopt;
    return answer->trimmed().toUpper();
}

void IFBrowserCart::Export(int folder)
{
    const QString cartID = SelectedCartID();
    if (cartID.isEmpty())
        return;
    const WaitCursor wait;
    const QString directory = Globals::Kernel()->Config(QStringLiteral("ExportDir(%1)").arg(folder)).toString();
    const QFileInfo info(directory);
    if (directory.isEmpty() || !info.isDir() || !info.isWritable()) {
        Error(Tr(QStringLiteral("The export folder \"%1\" does not exist or may not be written.")).arg(directory));
        return;
    }
    if (!KernelCarts()->Cart(cartID)->Export(directory, true))
        Error();
}

void IFBrowserCart::Recalculate(bool accurate)
{
    const QString cartID = SelectedCartID();
    if (cartID.isEmpty())
        return;
    const WaitCursor wait;
    if (!KernelCarts()->Cart(cartID)->Recalculate(accurate))
        Error();
    Family_SlightlyChangedContents();
    RefreshTimings();
}

void IFBrowserCart::DeleteCart(bool removeFile)
{
    const QString cartID = SelectedCartID();
    if (cartID.isEmpty())
        return;
    const Outcome outcome = KernelCarts()->DeleteCart(cartID, removeFile);
    if (outcome.failed)
        Error(outcome.message.isEmpty() ? QStringLiteral("An error occured.") : outcome.message);
}

void IFBrowserCart::EmptyCart()
{
    const QString cartID = SelectedCartID();
    if (!cartID.isEmpty() && !KernelCarts()->Cart(cartID)->Empty())
        Error();
}

// A separator at a free slot of the menu's family, named by the user ("New spacer" when the
// answer is empty); a cancelled box adds nothing.
void IFBrowserCart::InsertSpacer(int number)
{
    const QString selected = SelectedCartID();
    const std::shared_ptr<iFamily> family = MenuFamily(selected.isEmpty() ? nullptr : KernelCarts()->Cart(selected));
    if (!family)
        return;
    const std::optional<QString> answer = Dialogs::InputBox(Tr(QStringLiteral("Insert a name or description for the separator.")));
    if (!answer)
        return;
    const QString id = CartID(family->ID(), number);
    if (KernelCarts()->Exists(id)) {
        Error(Tr(QStringLiteral("The place %1 has just been taken. Nothing was changed.")).arg(id));
        family->Refresh();
        return;
    }
    const std::shared_ptr<iCart> spacer = KernelCarts()->NewCart();
    spacer->SetID(id);
    spacer->SetType(CartType::Separator);
    spacer->SetDescription(answer->trimmed().isEmpty() ? Tr(QStringLiteral("New spacer")) : answer->trimmed());
    spacer->Save();
    family->Refresh();
}

void IFBrowserCart::PrintCart()
{
    const QString cartID = SelectedCartID();
    if (cartID.isEmpty())
        return;
    const WaitCursor wait;
    KernelCarts()->Cart(cartID)->Print(true, true);
}

// The family of the selected cart, or the browser's family when no row is selected.
void IFBrowserCart::PrintFamily(bool header, bool contents)
{
    const QString selected = SelectedCartID();
    const std::shared_ptr<iFamily> family = MenuFamily(selected.isEmpty() ? nullptr : KernelCarts()->Cart(selected));
    if (!family)
        return;
    const WaitCursor wait;
    family->Print(header, contents);
}
