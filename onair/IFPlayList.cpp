#include "onair/IFPlayList.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/Tr.h"
#include "foundation/ui/SilenceDescendants.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCarts.h"
#include "kernelapi/iPlayList.h"
#include "kernelapi/iPlayLists.h"
#include "onair/UCPlayListContents.h"
#include "onair/UCPlayListStatus.h"
#include <QComboBox>
#include <QTableView>
#include <QVBoxLayout>

namespace {
std::shared_ptr<iPlayLists> Lists()
{
    const auto kernel = Globals::Kernel();
    return kernel ? kernel->PlayLists() : nullptr;
}
}

IFPlayList::IFPlayList(QWidget* parent) : QWidget(parent)
{
    setObjectName(Object);
    // The dark ground of the on-air controls, under the strip's light words.
    setAttribute(Qt::WA_StyledBackground);
    setStyleSheet(QStringLiteral("IFPlayList { background: rgb(28, 32, 40); } QComboBox#CboPlayListNames { font-weight: bold; }"));
    CboPlayListNames = new QComboBox(this);
    CboPlayListNames->setObjectName(QStringLiteral("CboPlayListNames"));
    UCPlayListStatus1 = new UCPlayListStatus(this);
    UCPlayListStatus1->setObjectName(QStringLiteral("UCPlayListStatus1"));
    UCPlayListContents1 = new UCPlayListContents(this);
    UCPlayListContents1->setObjectName(QStringLiteral("UCPlayListContents1"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(4, 4, 4, 4);
    column->setSpacing(4);
    column->addWidget(CboPlayListNames);
    column->addWidget(UCPlayListStatus1);
    column->addWidget(UCPlayListContents1, 1);
    m_noneText = QStringLiteral("[None]");
    CboPlayListNames->addItem(m_noneText);

    m_tmrInit.setSingleShot(true);
    m_tmrInit.setInterval(InitMs);
    m_tmrFillCombo.setSingleShot(true);
    m_tmrFillCombo.setInterval(FillComboMs);
    connect(&m_tmrInit, &QTimer::timeout, this, &IFPlayList::TmrInit_Timer);
    connect(&m_tmrFillCombo, &QTimer::timeout, this, &IFPlayList::TmrFillCombo_Timer);
    connect(CboPlayListNames, &QComboBox::activated, this, &IFPlayList::CboPlayListNames_Click);
    connect(UCPlayListContents1, &UCPlayListContents::DroppedWithoutList, this, &IFPlayList::ListFromMacro);
}

IFPlayList::~IFPlayList()
{
    SilenceDescendants(*this);
    for (const auto& connection : std::as_const(m_listsConnections))
        disconnect(connection);
}

void IFPlayList::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    Init();
}

QSize IFPlayList::sizeHint() const
{
    return QSize(560, 420);
}

void IFPlayList::Init()
{
    if (m_initStarted)
        return;
    m_initStarted = true;
    m_tmrInit.start();
}

void IFPlayList::TmrInit_Timer()
{
    m_tmrInit.stop();
    DelayedInit();
}

void IFPlayList::DelayedInit()
{
    Guarded(Object, QStringLiteral("DelayedInit"), [this] {
        m_noneText = QStringLiteral("[") + Tr(QStringLiteral("None")) + QStringLiteral("]");
        CboPlayListNames->setItemText(0, m_noneText);
        UCPlayListContents1->Init();
        UCPlayListStatus1->Init();
        SetPlayList(nullptr);
        for (const auto& connection : std::exchange(m_listsConnections, {}))
            disconnect(connection);
        if (const auto lists = Lists()) {
            m_listsConnections << connect(lists.get(), &iPlayLists::ChangedCount, this, &IFPlayList::iPlayLists_ChangedCount)
                               << connect(lists.get(), &iPlayLists::ChangedPlayList, this, &IFPlayList::iPlayLists_ChangedPlayList);
        }
        FillCombo();
    });
}

void IFPlayList::SetPlayList(const std::shared_ptr<iPlayList>& list)
{
    m_list = list;
    UCPlayListStatus1->SetPlayList(list);
    UCPlayListContents1->SetPlayList(list);
    Guarded(Object, QStringLiteral("PlayList_Set"), [this] {
        const int line = m_list ? CboPlayListNames->findData(m_list->ID()) : 0;
        if (line >= 0)
            CboPlayListNames->setCurrentIndex(line);
    });
}

void IFPlayList::iPlayLists_ChangedCount()
{
    StartFillCombo();
}

void IFPlayList::iPlayLists_ChangedPlayList(const QString&)
{
    StartFillCombo();
}

void IFPlayList::StartFillCombo()
{
    m_tmrFillCombo.start();
}

void IFPlayList::TmrFillCombo_Timer()
{
    m_tmrFillCombo.stop();
    FillCombo();
}

// Every list by name (its ID when it has none), keeping the list shown; a list that is gone
// leaves the panel.
void IFPlayList::FillCombo()
{
    Guarded(Object, QStringLiteral("FillCombo"), [this] {
        const auto lists = Lists();
        if (!lists)
            return;
        const QSignalBlocker quiet(CboPlayListNames);
        while (CboPlayListNames->count() > 1)
            CboPlayListNames->removeItem(1);
        for (int index = 1; index <= lists->Count(); ++index) {
            const auto list = lists->Item(index);
            const QString name = list->Name().trimmed();
            CboPlayListNames->addItem(name.isEmpty() ? list->ID() : name, list->ID());
        }
        const int line = m_list ? CboPlayListNames->findData(m_list->ID()) : 0;
        if (line < 0 || (m_list && lists->IndexOf(m_list->ID()) == 0))
            SetPlayList(nullptr);
        else
            CboPlayListNames->setCurrentIndex(line);
    });
}

void IFPlayList::CboPlayListNames_Click(int line)
{
    Guarded(Object, QStringLiteral("CboPlayListNames_Click"), [&] {
        const QString id = CboPlayListNames->itemData(line).toString();
        const auto lists = Lists();
        SetPlayList(line <= 0 || id.isEmpty() || !lists || lists->IndexOf(id) == 0 ? nullptr : lists->Item(id));
    });
}

void IFPlayList::Over(int x, int y)
{
    if (!InsideGrid(x, y))
        return;
    const QPoint at = UCPlayListContents1->mapFrom(this, QPoint(x, y));
    UCPlayListContents1->Over(at.x(), at.y());
}

void IFPlayList::Drop(const QString& cartID, int x, int y)
{
    if (!m_list) {
        ListFromMacro(cartID);
        return;
    }
    if (!InsideGrid(x, y))
        return;
    const QPoint at = UCPlayListContents1->mapFrom(this, QPoint(x, y));
    UCPlayListContents1->Drop(at.x(), at.y(), cartID);
}

// A macro dropped on a panel without a list becomes a new list of its own; other carts are
// ignored.
void IFPlayList::ListFromMacro(const QString& cartID)
{
    Guarded(Object, QStringLiteral("Drop"), [&] {
        const auto cart = Globals::Kernel()->Carts()->Cart(cartID.trimmed());
        if (cart->Type() != CartType::Macro)
            return;
        const auto lists = Lists();
        const auto list = lists->Add();
        try {
            list->Load(cart->ID());
        } catch (...) {
            lists->Remove(list->ID()); // a macro the list refused leaves no empty list behind
            throw;
        }
        FillCombo();
        SetPlayList(list);
    });
}

bool IFPlayList::InsideGrid(int x, int y) const
{
    const QWidget* grid = UCPlayListContents1->Grid();
    return QRect(grid->mapTo(this, QPoint(0, 0)), grid->size()).contains(x, y);
}
