#include "foundation/controls/UCNumericRestricted.h"
#include "foundation/ui/SilenceDescendants.h"
#include "foundation/Strings.h"
#include "foundation/controls/ArrowPictures.h"
#include "foundation/controls/UCButton.h"
#include <QKeyEvent>
#include <QLineEdit>
#include <algorithm>
#include <cmath>
#include <limits>

namespace {
constexpr int ChangedDelayMs = 50;
const QColor Accepted(255, 255, 255);
const QColor Unaccepted(255, 240, 200);

// A typed number as a 32-bit value: rounded half to even, held inside the 32-bit range.
qint32 ToLong(double number)
{
    constexpr double low = std::numeric_limits<qint32>::min();
    constexpr double high = std::numeric_limits<qint32>::max();
    return static_cast<qint32>(std::clamp(std::nearbyint(number), low, high));
}
}

UCNumericRestricted::UCNumericRestricted(QWidget* parent)
    : QWidget(parent)
    , TxtValue(new QLineEdit(QStringLiteral("0"), this))
    , CmdLeft(new UCButton(this))
    , CmdRight(new UCButton(this))
{
    TxtValue->setObjectName(QStringLiteral("TxtValue"));
    TxtValue->setAlignment(Qt::AlignCenter);
    TxtValue->installEventFilter(this);
    CmdLeft->setObjectName(QStringLiteral("CmdLeft"));
    CmdRight->setObjectName(QStringLiteral("CmdRight"));
    for (UCButton* arrow : {CmdLeft, CmdRight})
        arrow->SetAutoFire(true);
    connect(CmdRight, &UCButton::Pressed, this, &UCNumericRestricted::Increment);
    connect(CmdRight, &UCButton::AutoFired, this, &UCNumericRestricted::Increment);
    connect(CmdLeft, &UCButton::Pressed, this, &UCNumericRestricted::Decrement);
    connect(CmdLeft, &UCButton::AutoFired, this, &UCNumericRestricted::Decrement);
    connect(TxtValue, &QLineEdit::textEdited, this, [this] { SetBoxColor(Unaccepted); });
    connect(&m_tmrDelay, &QTimer::timeout, this, &UCNumericRestricted::TmrDelay_Timer);
    SetBoxColor(Accepted);
    resize(120, 26);
}

UCNumericRestricted::~UCNumericRestricted()
{
    SilenceDescendants(*this);
}

void UCNumericRestricted::SetValue(qint32 value)
{
    value = std::max(value, m_lower);
    value = std::min(value, m_higher);
    if (value == m_value)
        return;
    m_value = value;
    TxtValue->setText(QString::number(m_value));
    TryToRaiseEvent();
}

void UCNumericRestricted::SetLowerLimitIncluded(qint32 limit)
{
    m_lower = limit;
}

void UCNumericRestricted::SetHigherLimitIncluded(qint32 limit)
{
    m_higher = limit;
}

void UCNumericRestricted::TryToRaiseEvent()
{
    m_tmrDelay.stop();
    m_tmrDelay.setInterval(0);
    Q_EMIT Changing();
    m_tmrDelay.setInterval(ChangedDelayMs);
    m_tmrDelay.start();
}

void UCNumericRestricted::TmrDelay_Timer()
{
    m_tmrDelay.stop();
    Q_EMIT Changed();
}

void UCNumericRestricted::Increment()
{
    Accept();
    if (m_value < std::numeric_limits<qint32>::max())
        SetValue(m_value + 1);
}

void UCNumericRestricted::Decrement()
{
    Accept();
    if (m_value > std::numeric_limits<qint32>::min())
        SetValue(m_value - 1);
}

void UCNumericRestricted::Accept()
{
    SetValue(ToLong(Val(TxtValue->text())));
    TxtValue->setText(QString::number(m_value));
    SetBoxColor(Accepted);
}

void UCNumericRestricted::SetBoxColor(const QColor& colour)
{
    m_boxColor = colour;
    TxtValue->setStyleSheet(QStringLiteral("QLineEdit { background: %1; color: black; }").arg(colour.name()));
}

bool UCNumericRestricted::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == TxtValue) {
        if (event->type() == QEvent::KeyPress) {
            const int key = static_cast<QKeyEvent*>(event)->key();
            if (key == Qt::Key_Return || key == Qt::Key_Enter) {
                Accept();
                return true;
            }
        } else if (event->type() == QEvent::FocusOut) {
            Accept();
        }
    }
    return QWidget::eventFilter(watched, event);
}

void UCNumericRestricted::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::EnabledChange)
        ShowArrows();
    QWidget::changeEvent(event);
}

void UCNumericRestricted::resizeEvent(QResizeEvent*)
{
    const int side = height();
    CmdLeft->setGeometry(0, 0, side, side);
    CmdRight->setGeometry(width() - side, 0, side, side);
    TxtValue->setGeometry(side, 0, std::max(width() - 2 * side, 0), side);
    ShowArrows();
}

void UCNumericRestricted::ShowArrows()
{
    const int side = std::max(height() - 6, 1);
    const auto picture = [&](const char* direction, const char* state) {
        return ArrowPictures::Picture(QStringLiteral("%1_%2").arg(QLatin1String(direction), QLatin1String(state)), side);
    };
    if (isEnabled()) {
        CmdLeft->SetPicture(picture("Left", "U"));
        CmdLeft->SetPictureDown(picture("Left", "D"));
        CmdRight->SetPicture(picture("Right", "U"));
        CmdRight->SetPictureDown(picture("Right", "D"));
    } else {
        CmdLeft->SetPicture(picture("Left", "Disabled"));
        CmdRight->SetPicture(picture("Right", "Disabled"));
    }
}
