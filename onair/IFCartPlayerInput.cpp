// The deck's mouse: every child reports to the drag, the lines carry the clicks, the popup menu
// and the tool tip.
#include "onair/IFCartPlayer.h"
#include "browse/drag/CDrag.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Tr.h"
#include "foundation/controls/DisplayLabel.h"
#include "foundation/ui/Dialogs.h"
#include "kernelapi/iCartPlayer.h"
#include "onair/DeckBackground.h"
#include "onair/DeckFader.h"
#include "shell/modInterface.h"
#include <QLabel>
#include <QMouseEvent>
#include <utility>

namespace {
const QString MenuOwner = QStringLiteral("IFCartPlayer.");
}

bool IFCartPlayer::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseMove:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick: return HandleMouse(watched, static_cast<QMouseEvent*>(event));
    case QEvent::FocusIn:
        // The text lines never keep the focus: the keys belong to the fader.
        if (watched == LblStatus || watched == LblTitle)
            Fader->setFocus();
        return false;
    default: return HandleDesktopDrop(watched, event);
    }
}

bool IFCartPlayer::HandleMouse(QObject* watched, QMouseEvent* event)
{
    NotifyDrag(watched, event);
    const bool left = event->button() == Qt::LeftButton;
    switch (event->type()) {
    case QEvent::MouseMove:
        if (event->buttons() == Qt::NoButton && IsToolTipArea(watched))
            ShowToolTip();
        return false;
    case QEvent::MouseButtonPress:
        if (event->button() == Qt::RightButton && IsMenuArea(watched)) {
            PopupMenu(event->globalPosition().toPoint());
            return true;
        }
        return false;
    case QEvent::MouseButtonRelease:
        // The release that ends a double click is no click: the first release was one.
        if (left && std::exchange(m_doubleClicked, false))
            return false;
        if (left && watched == LblStatus)
            m_timeToggle = !m_timeToggle;
        else if (left && watched == LblVolume)
            Command(QStringLiteral("LblVolume_Click"), &iCartPlayer::VolumeToCartDefault);
        return false;
    case QEvent::MouseButtonDblClick:
        m_doubleClicked = left;
        if (left && watched == LblVolume)
            Command(QStringLiteral("LblVolume_DblClick"), &iCartPlayer::VolumeToZero);
        return false;
    default: return false;
    }
}

// Moves and releases anywhere on the deck make it the destination of a running drag; a press
// is reported only from the body, so that the keys stay plain keys.
void IFCartPlayer::NotifyDrag(QObject* watched, QMouseEvent* event)
{
    if (event->type() == QEvent::MouseButtonDblClick)
        return;
    if (event->type() == QEvent::MouseButtonPress) {
        if (watched == this || watched == ElaBackground)
            modInterface::NotifyDrag(m_component, CDrag::MouseDown, event);
        return;
    }
    modInterface::NotifyDrag(m_component, event->type() == QEvent::MouseMove ? CDrag::MouseMove : CDrag::MouseUp, event);
}

bool IFCartPlayer::IsToolTipArea(QObject* watched) const
{
    return watched == LblVolume || watched == ElaBackground || IsMenuArea(watched);
}

bool IFCartPlayer::IsMenuArea(QObject* watched) const
{
    return watched == LblVolume || watched == LblStatus || watched == LblTitle || watched == ImgStatus;
}

void IFCartPlayer::PopupMenu(const QPoint& globalPos)
{
    Guarded(Object, QStringLiteral("PopupMenu"), [&] {
        const auto item = [](const QString& text, const QString& action) { return Dialogs::PopupLine::Item(text, MenuOwner + action); };
        const auto heading = [](const char* text) { return Dialogs::PopupLine::Item(QStringLiteral("-") + Tr(QString::fromLatin1(text))); };
        const bool loop = m_player && m_player->Loop();
        Dialogs::PopupLine loopLine = item(Tr(QStringLiteral("Loop")), QStringLiteral("Loop"));
        loopLine.checkable = true;
        loopLine.checked = loop;
        const QVector<Dialogs::PopupLine> lines{
            heading("Cart Player"),
            loopLine,
            item(Tr(QStringLiteral("Set volume to 0 dB")), QStringLiteral("VolumeToZero")),
            item(Tr(QStringLiteral("Set volume to cart default")), QStringLiteral("VolumeToCartDefault")),
            heading("Cart"),
            item(Tr(QStringLiteral("Save default volume as ")) + QString::number(Fader->value()) + Tr(QStringLiteral(" dB")),
                 QStringLiteral("SaveDefaultVolume")),
            heading("Cancel"),
            item(Tr(QStringLiteral("Cancel")), QStringLiteral("Cancel")),
        };
        const QString chosen = Dialogs::PopupMenu(lines, globalPos).mid(MenuOwner.size());
        if (chosen.isEmpty() || chosen == QLatin1String("Cancel"))
            return;
        const QString procedure = QStringLiteral("PopupMenu_") + chosen;
        if (!RequirePlayer(procedure))
            return;
        if (chosen == QLatin1String("Loop"))
            m_player->SetLoop(!loop);
        else if (chosen == QLatin1String("VolumeToZero"))
            m_player->VolumeToZero();
        else if (chosen == QLatin1String("VolumeToCartDefault"))
            m_player->VolumeToCartDefault();
        else if (chosen == QLatin1String("SaveDefaultVolume"))
            m_player->SaveDefaultVolume();
    });
}

void IFCartPlayer::ShowToolTip()
{
    if (m_player && m_player->Cart())
        m_tmrToolTip.start();
}

void IFCartPlayer::TmrToolTip_Timer()
{
    m_tmrToolTip.stop();
    Guarded(Object, QStringLiteral("TmrToolTip_Timer"), [this] {
        const auto cart = m_player ? m_player->Cart() : nullptr;
        if (cart)
            Q_EMIT ToolTip(cart);
    });
}
