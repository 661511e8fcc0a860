#include "shell/FrmModalDelay.h"
#include "foundation/Strings.h"
#include "foundation/ui/Dialogs.h"
#include "foundation/ui/TranslateWidgets.h"
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

namespace {
// The digit of a time of day (in seconds) that a mode watches.
int WatchedValue(int secondsOfDay, FrmModalDelay::Mode mode)
{
    const int h = secondsOfDay / 3600, m = secondsOfDay / 60 % 60, s = secondsOfDay % 60;
    switch (mode) {
    case FrmModalDelay::Mode::DecHour: return h / 10;
    case FrmModalDelay::Mode::UniHour: return h % 10;
    case FrmModalDelay::Mode::DecMin: return m / 10;
    case FrmModalDelay::Mode::UniMin: return m % 10;
    case FrmModalDelay::Mode::DecSec: return s / 10;
    case FrmModalDelay::Mode::UniSec: return s % 10;
    case FrmModalDelay::Mode::DecUniMin: return m;
    case FrmModalDelay::Mode::Unknown: break;
    }
    return -1;
}
}

FrmModalDelay::FrmModalDelay()
    : Form(QStringLiteral("FrmModalDelay"))
{
    setWindowTitle(QStringLiteral("Waiting cycle"));
    auto* grid = new QGridLayout(this);
    LblDestination = AddLine(QStringLiteral("Destination:"), grid, 0);
    LblActual = AddLine(QStringLiteral("Present:"), grid, 1);
    LblRemaining = AddLine(QStringLiteral("Remaining:"), grid, 2);
    CmdExit = new QPushButton(QStringLiteral("Cancel"), this);
    CmdExit->setObjectName(QStringLiteral("CmdExit"));
    grid->addWidget(CmdExit, 3, 1, Qt::AlignRight);
    connect(CmdExit, &QPushButton::clicked, this, &FrmModalDelay::Unload);
    Timer1 = new QTimer(this);
    Timer1->setInterval(250);
    connect(Timer1, &QTimer::timeout, this, &FrmModalDelay::Timer1_Timer);
    setFixedSize(320, 170);
}

QLabel* FrmModalDelay::AddLine(const QString& caption, QGridLayout* grid, int row)
{
    grid->addWidget(new QLabel(caption, this), row, 0);
    auto* value = new QLabel(QStringLiteral("--:--:--"), this);
    KeepUntranslated(value);
    value->setProperty("role", QStringLiteral("clock"));
    grid->addWidget(value, row, 1);
    return value;
}

void FrmModalDelay::Form_Load()
{
    TranslateWithKernel(this);
}

FrmModalDelay::Mode FrmModalDelay::ModeFromName(const QString& name)
{
    static const QHash<QString, Mode> modes = {
        {QStringLiteral("DecHour"), Mode::DecHour}, {QStringLiteral("UniHour"), Mode::UniHour},
        {QStringLiteral("DecMin"), Mode::DecMin},   {QStringLiteral("UniMin"), Mode::UniMin},
        {QStringLiteral("DecSec"), Mode::DecSec},   {QStringLiteral("UniSec"), Mode::UniSec},
        {QStringLiteral("DecUniMin"), Mode::DecUniMin}};
    return modes.value(name, Mode::Unknown);
}

QString FrmModalDelay::DestinationMask(int digit, Mode mode)
{
    const QString d = QString::number(digit);
    switch (mode) {
    case Mode::UniMin: return QStringLiteral("--:-") + d + QStringLiteral(":--");
    case Mode::DecMin: return QStringLiteral("--:") + d + QStringLiteral("-:--");
    case Mode::DecSec: return QStringLiteral("--:--:") + d + QStringLiteral("-");
    case Mode::UniSec: return QStringLiteral("--:--:-") + d;
    case Mode::DecHour: return d + QStringLiteral("-:--:--");
    case Mode::UniHour: return QStringLiteral("-") + d + QStringLiteral(":--:--");
    case Mode::DecUniMin: return QStringLiteral("--:") + Pad2(static_cast<qint16>(digit)) + QStringLiteral(":--");
    case Mode::Unknown: break;
    }
    return QStringLiteral("--:--:--");
}

int FrmModalDelay::SecondsRemaining(const QTime& now, int digit, Mode mode)
{
    const int start = now.msecsSinceStartOfDay() / 1000;
    for (int s = 0; s < 86400; ++s)
        if (WatchedValue((start + s) % 86400, mode) == digit)
            return s;
    return -1;
}

void FrmModalDelay::SetDestination(int digit, const QString& mode)
{
    m_digit = digit;
    m_mode = ModeFromName(mode);
    if (m_mode == Mode::Unknown) {
        Dialogs::MessageBox(QStringLiteral("Altres sincronitzacions"));
        return;
    }
    LblDestination->setText(DestinationMask(digit, m_mode));
    Timer1->start();
    Timer1_Timer();
}

void FrmModalDelay::Timer1_Timer()
{
    const QTime now = QTime::currentTime();
    LblActual->setText(now.toString(QStringLiteral("HH:mm:ss")));
    const int remaining = SecondsRemaining(now, m_digit, m_mode);
    LblRemaining->setText(remaining < 0 ? QStringLiteral("--:--:--") : QTime(0, 0).addSecs(remaining).toString(QStringLiteral("HH:mm:ss")));
    if (remaining == 0) {
        Timer1->stop();
        Unload();
    }
}

QString FrmModalDelay::Remaining() const
{
    return LblRemaining->text();
}
