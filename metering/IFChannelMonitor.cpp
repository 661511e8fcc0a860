#include "metering/IFChannelMonitor.h"
#include "foundation/Globals.h"
#include "foundation/Tr.h"
#include "foundation/controls/IFBlackBoard.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/iChannel.h"
#include "kernelapi/iChannels.h"
#include "kernelapi/iStreams.h"
#include "metering/MeterClock.h"
#include <QTimer>

namespace {
const QString Object = QStringLiteral("IFChannelMonitor");
const std::array<QString, 3> ChannelKeys = {QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("Rec")};

QString BooleanWord(bool value)
{
    return value ? QStringLiteral("True") : QStringLiteral("False");
}
}

IFChannelMonitor::IFChannelMonitor(QWidget* parent)
    : QWidget(parent)
    , IFBlackBoard1(new IFBlackBoard(this))
{
    IFBlackBoard1->setObjectName(QStringLiteral("IFBlackBoard1"));
    IFBlackBoard1->SetCaption(QStringLiteral("Channels"));
    IFBlackBoard1->SetColor(1);
    QTimer::singleShot(0, this, &IFChannelMonitor::Init);
}

IFChannelMonitor::~IFChannelMonitor()
{
    MeterClock::Instance().Leave(this);
}

void IFChannelMonitor::Init()
{
    if (m_started || !Globals::Kernel())
        return;
    m_started = true;
    IFBlackBoard1->SetCaption(Tr(QStringLiteral("Channels")));
    connect(&MeterClock::Instance(), &MeterClock::PipeTick, this, &IFChannelMonitor::TmrChannelMonitor_Timer, Qt::UniqueConnection);
    MeterClock::Instance().Join(this);
}

void IFChannelMonitor::TmrChannelMonitor_Timer()
{
    IFBlackBoard1->Cls();
    for (size_t index = 0; index < ChannelKeys.size(); ++index)
        PrintChannel(index);
}

// One line per channel; a channel that cannot be read is reported once and left out until it
// can be read again.
void IFChannelMonitor::PrintChannel(size_t index)
{
    const QString& key = ChannelKeys[index];
    m_lineGuards[index].Run(Object, QStringLiteral("TmrChannelMonitor_Timer"), [&] {
        const std::shared_ptr<CKernel> kernel = Globals::Kernel();
        if (!kernel)
            throw KernelError(QStringLiteral("No kernel to read the channels from"));
        const std::shared_ptr<iChannel> channel = kernel->Channels()->Item(key);
        const std::shared_ptr<iStreams> streams = channel->Streams();
        IFBlackBoard1->PrintText(key + QStringLiteral(": ") + BooleanWord(channel->Active()) + QStringLiteral(" - ")
                                 + QString::number(streams ? streams->Count() : 0) + QStringLiteral(" - ")
                                 + QString::number(channel->Underruns()) + QStringLiteral(" underruns"));
    });
}

void IFChannelMonitor::resizeEvent(QResizeEvent*)
{
    IFBlackBoard1->setGeometry(rect());
}
