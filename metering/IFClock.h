#pragma once
#include "metering/ChronyTracking.h"
#include "metering/ClockTrust.h"
#include "metering/ProgramRunner.h"
#include "metering/TimeSynchronizer.h"
#include <QDateTime>
#include <QTimer>
#include <QWidget>
#include <functional>

class QLabel;
class VolmarPannel;

// The studio clock: the time, the date or both in the panel VolmarPannel1, in a mode and a
// font size picked from its popup menu (right button on the clock). Holding the left button
// shows the other of time and date in modes 0 and 1. Every 250 ms (Timer1) it repaints; every
// 10 s (TmrSync) it asks whether this hour's synchronisation is due, and in minute 52, when the
// shared store's TimeSync is exactly "Yes", it sets the computer's clock from TimeSyncServer
// (TimeSynchronizer) without ever waiting on the interface thread. Without a kernel (a layout
// being edited) the label reads "Design" and only TmrSync runs. A lamp in the corner (LblTrust)
// tells every minute (TmrTrust) how far the time can be trusted, from `chronyc tracking`
// (ClockTrust), and each loss and return of synchronisation is logged.
class IFClock : public QWidget
{
    Q_OBJECT
public:
    static constexpr int RepaintMs = 250;
    static constexpr int SyncCheckMs = 10000;
    static constexpr int TrustCheckMs = 60000;
    static constexpr int FirstTrustCheckMs = 2000;

    explicit IFClock(QWidget* parent = nullptr);
    ~IFClock() override;

    // Starts the running mode once, when a kernel is present.
    void Init();

    qint32 ClockMode() const { return m_clockMode; }
    // Repaints at once.
    void SetClockMode(qint32 mode);
    qint32 ClockSize() const { return m_clockSize; }
    // The font size of LblClock in points.
    void SetClockSize(qint32 size);
    QString Caption() const;
    void SetCaption(const QString& caption);

    // What the clock shows now; the two-line mode parts time and date by a carriage return.
    QString Text() const { return m_text; }

    // Tests give the clock a time of their own and see the programs it would run.
    void SetTimeSource(std::function<QDateTime()> now);
    void SetProgramRunner(ProgramRunner runner);

    void Timer1_Timer();
    void TmrSync_Timer();
    void LowLevelSynchronize();
    void Selector_MouseDown(const QPoint& globalPos);
    // Asks chrony how the clock is synchronised; the lamp changes when it answers.
    void TmrTrust_Timer();

    VolmarPannel* VolmarPannel1;
    QLabel* LblClock;
    QLabel* LblTrust;
    QTimer Timer1;
    QTimer TmrSync;
    QTimer TmrTrust;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void Repaint();
    void UpdateAlterFlag();
    QString TimeText() const;
    void ShowTrust(const std::optional<ChronyTracking>& tracking, const QString& failure);
    void ShowNoTimeService();
    void LogSynchronisation(const std::optional<ChronyTracking>& tracking, const QString& failure);

    std::function<QDateTime()> m_now;
    ProgramRunner m_runner;
    TimeSynchronizer m_synchronizer;
    qint32 m_clockMode = 0;
    qint32 m_clockSize = 16;
    bool m_pressed = false;
    bool m_alternation = false;
    bool m_started = false;
    std::optional<bool> m_synchronised;
    bool m_noTimeServiceTold = false;
    ClockTrust::Limits m_trustLimits;
    QString m_text;
};
