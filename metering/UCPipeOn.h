#pragma once
#include "metering/TickGuard.h"
#include <QColor>
#include <QPixmap>
#include <QWidget>
#include <memory>

class QLabel;
class iChannel;

// The lamp that says whether a channel runs: a play arrow on green for a playing channel, a
// record dot on dark red for a recording one, lit while the channel is on and the blink beat
// is up. In FollowMode its owner gives the beat through RefreshLed; otherwise the lamp blinks
// on its own with the shared meter clock, every 500 ms.
class UCPipeOn : public QWidget
{
    Q_OBJECT
public:
    explicit UCPipeOn(QWidget* parent = nullptr);

    bool FollowMode() const { return m_followMode; }
    void SetFollowMode(bool followMode);
    std::shared_ptr<iChannel> Channel() const { return m_channel; }
    void SetChannel(std::shared_ptr<iChannel> channel);
    void RefreshLed(bool blink);
    // Shows the recording or the playing pictures whatever the channel says.
    void ToRec();
    void ToPlay();

    // The name of the picture shown: "IPlayOff", "IPlayOn", "IRecOff" or "IRecOn".
    QString ShownPicture() const { return m_shown; }
    QColor Background() const { return m_background; }
    void Timer1_Timer();

    QLabel* I;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void SetDirection();
    void UseRec(bool record);
    bool ChannelOn() const;
    void Show(const QString& picture);

    bool m_followMode = false;
    std::shared_ptr<iChannel> m_channel;
    QString m_offPicture;
    QString m_onPicture;
    QString m_shown;
    QColor m_background;
    TickGuard m_refreshGuard;
    bool m_blink = false;
};
