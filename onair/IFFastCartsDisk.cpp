// The disk buttons of the fast-cart panel: refresh the pads, reload the list from its macro,
// save it; and the answers to the kernel's questions when a list is saved for the first time.
#include "onair/IFFastCarts.h"
#include "editing/KorvaneCommonDialog.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Tr.h"
#include "foundation/ui/Dialogs.h"
#include "kernelapi/iPlayList.h"
#include "onair/UCFastCartsContents.h"
#include <QToolButton>

void IFFastCarts::EnableDiskButtons()
{
    const auto list = PlayList();
    CmdRefresh->setEnabled(list != nullptr);
    CmdSave->setEnabled(list != nullptr);
    bool loaded = false;
    Guarded(Object, QStringLiteral("EnableDiskButtons"), [&] { loaded = list && list->LoadedMacro(); });
    CmdReload->setEnabled(loaded);
}

void IFFastCarts::ConnectDiskRequests()
{
    for (const auto& connection : std::as_const(m_diskConnections))
        disconnect(connection);
    m_diskConnections.clear();
    const auto list = PlayList();
    if (!list)
        return;
    m_diskConnections << connect(list.get(), &iPlayList::RequestNameToSave, this, &IFFastCarts::iPlayList_RequestNameToSave)
                      << connect(list.get(), &iPlayList::RequestDescriptionToSave, this,
                                 &IFFastCarts::iPlayList_RequestDescriptionToSave)
                      << connect(list.get(), &iPlayList::StatusChanged, this, &IFFastCarts::EnableDiskButtons);
}

void IFFastCarts::CmdRefresh_Click()
{
    UCFastCartsContents1->RefreshFromPlaylist();
}

void IFFastCarts::CmdReload_Click()
{
    Guarded(Object, QStringLiteral("CmdReload_Click"), [this] {
        if (const auto list = PlayList())
            list->Reload();
    });
}

void IFFastCarts::CmdSave_Click()
{
    Guarded(Object, QStringLiteral("CmdSave_Click"), [this] {
        if (const auto list = PlayList())
            list->Save();
        EnableDiskButtons();
    });
}

// The list is saved as a macro: its ID is asked with the cart dialog, macros only.
void IFFastCarts::iPlayList_RequestNameToSave(QString* name)
{
    KorvaneCommonDialog dialog(this);
    dialog.SetCartFilter(KorvaneCommonDialog::Macros);
    dialog.ShowSaveCart(true);
    *name = dialog.CartId();
}

void IFFastCarts::iPlayList_RequestDescriptionToSave(QString* description)
{
    m_descriptionNumber = m_descriptionNumber >= 1000000 ? 1 : m_descriptionNumber + 1;
    const std::optional<QString> typed = Dialogs::InputBox(
        Tr(QStringLiteral("The Macro you are going to save has no description. Please, insert a description for this Macro.")),
        Tr(QStringLiteral("Macro Description")), Tr(QStringLiteral("New Macro")) + QString::number(m_descriptionNumber));
    *description = typed.value_or(QString());
}
