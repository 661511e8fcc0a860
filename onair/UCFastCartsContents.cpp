#include "onair/UCFastCartsContents.h"
#include "browse/drag/CMouseController.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/Log.h"
#include "foundation/Yield.h"
#include "foundation/ui/SilenceDescendants.h"
#include "foundation/ui/Twips.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCartPlayer.h"
#include "kernelapi/iCarts.h"
#include "kernelapi/iObjectWithProperties.h"
#include "kernelapi/iPlayList.h"
#include "kernelapi/iPlayListItem.h"
#include "kernelapi/iStream.h"
#include "onair/CFastCartColors.h"
#include "onair/IFFastCart.h"
#include "onair/PadDesign.h"
#include "shell/CInterface.h"
#include "shell/modInterface.h"
#include <QCursor>
#include <QScrollBar>
#include <algorithm>

UCFastCartsContents::UCFastCartsContents(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(Object);
    VScroll1 = new QScrollBar(Qt::Vertical, this);
    VScroll1->setObjectName(QStringLiteral("VScroll1"));
    VScroll1->setRange(0, 0);
    // Pad 0 is the template; the others are made by Init.
    m_pads << new IFFastCart(this, 0);
    ConnectPad(m_pads[0]);
    m_tmrRefresh.setInterval(100);
    m_tmrRefresh.setSingleShot(true);
    connect(&m_tmrRefresh, &QTimer::timeout, this, &UCFastCartsContents::TmrRefresh_Timer);
}

UCFastCartsContents::~UCFastCartsContents()
{
    SilenceDescendants(*this);
    for (const auto& connection : std::as_const(m_listConnections))
        disconnect(connection);
}

void UCFastCartsContents::Init()
{
    if (m_initDone)
        return;
    Guarded(Object, QStringLiteral("Init"), [this] {
        m_initDone = true;
        LoadFastCarts();
        RepositionAll();
        RefreshFromPlaylist();
    });
}

void UCFastCartsContents::LoadFastCarts()
{
    m_pads[0]->SetMode(PadFace::Pad);
    m_pads[0]->SetShortcut(PadKeyMap::IndexToShortcut(0));
    for (int index = 1; index < NumSlots; ++index) {
        auto* pad = new IFFastCart(this, index);
        pad->SetMode(PadFace::Pad);
        pad->SetShortcut(PadKeyMap::IndexToShortcut(index));
        pad->SetMousePerformsPlay(m_mousePerformsPlay);
        pad->setVisible(true);
        ConnectPad(pad);
        m_pads << pad;
    }
}

void UCFastCartsContents::ConnectPad(IFFastCart* pad)
{
    connect(pad, &IFFastCart::RequestPlay, this, &UCFastCartsContents::Pad_RequestPlay);
    connect(pad, &IFFastCart::ClearedByMenu, this, [this](int index) { Put(index, nullptr); });
    connect(pad, &IFFastCart::CartDropped, this, &UCFastCartsContents::Put);
    connect(pad, &IFFastCart::ColorsChosen, this, &UCFastCartsContents::StoreColors);
    connect(pad, &IFFastCart::OldStyleTryToDrag, this, [this](int, const QString& id) { Q_EMIT OldStyleTryToDrag(id); });
}

void UCFastCartsContents::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (m_initDone)
        RepositionAll();
}

// Pad r*4+c stands in column c, row r; the scroll bar keeps its room at the right edge.
void UCFastCartsContents::RepositionAll()
{
    const int scrollRoom = Twips::ToPixels(PadDesign::ScrollRoomTwips);
    const int padWidth = std::max(0, width() - scrollRoom) / Columns;
    const int padHeight = height() / Rows;
    for (int index = 0; index < m_pads.size(); ++index)
        m_pads[index]->setGeometry((index % Columns) * padWidth, (index / Columns) * padHeight, padWidth, padHeight);
    VScroll1->setGeometry(width() - scrollRoom, 0, scrollRoom, height());
}

void UCFastCartsContents::SetMousePerformsPlay(bool on)
{
    m_mousePerformsPlay = on;
    for (IFFastCart* pad : std::as_const(m_pads))
        pad->SetMousePerformsPlay(on);
}

void UCFastCartsContents::SetPlayList(std::shared_ptr<iPlayList> playList)
{
    if (playList == m_playList)
        return;
    m_playList = std::move(playList);
    ConnectPlayList();
    m_tmrRefresh.start();
}

void UCFastCartsContents::ConnectPlayList()
{
    for (const auto& connection : std::as_const(m_listConnections))
        disconnect(connection);
    m_listConnections.clear();
    if (!m_playList)
        return;
    iPlayList* list = m_playList.get();
    m_listConnections << connect(list, &iPlayList::ContentChanged, this, &UCFastCartsContents::iPlayList_ContentChanged)
                      << connect(list, &iPlayList::ChangedPlayListItem, this, &UCFastCartsContents::iPlayList_ChangedPlayListItem);
}

// A burst of changes costs one reload: each change starts the timer again.
void UCFastCartsContents::iPlayList_ContentChanged()
{
    m_tmrRefresh.start();
}

void UCFastCartsContents::iPlayList_ChangedPlayListItem(qint32 index)
{
    if (index >= 1 && index <= m_pads.size())
        Guarded(Object, QStringLiteral("iPlayList_ChangedPlayListItem"), [&] { GrabPlayListItem(index, index - 1); });
}

void UCFastCartsContents::TmrRefresh_Timer()
{
    m_tmrRefresh.stop();
    RefreshFromPlaylist();
}

void UCFastCartsContents::RefreshFromPlaylist()
{
    if (!m_initDone)
        return;
    Guarded(Object, QStringLiteral("RefreshFromPlaylist"), [this] {
        if (!m_playList) {
            UnloadContents();
            ShowPads(false);
            return;
        }
        ShowPads(true);
        LoadContents();
    });
}

void UCFastCartsContents::ShowPads(bool show)
{
    for (IFFastCart* pad : std::as_const(m_pads))
        pad->setVisible(show);
}

void UCFastCartsContents::UnloadContents()
{
    ++m_loadGeneration;
    for (IFFastCart* pad : std::as_const(m_pads))
        pad->SetCart(nullptr);
}

// The items in order, yielding between them; a load begun meanwhile takes over.
void UCFastCartsContents::LoadContents()
{
    const int generation = ++m_loadGeneration;
    const std::shared_ptr<iPlayList> list = m_playList;
    const int count = list->Count();
    if (count > NumSlots)
        LogWarn(Object, QStringLiteral("LoadContents"),
                QStringLiteral("Playlist %1 holds %2 items; the pads show the first %3").arg(list->ID()).arg(count).arg(NumSlots));
    const int shown = std::min(count, int(m_pads.size()));
    for (int index = 0; index < shown; ++index) {
        GrabPlayListItem(index + 1, index);
        Yield();
        if (generation != m_loadGeneration || list != m_playList)
            return;
    }
    for (int index = shown; index < m_pads.size(); ++index)
        FreePad(index);
}

void UCFastCartsContents::FreePad(int index)
{
    m_pads[index]->SetCart(nullptr);
    m_pads[index]->Colors().ReturnToDefaults();
}

void UCFastCartsContents::GrabPlayListItem(qint32 item, int index)
{
    const std::shared_ptr<iPlayListItem> entry = m_playList->Item(item);
    if (!entry) {
        FreePad(index);
        return;
    }
    IFFastCart* pad = m_pads[index];
    pad->SetCart(entry->Cart());
    const auto properties = entry->Properties();
    if (properties && properties->HasProperty(IFFastCart::ColorsProperty))
        pad->Colors().ReadStored(properties->Property(IFFastCart::ColorsProperty).toString(),
                                 QStringLiteral("GrabPlayListItem(%1)").arg(item));
    else
        pad->Colors().ReturnToDefaults();
}

void UCFastCartsContents::Put(int index, const std::shared_ptr<iCart>& cart)
{
    if (!m_playList)
        return;
    Guarded(Object, QStringLiteral("Put"), [&] { m_playList->Put(index + 1, cart); });
}

// The pad's colours go into its item, which is made (blank) when the list is shorter.
void UCFastCartsContents::StoreColors(int index)
{
    if (!m_playList)
        return;
    Guarded(Object, QStringLiteral("StoreColors"), [&] {
        if (index + 1 > m_playList->Count())
            m_playList->Put(index + 1, m_pads[index]->Cart());
        m_playList->Item(index + 1)->Properties()->SetProperty(IFFastCart::ColorsProperty, m_pads[index]->Colors().SerializedColors());
    });
}

void UCFastCartsContents::SendShortcut(QChar key, const std::shared_ptr<iStream>& preferredStream)
{
    const int index = PadKeyMap::ShortcutToIndex(key);
    if (index >= 0 && index < m_pads.size())
        Play(index, preferredStream);
}

void UCFastCartsContents::Pad_RequestPlay(int index, Qt::MouseButton button, Qt::KeyboardModifiers shift)
{
    std::shared_ptr<iStream> stream;
    Q_EMIT RequestPreferredStream(stream, button, shift);
    if (stream)
        Play(index, stream);
}

void UCFastCartsContents::Play(int index, const std::shared_ptr<iStream>& stream)
{
    Guarded(Object, QStringLiteral("Play"), [&] {
        if (!stream || index < 0 || index >= m_pads.size())
            return;
        const std::shared_ptr<iCartPlayer> player = stream->CartPlayer();
        const std::shared_ptr<iCart> cart = m_pads[index]->Cart();
        if (!cart) {
            player->Eject();
            return;
        }
        player->Load(cart);
        player->Play(false, false, nullptr, false, 2000);
    });
}

void UCFastCartsContents::Drop(const QString& cartID)
{
    if (!m_playList)
        return;
    Guarded(Object, QStringLiteral("Drop"), [&] {
        const auto found = std::find_if(m_pads.cbegin(), m_pads.cend(), [](const IFFastCart* pad) { return PointerOver(pad); });
        if (found == m_pads.cend())
            return;
        const auto carts = Globals::Kernel()->Carts();
        const std::shared_ptr<iCart> cart = carts->Exists(cartID) ? carts->Cart(cartID) : nullptr;
        (*found)->SetCart(cart);
        m_playList->Put((*found)->Index() + 1, cart);
    });
}

// The interface's mouse controller knows the pointer; without the interface (a control shown
// on its own) the cursor's position stands for it.
bool UCFastCartsContents::PointerOver(const QWidget* widget)
{
    if (const CInterface* ui = modInterface::Interface())
        return ui->MouseController().CursorOverControl(widget);
    return widget->isVisible() && widget->rect().contains(widget->mapFromGlobal(QCursor::pos()));
}
