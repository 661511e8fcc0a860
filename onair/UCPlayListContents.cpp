// The playlist grid: construction, the list held and its events, the reload of the rows and
// the next-row arrow. The controls are in UCPlayListContentsLayout, the edits in
// UCPlayListContentsEdit, the mouse and the drops in UCPlayListContentsDrops.
#include "onair/UCPlayListContents.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Log.h"
#include "foundation/Yield.h"
#include "foundation/ui/SilenceDescendants.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iPlayList.h"
#include "kernelapi/iPlayListItem.h"
#include "onair/PlayListItemModel.h"
#include "onair/UCPlayListDiskOperation.h"
#include "shell/components/CComponent.h"
#include "shell/modInterface.h"
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTableView>

namespace {
// The grid lets the event loop run at least this often while it reads a long list.
constexpr qint64 YieldEveryMs = 8;

PlayListRows::ItemFacts Facts(const iPlayListItem& item)
{
    PlayListRows::ItemFacts facts;
    facts.playing = item.Playing();
    facts.ignored = item.Ignored();
    facts.looped = item.Looped();
    facts.modified = item.Modified();
    if (const std::shared_ptr<iCart> cart = item.Cart()) {
        facts.hasCart = true;
        facts.type = qint32(cart->Type());
        facts.id = cart->ID();
        facts.title = cart->Title();
        if (facts.type != -1) {
            facts.time = cart->Time();
            facts.usefulTime = cart->UsefulTime();
        }
    }
    return facts;
}
}

UCPlayListContents::UCPlayListContents(QWidget* parent)
    : QWidget(parent), m_rows(new PlayListItemModel(this))
{
    setObjectName(Object);
    CreateControls();
    ConnectControls();
    WatchChildren();
    m_tmrGrabContents.setSingleShot(true);
    m_tmrDropHighlight.setInterval(1000);
    connect(&m_tmrGrabContents, &QTimer::timeout, this, &UCPlayListContents::TmrGrabContents_Timer);
    connect(&m_tmrDropHighlight, &QTimer::timeout, this, &UCPlayListContents::TmrDropHighlight_Timer);
    m_component = std::make_shared<CComponent>();
    m_component->SetControl(this);
    m_component->SetShareType(CComponent::ShareCart);
    modInterface::AddComponent(ComponentName, m_component);
    connect(m_component.get(), &CComponent::DragDrop, this, &UCPlayListContents::Component_DragDrop);
    GrabContents();
}

UCPlayListContents::~UCPlayListContents()
{
    SilenceDescendants(*this);
    for (const auto& connection : std::as_const(m_listConnections))
        disconnect(connection);
    modInterface::RemoveComponent(m_component);
}

void UCPlayListContents::Init()
{
    if (m_initialised)
        return;
    m_initialised = true;
    UCPlayListDiskOperation1->Init();
    StartGrabContents(GrabSpreadMs);
}

void UCPlayListContents::SetPlayList(const std::shared_ptr<iPlayList>& list)
{
    if (list == m_list)
        return;
    m_list = list;
    ConnectList();
    UCPlayListDiskOperation1->SetPlayList(list);
    m_pressedRow = 0;
    GrabContents();
}

void UCPlayListContents::ConnectList()
{
    for (const auto& connection : std::exchange(m_listConnections, {}))
        disconnect(connection);
    if (!m_list)
        return;
    iPlayList* list = m_list.get();
    m_listConnections << connect(list, &iPlayList::ChangedPlayListItem, this, &UCPlayListContents::iPlayList_ChangedPlayListItem)
                      << connect(list, &iPlayList::ContentChanged, this, &UCPlayListContents::iPlayList_ContentChanged)
                      << connect(list, &iPlayList::ChangedNextIndex, this, &UCPlayListContents::iPlayList_ChangedNextIndex);
}

bool UCPlayListContents::RequireList() const
{
    return m_list != nullptr;
}

int UCPlayListContents::ItemCount() const
{
    return m_rows->Count() - 1;
}

// The rows stand for the list as it is: no reload is waiting or running.
bool UCPlayListContents::RowsAreCurrent() const
{
    return !m_grabbing && !m_tmrGrabContents.isActive();
}

void UCPlayListContents::iPlayList_ChangedPlayListItem(qint32 index)
{
    if (!RowsAreCurrent() || index < 1 || index > ItemCount())
        return;
    Guarded(Object, QStringLiteral("iPlayList_ChangedPlayListItem"), [&] {
        m_rows->Replace(index, PlayListRows::ItemRow(Facts(*m_list->Item(index)), index == m_list->NextIndex()));
    });
}

void UCPlayListContents::iPlayList_ContentChanged()
{
    StartGrabContents(GrabSpreadMs);
}

void UCPlayListContents::iPlayList_ChangedNextIndex(qint32 oldIndex, qint32 newIndex)
{
    if (!RowsAreCurrent())
        return;
    SetNextIndexArrow(oldIndex, false);
    SetNextIndexArrow(newIndex, true);
}

void UCPlayListContents::SetNextIndexArrow(int row, bool show)
{
    m_rows->SetIcon(row, PlayListRows::Next, PlayListRows::NextIcon(show));
}

// Several grids on a screen do not all reload in the same instant.
void UCPlayListContents::StartGrabContents(int spreadMs)
{
    m_tmrGrabContents.stop();
    const int spread = spreadMs > 0 ? int(QRandomGenerator::global()->bounded(spreadMs + 1)) : 0;
    m_tmrGrabContents.setInterval(GrabBaseMs + spread);
    m_tmrGrabContents.start();
}

void UCPlayListContents::TmrGrabContents_Timer()
{
    m_tmrGrabContents.stop();
    GrabContents();
}

// The rows are read from the list with the event loop running every few milliseconds; a
// change of the list meanwhile starts the read again once it ends, another list ends it.
void UCPlayListContents::GrabContents()
{
    if (m_grabbing) {
        m_grabAgain = true;
        return;
    }
    m_grabbing = true;
    do {
        m_grabAgain = false;
        m_tmrGrabContents.stop();
        Guarded(Object, QStringLiteral("GrabContents"), [this] { GrabRows(); });
    } while (m_grabAgain);
    m_grabbing = false;
    GrabButtons();
}

void UCPlayListContents::GrabRows()
{
    const int selected = SelectedRow();
    const std::shared_ptr<iPlayList> list = m_list;
    std::vector<PlayListRows::Row> rows;
    int next = 0;
    if (list) {
        next = list->NextIndex();
        QElapsedTimer sinceYield;
        sinceYield.start();
        for (int index = 1; index <= list->Count(); ++index) {
            rows.push_back(PlayListRows::ItemRow(Facts(*list->Item(index)), index == next));
            if (sinceYield.elapsed() < YieldEveryMs)
                continue;
            Yield();
            sinceYield.start();
            if (m_list != list || m_grabAgain)
                return; // another list, or this one changed: the read starts again
        }
        rows.push_back(PlayListRows::GhostRow(int(rows.size()) + 1 == next));
    }
    m_rows->SetRows(std::move(rows));
    if (selected >= 1 && selected <= m_rows->Count())
        SelectRow(selected);
}
