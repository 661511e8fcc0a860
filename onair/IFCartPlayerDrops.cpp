// What may be dropped on a deck: a cart by the program's drag, a cart ID by the old drag, and
// from the desktop a sound file or a cart as text.
#include "onair/IFCartPlayer.h"
#include "browse/drag/CMouseController.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/Log.h"
#include "foundation/controls/DisplayLabel.h"
#include "foundation/controls/UCButton.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCartPlayer.h"
#include "kernelapi/iCarts.h"
#include "kernelapi/iSound.h"
#include "shell/CInterface.h"
#include "shell/components/CComponent.h"
#include "shell/modInterface.h"
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

void IFCartPlayer::Component_DragDrop(std::shared_ptr<CComponent> source)
{
    Guarded(Object, QStringLiteral("Component_DragDrop"), [&] {
        if (!source || source->ShareType() != CComponent::ShareCart)
            return;
        LoadAndPlay(QStringLiteral("Component_DragDrop"), source->Shared<iCart>());
    });
}

void IFCartPlayer::Drop(const QString& cartID, float, float)
{
    Guarded(Object, QStringLiteral("Drop"), [&] {
        if (!RequirePlayer(QStringLiteral("Drop")))
            return;
        if (cartID.isEmpty()) {
            m_player->Eject();
            return;
        }
        m_player->Load(CartByID(cartID));
        const CInterface* ui = modInterface::Interface();
        if (ui && ui->MouseController().CursorOverControl(CmdCue))
            m_player->Recue();
        else
            PlayLoaded();
    });
}

void IFCartPlayer::PlayByID(const QString& cartID)
{
    Guarded(Object, QStringLiteral("PlayByID"), [&] { LoadAndPlay(QStringLiteral("PlayByID"), CartByID(cartID)); });
}

bool IFCartPlayer::HandleDesktopDrop(QObject* watched, QEvent* event)
{
    if (watched != LblStatus && watched != LblTitle)
        return false;
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove: {
        auto* drag = static_cast<QDropEvent*>(event);
        drag->setDropAction(Qt::CopyAction);
        drag->accept();
        return true;
    }
    case QEvent::Drop:
        DropDesktop(static_cast<QDropEvent*>(event));
        return true;
    default: return false;
    }
}

// Files first: a file manager offers the paths as text as well, and a path is no cart.
void IFCartPlayer::DropDesktop(QDropEvent* event)
{
    const QMimeData* data = event->mimeData();
    event->setDropAction(Qt::IgnoreAction);
    if (data && data->hasUrls()) {
        QString file;
        for (const QUrl& url : data->urls())
            if (url.isLocalFile() && file.isEmpty())
                file = url.toLocalFile();
        if (file.isEmpty()) {
            LogWarn(Object, QStringLiteral("OLEDragDrop"), QStringLiteral("The drop holds no file"));
        } else {
            event->setDropAction(Qt::CopyAction);
            DropFile(file);
        }
    } else if (data && data->hasText()) {
        if (DropText(data->text()))
            event->setDropAction(Qt::CopyAction);
    } else {
        LogWarn(Object, QStringLiteral("OLEDragDrop"), QStringLiteral("The drop holds neither text nor files"));
    }
    event->accept();
}

bool IFCartPlayer::DropText(const QString& text)
{
    bool played = false;
    Guarded(Object, QStringLiteral("OLEDragDrop"), [&] {
        if (!RequirePlayer(QStringLiteral("OLEDragDrop")))
            return;
        const auto kernel = Globals::Kernel();
        if (!kernel)
            throw KernelError(QStringLiteral("No kernel to read the dropped text"));
        const CKernel::FilledCart filled = kernel->FillCartFromText(kernel->Carts()->NewCart(), text);
        if (!filled.ok || !filled.cart) {
            LogWarn(Object, QStringLiteral("OLEDragDrop"), QStringLiteral("The dropped text is no cart: %1").arg(text.left(80)));
            return;
        }
        LoadAndPlay(QStringLiteral("OLEDragDrop"), filled.cart);
        played = true;
    });
    return played;
}

// A file plays through a cart made in memory for it; nothing is written to the catalogue.
void IFCartPlayer::DropFile(const QString& file)
{
    Guarded(Object, QStringLiteral("OLEDragDrop"), [&] {
        if (!RequirePlayer(QStringLiteral("OLEDragDrop")))
            return;
        const auto kernel = Globals::Kernel();
        if (!kernel)
            throw KernelError(QStringLiteral("No kernel to play the dropped file"));
        const auto cart = kernel->Carts()->NewCart();
        cart->SetType(CartType::Sound);
        cart->SetDescription(QStringLiteral("[From File]"));
        const auto sound = cart->Sound();
        if (!sound)
            throw KernelError(QStringLiteral("A cart made for the file '%1' has no sound").arg(file));
        sound->SetFileName(file);
        sound->Update();
        LoadAndPlay(QStringLiteral("OLEDragDrop"), cart);
    });
}
