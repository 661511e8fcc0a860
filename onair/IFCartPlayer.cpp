#include "onair/IFCartPlayer.h"
#include "foundation/ui/SilenceDescendants.h"
#include "browse/drag/CDrag.h"
#include "browse/drag/CMouseController.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/Log.h"
#include "foundation/StationSettings.h"
#include "foundation/Strings.h"
#include "foundation/Tr.h"
#include "foundation/controls/UCButton.h"
#include "foundation/ui/Dialogs.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCartPlayer.h"
#include "kernelapi/iCarts.h"
#include "kernelapi/iChannel.h"
#include "kernelapi/iChannels.h"
#include "kernelapi/iPlayList.h"
#include "kernelapi/iSound.h"
#include "kernelapi/iStream.h"
#include "kernelapi/iStreams.h"
#include "metering/Rounding.h"
#include "metering/UCSingleVumeter.h"
#include "onair/DeckBackground.h"
#include "onair/DeckButtonPictures.h"
#include "onair/DeckFader.h"
#include "onair/DeckLabel.h"
#include "onair/DeckStatusPictures.h"
#include "shell/CInterface.h"
#include "shell/components/CComponent.h"
#include "shell/components/CComponents.h"
#include "shell/modInterface.h"
#include <QDropEvent>
#include <QLabel>
#include <QMimeData>
#include <QMouseEvent>
#include <QScopeGuard>
#include <QSignalBlocker>
#include <QToolButton>
#include <QUrl>
#include <algorithm>
#include <utility>

namespace {
// The panel as drawn in twips; every place below is in this frame and scales with the panel.
constexpr double DesignWidth = 2835;
constexpr double DesignHeight = 1620;
constexpr double StatusTop = 75;
constexpr double TitleTop = 540;
constexpr double LineHeight = 390;
constexpr double MeterTop = 990;
constexpr double MeterHeight = 90;
constexpr double SlotTop = 1140;
constexpr double SlotHeight = 420;

constexpr qint16 Silence = -110;
constexpr float NoSignal = -110;
constexpr qint32 PlayLatencyMs = 2000;
constexpr qint32 TailMs = 5000;
const QString MenuOwner = QStringLiteral("IFCartPlayer.");

const QColor GreenBack(0, 64, 0);
const QColor GreenFore(192, 255, 192);
const QColor RedBack(64, 0, 0);
const QColor RedFore(255, 192, 192);
const QColor TitleLit(255, 255, 192);
const QColor TitleDim(192, 192, 128);
const QColor StatusDim(128, 192, 128);
const QColor TitleBack(10, 12, 18);
const QColor VolumeBack(10, 12, 16);
const QColor VolumeFore(255, 190, 80);

// What the status line says in a state.
enum class StatusText { Empty, Playing, PauseClock, CueClock, Unchanged, Sync };
// Which buttons come to the top of the three shared places in normal mode.
enum class Slots { CuePlaySkip, CuePauseSkip, Cued };

struct StatusRow
{
    StatusText text;
    bool red;
    bool flash;
    bool cuers;
    bool ejectNormal;
    Slots top;
    bool skipVisible;
    bool resetTriple;
    bool clearMeter;
    QRgb background;
};

// The display of each status of the player, 0 Ready to 6 Sync.
constexpr QRgb Dark = 0xff404040;
constexpr QRgb Green = 0xff80c080;
constexpr QRgb Grey = 0xffc0c0c0;
const StatusRow StatusRows[] = {
    {StatusText::Empty, false, false, false, false, Slots::CuePlaySkip, false, true, true, Dark},
    {StatusText::Playing, true, false, false, false, Slots::CuePauseSkip, true, false, false, Green},
    {StatusText::PauseClock, false, false, true, true, Slots::CuePlaySkip, false, true, false, Grey},
    {StatusText::CueClock, false, false, true, false, Slots::CuePauseSkip, true, true, false, Grey},
    {StatusText::CueClock, false, false, true, true, Slots::Cued, false, true, false, Grey},
    {StatusText::Unchanged, false, true, false, true, Slots::CuePauseSkip, false, true, true, Grey},
    {StatusText::Sync, false, false, false, false, Slots::CuePauseSkip, true, false, false, Grey},
};
constexpr qint32 StatusCount = sizeof(StatusRows) / sizeof(StatusRows[0]);

QFont DisplayFont(bool mono, int pixelSize)
{
    QFont font(mono ? QStringLiteral("DejaVu Sans Mono") : QStringLiteral("DejaVu Sans"));
    font.setBold(true);
    font.setPixelSize(std::max(6, pixelSize));
    return font;
}

bool IsNumberZero(const QVariant& value)
{
    static const int numbers[] = {QMetaType::Int,    QMetaType::UInt,  QMetaType::LongLong, QMetaType::ULongLong,
                                  QMetaType::Double, QMetaType::Float, QMetaType::Short,    QMetaType::UShort};
    return std::find(std::begin(numbers), std::end(numbers), value.typeId()) != std::end(numbers) && value.toDouble() == 0;
}

template <class T> std::shared_ptr<T> Holds(const QVariant& value)
{
    return value.metaType() == QMetaType::fromType<std::shared_ptr<T>>() ? value.value<std::shared_ptr<T>>() : nullptr;
}
}

IFCartPlayer::IFCartPlayer(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(Object);
    setMouseTracking(true);
    CreateControls();
    ConnectButtons();
    WatchChildren();
    m_tmrVumeter.setInterval(150);
    m_tmrToolTip.setInterval(200);
    m_tmrFlash.setInterval(250);
    m_tmrFadeOut.setInterval(100);
    connect(&m_tmrVumeter, &QTimer::timeout, this, &IFCartPlayer::TmrVumeter_Timer);
    connect(&m_tmrToolTip, &QTimer::timeout, this, &IFCartPlayer::TmrToolTip_Timer);
    connect(&m_tmrFlash, &QTimer::timeout, this, &IFCartPlayer::TmrFlash_Timer);
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

// ---- Construction and layout --------------------------------------------------------------

void IFCartPlayer::CreateControls()
{
    ElaBackground = new DeckBackground(this);
    ElaBackground->setObjectName(QStringLiteral("ElaBackground"));
    ElaBackground->setMouseTracking(true);
    Place(ElaBackground, 0, 0, DesignWidth, DesignHeight);

    CmdRew = MakeButton(QStringLiteral("CmdRew"), QStringLiteral("Rew"));
    CmdFF = MakeButton(QStringLiteral("CmdFF"), QStringLiteral("FF"));
    CmdEject = MakeButton(QStringLiteral("CmdEject"), QStringLiteral("Eject"));
    CmdRew->SetAutoFire(true);
    CmdFF->SetAutoFire(true);
    Place(CmdRew, 75, StatusTop, 345, LineHeight);
    Place(CmdFF, 435, StatusTop, 345, LineHeight);
    Place(CmdEject, 75, TitleTop, 345, LineHeight);

    LblStatus = new DeckLabel(this);
    LblStatus->setObjectName(QStringLiteral("LblStatus"));
    LblStatus->SetAlignment(Qt::AlignCenter);
    LblTitle = new DeckLabel(this);
    LblTitle->setObjectName(QStringLiteral("LblTitle"));
    LblTitle->SetBackColor(TitleBack);
    for (DeckLabel* label : {LblStatus, LblTitle}) {
        label->setAcceptDrops(true);
        label->setFocusPolicy(Qt::ClickFocus);
        label->setMouseTracking(true);
    }
    ImgStatus = new QLabel(this);
    ImgStatus->setObjectName(QStringLiteral("ImgStatus"));
    ImgStatus->setAlignment(Qt::AlignCenter);
    ImgStatus->setMouseTracking(true);
    Place(ImgStatus, 1965, TitleTop, 225, LineHeight);

    // The shared places: the later buttons of each place start beneath the first.
    CmdCue = MakeButton(QStringLiteral("CmdCue"), QStringLiteral("Cue"));
    CmdRecue = MakeButton(QStringLiteral("CmdRecue"), QStringLiteral("Recue"));
    CmdPlayStart = MakeToolButton(QStringLiteral("CmdPlayStart"), QStringLiteral("PlayStart"));
    CmdPlay = MakeButton(QStringLiteral("CmdPlay"), QStringLiteral("Play"));
    CmdPause = MakeButton(QStringLiteral("CmdPause"), QStringLiteral("Pause"));
    CmdPlayMid = MakeToolButton(QStringLiteral("CmdPlayMid"), QStringLiteral("PlayMid"));
    CmdSkip = MakeButton(QStringLiteral("CmdSkip"), QStringLiteral("Skip"));
    CmdPlayStop = MakeToolButton(QStringLiteral("CmdPlayStop"), QStringLiteral("PlayStop"));
    for (QWidget* button : {static_cast<QWidget*>(CmdCue), static_cast<QWidget*>(CmdRecue), static_cast<QWidget*>(CmdPlayStart)})
        Place(button, 75, SlotTop, 465, SlotHeight);
    for (QWidget* button : {static_cast<QWidget*>(CmdPlay), static_cast<QWidget*>(CmdPause), static_cast<QWidget*>(CmdPlayMid)})
        Place(button, 570, SlotTop, 630, SlotHeight);
    for (QWidget* button : {static_cast<QWidget*>(CmdSkip), static_cast<QWidget*>(CmdPlayStop)})
        Place(button, 1230, SlotTop, 465, SlotHeight);
    CmdFadeOut = MakeToolButton(QStringLiteral("CmdFadeOut"), QStringLiteral("FadeOut"));
    Place(CmdFadeOut, 1725, SlotTop, 465, SlotHeight);
    for (QToolButton* button : {CmdPlayStart, CmdPlayMid, CmdPlayStop, CmdFadeOut})
        button->setCheckable(true);

    // The meter runs under the title, as wide as the lines above it.
    UCSingleVumeter1 = new UCSingleVumeter(this);
    UCSingleVumeter1->setObjectName(QStringLiteral("UCSingleVumeter1"));
    UCSingleVumeter1->SetOrientation(Qt::Horizontal);
    Place(UCSingleVumeter1, 75, MeterTop, 2115, MeterHeight);
    Fader = new DeckFader(this);
    Fader->setObjectName(QStringLiteral("Fader"));
    Place(Fader, 2340, 75, 330, MeterTop + MeterHeight - 75);
    LblVolume = new DeckLabel(this);
    LblVolume->setObjectName(QStringLiteral("LblVolume"));
    LblVolume->SetAlignment(Qt::AlignCenter);
    LblVolume->SetBackColor(VolumeBack);
    LblVolume->SetForeColor(VolumeFore);
    LblVolume->setMouseTracking(true);
    Place(LblVolume, 2250, SlotTop, 510, SlotHeight);

    // The keys draw their whole face; the tool buttons under them only hold the pictures.
    setStyleSheet(QStringLiteral("QToolButton { background: transparent; border: none; padding: 0px; margin: 0px; }"));
    ShowCuers(false);
    ShowEject(false);
}

UCButton* IFCartPlayer::MakeButton(const QString& name, const QString& picture)
{
    auto* button = new UCButton(this);
    button->setObjectName(name);
    m_pictures.insert(button, picture);
    return button;
}

QToolButton* IFCartPlayer::MakeToolButton(const QString& name, const QString& picture)
{
    auto* button = new QToolButton(this);
    button->setObjectName(name);
    button->setFocusPolicy(Qt::NoFocus);
    m_pictures.insert(button, picture);
    return button;
}

void IFCartPlayer::ConnectButtons()
{
    connect(CmdCue, &UCButton::Pressed, this, [this] { Command(QStringLiteral("CmdCue_Pressed"), &iCartPlayer::Cue); });
    connect(CmdRecue, &UCButton::Pressed, this, [this] { Command(QStringLiteral("CmdRecue_Pressed"), &iCartPlayer::Recue); });
    connect(CmdPause, &UCButton::Pressed, this, [this] { Command(QStringLiteral("CmdPause_Pressed"), &iCartPlayer::Pause); });
    connect(CmdEject, &UCButton::Pressed, this, [this] { Command(QStringLiteral("CmdEject_Pressed"), &iCartPlayer::Eject); });
    connect(CmdSkip, &UCButton::Pressed, this, [this] { Command(QStringLiteral("CmdSkip_Pressed"), &iCartPlayer::Skip); });
    connect(CmdPlay, &UCButton::Pressed, this, &IFCartPlayer::CmdPlay_Pressed);
    connect(CmdFF, &UCButton::Pressed, this, [this] { Wind(QStringLiteral("CmdFF_Pressed"), true, false); });
    connect(CmdFF, &UCButton::AutoFired, this, [this] { Wind(QStringLiteral("CmdFF_AutoFired"), true, true); });
    connect(CmdRew, &UCButton::Pressed, this, [this] { Wind(QStringLiteral("CmdRew_Pressed"), false, false); });
    connect(CmdRew, &UCButton::AutoFired, this, [this] { Wind(QStringLiteral("CmdRew_AutoFired"), false, true); });
    for (QToolButton* button : {CmdPlayStart, CmdPlayMid, CmdPlayStop})
        connect(button, &QToolButton::toggled, this, [this, button](bool checked) { TripleButton_Toggled(button, checked); });
    connect(CmdFadeOut, &QToolButton::clicked, this, &IFCartPlayer::CmdFadeOut_Clicked);
    connect(Fader, &QScrollBar::valueChanged, this, &IFCartPlayer::SetFaderVolume);
}

// Every part of the panel reports its mouse to the panel: the drag protocol must see a drop
// wherever on the deck it lands, and the labels carry the menu, the tool tip and the clicks.
void IFCartPlayer::WatchChildren()
{
    for (QWidget* child : findChildren<QWidget*>())
        child->installEventFilter(this);
}

void IFCartPlayer::Place(QWidget* widget, double left, double top, double width, double height)
{
    m_places.insert(widget, QRectF(left, top, width, height));
    ApplyPlace(widget);
}

void IFCartPlayer::ApplyPlace(QWidget* widget)
{
    const QRectF design = m_places.value(widget);
    const double sx = width() / DesignWidth;
    const double sy = height() / DesignHeight;
    const QRect place(qRound(design.left() * sx), qRound(design.top() * sy), qRound(design.width() * sx),
                      qRound(design.height() * sy));
    widget->setGeometry(place);
}

void IFCartPlayer::resizeEvent(QResizeEvent*)
{
    for (auto it = m_places.cbegin(); it != m_places.cend(); ++it)
        ApplyPlace(it.key());
    const int line = LblStatus->height();
    LblStatus->SetTextFont(DisplayFont(true, qRound(line * 0.46)));
    LblTitle->SetTextFont(DisplayFont(false, qRound(line * 0.4)));
    LblVolume->SetTextFont(DisplayFont(true, qRound(LblVolume->height() * 0.36)));
    RenderPictures();
}

// The pictures are drawn at the size of their buttons, so they stay sharp at any panel size.
void IFCartPlayer::RenderPictures()
{
    for (auto it = m_pictures.cbegin(); it != m_pictures.cend(); ++it) {
        const QSize size = it.key()->size() - QSize(6, 6);
        const QPixmap up = DeckButtonPictures::Picture(it.value() + QStringLiteral("_U"), size);
        const QPixmap down = DeckButtonPictures::Picture(it.value() + QStringLiteral("_D"), size);
        if (auto* button = qobject_cast<UCButton*>(it.key())) {
            button->SetPicture(up);
            button->SetPictureDown(down);
        } else if (auto* tool = qobject_cast<QToolButton*>(it.key())) {
            QIcon icon;
            icon.addPixmap(up, QIcon::Normal, QIcon::Off);
            icon.addPixmap(down, QIcon::Normal, QIcon::On);
            icon.addPixmap(down, QIcon::Active, QIcon::On);
            tool->setIcon(icon);
            tool->setIconSize(size);
        }
    }
    ShowIcon(m_statusIcon);
}

QSize IFCartPlayer::sizeHint() const
{
    return QSize(qRound(DesignWidth / 15 * 2), qRound(DesignHeight / 15 * 2));
}

QSize IFCartPlayer::minimumSizeHint() const
{
    return QSize(qRound(DesignWidth / 15), qRound(DesignHeight / 15));
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

// ---- The player ---------------------------------------------------------------------------

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

void IFCartPlayer::iCartPlayer_DisplayTitleChanged(const QString& title)
{
    GrabTitle(title);
}

void IFCartPlayer::iCartPlayer_DisplayTimeChanged(const QString& timeA, const QString& timeB)
{
    LblStatus->SetText(m_timeToggle ? timeB : timeA);
}

void IFCartPlayer::iCartPlayer_PercentToGoChanged(float percent)
{
    if (m_triplePlayMode)
        LblVolume->SetText(QString::number(RoundHalfEven(percent)) + QLatin1Char('%'));
}

void IFCartPlayer::iCartPlayer_StatusChanged(qint32 status)
{
    GrabStatus(status);
}

void IFCartPlayer::iCartPlayer_VolumeChanged(qint16 volume)
{
    GrabVolume(volume);
}

// ---- The status table ---------------------------------------------------------------------

void IFCartPlayer::GrabStatus(qint32 status)
{
    Guarded(Object, QStringLiteral("GrabStatus"), [&] {
        if (!m_colorsRead)
            ReadColors();
        if (status < 0 || status >= StatusCount) {
            ApplyUnknownStatus();
            return;
        }
        const StatusRow& row = StatusRows[status];
        const bool seekingCue = status == static_cast<qint32>(CartPlayerStatus::Cued) && m_seeking;
        if (!seekingCue)
            ApplyStatusRow(status);
        SetLabelsEnabled(status != 0);
        ElaBackground->SetBackColor(QColor::fromRgb(row.background));
    });
}

void IFCartPlayer::ApplyStatusRow(qint32 status)
{
    const StatusRow& row = StatusRows[status];
    switch (row.text) {
    case StatusText::Empty: LblStatus->SetText(QString()); break;
    case StatusText::Playing: LblStatus->SetText(Tr(QStringLiteral("Playing"))); break;
    case StatusText::PauseClock: LblStatus->SetText(MsToClock(m_player ? m_player->PauseRemaining() : 0)); break;
    case StatusText::CueClock: LblStatus->SetText(MsToClock(m_player ? m_player->CueRemaining() : 0)); break;
    case StatusText::Sync: LblStatus->SetText(Tr(QStringLiteral("Sync"))); break;
    case StatusText::Unchanged: break;
    }
    if (row.red)
        LblStatusToRed();
    else
        LblStatusToGreen();
    ShowIcon(iCartPlayer::StatusWord(status));
    SetFlash(row.flash);
    ShowCuers(row.cuers);
    ShowEject(m_triplePlayMode || row.ejectNormal);
    if (m_triplePlayMode) {
        BringToTop({CmdPlayStart, CmdPlayMid, CmdPlayStop});
        if (row.resetTriple)
            RaiseTriplePlay(false, false, false);
    } else {
        switch (row.top) {
        case Slots::CuePlaySkip: BringToTop({CmdCue, CmdPlay, CmdSkip}); break;
        case Slots::CuePauseSkip: BringToTop({CmdCue, CmdPause, CmdSkip}); break;
        case Slots::Cued:
            BringToTop({CmdPlay, m_player && m_player->CuePosition() != 0 ? static_cast<QWidget*>(CmdRecue) : CmdCue});
            break;
        }
        if (row.skipVisible)
            CmdSkip->setVisible(true);
    }
    if (row.clearMeter)
        ClearVumeter();
}

void IFCartPlayer::ApplyUnknownStatus()
{
    LblStatus->SetText(Tr(QStringLiteral("Unknown")));
    LblStatusToGreen();
    SetLabelsEnabled(false);
    ElaBackground->SetBackColor(QColor::fromRgb(Dark));
}

// The two colour settings are read once and kept for the screens that share this panel.
void IFCartPlayer::ReadColors()
{
    const auto kernel = Globals::Kernel();
    if (!kernel)
        return;
    m_colorsRead = true;
    m_darkColor = kernel->Config(QStringLiteral("CCartPlayerDark"));
    m_lightColor = kernel->Config(QStringLiteral("CCartPlayerLight"));
}

void IFCartPlayer::GrabTitle(const QString& title)
{
    LblTitle->SetText(title);
}

void IFCartPlayer::GrabVolume(qint16 volume)
{
    LblVolume->SetText(volume == Silence ? Tr(QStringLiteral("NO")) : QString::number(volume) + QStringLiteral(" dB"));
    const int position = std::clamp<int>(volume, DeckFader::Bottom, DeckFader::Top);
    if (Fader->value() != position) {
        // A display of the kernel's volume, not a hand on the fader: nothing goes back.
        const QSignalBlocker quiet(Fader);
        Fader->setValue(position);
    }
}

void IFCartPlayer::ShowCuers(bool show)
{
    CmdRew->setVisible(show);
    CmdFF->setVisible(show);
    if (show)
        Place(LblStatus, 810, StatusTop, 1380, LineHeight);
    else
        Place(LblStatus, 75, StatusTop, 2115, LineHeight);
}

void IFCartPlayer::ShowEject(bool show)
{
    CmdEject->setVisible(show);
    if (show)
        Place(LblTitle, 435, TitleTop, 1500, LineHeight);
    else
        Place(LblTitle, 75, TitleTop, 1860, LineHeight);
}

void IFCartPlayer::ShowIcon(const QString& key)
{
    m_statusIcon = key;
    const int side = std::min(ImgStatus->width(), ImgStatus->height());
    ImgStatus->setPixmap(DeckStatusPictures::Picture(key, side));
}

void IFCartPlayer::BringToTop(const QList<QWidget*>& buttons)
{
    for (QWidget* button : buttons)
        button->raise();
}

void IFCartPlayer::RaiseTriplePlay(bool start, bool mid, bool stop)
{
    m_suppress = true;
    const std::pair<QToolButton*, bool> states[] = {{CmdPlayStart, start}, {CmdPlayMid, mid}, {CmdPlayStop, stop}};
    for (const auto& [button, checked] : states)
        if (!checked)
            button->setChecked(false);
    m_suppress = false;
}

void IFCartPlayer::LblStatusToGreen()
{
    LblStatus->SetBackColor(GreenBack);
    LblStatus->SetForeColor(GreenFore);
}

void IFCartPlayer::LblStatusToRed()
{
    LblStatus->SetBackColor(RedBack);
    LblStatus->SetForeColor(RedFore);
}

void IFCartPlayer::SetFlash(bool flash)
{
    m_flash = flash;
    if (flash)
        m_tmrFlash.start();
    else
        m_tmrFlash.stop();
    SetHighLight(!flash);
}

void IFCartPlayer::SetHighLight(bool highLight)
{
    m_highLight = highLight;
    if (highLight) {
        const bool playing = m_player && m_player->Status() == static_cast<qint32>(CartPlayerStatus::Playing);
        LblTitle->SetForeColor(TitleLit);
        LblStatus->SetForeColor(playing ? RedFore : GreenFore);
    } else {
        LblTitle->SetForeColor(TitleDim);
        LblStatus->SetForeColor(StatusDim);
    }
}

void IFCartPlayer::SetLabelsEnabled(bool enabled)
{
    LblStatus->SetActive(enabled);
    LblTitle->SetActive(enabled);
}

void IFCartPlayer::SetTriplePlayMode(bool mode)
{
    m_triplePlayMode = mode;
    GrabStatus(0);
    StationSettings::WriteFlag(PersistenceName(), TriplePlayModeProperty, mode);
}

// ---- Buttons ------------------------------------------------------------------------------

void IFCartPlayer::Command(const QString& procedure, void (iCartPlayer::*command)())
{
    Guarded(Object, procedure, [&] {
        if (RequirePlayer(procedure))
            (m_player.get()->*command)();
    });
}

void IFCartPlayer::Wind(const QString& procedure, bool forward, bool repeat)
{
    Guarded(Object, procedure, [&] {
        if (repeat)
            m_cueSpeed.Update();
        else
            m_cueSpeed.Init();
        if (!RequirePlayer(procedure))
            return;
        if (forward)
            m_player->FastForward(m_cueSpeed.Speed());
        else
            m_player->Rewind(m_cueSpeed.Speed());
    });
}

void IFCartPlayer::CmdPlay_Pressed()
{
    Guarded(Object, QStringLiteral("CmdPlay_Pressed"), [this] {
        if (!RequirePlayer(QStringLiteral("CmdPlay_Pressed")))
            return;
        if (m_player->Loaded()) {
            PlayLoaded();
            return;
        }
        QVariant requested;
        Q_EMIT UserRequestToPlay(requested);
        AnswerUserRequest(requested);
    });
}

void IFCartPlayer::AnswerUserRequest(const QVariant& requested)
{
    if (const auto cart = Holds<iCart>(requested)) {
        m_player->Load(cart);
    } else if (const auto playList = Holds<iPlayList>(requested)) {
        m_player->Load(playList);
    } else if (requested.typeId() == QMetaType::QString) {
        m_player->Load(CartByID(requested.toString()));
    } else {
        if (IsNumberZero(requested))
            LogWarn(Object, QStringLiteral("CmdPlay_Pressed"), QStringLiteral("Received non undestandable Requested Object"));
        return;
    }
    if (m_player->Loaded())
        PlayLoaded();
}

void IFCartPlayer::TripleButton_Toggled(QToolButton* button, bool checked)
{
    if (m_suppress)
        return;
    Guarded(Object, button->objectName() + QStringLiteral("_Click"), [&] {
        if (!RequirePlayer(button->objectName() + QStringLiteral("_Click")))
            return;
        if (!checked) {
            m_player->Pause();
            return;
        }
        RaiseTriplePlay(button == CmdPlayStart, button == CmdPlayMid, button == CmdPlayStop);
        const qint32 position = TriplePosition(button);
        {
            // The kernel reports Cued on the way; that passing state must not redraw the deck.
            m_seeking = true;
            const auto cleared = qScopeGuard([this] { m_seeking = false; });
            m_player->SetPosition(position);
        }
        PlayLoaded();
    });
}

qint32 IFCartPlayer::TriplePosition(const QToolButton* button) const
{
    if (button == CmdPlayStart)
        return 0;
    const auto cart = m_player->Cart();
    const qint32 time = cart ? cart->Time() : 0;
    if (button == CmdPlayMid)
        return RoundHalfEven(time / 2.0);
    return std::max(0, time - TailMs);
}

void IFCartPlayer::CmdFadeOut_Clicked()
{
    m_tmrFadeOut.start();
}

void IFCartPlayer::TmrFadeOut_Timer()
{
    if (!CmdFadeOut->isChecked())
        return;
    Guarded(Object, QStringLiteral("TmrFadeOut_Timer"), [this] {
        if (!RequirePlayer(QStringLiteral("TmrFadeOut_Timer"))) {
            m_tmrFadeOut.stop();
            return;
        }
        if (m_player->Status() == static_cast<qint32>(CartPlayerStatus::Ready)) {
            m_tmrFadeOut.stop();
            Fader->setValue(0);
        } else if (Fader->value() == DeckFader::Bottom) {
            m_player->Stop();
            CmdFadeOut->setChecked(false);
        } else {
            Fader->setValue(Fader->value() - 1);
        }
    });
}

void IFCartPlayer::SetFaderVolume(int value)
{
    SetVolume(value == DeckFader::Bottom ? Silence : static_cast<qint16>(value));
}

void IFCartPlayer::SetVolume(qint16 volume)
{
    Guarded(Object, QStringLiteral("SetVolume"), [&] {
        if (RequirePlayer(QStringLiteral("SetVolume")))
            m_player->SetVolume(volume);
    });
}

void IFCartPlayer::PlayLoaded()
{
    m_player->Play(false, false, nullptr, false, PlayLatencyMs);
}

std::shared_ptr<iCart> IFCartPlayer::CartByID(const QString& cartID) const
{
    const auto kernel = Globals::Kernel();
    if (!kernel)
        throw KernelError(QStringLiteral("No kernel to find cart %1").arg(cartID));
    return kernel->Carts()->Cart(cartID);
}

void IFCartPlayer::LoadAndPlay(const QString& procedure, const std::shared_ptr<iCart>& cart)
{
    if (!RequirePlayer(procedure))
        return;
    m_player->Load(cart);
    PlayLoaded();
}

// ---- The meter ----------------------------------------------------------------------------

void IFCartPlayer::TmrVumeter_Timer()
{
    RefreshLevel();
}

void IFCartPlayer::RefreshLevel()
{
    m_levelGuard.Run(Object, QStringLiteral("RefreshLevel"), [this] {
        const CVumeter::Reading reading = m_vumeter.Level();
        if (!reading.valid) {
            ClearVumeter();
            return;
        }
        // One bar for the two sides: it shows the louder.
        UCSingleVumeter1->SetValue(std::max(reading.left, reading.right), std::max(reading.leftPeak, reading.rightPeak));
    });
}

void IFCartPlayer::ClearVumeter()
{
    UCSingleVumeter1->SetValue(NoSignal, NoSignal);
}

void IFCartPlayer::TmrFlash_Timer()
{
    SetHighLight(!m_highLight);
}

// ---- Drops --------------------------------------------------------------------------------

void IFCartPlayer::Component_DragDrop(std::shared_ptr<CComponent> source)
{
    Guarded(Object, QStringLiteral("Component_DragDrop"), [&] {
        if (!source || source->ShareType() != CComponent::ShareCart)
            return;
        LoadAndPlay(QStringLiteral("Component_DragDrop"), source->Shared<iCart>());
    });
}

void IFCartPlayer::Drop(const QString& cartID, float, float)
{
    Guarded(Object, QStringLiteral("Drop"), [&] {
        if (!RequirePlayer(QStringLiteral("Drop")))
            return;
        if (cartID.isEmpty()) {
            m_player->Eject();
            return;
        }
        m_player->Load(CartByID(cartID));
        const CInterface* ui = modInterface::Interface();
        if (ui && ui->MouseController().CursorOverControl(CmdCue))
            m_player->Recue();
        else
            PlayLoaded();
    });
}

void IFCartPlayer::PlayByID(const QString& cartID)
{
    Guarded(Object, QStringLiteral("PlayByID"), [&] { LoadAndPlay(QStringLiteral("PlayByID"), CartByID(cartID)); });
}

bool IFCartPlayer::HandleDesktopDrop(QObject* watched, QEvent* event)
{
    if (watched != LblStatus && watched != LblTitle)
        return false;
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove: {
        auto* drag = static_cast<QDropEvent*>(event);
        drag->setDropAction(Qt::CopyAction);
        drag->accept();
        return true;
    }
    case QEvent::Drop:
        DropDesktop(static_cast<QDropEvent*>(event));
        return true;
    default: return false;
    }
}

// Files first: a file manager offers the paths as text as well, and a path is no cart.
void IFCartPlayer::DropDesktop(QDropEvent* event)
{
    const QMimeData* data = event->mimeData();
    event->setDropAction(Qt::IgnoreAction);
    if (data && data->hasUrls()) {
        QString file;
        for (const QUrl& url : data->urls())
            if (url.isLocalFile() && file.isEmpty())
                file = url.toLocalFile();
        if (file.isEmpty()) {
            LogWarn(Object, QStringLiteral("OLEDragDrop"), QStringLiteral("The drop holds no file"));
        } else {
            event->setDropAction(Qt::CopyAction);
            DropFile(file);
        }
    } else if (data && data->hasText()) {
        if (DropText(data->text()))
            event->setDropAction(Qt::CopyAction);
    } else {
        LogWarn(Object, QStringLiteral("OLEDragDrop"), QStringLiteral("The drop holds neither text nor files"));
    }
    event->accept();
}

bool IFCartPlayer::DropText(const QString& text)
{
    bool played = false;
    Guarded(Object, QStringLiteral("OLEDragDrop"), [&] {
        if (!RequirePlayer(QStringLiteral("OLEDragDrop")))
            return;
        const auto kernel = Globals::Kernel();
        if (!kernel)
            throw KernelError(QStringLiteral("No kernel to read the dropped text"));
        const CKernel::FilledCart filled = kernel->FillCartFromText(kernel->Carts()->NewCart(), text);
        if (!filled.ok || !filled.cart) {
            LogWarn(Object, QStringLiteral("OLEDragDrop"), QStringLiteral("The dropped text is no cart: %1").arg(text.left(80)));
            return;
        }
        LoadAndPlay(QStringLiteral("OLEDragDrop"), filled.cart);
        played = true;
    });
    return played;
}

// A file plays through a cart made in memory for it; nothing is written to the catalogue.
void IFCartPlayer::DropFile(const QString& file)
{
    Guarded(Object, QStringLiteral("OLEDragDrop"), [&] {
        if (!RequirePlayer(QStringLiteral("OLEDragDrop")))
            return;
        const auto kernel = Globals::Kernel();
        if (!kernel)
            throw KernelError(QStringLiteral("No kernel to play the dropped file"));
        const auto cart = kernel->Carts()->NewCart();
        cart->SetType(CartType::Sound);
        cart->SetDescription(QStringLiteral("[From File]"));
        const auto sound = cart->Sound();
        if (!sound)
            throw KernelError(QStringLiteral("A cart made for the file '%1' has no sound").arg(file));
        sound->SetFileName(file);
        sound->Update();
        LoadAndPlay(QStringLiteral("OLEDragDrop"), cart);
    });
}

// ---- Mouse, menu and tool tip ---------------------------------------------------------------

bool IFCartPlayer::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseMove:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick: return HandleMouse(watched, static_cast<QMouseEvent*>(event));
    case QEvent::FocusIn:
        // The text lines never keep the focus: the keys belong to the fader.
        if (watched == LblStatus || watched == LblTitle)
            Fader->setFocus();
        return false;
    default: return HandleDesktopDrop(watched, event);
    }
}

bool IFCartPlayer::HandleMouse(QObject* watched, QMouseEvent* event)
{
    NotifyDrag(watched, event);
    const bool left = event->button() == Qt::LeftButton;
    switch (event->type()) {
    case QEvent::MouseMove:
        if (event->buttons() == Qt::NoButton && IsToolTipArea(watched))
            ShowToolTip();
        return false;
    case QEvent::MouseButtonPress:
        if (event->button() == Qt::RightButton && IsMenuArea(watched)) {
            PopupMenu(event->globalPosition().toPoint());
            return true;
        }
        return false;
    case QEvent::MouseButtonRelease:
        // The release that ends a double click is no click: the first release was one.
        if (left && std::exchange(m_doubleClicked, false))
            return false;
        if (left && watched == LblStatus)
            m_timeToggle = !m_timeToggle;
        else if (left && watched == LblVolume)
            Command(QStringLiteral("LblVolume_Click"), &iCartPlayer::VolumeToCartDefault);
        return false;
    case QEvent::MouseButtonDblClick:
        m_doubleClicked = left;
        if (left && watched == LblVolume)
            Command(QStringLiteral("LblVolume_DblClick"), &iCartPlayer::VolumeToZero);
        return false;
    default: return false;
    }
}

// Moves and releases anywhere on the deck make it the destination of a running drag; a press
// is reported only from the body, so that the keys stay plain keys.
void IFCartPlayer::NotifyDrag(QObject* watched, QMouseEvent* event)
{
    if (event->type() == QEvent::MouseButtonDblClick)
        return;
    if (event->type() == QEvent::MouseButtonPress) {
        if (watched == this || watched == ElaBackground)
            modInterface::NotifyDrag(m_component, CDrag::MouseDown, event);
        return;
    }
    modInterface::NotifyDrag(m_component, event->type() == QEvent::MouseMove ? CDrag::MouseMove : CDrag::MouseUp, event);
}

bool IFCartPlayer::IsToolTipArea(QObject* watched) const
{
    return watched == LblVolume || watched == ElaBackground || IsMenuArea(watched);
}

bool IFCartPlayer::IsMenuArea(QObject* watched) const
{
    return watched == LblVolume || watched == LblStatus || watched == LblTitle || watched == ImgStatus;
}

void IFCartPlayer::PopupMenu(const QPoint& globalPos)
{
    Guarded(Object, QStringLiteral("PopupMenu"), [&] {
        const auto item = [](const QString& text, const QString& action) {
            return Dialogs::PopupLine{text, MenuOwner + action, {}, true};
        };
        const auto heading = [](const char* text) {
            return Dialogs::PopupLine{QStringLiteral("-") + Tr(QString::fromLatin1(text)), {}, {}, true};
        };
        const bool loop = m_player && m_player->Loop();
        Dialogs::PopupLine loopLine = item(Tr(QStringLiteral("Loop")), QStringLiteral("Loop"));
        loopLine.checkable = true;
        loopLine.checked = loop;
        const QVector<Dialogs::PopupLine> lines{
            heading("Cart Player"),
            loopLine,
            item(Tr(QStringLiteral("Set volume to 0 dB")), QStringLiteral("VolumeToZero")),
            item(Tr(QStringLiteral("Set volume to cart default")), QStringLiteral("VolumeToCartDefault")),
            heading("Cart"),
            item(Tr(QStringLiteral("Save default volume as ")) + QString::number(Fader->value()) + Tr(QStringLiteral(" dB")),
                 QStringLiteral("SaveDefaultVolume")),
            heading("Cancel"),
            item(Tr(QStringLiteral("Cancel")), QStringLiteral("Cancel")),
        };
        const QString chosen = Dialogs::PopupMenu(lines, globalPos).mid(MenuOwner.size());
        if (chosen.isEmpty() || chosen == QLatin1String("Cancel"))
            return;
        const QString procedure = QStringLiteral("PopupMenu_") + chosen;
        if (!RequirePlayer(procedure))
            return;
        if (chosen == QLatin1String("Loop"))
            m_player->SetLoop(!loop);
        else if (chosen == QLatin1String("VolumeToZero"))
            m_player->VolumeToZero();
        else if (chosen == QLatin1String("VolumeToCartDefault"))
            m_player->VolumeToCartDefault();
        else if (chosen == QLatin1String("SaveDefaultVolume"))
            m_player->SaveDefaultVolume();
    });
}

void IFCartPlayer::ShowToolTip()
{
    if (m_player && m_player->Cart())
        m_tmrToolTip.start();
}

void IFCartPlayer::TmrToolTip_Timer()
{
    m_tmrToolTip.stop();
    Guarded(Object, QStringLiteral("TmrToolTip_Timer"), [this] {
        const auto cart = m_player ? m_player->Cart() : nullptr;
        if (cart)
            Q_EMIT ToolTip(cart);
    });
}
