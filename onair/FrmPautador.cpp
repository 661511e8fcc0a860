#include "onair/FrmPautador.h"
#include "browse/IFBrowserCart.h"
#include "browse/IFBrowserFamily.h"
#include "browse/IFDataViewer.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/ui/TranslateWidgets.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/iFamilies.h"
#include "kernelapi/iStream.h"
#include "onair/IFCartPlayer.h"
#include "onair/UCChannelStreamSelector.h"
#include "shell/FormPlacement.h"
#include <QGridLayout>
#include <QHBoxLayout>
#include <QToolButton>
#include <QTreeView>
#include <QVBoxLayout>

namespace {
const QString Object = QStringLiteral("FrmPautador");
}

FrmPautador::FrmPautador()
    : Form(QStringLiteral("FrmPautador"))
{
    setWindowTitle(QStringLiteral("Running order"));
    auto* columns = new QHBoxLayout(this);
    columns->setContentsMargins(8, 8, 8, 8);
    columns->setSpacing(10);
    columns->addWidget(BuildBrowsers(), 3);
    columns->addWidget(BuildSide(), 1);
    TimerTranslator.setSingleShot(true);
    TimerTranslator.setInterval(0);
    connect(&TimerTranslator, &QTimer::timeout, this, [this] { TranslateWithKernel(this); });
    WireControls();
}

QWidget* FrmPautador::BuildBrowsers()
{
    auto* area = new QWidget(this);
    auto* grid = new QGridLayout(area);
    grid->setContentsMargins(0, 0, 0, 0);
    for (int k = 0; k < BrowserCount; ++k) {
        IFBrowserCart[static_cast<size_t>(k)] = new ::IFBrowserCart(area);
        IFBrowserCart[static_cast<size_t>(k)]->setObjectName(QStringLiteral("IFBrowserCart_%1").arg(k));
        grid->addWidget(IFBrowserCart[static_cast<size_t>(k)], k / 2, k % 2);
    }
    NewMacro = new ::IFBrowserCart(area);
    NewMacro->setObjectName(QStringLiteral("NewMacro"));
    grid->addWidget(NewMacro, 0, 2, 2, 1);
    return area;
}

QWidget* FrmPautador::BuildSide()
{
    auto* side = new QWidget(this);
    auto* layout = new QVBoxLayout(side);
    layout->setContentsMargins(0, 0, 0, 0);
    IFBrowserFamily1 = new IFBrowserFamily(side);
    IFBrowserFamily1->setObjectName(QStringLiteral("IFBrowserFamily1"));
    IFDataViewer1 = new IFDataViewer(side);
    IFDataViewer1->setObjectName(QStringLiteral("IFDataViewer1"));
    UCChannelStreamSelector1 = new UCChannelStreamSelector(side);
    UCChannelStreamSelector1->setObjectName(QStringLiteral("UCChannelStreamSelector1"));
    IFCartPlayer1 = new IFCartPlayer(side);
    IFCartPlayer1->setObjectName(QStringLiteral("IFCartPlayer1"));
    CmdEnd = new QToolButton(side);
    CmdEnd->setObjectName(QStringLiteral("CmdEnd"));
    CmdEnd->setText(QStringLiteral("Exit"));
    CmdEnd->setMinimumSize(90, 36);
    layout->addWidget(IFBrowserFamily1, 3);
    layout->addWidget(IFDataViewer1, 2);
    layout->addWidget(UCChannelStreamSelector1);
    layout->addWidget(IFCartPlayer1, 2);
    layout->addWidget(CmdEnd, 0, Qt::AlignRight);
    return side;
}

void FrmPautador::WireControls()
{
    for (::IFBrowserCart* browser : IFBrowserCart)
        WireBrowser(browser);
    connect(NewMacro, &IFBrowserCart::Hover, IFDataViewer1, &IFDataViewer::DelayedLoad);
    connect(IFBrowserFamily1, &IFBrowserFamily::Changed, this, &FrmPautador::IFBrowserFamily1_Changed);
    connect(UCChannelStreamSelector1, &UCChannelStreamSelector::Changed, this, &FrmPautador::ArrangePlayer);
    connect(CmdEnd, &QToolButton::clicked, this, &Form::Unload);
}

void FrmPautador::WireBrowser(::IFBrowserCart* browser)
{
    connect(browser, &IFBrowserCart::Hover, IFDataViewer1, &IFDataViewer::DelayedLoad);
    connect(browser, &IFBrowserCart::ItemEntered, this, &FrmPautador::AppendToMacro);
    connect(browser->ListView1, &QTreeView::doubleClicked, this, [this, browser] { AppendToMacro(browser->SelectedCartID()); });
}

void FrmPautador::Form_Load()
{
    Guarded(Object, QStringLiteral("Form_Load"), [this] {
        FormPlacement::SizeToResolution(*this);
        TimerTranslator.start();
        for (::IFBrowserCart* browser : IFBrowserCart) {
            browser->SetSignalArrowsEnabled(true);
            browser->SetAllowMultipleSelection(false);
        }
        NewMacro->SetSignalArrowsEnabled(false);
        NewMacro->SetAllowMultipleSelection(true);
        UCChannelStreamSelector1->Init();
        ArrangePlayer();
    });
}

void FrmPautador::Form_Unload()
{
    ReturnToMenu();
}

void FrmPautador::ArrangePlayer()
{
    Guarded(Object, QStringLiteral("ArrangePlayer"), [this] {
        const std::shared_ptr<iStream> stream = UCChannelStreamSelector1->Stream();
        IFCartPlayer1->SetCartPlayer(stream ? stream->CartPlayer() : nullptr);
    });
}

void FrmPautador::IFBrowserFamily1_Changed(const QString& familyID)
{
    Guarded(Object, QStringLiteral("IFBrowserFamily1_Changed"), [&] {
        IFBrowserCart[0]->LoadFamily(Globals::Kernel()->Families()->Item(familyID));
    });
}

void FrmPautador::AppendToMacro(const QString& cartID)
{
    if (!cartID.isEmpty())
        NewMacro->AppendByName(cartID, false, true);
}
