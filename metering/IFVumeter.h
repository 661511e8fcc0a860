#pragma once
#include <QWidget>
#include <memory>

class QLabel;
class UCPipeOn;
class UCVumeter;
class iChannel;

// The meter of one channel in the meter row: the stereo meter, the channel-running lamp and
// the channel's name beneath.
class IFVumeter : public QWidget
{
    Q_OBJECT
public:
    explicit IFVumeter(QWidget* parent = nullptr);

    std::shared_ptr<iChannel> Channel() const { return m_channel; }
    void SetChannel(std::shared_ptr<iChannel> channel);
    void RefreshLevel();
    void RefreshLed(bool blink);

    UCVumeter* UCVumeter1;
    UCPipeOn* UCPipeOn1;
    QLabel* Label1;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    std::shared_ptr<iChannel> m_channel;
};
