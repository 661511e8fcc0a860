// How the Live screen's controls meet: the pointer over a panel chooses a help text, a hovered
// cart is described, the old-style drags of the controls end on the control under the drop,
// the family browser fills the cart browser and the keys fire the pads unless a text box
// wants them.
#include "onair/Directe.h"
#include "browse/IFBrowserCart.h"
#include "browse/IFBrowserFamily.h"
#include "browse/IFDataViewer.h"
#include "editing/IFCartEraser.h"
#include "editing/IFCartRecorder.h"
#include "foundation/ErrorGuard.h"
#include "foundation/ui/Twips.h"
#include "kernelapi/iCart.h"
#include "onair/IFCartPlayer.h"
#include "onair/IFFastCarts.h"
#include "onair/IFPlayList.h"
#include "onair/IFPlayLists.h"
#include "onair/IFShortCuts.h"
#include "onair/UCPlayListContents.h"
#include "shell/components/CComponent.h"
#include <QDrag>
#include <QDropEvent>
#include <QFrame>
#include <QLabel>
#include <QMimeData>
#include <QMouseEvent>
#include <QToolButton>

namespace {
const QString Object = QStringLiteral("Directe");
}

void Directe::WireControls()
{
    WireHover();
    WireDrags();
    WireDecks(IFCartPlayer1);
    WireDecks(IFCartPlayer2);
    connect(IFBrowserFamily1, &IFBrowserFamily::Changed, this, [this](const QString& family) {
        IFBrowserCart1->LoadFamilyByName(family);
        m_currentFamily = family;
    });
    connect(IFBrowserFamily1, &IFBrowserFamily::IWantTheKeys, this, &Directe::SetPreventShortCuts);
    connect(IFBrowserCart1, &IFBrowserCart::IWantTheKeys, this, &Directe::SetPreventShortCuts);
    connect(IFBrowserCart1, &IFBrowserCart::Hover, this, &Directe::OnBrowserHover);
    // Blank on the recorder proposes a new cart in the family chosen in the family browser.
    connect(IFCartRecorder1, &IFCartRecorder::RequestBlankTape, this,
            [this](QString& familyID, QString&) { familyID = IFBrowserFamily1->SelectedFamilyID(); }, Qt::DirectConnection);
    connect(CmdExit, &QToolButton::clicked, this, &Directe::ExitDirecte);
    // The right button's press on Exit opens its menu.
    CmdExit->installEventFilter(this);
    connect(asxToolButton1, &QToolButton::clicked, this, &Directe::asxToolButton1_Click);
    connect(CmdContinuity, &QToolButton::clicked, this, &Directe::CmdContinuity_Click);
    connect(CmdSearch, &QToolButton::clicked, this, &Directe::CmdSearch_Click);
    connect(CmdTest, &QToolButton::clicked, this, &Directe::CmdTest_Click);
}

void Directe::WireHover()
{
    WatchPointer(Cartutxeres[0], 1);
    WatchPointer(Cartutxeres[1], 1);
    WatchPointer(StatusPannel, 2);
    WatchPointer(PannelEstat, 2);
    WatchPointer(Estat, 2);
    WatchPointer(EsperaPannel, 6);
    WatchPointer(List, 6);
}

void Directe::WatchPointer(QWidget* widget, int helpIndex)
{
    m_helpOf.insert(widget, helpIndex);
    widget->setMouseTracking(true);
    widget->installEventFilter(this);
}

bool Directe::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == CmdExit && event->type() == QEvent::MouseButtonPress) {
        const auto* press = static_cast<QMouseEvent*>(event);
        if (press->button() == Qt::RightButton) {
            CmdExit_RightClick(press->globalPosition().toPoint());
            return true;
        }
    }
    if (event->type() == QEvent::MouseMove) {
        const auto help = m_helpOf.constFind(watched);
        if (help != m_helpOf.constEnd())
            SetInfo(help.value());
    }
    return Form::eventFilter(watched, event);
}

void Directe::OnBrowserHover(const std::shared_ptr<CComponent>& info)
{
    if (!info || info->ShareType() != CComponent::ShareCart)
        return;
    if (const auto cart = info->Shared<iCart>())
        SetInfoSound(cart->ID());
}

void Directe::WireDrags()
{
    setAcceptDrops(true);
    connect(IFBrowserCart1, &IFBrowserCart::OldStyleTryToDrag, this,
            [this](const QString& cartID) { DragFrom(IFBrowserCart1, cartID); });
    connect(IFBrowserCart1, &IFBrowserCart::OldStyleTryToDragMany, this,
            [this](const QStringList& cartIDs, const QString& cartID) { DragFrom(IFBrowserCart1, cartID, cartIDs); });
    connect(IFFastCarts1, &IFFastCarts::OldStyleTryToDrag, this,
            [this](const QString& cartID) { DragFrom(IFFastCarts1, cartID); });
    connect(IFShortCuts1, &IFShortCuts::OldStyleTryToDrag, this,
            [this](const QString& cartID) { DragFrom(IFShortCuts1, cartID); });
    for (::IFPlayList* list : IFPlayList)
        connect(list->Contents(), &UCPlayListContents::OldStyleTryToDrag, this,
                [this, list](const QString& cartID) { DragFrom(list, cartID); });
}

void Directe::WireDecks(const std::array<IFCartPlayer*, DecksPerChannel>& decks)
{
    for (IFCartPlayer* deck : decks) {
        connect(deck, &IFCartPlayer::ToolTip, this, [this](const std::shared_ptr<iCart>& cart) {
            if (cart)
                IFDataViewer1->Drop(cart->ID());
        });
        connect(deck, &IFCartPlayer::UserRequestToPlay, this,
                [this, deck](QVariant& requested) { Q_EMIT UserRequestToPlay(deck, requested); }, Qt::DirectConnection);
    }
}

void Directe::SetPreventShortCuts(bool prevent)
{
    m_preventShortCuts = prevent;
    IFFastCarts1->SetPreventShortCuts(prevent);
}

void Directe::StartDrag(const QString& cartID, const QStringList& carts)
{
    m_dragging = true;
    m_dragCartID = cartID;
    m_dragCarts = carts;
    m_draggingMany = !carts.isEmpty();
}

void Directe::StopDrag()
{
    m_dragging = false;
    m_draggingMany = false;
    m_dragCartID.clear();
    m_dragCarts.clear();
}

void Directe::DragFrom(QWidget* control, const QString& cartID, const QStringList& carts)
{
    StartDrag(cartID, carts);
    auto* data = new QMimeData;
    data->setText(cartID);
    auto* drag = new QDrag(control);
    drag->setMimeData(data);
    drag->exec(Qt::CopyAction);
    StopDrag();
}

void Directe::dragEnterEvent(QDragEnterEvent* event)
{
    if (m_dragging)
        event->acceptProposedAction();
}

void Directe::dragMoveEvent(QDragMoveEvent* event)
{
    if (!m_dragging)
        return;
    event->acceptProposedAction();
    const QPoint at = event->position().toPoint();
    for (::IFPlayList* list : IFPlayList)
        if (list->isVisible() && Contains(list, at)) {
            const QPoint inside = list->mapFrom(this, at);
            list->Over(inside.x(), inside.y());
        }
}

void Directe::dropEvent(QDropEvent* event)
{
    Guarded(Object, QStringLiteral("DragDrop"), [&] {
        if (DropAt(event->position().toPoint()))
            event->acceptProposedAction();
    });
}

bool Directe::DropAt(const QPoint& at)
{
    if (!m_dragging)
        return false;
    if (IFCartPlayer* deck = DeckAt(at)) {
        const QPoint inside = deck->mapFrom(this, at);
        deck->Drop(m_dragCartID, float(inside.x() * Twips::PerPixel), float(inside.y() * Twips::PerPixel));
        return true;
    }
    for (::IFPlayList* list : IFPlayList)
        if (list->isVisible() && Contains(list, at)) {
            DropOnList(list, list->mapFrom(this, at));
            return true;
        }
    if (IFCartRecorder1->isVisible() && Contains(IFCartRecorder1, at)) {
        const QPoint inside = IFCartRecorder1->mapFrom(this, at);
        IFCartRecorder1->Drop(m_dragCartID, float(inside.x() * Twips::PerPixel), float(inside.y() * Twips::PerPixel));
    } else if (Contains(IFCartEraser1, at)) {
        IFCartEraser1->Drop(m_dragCartID);
    } else if (IFPlayLists1->isVisible() && Contains(IFPlayLists1, at)) {
        IFPlayLists1->Load(m_dragCartID);
    } else if (IFFastCarts1->isVisible() && Contains(IFFastCarts1, at)) {
        IFFastCarts1->Drop(m_dragCartID);
    } else if (IFShortCuts1->isVisible() && Contains(IFShortCuts1, at)) {
        IFShortCuts1->Drop(m_dragCartID);
    } else if (Contains(IFDataViewer1, at)) {
        IFDataViewer1->Drop(m_dragCartID);
    } else {
        return false;
    }
    return true;
}

// Many carts go in from the last to the first, so that the list ends in the dragged order.
void Directe::DropOnList(::IFPlayList* list, const QPoint& inside)
{
    const QStringList carts = m_draggingMany ? m_dragCarts : QStringList{m_dragCartID};
    for (auto id = carts.crbegin(); id != carts.crend(); ++id)
        list->Drop(*id, inside.x(), inside.y());
}

IFCartPlayer* Directe::DeckAt(const QPoint& at) const
{
    for (const auto* decks : {&IFCartPlayer1, &IFCartPlayer2})
        for (IFCartPlayer* deck : *decks)
            if (deck->isVisible() && Contains(deck, at))
                return deck;
    return nullptr;
}

bool Directe::Contains(const QWidget* widget, const QPoint& at) const
{
    return widget->rect().contains(widget->mapFrom(this, at));
}
