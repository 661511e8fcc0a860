#pragma once
#include "metering/TickGuard.h"
#include <QWidget>
#include <array>

class IFBlackBoard;

// A text monitor of the three known channels for diagnosis: every 500 ms of the shared meter
// clock it prints, for "A", "B" and "Rec", whether the channel's device is open (False while
// it is lost), how many streams it has and how many underruns it had ("A: True - 3 - 0
// underruns"). It starts itself shortly after creation when a kernel is present.
class IFChannelMonitor : public QWidget
{
    Q_OBJECT
public:
    explicit IFChannelMonitor(QWidget* parent = nullptr);
    ~IFChannelMonitor() override;

    // Joins the meter clock; once only, and only with a kernel.
    void Init();
    void TmrChannelMonitor_Timer();

    IFBlackBoard* IFBlackBoard1;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void PrintChannel(size_t index);

    std::array<TickGuard, 3> m_lineGuards;
    bool m_started = false;
};
