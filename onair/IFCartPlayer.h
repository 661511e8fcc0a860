#pragma once
#include "foundation/controls/FlashingLight.h"
#include "metering/CVumeter.h"
#include "metering/TickGuard.h"
#include "onair/CueSpeed.h"
#include "onair/DeckStatusTable.h"
#include <QColor>
#include <QHash>
#include <QList>
#include <QMetaObject>
#include <QRectF>
#include <QTimer>
#include <QVariant>
#include <QWidget>
#include <memory>

class CComponent;
class DeckBackground;
class DeckFader;
class DisplayLabel;
class QDropEvent;
class QLabel;
class QMimeData;
class QMouseEvent;
class QToolButton;
class UCButton;
class UCSingleVumeter;
class iCart;
class iCartPlayer;

// The deck: one kernel cart player on screen, with its status line, title line, transport
// buttons, fader, volume text and level meter. The panel owns no audio: every button calls the
// player, and the panel redraws only from the player's events, through a fixed table from the
// player's status to colours, icon, texts and the buttons on show.
//
// Three button places are shared: Cue with Recue and PlayStart, Play with Pause and PlayMid,
// Skip with PlayStop. The button a user sees in a place is the one on top of the stacking
// order; the others stay visible beneath it.
//
// In triple play mode the shared places show PlayStart, PlayMid and PlayStop, which audition
// the head, the middle and the last five seconds of the cart; the mode is kept per deck in the
// station's settings file (section: the deck's object name).
//
// A deck is given its player with SetCartPlayer, or by name: setting ChannelName and
// StreamIndex binds it to the cart player of that stream.
//
// UserRequestToPlay asks the host what to play when Play is pressed on an empty player. The
// host connects with a direct connection and writes into the variant: a cart or a playlist
// (std::shared_ptr<iCart>, std::shared_ptr<iPlayList>), a cart ID (QString), or leaves it
// empty to play nothing.
class IFCartPlayer : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(bool TriplePlayMode READ TriplePlayMode WRITE SetTriplePlayMode)
    Q_PROPERTY(QString ChannelName READ ChannelName WRITE SetChannelName)
    Q_PROPERTY(int StreamIndex READ StreamIndex WRITE SetStreamIndex)
public:
    static inline const QString Object = QStringLiteral("IFCartPlayer");
    static inline const QString TriplePlayModeProperty = QStringLiteral("TriplePlayMode");
    // The name a deck's component is registered under, followed by a number from the second.
    static inline const QString ComponentName = QStringLiteral("CartPlayer");

    explicit IFCartPlayer(QWidget* parent = nullptr);
    ~IFCartPlayer() override;

    // Reads the persisted properties; runs by itself at the first show.
    void Init();

    std::shared_ptr<iCartPlayer> CartPlayer() const { return m_player; }
    void SetCartPlayer(std::shared_ptr<iCartPlayer> player);
    QString ChannelName() const { return m_channelName; }
    void SetChannelName(const QString& name);
    int StreamIndex() const { return m_streamIndex; }
    void SetStreamIndex(int index);

    bool TriplePlayMode() const { return m_triplePlayMode; }
    void SetTriplePlayMode(bool mode);

    // A drag of the new protocol ended on this deck: a cart starts at once.
    void Component_DragDrop(std::shared_ptr<CComponent> source);
    // A drop of the old protocol: an empty ID ejects; a cart dropped on the cue button waits
    // cued, anywhere else it starts at once.
    void Drop(const QString& cartID, float x, float y);
    void PlayByID(const QString& cartID);
    // Volume in dB; -110 is silence.
    void SetVolume(qint16 volume);
    void RefreshLevel();
    void ClearVumeter();

    // The player's events.
    void iCartPlayer_DisplayTitleChanged(const QString& title);
    void iCartPlayer_DisplayTimeChanged(const QString& timeA, const QString& timeB);
    void iCartPlayer_PercentToGoChanged(float percent);
    void iCartPlayer_StatusChanged(qint32 status);
    void iCartPlayer_VolumeChanged(qint16 volume);

    // The timers' ticks.
    void TmrVumeter_Timer();
    void TmrToolTip_Timer();
    void TmrFlash_Timer();
    void TmrFadeOut_Timer();
    const QTimer& TmrVumeter() const { return m_tmrVumeter; }
    const QTimer& TmrToolTip() const { return m_tmrToolTip; }
    const QTimer& TmrFlash() const { return m_flashLight.Timer(); }
    const QTimer& TmrFadeOut() const { return m_tmrFadeOut; }

    // What the panel shows, for its host and its tests.
    bool Flash() const { return m_flashLight.Flashing(); }
    bool HighLight() const { return m_flashLight.Lit(); }
    // Set: the status line shows the second time text of the player (the time to go).
    bool TimeToggle() const { return m_timeToggle; }
    const CueSpeed& Speed() const { return m_cueSpeed; }
    QString StatusIcon() const { return m_statusIcon; }
    // The colour settings read at the first status.
    QVariant DarkColor() const { return m_darkColor; }
    QVariant LightColor() const { return m_lightColor; }
    std::shared_ptr<CComponent> Component() const { return m_component; }
    // The section of the settings file that keeps this deck's properties.
    QString PersistenceName() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void UserRequestToPlay(QVariant& requested);
    // The pointer rested on the panel while a cart is loaded.
    void ToolTip(std::shared_ptr<iCart> cart);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void CreateControls();
    void ConnectButtons();
    UCButton* MakeButton(const QString& name, const QString& picture);
    QToolButton* MakeToolButton(const QString& name, const QString& picture);
    void WatchChildren();

    // Layout: every control has a place in twips of a panel of the design size, scaled to the
    // panel's present size.
    void Place(QWidget* widget, double left, double top, double width, double height);
    void ApplyPlace(QWidget* widget);
    void RenderPictures();

    void BindByName();
    void ConnectPlayer();
    bool RequirePlayer(const QString& procedure) const;
    void GrabStatus(qint32 status);
    void ApplyStatusRow(qint32 status, const DeckStatusTable::Row& row);
    void ApplyUnknownStatus();
    void ReadColors();
    void GrabTitle(const QString& title);
    void GrabVolume(qint16 volume);
    void ShowCuers(bool show);
    void ShowEject(bool show);
    void ShowIcon(const QString& key);
    void BringToTop(const QList<QWidget*>& buttons);
    void RaiseTriplePlay(bool start, bool mid, bool stop);
    void LblStatusToGreen();
    void LblStatusToRed();
    void ShowHighLight(bool highLight);
    void SetLabelsEnabled(bool enabled);

    void CmdPlay_Pressed();
    void AnswerUserRequest(const QVariant& requested);
    void Wind(const QString& procedure, bool forward, bool repeat);
    void Command(const QString& procedure, void (iCartPlayer::*command)());
    void TripleButton_Toggled(QToolButton* button, bool checked);
    qint32 TriplePosition(const QToolButton* button) const;
    void CmdFadeOut_Clicked();
    void SetFaderVolume(int value);
    void LoadAndPlay(const QString& procedure, const std::shared_ptr<iCart>& cart);
    void PlayLoaded();
    std::shared_ptr<iCart> CartByID(const QString& cartID) const;

    void PopupMenu(const QPoint& globalPos);
    void ShowToolTip();
    void NotifyDrag(QObject* watched, QMouseEvent* event);
    bool IsToolTipArea(QObject* watched) const;
    bool IsMenuArea(QObject* watched) const;
    bool HandleMouse(QObject* watched, QMouseEvent* event);
    bool HandleDesktopDrop(QObject* watched, QEvent* event);
    void DropDesktop(QDropEvent* event);
    bool DropText(const QString& text);
    void DropFile(const QString& file);

    DeckBackground* ElaBackground;
    DisplayLabel* LblStatus;
    DisplayLabel* LblTitle;
    DisplayLabel* LblVolume;
    QLabel* ImgStatus;
    DeckFader* Fader;
    UCSingleVumeter* UCSingleVumeter1;
    UCButton* CmdCue;
    UCButton* CmdRecue;
    UCButton* CmdPlay;
    UCButton* CmdPause;
    UCButton* CmdRew;
    UCButton* CmdFF;
    UCButton* CmdSkip;
    UCButton* CmdEject;
    QToolButton* CmdPlayStart;
    QToolButton* CmdPlayMid;
    QToolButton* CmdPlayStop;
    QToolButton* CmdFadeOut;

    QTimer m_tmrVumeter;
    QTimer m_tmrToolTip;
    QTimer m_tmrFadeOut;
    FlashingLight m_flashLight;

    QHash<QWidget*, QRectF> m_places;
    QHash<QWidget*, QString> m_pictures;
    std::shared_ptr<iCartPlayer> m_player;
    QList<QMetaObject::Connection> m_playerConnections;
    CVumeter m_vumeter;
    TickGuard m_levelGuard;
    std::shared_ptr<CComponent> m_component;
    QString m_channelName;
    int m_streamIndex = 0;
    QString m_statusIcon;
    QVariant m_darkColor;
    QVariant m_lightColor;
    CueSpeed m_cueSpeed;
    bool m_triplePlayMode = false;
    bool m_timeToggle = true;
    // Set from a double click to its release.
    bool m_doubleClicked = false;
    bool m_suppress = false;
    bool m_seeking = false;
    bool m_colorsRead = false;
    bool m_initialised = false;
};
