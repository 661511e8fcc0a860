#include "metering/IFClock.h"
#include <utility>
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/Log.h"
#include "foundation/controls/VolmarPannel.h"
#include "foundation/ui/SilenceDescendants.h"
#include "foundation/Tr.h"
#include "kernelapi/CKernel.h"
#include "metering/ClockFace.h"
#include "metering/ClockMenu.h"
#include "metering/HourlySync.h"
#include <QLabel>
#include <QMouseEvent>

namespace {
const QString Object = QStringLiteral("IFClock");
// chronyd gives up after its own wait; the runner kills it a little later if it hangs.
constexpr int ProgramTimeoutMs = (TimeSynchronizer::WaitSeconds + 10) * 1000;
}

IFClock::IFClock(QWidget* parent)
    : QWidget(parent)
    , VolmarPannel1(new VolmarPannel(this, QStringLiteral("VolmarPannel1")))
    , LblClock(new QLabel(VolmarPannel1))
    , LblTrust(new QLabel(VolmarPannel1))
    , m_now(&QDateTime::currentDateTime)
    , m_runner(ProcessRunner(this, ProgramTimeoutMs))
    , m_synchronizer([this](const QString& program, const QStringList& arguments, const ProgramDone& done) { m_runner(program, arguments, done); },
                     [this] { return m_now(); })
{
    VolmarPannel1->SetCaption(QStringLiteral("Clock"));
    VolmarPannel1->SetPresetColor(1);
    VolmarPannel1->SetVisibleGuide(false);
    LblClock->setObjectName(QStringLiteral("LblClock"));
    LblClock->setAlignment(Qt::AlignCenter);
    LblClock->setStyleSheet(QStringLiteral("QLabel { background: black; color: rgb(255, 196, 64); }"));
    LblClock->setText(QStringLiteral("Design"));
    LblClock->installEventFilter(this);
    LblTrust->setObjectName(QStringLiteral("LblTrust"));
    LblTrust->setFixedSize(10, 10);
    LblTrust->setStyleSheet(QStringLiteral("QLabel { background: gray; border: 1px solid black; }"));
    LblTrust->hide();
    SetClockSize(m_clockSize);
    resize(200, 70);

    Timer1.setInterval(RepaintMs);
    connect(&Timer1, &QTimer::timeout, this, &IFClock::Timer1_Timer);
    TmrSync.setInterval(SyncCheckMs);
    connect(&TmrSync, &QTimer::timeout, this, &IFClock::TmrSync_Timer);
    TmrSync.start();
    TmrTrust.setInterval(TrustCheckMs);
    connect(&TmrTrust, &QTimer::timeout, this, &IFClock::TmrTrust_Timer);
    QTimer::singleShot(0, this, &IFClock::Init);
}

IFClock::~IFClock()
{
    SilenceDescendants(*this);
}

void IFClock::Init()
{
    if (m_started || !Globals::Kernel())
        return;
    m_started = true;
    VolmarPannel1->SetCaption(Tr(VolmarPannel1->Caption()));
    Repaint();
    Timer1.start();
    m_trustLimits = ClockTrust::ReadLimits();
    LblTrust->show();
    TmrTrust.start();
    QTimer::singleShot(FirstTrustCheckMs, this, &IFClock::TmrTrust_Timer);
}

void IFClock::SetClockMode(qint32 mode)
{
    m_clockMode = mode;
    Repaint();
}

void IFClock::SetClockSize(qint32 size)
{
    m_clockSize = size;
    if (size <= 0)
        return;
    QFont font = LblClock->font();
    font.setBold(true);
    font.setPointSize(size);
    LblClock->setFont(font);
}

QString IFClock::Caption() const
{
    return VolmarPannel1->Caption();
}

void IFClock::SetCaption(const QString& caption)
{
    VolmarPannel1->SetCaption(caption);
}

void IFClock::SetTimeSource(std::function<QDateTime()> now)
{
    m_now = std::move(now);
}

void IFClock::SetProgramRunner(ProgramRunner runner)
{
    m_runner = std::move(runner);
}

void IFClock::Timer1_Timer()
{
    Repaint();
    UpdateAlterFlag();
}

void IFClock::Repaint()
{
    if (!m_started)
        return;
    m_text = ClockFace::Text(m_clockMode, m_pressed, m_alternation, m_now());
    QString shown = m_text;
    LblClock->setText(shown.replace(QChar(13), QChar(u'\n')));
}

void IFClock::UpdateAlterFlag()
{
    m_alternation = ClockFace::AlterFlag(TimeText());
}

QString IFClock::TimeText() const
{
    return ClockFace::TimeText(m_now().time());
}

void IFClock::TmrSync_Timer()
{
    if (HourlySync::Shared().Tick(TimeText()))
        LowLevelSynchronize();
}

void IFClock::LowLevelSynchronize()
{
    Guarded(Object, QStringLiteral("LowLevelSynchronize"), [this] {
        const std::shared_ptr<CKernel> kernel = Globals::Kernel();
        if (!kernel || kernel->Config(QStringLiteral("TimeSync")).toString() != QStringLiteral("Yes"))
            return;
        m_synchronizer.Synchronize(kernel->Config(QStringLiteral("TimeSyncServer")).toString());
    });
}

void IFClock::Selector_MouseDown(const QPoint& globalPos)
{
    Guarded(Object, QStringLiteral("Selector_MouseDown"), [&] {
        const QVector<Dialogs::PopupLine> lines = ClockMenu::Lines(m_clockMode, m_clockSize);
        const ClockMenu::Change change = ClockMenu::Choose(lines, Dialogs::PopupMenu(lines, globalPos));
        if (change.mode)
            SetClockMode(*change.mode);
        if (change.size)
            SetClockSize(*change.size);
    });
}

void IFClock::TmrTrust_Timer()
{
    m_runner(QStringLiteral("chronyc"), {QStringLiteral("tracking")}, [this](const ProgramOutcome& outcome) {
        Guarded(Object, QStringLiteral("TmrTrust_Timer"), [&] {
            if (outcome.kind == ProgramOutcome::NotStarted) {
                ShowNoTimeService();
                return;
            }
            const std::optional<ChronyTracking> tracking =
                outcome.kind == ProgramOutcome::Finished && outcome.exitCode == 0 ? ChronyTracking::Parse(outcome.output) : std::nullopt;
            ShowTrust(tracking, tracking ? QString() : QStringLiteral("chronyc tracking gave no answer: ") + outcome.output.section(u'\n', -1));
        });
    });
}

void IFClock::ShowTrust(const std::optional<ChronyTracking>& tracking, const QString& failure)
{
    const QDateTime now = m_now().toUTC();
    const ClockTrust::Level level = ClockTrust::Judge(tracking, now, m_trustLimits);
    LblTrust->setStyleSheet(QStringLiteral("QLabel { background: %1; border: 1px solid black; }").arg(ClockTrust::Colour(level).name()));
    LblTrust->setToolTip(tracking ? QStringLiteral("%1: offset %2 ms, updated %3 s ago")
                                        .arg(tracking->source)
                                        .arg(tracking->offsetSeconds * 1000, 0, 'f', 3)
                                        .arg(tracking->referenceTime.secsTo(now))
                                  : failure);
    LogSynchronisation(tracking, failure);
}

// Without a time service nothing tells whether the clock is true: the lamp stays grey and one
// warning says so; a machine that never had one is not a clock that lost its source.
void IFClock::ShowNoTimeService()
{
    const QString why = QStringLiteral("No time service: the program chronyc is not installed or cannot be started");
    LblTrust->setStyleSheet(QStringLiteral("QLabel { background: grey; border: 1px solid black; }"));
    LblTrust->setToolTip(why);
    if (!std::exchange(m_noTimeServiceTold, true))
        LogWarn(Object, QStringLiteral("TmrTrust_Timer"), why);
}

// The first reading is logged only when the clock is not synchronised; later ones at each change.
void IFClock::LogSynchronisation(const std::optional<ChronyTracking>& tracking, const QString& failure)
{
    const bool synchronised = tracking && tracking->synchronised;
    const bool changed = m_synchronised ? *m_synchronised != synchronised : !synchronised;
    m_synchronised = synchronised;
    if (!changed)
        return;
    if (synchronised)
        LogOk(Object, QStringLiteral("TmrTrust_Timer"), QStringLiteral("Time synchronised again with %1").arg(tracking->source));
    else
        LogError(Object, QStringLiteral("TmrTrust_Timer"),
                 QStringLiteral("Time not synchronised: ") + (tracking ? QStringLiteral("chrony has no usable source") : failure));
}

bool IFClock::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != LblClock)
        return false;
    if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick) {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->button() == Qt::RightButton) {
            Selector_MouseDown(mouse->globalPosition().toPoint());
        } else if (mouse->button() == Qt::LeftButton) {
            m_pressed = true;
            Repaint();
        }
        return true;
    }
    if (event->type() == QEvent::MouseButtonRelease && static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
        m_pressed = false;
        Repaint();
        return true;
    }
    return false;
}

void IFClock::resizeEvent(QResizeEvent*)
{
    VolmarPannel1->setGeometry(rect());
    LblTrust->move(VolmarPannel1->width() - LblTrust->width() - 4, 3);
    LblTrust->raise();
}
