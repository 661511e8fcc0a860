#include "foundation/controls/VolmarPannel.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Log.h"
#include "foundation/controls/MouseCodes.h"
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

namespace {
const QString Object = QStringLiteral("VolmarPannel");
const QColor White(255, 255, 255);
const QColor Black(0, 0, 0);
const QColor DarkGray(128, 128, 128);
const QColor LightGray(192, 192, 192);
}

VolmarPannel::VolmarPannel(QWidget* parent, const QString& name)
    : QWidget(parent)
    , lblLabel(new QLabel(name, this))
    , m_backColor(palette().color(QPalette::Button))
{
    setObjectName(name);
    lblLabel->setObjectName(QStringLiteral("lblLabel"));
    lblLabel->setIndent(m_border);
    lblLabel->installEventFilter(this);
    ApplyForeColor();
}

QString VolmarPannel::Caption() const
{
    return lblLabel->text();
}

void VolmarPannel::SetCaption(const QString& caption)
{
    lblLabel->setText(caption);
}

void VolmarPannel::SetVisibleGuide(bool visible)
{
    m_visibleGuide = visible;
    update();
}

void VolmarPannel::SetBorder(qint16 border)
{
    m_border = border;
    lblLabel->setIndent(std::max<int>(border, 0));
    Arrange();
}

void VolmarPannel::SetBorderCaption(qint16 border)
{
    m_borderCaption = border;
    Arrange();
}

void VolmarPannel::SetBorderAssymetry(qint16 border)
{
    m_borderAssymetry = border;
    Arrange();
}

void VolmarPannel::SetActiveOnce(bool)
{
    Arrange();
}

void VolmarPannel::SetBackColor(const QColor& colour)
{
    m_backColor = colour;
    update();
}

void VolmarPannel::SetForeColor(const QColor& colour)
{
    m_foreColor = colour;
    ApplyForeColor();
}

void VolmarPannel::SetPresetColor(qint32 preset)
{
    m_presetColor = preset;
    switch (preset) {
    case 1:
        SetBackColor(DarkGray);
        SetForeColor(White);
        break;
    case 2:
        SetBackColor(LightGray);
        SetForeColor(White);
        break;
    case 3:
        SetBackColor(palette().color(QPalette::Button));
        SetForeColor(Black);
        break;
    default:
        break;
    }
}

// The caption's colour goes into the label's own style sheet, so that an application-wide
// style sheet does not override it.
void VolmarPannel::ApplyForeColor()
{
    lblLabel->setStyleSheet(QStringLiteral("color: %1; background: transparent; font-weight: bold; font-size: 8pt;")
                                .arg(m_foreColor.name()));
}

void VolmarPannel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const int w = width();
    const int h = height();
    painter.fillRect(rect(), m_backColor);
    const auto bevel = [&](int inset, const QColor& light, const QColor& dark) {
        painter.setPen(light);
        painter.drawLine(inset, inset, w - inset, inset);
        painter.drawLine(inset, inset, inset, h - inset);
        painter.setPen(dark);
        painter.drawLine(inset, h - inset, w - inset, h - inset);
        painter.drawLine(w - inset, inset, w - inset, h - inset);
    };
    bevel(1, White, DarkGray);
    bevel(2, DarkGray, White);
    if (m_visibleGuide && !m_rectangle.isEmpty()) {
        painter.setPen(QPen(DarkGray, 1, Qt::DotLine));
        painter.drawRect(m_rectangle.adjusted(0, 0, -1, -1));
    }
}

void VolmarPannel::resizeEvent(QResizeEvent*)
{
    Arrange();
}

void VolmarPannel::showEvent(QShowEvent*)
{
    Arrange();
}

// The caption takes the top of the panel, the guide rectangle the inside of the margins
// (a negative size counts as none), and the first contained control is moved onto it.
void VolmarPannel::Arrange()
{
    const int w = width();
    const int h = height();
    lblLabel->setGeometry(0, 0, w, std::max<int>(m_borderCaption, lblLabel->sizeHint().height()));
    const int side = m_border + m_borderAssymetry;
    m_rectangle = QRect(side, m_borderCaption, std::max(w - 2 * side, 0), std::max(h - m_border - m_borderCaption, 0));
    update();
    AlignControl();
}

QObjectList VolmarPannel::ContainedControls() const
{
    QObjectList contents;
    for (QObject* child : children())
        if (child != lblLabel && !child->objectName().startsWith(QLatin1String("qt_")))
            contents.append(child);
    return contents;
}

void VolmarPannel::AlignControl()
{
    Guarded(Object, QStringLiteral("AlignControl"), [this](Step& step) {
        step(QStringLiteral("A"));
        const QObjectList contents = ContainedControls();
        step(QStringLiteral("B"));
        if (contents.isEmpty())
            return;
        step(QStringLiteral("C"));
        QObject* first = contents.first();
        step(QStringLiteral("C-bis"));
        auto* control = qobject_cast<QWidget*>(first);
        if (!control) {
            const char* parentType = parent() ? parent()->metaObject()->className() : "Nothing";
            LogError(Object, QStringLiteral("AlignControl"),
                     QStringLiteral("Contained control doesn't implement the move() method. Tracking: C-bis - Object Type: %1 - Parent Type: %2")
                         .arg(QLatin1String(first->metaObject()->className()), QLatin1String(parentType)));
            return;
        }
        step(QStringLiteral("D"));
        control->setGeometry(m_rectangle);
    });
}

void VolmarPannel::RaiseMouse(const QMouseEvent* event)
{
    const int button = MouseCodes::Button(event->type() == QEvent::MouseMove ? event->buttons() : event->button());
    const int shift = MouseCodes::Shift(event->modifiers());
    const QPointF at = mapFromGlobal(event->globalPosition());
    const auto x = static_cast<float>(at.x());
    const auto y = static_cast<float>(at.y());
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        Q_EMIT MouseDown(button, shift, x, y);
        break;
    case QEvent::MouseMove:
        Q_EMIT MouseMove(button, shift, x, y);
        break;
    default:
        Q_EMIT MouseUp(button, shift, x, y);
        break;
    }
}

void VolmarPannel::mousePressEvent(QMouseEvent* event)
{
    RaiseMouse(event);
}

void VolmarPannel::mouseMoveEvent(QMouseEvent* event)
{
    RaiseMouse(event);
}

void VolmarPannel::mouseReleaseEvent(QMouseEvent* event)
{
    RaiseMouse(event);
}

bool VolmarPannel::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == lblLabel && (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseMove
                                || event->type() == QEvent::MouseButtonRelease)) {
        RaiseMouse(static_cast<QMouseEvent*>(event));
        return true;
    }
    return QWidget::eventFilter(watched, event);
}
