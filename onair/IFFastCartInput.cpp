// The pad's mouse and its popup menu: play on a press, drag, clicks on its parts, and the
// colour actions.
#include "onair/IFFastCart.h"
#include "browse/drag/CDrag.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Tr.h"
#include "foundation/ui/Dialogs.h"
#include "kernelapi/iCart.h"
#include "onair/CFastCartColors.h"
#include "onair/FrmFastCartColorEditor.h"
#include "onair/PadLabel.h"
#include "shell/components/CComponent.h"
#include "shell/modInterface.h"
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QMouseEvent>

namespace {
const QString MenuOwner = QStringLiteral("IFFastCart.");

Dialogs::PopupLine Line(const QString& text, const QString& action = {})
{
    return Dialogs::PopupLine::Item(text, action.isEmpty() ? QString() : MenuOwner + action);
}
}

bool IFFastCart::eventFilter(QObject* watched, QEvent* event)
{
    if (!m_initDone)
        return false;
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: DoMouseDown(watched, static_cast<QMouseEvent*>(event)); return true;
    case QEvent::MouseMove: DoMouseMove(static_cast<QMouseEvent*>(event)); return false;
    case QEvent::MouseButtonRelease: DoMouseUp(watched, static_cast<QMouseEvent*>(event)); return true;
    default: return false;
    }
}

void IFFastCart::DoMouseDown(QObject*, QMouseEvent* event)
{
    if (m_mousePerformsPlay) {
        Q_EMIT RequestPlay(m_index, event->button(), event->modifiers());
        return;
    }
    if (event->button() == Qt::LeftButton && !m_oldDragDrop)
        modInterface::NotifyDrag(m_component, CDrag::MouseDown, event);
}

void IFFastCart::DoMouseMove(QMouseEvent* event)
{
    if (m_mousePerformsPlay)
        return;
    if (!m_oldDragDrop) {
        modInterface::NotifyDrag(m_component, CDrag::MouseMove, event);
        return;
    }
    if (event->buttons() & Qt::LeftButton)
        Q_EMIT OldStyleTryToDrag(m_index, m_cart ? m_cart->ID() : QString());
}

void IFFastCart::DoMouseUp(QObject* watched, QMouseEvent* event)
{
    if (m_mousePerformsPlay)
        return;
    if (event->button() == Qt::RightButton) {
        PopupMenu(event->globalPosition().toPoint());
        return;
    }
    if (event->button() != Qt::LeftButton)
        return;
    if (!m_oldDragDrop)
        modInterface::NotifyDrag(m_component, CDrag::MouseUp, event);
    RaiseClick(watched);
}

void IFFastCart::RaiseClick(QObject* watched)
{
    if (watched == LblDescription1 || watched == LblDescription2)
        Q_EMIT ClickDescription();
    else if (watched == LblComment)
        Q_EMIT ClickComment();
    else if (watched == Icon)
        Q_EMIT ClickIcon();
    else if (watched == LblShortCut)
        Q_EMIT ClickShortcut();
    else if (watched == LblTime)
        Q_EMIT ClickTime();
    else
        Q_EMIT ClickBackground();
}

void IFFastCart::Component_DragDrop(std::shared_ptr<CComponent> source)
{
    Guarded(Object, QStringLiteral("Component_DragDrop"), [&] {
        if (!source || source->ShareType() != CComponent::ShareCart || source.get() == m_component.get())
            return;
        const auto cart = source->Shared<iCart>();
        if (!cart)
            return;
        SetCart(cart);
        Q_EMIT CartDropped(m_index, cart);
    });
}

void IFFastCart::PopupMenu(const QPoint& globalPos)
{
    Guarded(Object, QStringLiteral("PopupMenu"), [&] {
        const QVector<Dialogs::PopupLine> lines{
            Line(QStringLiteral("-") + Tr(QStringLiteral("Slot"))),
            Line(Tr(QStringLiteral("Edit colors")), QStringLiteral("EditColors")),
            Line(Tr(QStringLiteral("Copy colors")), QStringLiteral("CopyColors")),
            Line(Tr(QStringLiteral("Paste colors")), QStringLiteral("PasteColors")),
            Line(Tr(QStringLiteral("Restore default colors")), QStringLiteral("RestoreDefaultColors")),
            Line(QStringLiteral("-")),
            Line(Tr(QStringLiteral("Free")), QStringLiteral("Free")),
            Line(QStringLiteral("-") + Tr(QStringLiteral("Cancel"))),
            Line(Tr(QStringLiteral("Cancel")), QStringLiteral("Cancel")),
        };
        const QString chosen = Dialogs::PopupMenu(lines, globalPos).mid(MenuOwner.size());
        if (chosen == QLatin1String("EditColors"))
            EditFastCartColors();
        else if (chosen == QLatin1String("CopyColors"))
            CopyColors();
        else if (chosen == QLatin1String("PasteColors"))
            PasteColors();
        else if (chosen == QLatin1String("RestoreDefaultColors"))
            RestoreDefaultColors();
        else if (chosen == QLatin1String("Free"))
            Free();
    });
}

void IFFastCart::EditFastCartColors()
{
    Guarded(Object, QStringLiteral("EditFastCartColors"), [this] {
        const std::optional<QString> chosen = FrmFastCartColorEditor::Edit(*this);
        if (!chosen)
            return;
        m_colors->SetSerializedColors(*chosen);
        Q_EMIT ColorsChosen(m_index);
    });
}

void IFFastCart::CopyColors()
{
    QGuiApplication::clipboard()->setText(m_colors->SerializedColors());
}

// Text on the clipboard that is no colour set of 30 characters is ignored.
void IFFastCart::PasteColors()
{
    const QString text = QGuiApplication::clipboard()->text().trimmed();
    if (text.size() != PadColorsText::Length)
        return;
    const QString before = m_colors->SerializedColors();
    m_colors->SetSerializedColors(text);
    if (m_colors->SerializedColors() != before)
        Q_EMIT ColorsChosen(m_index);
}

void IFFastCart::RestoreDefaultColors()
{
    m_colors->ReturnToDefaults();
    Q_EMIT ColorsChosen(m_index);
}

void IFFastCart::Free()
{
    SetCart(nullptr);
    Q_EMIT ClearedByMenu(m_index);
}
