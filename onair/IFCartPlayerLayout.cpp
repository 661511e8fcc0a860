// The deck's controls and their places: every control has a place in twips of a panel of the
// design size, scaled to the panel's present size; the pictures are drawn at their buttons' size.
#include "onair/IFCartPlayer.h"
#include "foundation/controls/DisplayLabel.h"
#include "foundation/controls/UCButton.h"
#include "metering/UCSingleVumeter.h"
#include "onair/DeckBackground.h"
#include "onair/DeckButtonPictures.h"
#include "onair/DeckDesign.h"
#include "onair/DeckFader.h"
#include "onair/DeckStatusPictures.h"
#include <QLabel>
#include <QToolButton>
#include <algorithm>

using namespace DeckDesign;

namespace {
QFont DisplayFont(bool mono, int pixelSize)
{
    QFont font(mono ? QStringLiteral("DejaVu Sans Mono") : QStringLiteral("DejaVu Sans"));
    font.setBold(true);
    font.setPixelSize(std::max(6, pixelSize));
    return font;
}
}

void IFCartPlayer::CreateControls()
{
    ElaBackground = new DeckBackground(this);
    ElaBackground->setObjectName(QStringLiteral("ElaBackground"));
    ElaBackground->setMouseTracking(true);
    Place(ElaBackground, 0, 0, PanelWidth, PanelHeight);

    CmdRew = MakeButton(QStringLiteral("CmdRew"), QStringLiteral("Rew"));
    CmdFF = MakeButton(QStringLiteral("CmdFF"), QStringLiteral("FF"));
    CmdEject = MakeButton(QStringLiteral("CmdEject"), QStringLiteral("Eject"));
    CmdRew->SetAutoFire(true);
    CmdFF->SetAutoFire(true);
    Place(CmdRew, 75, StatusTop, 345, LineHeight);
    Place(CmdFF, 435, StatusTop, 345, LineHeight);
    Place(CmdEject, 75, TitleTop, 345, LineHeight);

    LblStatus = new DisplayLabel(this);
    LblStatus->setObjectName(QStringLiteral("LblStatus"));
    LblStatus->SetAlignment(Qt::AlignCenter);
    LblTitle = new DisplayLabel(this);
    LblTitle->setObjectName(QStringLiteral("LblTitle"));
    LblTitle->SetBackColor(TitleBack);
    for (DisplayLabel* label : {LblStatus, LblTitle}) {
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
    LblVolume = new DisplayLabel(this);
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
    const double sx = width() / PanelWidth;
    const double sy = height() / PanelHeight;
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
    return QSize(qRound(PanelWidth / 15 * 2), qRound(PanelHeight / 15 * 2));
}

QSize IFCartPlayer::minimumSizeHint() const
{
    return QSize(qRound(PanelWidth / 15), qRound(PanelHeight / 15));
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
