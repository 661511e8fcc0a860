#include "onair/FrmOnAir.h"
#include "browse/IFBrowserCart.h"
#include "browse/IFBrowserFamily.h"
#include "foundation/ErrorGuard.h"
#include "foundation/ui/TranslateWidgets.h"
#include "metering/IFVumeters.h"
#include "onair/IFCartPlayer.h"
#include "foundation/ui/Twips.h"
#include "shell/FormPlacement.h"
#include <QDropEvent>
#include <QHBoxLayout>
#include <QLabel>
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
    columns->addWidget(BuildBrowsers(), 5);
    columns->addWidget(BuildDecks(), 4);
    WireControls();
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
    layout->addWidget(IFBrowserFamily1, 2);
    layout->addWidget(IFBrowserCart1, 5);
    return column;
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
    header->addWidget(CartLabel);
    header->addStretch();
    header->addWidget(CmdExit);
    layout->addLayout(header);
    for (int k = 0; k < DeckCount; ++k) {
        auto* deck = new IFCartPlayer(column);
        deck->setObjectName(QStringLiteral("IFCartPlayer1_%1").arg(k));
        IFCartPlayer1[static_cast<size_t>(k)] = deck;
        layout->addWidget(deck);
    }
    layout->addStretch(1);
    LevelPannel = new IFVumeters(column);
    LevelPannel->setObjectName(QStringLiteral("LevelPannel"));
    layout->addWidget(LevelPannel, 3);
    return column;
}

void FrmOnAir::WireControls()
{
    connect(IFBrowserFamily1, &IFBrowserFamily::Changed, IFBrowserCart1, &IFBrowserCart::LoadFamilyByName);
    connect(IFBrowserFamily1, &IFBrowserFamily::IWantTheKeys, this, [this](bool wanted) { m_preventShortCuts = wanted; });
    connect(IFBrowserCart1, &IFBrowserCart::IWantTheKeys, this, [this](bool wanted) { m_preventShortCuts = wanted; });
    connect(CmdExit, &QToolButton::clicked, this, &Form::Unload);
    // The old-style drag, for a browser set to it: the ID travels by the toolkit's drag and
    // the drop on a deck reaches the deck's Drop.
    setAcceptDrops(true);
    connect(IFBrowserCart1, &IFBrowserCart::OldStyleTryToDrag, this,
            [this](const QString& cartID) { m_oldStyleDrag.StartDrag(IFBrowserCart1, cartID); });
    connect(IFBrowserCart1, &IFBrowserCart::OldStyleTryToDragMany, this,
            [this](const QStringList& cartIDs, const QString& cartID) { m_oldStyleDrag.StartDrag(IFBrowserCart1, cartID, cartIDs); });
}

void FrmOnAir::dragEnterEvent(QDragEnterEvent* event)
{
    if (m_oldStyleDrag.Dragging())
        event->acceptProposedAction();
}

void FrmOnAir::dropEvent(QDropEvent* event)
{
    Guarded(Object, QStringLiteral("DragDrop"), [&] {
        IFCartPlayer* deck = DeckAt(event->position().toPoint());
        if (!m_oldStyleDrag.Dragging() || !deck)
            return;
        const QPointF at = deck->mapFrom(this, event->position());
        deck->Drop(m_oldStyleDrag.CartID(), float(at.x() * Twips::PerPixel), float(at.y() * Twips::PerPixel));
        event->acceptProposedAction();
    });
}

IFCartPlayer* FrmOnAir::DeckAt(const QPoint& at) const
{
    for (IFCartPlayer* deck : IFCartPlayer1)
        if (deck->rect().contains(deck->mapFrom(this, at)))
            return deck;
    return nullptr;
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
        step(QStringLiteral("Levels"));
        LevelPannel->Init();
    });
}

void FrmOnAir::Form_Unload()
{
    ReturnToMenu();
}
