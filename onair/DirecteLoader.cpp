// The Live screen's loader: one tick of TmrLoader, one second after the screen shows, runs the
// steps in order. A step that fails writes its ERROR line and says "Errors while loading", and
// the next step runs, so that a broken control leaves the rest of the screen usable.
#include "onair/Directe.h"
#include "browse/IFBrowserCart.h"
#include "editing/IFCartRecorder.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/Log.h"
#include "foundation/Tr.h"
#include "foundation/Yield.h"
#include "foundation/controls/VolmarPannel.h"
#include "foundation/ui/Dialogs.h"
#include "foundation/ui/TranslateWidgets.h"
#include "foundation/ui/Twips.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/iChannel.h"
#include "kernelapi/iChannels.h"
#include "kernelapi/iStream.h"
#include "kernelapi/iStreams.h"
#include "metering/IFClock.h"
#include "metering/IFVumeters.h"
#include "onair/IFCartPlayer.h"
#include "onair/IFFastCarts.h"
#include "onair/IFPlayList.h"
#include "onair/IFPlayLists.h"
#include "onair/IFShortCuts.h"
#include "shell/CInterface.h"
#include "shell/Registry.h"
#include "shell/modInterface.h"
#include <QLabel>

namespace {
const QString Object = QStringLiteral("Directe");
const QString LoaderProcedure = QStringLiteral("TmrLoader_Timer");
// The first line of the information line once loaded: a name, never translated.
const QString Brand = QStringLiteral("*** VOLMAR KORVANE ***");
// The shortcut grid of this screen always has this many slots.
constexpr int ShortCutSlots = 23;

// The message window, when the program has one (a screen made by a test has none).
void MessagePush(const QString& text)
{
    if (CInterface* ui = modInterface::Interface())
        ui->MessagePush(text);
}

void MessagePop()
{
    if (CInterface* ui = modInterface::Interface())
        ui->MessagePop();
}

std::shared_ptr<CKernel> TheKernel()
{
    const std::shared_ptr<CKernel> kernel = Globals::Kernel();
    if (!kernel)
        throw KernelError(QStringLiteral("There is no kernel"));
    return kernel;
}

std::shared_ptr<iChannels> KernelChannels()
{
    return TheKernel()->Channels();
}
}

std::vector<Directe::LoaderStep> Directe::LoaderSteps()
{
    return {
        [this] { TmrLoader.stop(); Yield(); },
        [] { MessagePush(Tr(QStringLiteral("Loading..."))); },
        [this] { TranslateWithKernel(this); },
        [this] { AddControls(); },
        [this] { Estat->setText(Brand + QLatin1Char('\n') + Tr(QStringLiteral("*** ALL RIGHT ***"))); },
        [this] {
            InitAlerts();
            InitHelp();
            InitState();
            InitAccessosDirectes();
            InitCartPlayers();
            InitCartRecorder();
        },
        [this] { ConfigureBrowser(); },
        // The drag pointer is the program's one override cursor (DragPointer), shared by every
        // control, so the lists have no icon of their own to receive.
        [] {},
        [this] { ConfigureShortCuts(); },
        [this] { IFFastCarts1->Init(); },
        [this] { IFPlayLists1->Init(); },
        [this] { InitLists(); },
        [] { MessagePop(); },
        [] {},
    };
}

void Directe::TmrLoader_Timer()
{
    const std::vector<LoaderStep> steps = LoaderSteps();
    for (size_t k = 0; k < steps.size(); ++k)
        RunLoaderStep(static_cast<int>(k) + 1, steps[k]);
}

void Directe::RunLoaderStep(int number, const LoaderStep& step)
{
    LogOk(Object, LoaderProcedure, QStringLiteral("Step %1").arg(number));
    if (!Guarded(Object, LoaderProcedure, step))
        Dialogs::MessageBox(Tr(QStringLiteral("Errors while loading")));
}

void Directe::ConfigureBrowser()
{
    IFBrowserCart1->SetSignalArrowsEnabled(true);
    IFBrowserCart1->SetAllowMultipleSelection(false);
    IFBrowserCart1->SetGrayed(true);
    IFBrowserCart1->SetAllowSounds(true);
}

void Directe::ConfigureShortCuts()
{
    IFShortCuts1->SetCompatibleWithOldDragDropBehaviour(true);
    IFShortCuts1->SetSlots(ShortCutSlots);
}

void Directe::InitLists()
{
    IFPlayList[0]->Init();
    IFPlayList[1]->Init();
}

QWidget* Directe::AddControl(const QString& className, const QString& name, QWidget* parent)
{
    QWidget* control = Registry::Create(className, parent);
    if (!control)
        throw KernelError(QStringLiteral("The control '%1' could not be created").arg(className));
    control->setObjectName(name);
    return control;
}

// The meters, the clock and the kernel panel are made by their registered names. They take the
// places the layout keeps for them: the meters beside the recorder, the clock in StatusPannel,
// the kernel panel under the browsers.
void Directe::AddControls()
{
    LevelPannel = qobject_cast<IFVumeters*>(AddControl(QStringLiteral("Korvane_Interface.IFVumeters"), QStringLiteral("LevelPannel"), this));
    PlaceAdded(LevelPannel, m_levelHolder);
    WatchPointer(LevelPannel, 4);
    LevelPannel->Init();
    IFClock1 = qobject_cast<IFClock*>(AddControl(QStringLiteral("Korvane_Interface.IFClock"), QStringLiteral("IFClock1"), StatusPannel));
    PlaceAdded(IFClock1, StatusPannel);
    IFClock1->Init();
    PannelEstat->update();
    IFKernel1 = AddControl(QStringLiteral("Korvane_Interface.IFKernel"), QStringLiteral("IFKernel1"), this);
    PlaceAdded(IFKernel1, m_kernelHolder);
}

void Directe::InitCartPlayers()
{
    const std::shared_ptr<iChannels> channels = KernelChannels();
    CartLabel[0]->setVisible(channels->Exists(QStringLiteral("A")));
    CartLabel[1]->setVisible(channels->Exists(QStringLiteral("B")));
    ArrangeIFCartPlayers();
}

void Directe::ArrangeIFCartPlayers()
{
    ArrangeChannel(IFCartPlayer1, QStringLiteral("A"));
    ArrangeChannel(IFCartPlayer2, QStringLiteral("B"));
}

void Directe::ArrangeChannel(std::array<IFCartPlayer*, DecksPerChannel>& decks, const QString& channel)
{
    for (IFCartPlayer* deck : decks)
        deck->hide();
    const std::shared_ptr<iChannels> channels = KernelChannels();
    if (!channels->Exists(channel))
        return;
    const std::shared_ptr<iStreams> streams = channels->Item(channel)->Streams();
    const int bound = std::min(streams->Count(), DecksPerChannel);
    for (int i = 1; i <= bound; ++i) {
        IFCartPlayer* deck = decks[static_cast<size_t>(i - 1)];
        deck->SetCartPlayer(streams->Item(i)->CartPlayer());
        deck->show();
    }
}

void Directe::InitCartRecorder()
{
    const std::shared_ptr<iChannels> channels = KernelChannels();
    if (!channels->Exists(QStringLiteral("REC"))) {
        CartRecorderPannel->SetCaption(QString());
        IFCartRecorder1->hide();
        return;
    }
    CartRecorderPannel->SetCaption(Tr(QStringLiteral("Cart Recorder")));
    IFCartRecorder1->SetCartRecorder(channels->Item(QStringLiteral("REC"))->Streams()->Item(1)->CartRecorder());
    IFCartRecorder1->Init();
}

// The station's shortcut macro, when the configuration names one.
void Directe::InitAccessosDirectes()
{
    const QString macro = TheKernel()->Config(QStringLiteral("DirAccessID")).toString();
    if (!macro.isEmpty())
        IFShortCuts1->SetMacroName(macro);
}
