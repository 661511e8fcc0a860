#include "metering/IFVumeter.h"
#include "foundation/ErrorGuard.h"
#include "foundation/ui/TranslateWidgets.h"
#include "kernelapi/iChannel.h"
#include "metering/UCPipeOn.h"
#include "metering/UCVumeter.h"
#include <QLabel>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>

namespace {
const QString Object = QStringLiteral("IFVumeter");
constexpr int LabelHeight = 16;
const QColor Ground(14, 15, 18);
}

IFVumeter::IFVumeter(QWidget* parent)
    : QWidget(parent)
    , UCVumeter1(new UCVumeter(this))
    , UCPipeOn1(new UCPipeOn(this))
    , Label1(new QLabel(this))
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    UCVumeter1->setObjectName(QStringLiteral("UCVumeter1"));
    UCPipeOn1->setObjectName(QStringLiteral("UCPipeOn1"));
    UCPipeOn1->SetFollowMode(true);
    Label1->setObjectName(QStringLiteral("Label1"));
    Label1->setAlignment(Qt::AlignCenter);
    Label1->setStyleSheet(QStringLiteral("QLabel { background: transparent; color: rgb(255, 190, 80); font-weight: bold; font-size: 8pt; }"));
    KeepUntranslated(Label1);
}

void IFVumeter::SetChannel(std::shared_ptr<iChannel> channel)
{
    Guarded(Object, QStringLiteral("Channel_Set"), [&] {
        m_channel = std::move(channel);
        Label1->setText(m_channel ? m_channel->Name() : QString());
        UCVumeter1->SetChannel(m_channel);
        UCPipeOn1->SetChannel(m_channel);
    });
}

void IFVumeter::RefreshLevel()
{
    UCVumeter1->RefreshLevel();
}

void IFVumeter::RefreshLed(bool blink)
{
    UCPipeOn1->RefreshLed(blink);
}

// The meter takes the height that the lamp and the name leave; the lamp is as wide as the
// meter's bars stand apart.
void IFVumeter::resizeEvent(QResizeEvent*)
{
    const int w = width();
    const int lamp = std::clamp(w / 3, 8, LabelHeight);
    const int meterHeight = std::max(height() - lamp - LabelHeight, 0);
    UCVumeter1->setGeometry(0, 0, w, meterHeight);
    UCPipeOn1->setGeometry((w - lamp) / 2, meterHeight, lamp, lamp);
    Label1->setGeometry(0, meterHeight + lamp, w, LabelHeight);
}

void IFVumeter::paintEvent(QPaintEvent* event)
{
    QPainter(this).fillRect(event->rect(), Ground);
}
