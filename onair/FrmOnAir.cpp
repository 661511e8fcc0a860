#include "onair/FrmOnAir.h"
#include "browse/IFBrowserCart.h"
#include "browse/IFBrowserFamily.h"
#include "browse/IFDataViewer.h"
#include "editing/IFCartEraser.h"
#include "editing/IFCartRecorder.h"
#include "foundation/ErrorGuard.h"
#include "foundation/ui/TranslateWidgets.h"
#include "foundation/Globals.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/iCart.h"
#include "metering/IFClock.h"
#include "metering/IFVumeters.h"
#include "onair/IFCartPlayer.h"
#include "onair/IFFastCarts.h"
#include "onair/IFPlayList.h"
#include "onair/IFPlayLists.h"
#include "onair/IFShortCuts.h"
#include "foundation/ui/Twips.h"
#include "shell/FormPlacement.h"
#include <QDropEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QTabWidget>
#include <QToolButton>
#include <QVBoxLayout>

namespace {
const QString Object = QStringLiteral("FrmOnAir");
}

FrmOnAir::FrmOnAir()
    : Form(QStringLiteral("FrmOnAir"))
{
    setWindowTitle(QStringLiteral("On air"));
    auto* columns = new QHBoxLayout(this);
    columns->setContentsMargins(8, 8, 8, 8);
    columns->setSpacing(10);
    columns->addWidget(BuildBrowsers(), 4);
    columns->addWidget(BuildLists(), 4);
    columns->addWidget(BuildDecks(), 4);
    WireControls();
    // The page itself holds the focus when it opens, so that the keys fire the pads until a
    // text box is chosen.
    setFocusPolicy(Qt::StrongFocus);
    FormPlacement::SizeToResolution(*this);
}

QWidget* FrmOnAir::BuildBrowsers()
{
    auto* column = new QWidget(this);
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    IFBrowserFamily1 = new IFBrowserFamily(column);
    IFBrowserFamily1->setObjectName(QStringLiteral("IFBrowserFamily1"));
    IFBrowserCart1 = new IFBrowserCart(column);
    IFBrowserCart1->setObjectName(QStringLiteral("IFBrowserCart1"));
    IFDataViewer1 = new IFDataViewer(column);
    IFDataViewer1->setObjectName(QStringLiteral("IFDataViewer1"));
    layout->addWidget(IFBrowserFamily1, 2);
    layout->addWidget(IFBrowserCart1, 5);
    layout->addWidget(IFDataViewer1, 2);
    return column;
}

QWidget* FrmOnAir::BuildLists()
{
    ListTabs = new QTabWidget(this);
    ListTabs->setObjectName(QStringLiteral("ListTabs"));
    IFPlayList1 = new IFPlayList(ListTabs);
    IFPlayList1->setObjectName(QStringLiteral("IFPlayList1"));
    IFPlayLists1 = new IFPlayLists(ListTabs);
    IFPlayLists1->setObjectName(QStringLiteral("IFPlayLists1"));
    IFFastCarts1 = new IFFastCarts(ListTabs);
    IFFastCarts1->setObjectName(QStringLiteral("IFFastCarts1"));
    ListTabs->addTab(IFPlayList1, QStringLiteral("Waiting list"));
    ListTabs->addTab(IFPlayLists1, QStringLiteral("Playlists"));
    IFShortCuts1 = new IFShortCuts(ListTabs);
    IFShortCuts1->setObjectName(QStringLiteral("IFShortCuts1"));
    IFShortCuts1->SetCompatibleWithOldDragDropBehaviour(true);
    ListTabs->addTab(IFFastCarts1, QStringLiteral("Pads"));
    ListTabs->addTab(IFShortCuts1, QStringLiteral("Shortcuts"));
    return ListTabs;
}

QWidget* FrmOnAir::BuildDecks()
{
    auto* column = new QWidget(this);
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* header = new QHBoxLayout;
    CartLabel = new QLabel(QStringLiteral("A Channel"), column);
    CartLabel->setObjectName(QStringLiteral("CartLabel"));
    CartLabel->setStyleSheet(QStringLiteral("font-size: 15pt; font-weight: bold; color: #f0b030;"));
    CmdExit = new QToolButton(column);
    CmdExit->setObjectName(QStringLiteral("CmdExit"));
    CmdExit->setText(QStringLiteral("Exit"));
    CmdExit->setMinimumSize(90, 36);
    IFClock1 = new IFClock(column);
    IFClock1->setObjectName(QStringLiteral("IFClock1"));
    IFClock1->setMinimumSize(170, 40);
    header->addWidget(CartLabel);
    header->addStretch();
    header->addWidget(IFClock1);
    header->addWidget(CmdExit);
    layout->addLayout(header);
    for (int k = 0; k < DeckCount; ++k) {
        auto* deck = new IFCartPlayer(column);
        deck->setObjectName(QStringLiteral("IFCartPlayer1_%1").arg(k));
        IFCartPlayer1[static_cast<size_t>(k)] = deck;
        layout->addWidget(deck);
    }
    layout->addWidget(BuildRecorderRow(column));
    LevelPannel = new IFVumeters(column);
    LevelPannel->setObjectName(QStringLiteral("LevelPannel"));
    layout->addWidget(LevelPannel, 3);
    return column;
}

QWidget* FrmOnAir::BuildRecorderRow(QWidget* parent)
{
    auto* row = new QWidget(parent);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    IFCartRecorder1 = new IFCartRecorder(row);
    IFCartRecorder1->setObjectName(QStringLiteral("IFCartRecorder1"));
    IFCartEraser1 = new IFCartEraser(row);
    IFCartEraser1->setObjectName(QStringLiteral("IFCartEraser1"));
    layout->addWidget(IFCartRecorder1);
    layout->addWidget(IFCartEraser1);
    // A strip under the decks: the meters below keep their room.
    row->setMaximumHeight(IFCartRecorder1->sizeHint().height() * 3 / 4);
    return row;
}

void FrmOnAir::WireControls()
{
    connect(IFBrowserFamily1, &IFBrowserFamily::Changed, IFBrowserCart1, &IFBrowserCart::LoadFamilyByName);
    connect(IFBrowserFamily1, &IFBrowserFamily::IWantTheKeys, this, &FrmOnAir::SetPreventShortCuts);
    connect(IFBrowserCart1, &IFBrowserCart::IWantTheKeys, this, &FrmOnAir::SetPreventShortCuts);
    connect(CmdExit, &QToolButton::clicked, this, &Form::Unload);
    // Blank on the recorder proposes a new cart in the family chosen in the family browser.
    connect(IFCartRecorder1, &IFCartRecorder::RequestBlankTape, this,
            [this](QString& familyID, QString&) { familyID = IFBrowserFamily1->SelectedFamilyID(); }, Qt::DirectConnection);
    // The old-style drag, for a browser set to it: the ID travels by the toolkit's drag and
    // the drop on a deck reaches the deck's Drop.
    setAcceptDrops(true);
    connect(IFBrowserCart1, &IFBrowserCart::OldStyleTryToDrag, this,
            [this](const QString& cartID) { m_oldStyleDrag.StartDrag(IFBrowserCart1, cartID); });
    connect(IFBrowserCart1, &IFBrowserCart::OldStyleTryToDragMany, this,
            [this](const QStringList& cartIDs, const QString& cartID) { m_oldStyleDrag.StartDrag(IFBrowserCart1, cartID, cartIDs); });
    connect(IFFastCarts1, &IFFastCarts::OldStyleTryToDrag, this,
            [this](const QString& cartID) { m_oldStyleDrag.StartDrag(IFFastCarts1, cartID); });
    connect(IFShortCuts1, &IFShortCuts::OldStyleTryToDrag, this,
            [this](const QString& cartID) { m_oldStyleDrag.StartDrag(IFShortCuts1, cartID); });
    // What is pointed at is printed on the data viewer.
    connect(IFBrowserCart1, &IFBrowserCart::Hover, IFDataViewer1, &IFDataViewer::DelayedLoad);
    for (IFCartPlayer* deck : IFCartPlayer1)
        connect(deck, &IFCartPlayer::ToolTip, IFDataViewer1, [this](const std::shared_ptr<iCart>& cart) { IFDataViewer1->Drop(cart->ID()); });
}

void FrmOnAir::SetPreventShortCuts(bool prevent)
{
    m_preventShortCuts = prevent;
    IFFastCarts1->SetPreventShortCuts(prevent);
}

void FrmOnAir::keyPressEvent(QKeyEvent* event)
{
    if (!event->text().isEmpty())
        IFFastCarts1->SendShortcut(event->text().at(0));
    Form::keyPressEvent(event);
}

void FrmOnAir::dragEnterEvent(QDragEnterEvent* event)
{
    if (m_oldStyleDrag.Dragging())
        event->acceptProposedAction();
}

void FrmOnAir::dropEvent(QDropEvent* event)
{
    Guarded(Object, QStringLiteral("DragDrop"), [&] {
        if (m_oldStyleDrag.Dragging() && DropAt(event->position().toPoint(), event->position()))
            event->acceptProposedAction();
    });
}

bool FrmOnAir::DropAt(const QPoint& at, const QPointF& exact)
{
    const QString cartID = m_oldStyleDrag.CartID();
    if (IFCartPlayer* deck = DeckAt(at)) {
        const QPointF inside = deck->mapFrom(this, exact);
        deck->Drop(cartID, float(inside.x() * Twips::PerPixel), float(inside.y() * Twips::PerPixel));
    } else if (Contains(IFCartRecorder1, at)) {
        IFCartRecorder1->Drop(cartID);
    } else if (Contains(IFCartEraser1, at)) {
        IFCartEraser1->Drop(cartID);
    } else if (IFPlayList1->isVisible() && Contains(IFPlayList1, at)) {
        // Many carts go in from the last to the first, so that the list ends in the dragged order.
        const QPoint inside = IFPlayList1->mapFrom(this, at);
        const QStringList many = m_oldStyleDrag.ManyCarts() ? m_oldStyleDrag.Collection() : QStringList{cartID};
        for (auto id = many.crbegin(); id != many.crend(); ++id)
            IFPlayList1->Drop(*id, inside.x(), inside.y());
    } else if (IFPlayLists1->isVisible() && Contains(IFPlayLists1, at)) {
        IFPlayLists1->Load(cartID);
    } else if (IFFastCarts1->isVisible() && Contains(IFFastCarts1, at)) {
        IFFastCarts1->Drop(cartID);
    } else if (IFShortCuts1->isVisible() && Contains(IFShortCuts1, at)) {
        IFShortCuts1->Drop(cartID);
    } else if (Contains(IFDataViewer1, at)) {
        IFDataViewer1->Drop(cartID);
    } else {
        return false;
    }
    return true;
}

IFCartPlayer* FrmOnAir::DeckAt(const QPoint& at) const
{
    for (IFCartPlayer* deck : IFCartPlayer1)
        if (Contains(deck, at))
            return deck;
    return nullptr;
}

bool FrmOnAir::Contains(const QWidget* widget, const QPoint& at) const
{
    return widget->rect().contains(widget->mapFrom(this, at));
}

void FrmOnAir::Form_Load()
{
    Guarded(Object, QStringLiteral("Form_Load"), [this](Step& step) {
        step(QStringLiteral("Translate"));
        TranslateWithKernel(this);
        step(QStringLiteral("Decks"));
        for (int k = 0; k < DeckCount; ++k) {
            IFCartPlayer1[static_cast<size_t>(k)]->SetChannelName(QStringLiteral("A"));
            IFCartPlayer1[static_cast<size_t>(k)]->SetStreamIndex(k + 1);
        }
        step(QStringLiteral("Recorder"));
        IFCartRecorder1->SetChannelName(QStringLiteral("Rec"));
        IFCartRecorder1->SetStreamIndex(1);
        step(QStringLiteral("Lists"));
        IFPlayList1->Init();
        IFPlayLists1->Init();
        IFFastCarts1->Init();
        // The station's shortcut macro, when it names one.
        const QString shortCuts = Globals::Kernel()->Config(QStringLiteral("DirAccessID")).toString();
        if (!shortCuts.isEmpty())
            IFShortCuts1->SetMacroName(shortCuts);
        IFClock1->Init();
        step(QStringLiteral("Levels"));
        LevelPannel->Init();
        setFocus();
    });
}

void FrmOnAir::Form_Unload()
{
    ReturnToMenu();
}
