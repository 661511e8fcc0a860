#include "metering/UCPipeOn.h"
#include "foundation/ErrorGuard.h"
#include "kernelapi/iChannel.h"
#include "metering/MeterClock.h"
#include "metering/PipePictures.h"
#include <QLabel>

namespace {
const QString Object = QStringLiteral("UCPipeOn");
const QColor RecGround(128, 0, 0);
const QColor PlayGround(0, 127, 0);
}

UCPipeOn::UCPipeOn(QWidget* parent)
    : QWidget(parent)
    , I(new QLabel(this))
{
    I->setObjectName(QStringLiteral("I"));
    I->setAlignment(Qt::AlignCenter);
    UseRec(false);
    Show(m_offPicture);
    connect(&MeterClock::Instance(), &MeterClock::PipeTick, this, &UCPipeOn::Timer1_Timer);
    SetFollowMode(false);
}

void UCPipeOn::SetFollowMode(bool followMode)
{
    m_followMode = followMode;
    if (followMode)
        MeterClock::Instance().Leave(this);
    else
        MeterClock::Instance().Join(this);
}

void UCPipeOn::Timer1_Timer()
{
    if (m_followMode)
        return;
    RefreshLed(m_blink);
    m_blink = !m_blink;
}

void UCPipeOn::SetChannel(std::shared_ptr<iChannel> channel)
{
    m_channel = std::move(channel);
    SetDirection();
}

void UCPipeOn::SetDirection()
{
    Guarded(Object, QStringLiteral("SetDirection"), [this] {
        if (m_channel)
            UseRec(m_channel->Direction() == 1);
    });
}

void UCPipeOn::UseRec(bool record)
{
    m_offPicture = record ? QStringLiteral("IRecOff") : QStringLiteral("IPlayOff");
    m_onPicture = record ? QStringLiteral("IRecOn") : QStringLiteral("IPlayOn");
    m_background = record ? RecGround : PlayGround;
    I->setStyleSheet(QStringLiteral("QLabel { background: %1; border: 1px solid rgb(8, 8, 10); }").arg(m_background.name()));
}

void UCPipeOn::ToRec()
{
    UseRec(true);
    RefreshLed(true);
}

void UCPipeOn::ToPlay()
{
    UseRec(false);
    RefreshLed(true);
}

bool UCPipeOn::ChannelOn() const
{
    return m_channel && m_channel->ChannelOn();
}

void UCPipeOn::RefreshLed(bool blink)
{
    // The channel is asked on every beat, so that a failing channel fails on every beat too.
    m_refreshGuard.Run(Object, QStringLiteral("RefreshLed"), [&] {
        const bool on = ChannelOn();
        Show(blink && on ? m_onPicture : m_offPicture);
    });
}

void UCPipeOn::Show(const QString& picture)
{
    if (picture == m_shown)
        return;
    m_shown = picture;
    I->setPixmap(PipePictures::Picture(picture, I->size()));
}

void UCPipeOn::resizeEvent(QResizeEvent*)
{
    I->setGeometry(rect());
    I->setPixmap(PipePictures::Picture(m_shown, I->size()));
}
