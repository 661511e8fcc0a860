#include "foundation/controls/UCButton.h"
#include <QEvent>
#include <QMouseEvent>
#include <QToolButton>

namespace {
constexpr int FirstRepeatMs = 500;
constexpr int RepeatMs = 25;
}

UCButton::UCButton(QWidget* parent)
    : QWidget(parent)
{
    for (int index = 0; index < 2; ++index) {
        auto* button = new QToolButton(this);
        button->setObjectName(QStringLiteral("Button%1").arg(index));
        // The inner buttons only show; the control itself takes the mouse.
        button->setAttribute(Qt::WA_TransparentForMouseEvents);
        button->setFocusPolicy(Qt::NoFocus);
        m_buttons[index] = button;
    }
    m_buttons[1]->setDown(true);
    connect(&m_tmrAutoFire, &QTimer::timeout, this, &UCButton::TmrAutoFire_Timer);
    RepaintButtons();
}

void UCButton::SetPicture(const QPixmap& picture)
{
    m_picture = picture;
    m_buttons[0]->setIcon(QIcon(picture));
}

void UCButton::SetPictureDown(const QPixmap& picture)
{
    m_pictureDown = picture;
    m_buttons[1]->setIcon(QIcon(picture));
}

void UCButton::SetAutoFire(bool autoFire)
{
    m_autoFire = autoFire;
}

void UCButton::SetPressed(bool pressed)
{
    m_pressed = pressed;
    RepaintButtons();
}

void UCButton::TmrAutoFire_Timer()
{
    m_tmrAutoFire.setInterval(RepeatMs);
    Q_EMIT AutoFired();
}

void UCButton::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_held = true;
    RepaintButtons();
    Q_EMIT Pressed();
    if (m_autoFire) {
        m_tmrAutoFire.setInterval(FirstRepeatMs);
        m_tmrAutoFire.start();
    }
}

void UCButton::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !m_held)
        return;
    m_tmrAutoFire.stop();
    m_held = false;
    RepaintButtons();
    if (rect().contains(event->position().toPoint()))
        Q_EMIT Clicked();
}

void UCButton::resizeEvent(QResizeEvent*)
{
    ResizeButtons();
}

// A button disabled while held stops repeating and shows released.
void UCButton::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::EnabledChange && !isEnabled()) {
        m_tmrAutoFire.stop();
        m_held = false;
        RepaintButtons();
    }
    QWidget::changeEvent(event);
}

void UCButton::ResizeButtons()
{
    const QSize inner = size() - QSize(6, 6);
    for (QToolButton* button : m_buttons) {
        button->setGeometry(rect());
        button->setIconSize(inner.expandedTo(QSize(1, 1)));
    }
}

void UCButton::RepaintButtons()
{
    const bool down = m_pressed || m_held;
    m_buttons[1]->setVisible(down);
    m_buttons[0]->setVisible(!down);
}
