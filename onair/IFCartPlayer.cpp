#include "onair/IFCartPlayer.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/Log.h"
#include "foundation/StationSettings.h"
#include "foundation/ui/SilenceDescendants.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/iCartPlayer.h"
#include "kernelapi/iChannel.h"
#include "kernelapi/iChannels.h"
#include "kernelapi/iStream.h"
#include "kernelapi/iStreams.h"
#include "metering/UCSingleVumeter.h"
#include "shell/components/CComponent.h"
#include "shell/modInterface.h"

// The deck's construction, its persisted properties and its binding to a player; the layout,
// the display of the status, the transport, the drops and the mouse are each in a file of
// their own (IFCartPlayerLayout, ...Status, ...Transport, ...Drops, ...Input).

IFCartPlayer::IFCartPlayer(QWidget* parent)
    : QWidget(parent), m_flashLight(250, [this](bool lit) { ShowHighLight(lit); })
{
    setObjectName(Object);
    setMouseTracking(true);
    CreateControls();
    ConnectButtons();
    WatchChildren();
    m_tmrVumeter.setInterval(150);
    m_tmrToolTip.setInterval(200);
    m_tmrFadeOut.setInterval(100);
    connect(&m_tmrVumeter, &QTimer::timeout, this, &IFCartPlayer::TmrVumeter_Timer);
    connect(&m_tmrToolTip, &QTimer::timeout, this, &IFCartPlayer::TmrToolTip_Timer);
    connect(&m_flashLight.Timer(), &QTimer::timeout, this, &IFCartPlayer::TmrFlash_Timer);
    connect(&m_tmrFadeOut, &QTimer::timeout, this, &IFCartPlayer::TmrFadeOut_Timer);
    GrabStatus(0);
    m_tmrFadeOut.start();
    // Registered as "CartPlayer", "CartPlayer2"...: a screen holds more than one deck. The
    // component outlives the deck in the registry; its Control then reads null.
    m_component = std::make_shared<CComponent>();
    m_component->SetControl(this);
    modInterface::AddComponent(ComponentName, m_component);
    connect(m_component.get(), &CComponent::DragDrop, this, &IFCartPlayer::Component_DragDrop);
}

IFCartPlayer::~IFCartPlayer()
{
    SilenceDescendants(*this);
    for (const auto& connection : std::as_const(m_playerConnections))
        disconnect(connection);
    modInterface::RemoveComponent(m_component);
    m_component.reset();
}

void IFCartPlayer::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    Init();
}

void IFCartPlayer::Init()
{
    if (m_initialised)
        return;
    m_initialised = true;
    Guarded(Object, QStringLiteral("Init"), [this] {
        const bool mode = StationSettings::ReadFlag(PersistenceName(), TriplePlayModeProperty, false);
        if (mode != m_triplePlayMode) {
            m_triplePlayMode = mode;
            GrabStatus(0);
        }
    });
}

QString IFCartPlayer::PersistenceName() const
{
    if (!objectName().isEmpty() && objectName() != Object)
        return objectName();
    if (!m_channelName.isEmpty())
        return Object + QLatin1Char('_') + m_channelName + QString::number(m_streamIndex);
    return Object;
}

void IFCartPlayer::SetCartPlayer(std::shared_ptr<iCartPlayer> player)
{
    Guarded(Object, QStringLiteral("CartPlayer_Set"), [&] {
        m_player = std::move(player);
        ConnectPlayer();
        if (!m_player) {
            m_tmrVumeter.stop();
            return;
        }
        m_vumeter.SetStream(m_player->Stream());
        UCSingleVumeter1->LevelZeroPercent = m_vumeter.LevelZeroPercent();
        UCSingleVumeter1->LevelTenPercent = m_vumeter.LevelTenPercent();
        UCSingleVumeter1->WorkLevel = m_vumeter.WorkLevel();
        UCSingleVumeter1->SetNoiseLevel(m_vumeter.NoiseLevel());
        UCSingleVumeter1->CalculateFormula();
        UCSingleVumeter1->Refresh();
        GrabStatus(m_player->Status());
        GrabTitle(m_player->DisplayTitle());
        GrabVolume(m_player->Volume());
        m_tmrVumeter.start();
    });
}

void IFCartPlayer::ConnectPlayer()
{
    for (const auto& connection : std::as_const(m_playerConnections))
        disconnect(connection);
    m_playerConnections.clear();
    if (!m_player)
        return;
    iCartPlayer* player = m_player.get();
    m_playerConnections << connect(player, &iCartPlayer::DisplayTitleChanged, this, &IFCartPlayer::iCartPlayer_DisplayTitleChanged)
                        << connect(player, &iCartPlayer::DisplayTimeChanged, this, &IFCartPlayer::iCartPlayer_DisplayTimeChanged)
                        << connect(player, &iCartPlayer::PercentToGoChanged, this, &IFCartPlayer::iCartPlayer_PercentToGoChanged)
                        << connect(player, &iCartPlayer::StatusChanged, this, &IFCartPlayer::iCartPlayer_StatusChanged)
                        << connect(player, &iCartPlayer::VolumeChanged, this, &IFCartPlayer::iCartPlayer_VolumeChanged);
}

void IFCartPlayer::SetChannelName(const QString& name)
{
    m_channelName = name;
    BindByName();
}

void IFCartPlayer::SetStreamIndex(int index)
{
    m_streamIndex = index;
    BindByName();
}

void IFCartPlayer::BindByName()
{
    if (m_channelName.isEmpty() || m_streamIndex <= 0)
        return;
    Guarded(Object, QStringLiteral("BindByName"), [this] {
        const auto kernel = Globals::Kernel();
        if (!kernel)
            throw KernelError(QStringLiteral("No kernel to give the player of stream %1 of channel %2")
                                  .arg(m_streamIndex)
                                  .arg(m_channelName));
        const auto stream = kernel->Channels()->Item(m_channelName)->Streams()->Item(m_streamIndex);
        const auto player = stream->CartPlayer();
        if (!player)
            throw KernelError(QStringLiteral("Stream %1 of channel %2 has no cart player").arg(m_streamIndex).arg(m_channelName));
        SetCartPlayer(player);
    });
}

bool IFCartPlayer::RequirePlayer(const QString& procedure) const
{
    if (!m_player)
        LogWarn(Object, procedure, QStringLiteral("Cartplayer Is Nothing"));
    return m_player != nullptr;
}

void IFCartPlayer::SetTriplePlayMode(bool mode)
{
    m_triplePlayMode = mode;
    GrabStatus(0);
    StationSettings::WriteFlag(PersistenceName(), TriplePlayModeProperty, mode);
}

