#include "metering/IFVumeters.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/Tr.h"
#include "foundation/controls/VolmarPannel.h"
#include "foundation/ui/ElasticPanel.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/iChannels.h"
#include "metering/IFVumeter.h"
#include "metering/MeterClock.h"
#include <QTimer>

namespace {
const QString Object = QStringLiteral("IFVumeters");
constexpr double MemberPitch = 10;
constexpr double MemberWidth = 5;
constexpr double MemberHeight = 100;
}

IFVumeters::IFVumeters(QWidget* parent)
    : QWidget(parent)
    , VolmarPannel1(new VolmarPannel(this, QStringLiteral("VolmarPannel1")))
    , vsElastic1(new ElasticPanel(VolmarPannel1))
{
    vsElastic1->setObjectName(QStringLiteral("vsElastic1"));
    VolmarPannel1->SetCaption(QStringLiteral("Levels"));
    VolmarPannel1->SetVisibleGuide(false);
    VolmarPannel1->SetPresetColor(1);
    VolmarPannel1->SetBackColor(QColor(14, 15, 18));
    QTimer::singleShot(0, this, &IFVumeters::Init);
}

IFVumeters::~IFVumeters()
{
    MeterClock::Instance().Leave(this);
}

void IFVumeters::Init()
{
    if (m_started || !Globals::Kernel())
        return;
    m_started = true;
    VolmarPannel1->SetCaption(Tr(QStringLiteral("Levels")));
    Regenerate();
    connect(&MeterClock::Instance(), &MeterClock::LevelTick, this, &IFVumeters::Timer1_Timer, Qt::UniqueConnection);
    connect(&MeterClock::Instance(), &MeterClock::BlinkTick, this, &IFVumeters::Timer250_Timer, Qt::UniqueConnection);
    MeterClock::Instance().Join(this);
}

void IFVumeters::Regenerate()
{
    Guarded(Object, QStringLiteral("Regenerate"), [this](Step& step) {
        step(QStringLiteral("Channels"));
        const std::shared_ptr<CKernel> kernel = Globals::Kernel();
        if (!kernel)
            throw KernelError(QStringLiteral("No kernel to take the channels from"));
        m_channels = kernel->Channels();
        const int count = m_channels->Count();
        step(QStringLiteral("Unload"));
        ClearMembers();
        step(QStringLiteral("Load"));
        for (int i = 1; i <= count; ++i) {
            auto* member = new IFVumeter(vsElastic1);
            member->setObjectName(QStringLiteral("IFVumeter1_%1").arg(i));
            m_members.push_back(member);
            member->SetChannel(m_channels->Item(i));
            member->show();
            vsElastic1->Place(member, QRectF(i * MemberPitch, 0, MemberWidth, MemberHeight));
        }
    });
}

void IFVumeters::ClearMembers()
{
    for (IFVumeter* member : m_members)
        delete member;
    m_members.clear();
}

IFVumeter* IFVumeters::Member(int index) const
{
    return index >= 1 && index <= MemberCount() ? m_members[index - 1] : nullptr;
}

void IFVumeters::Timer1_Timer()
{
    for (IFVumeter* member : m_members)
        member->RefreshLevel();
}

void IFVumeters::Timer250_Timer()
{
    m_blink = !m_blink;
    for (IFVumeter* member : m_members)
        member->RefreshLed(m_blink);
}

void IFVumeters::resizeEvent(QResizeEvent*)
{
    VolmarPannel1->setGeometry(rect());
}
