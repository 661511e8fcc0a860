#include "browse/drag/IFDragMonitor.h"
#include "browse/drag/CDrag.h"
#include "foundation/ui/TranslateWidgets.h"
#include "shell/components/CComponent.h"
#include <QFontDatabase>
#include <QLabel>
#include <QStringList>
#include <QVBoxLayout>

namespace {
QString NameOf(const std::shared_ptr<CComponent>& component)
{
    return component ? component->Name() : QString();
}

// "Src-2: <not set>" for no component, else "Src-2: " and its name.
QString ComponentLine(const QString& label, const std::shared_ptr<CComponent>& component)
{
    return label + (component ? component->Name() : QStringLiteral("<not set>"));
}

QString Point(const QString& label, float x, float y)
{
    return label + QString::number(x) + QStringLiteral(", ") + QString::number(y) + QLatin1Char(')');
}
}

IFDragMonitor::IFDragMonitor(QWidget* parent)
    : QFrame(parent)
{
    setObjectName(QStringLiteral("IFDragMonitor"));
    setFrameShape(QFrame::StyledPanel);
    LblState = new QLabel(this);
    LblState->setObjectName(QStringLiteral("LblState"));
    LblState->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    LblState->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    KeepUntranslated(LblState);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(LblState);
}

void IFDragMonitor::Attach(CDrag* drag)
{
    if (m_drag)
        disconnect(m_drag, nullptr, this, nullptr);
    m_drag = drag;
    if (drag) {
        connect(drag, &CDrag::Changed, this, &IFDragMonitor::Refresh);
        connect(drag, &CDrag::Roll, this, &IFDragMonitor::Refresh);
        connect(drag, &CDrag::StartDrag, this, &IFDragMonitor::Refresh);
    }
    Refresh();
}

void IFDragMonitor::Refresh()
{
    LblState->setText(m_drag ? Describe(*m_drag) : QString());
}

QString IFDragMonitor::Text() const
{
    return LblState->text();
}

QString IFDragMonitor::Describe(const CDrag& drag)
{
    const QStringList lines = {
        QStringLiteral("Mouse: ") + CDrag::StatusWord(drag.Status()) + QStringLiteral(" (") + CDrag::ButtonWord(drag.ButtonOf()) + QLatin1Char(')'),
        QStringLiteral("Ntype: ") + CDrag::NotificationWord(drag.NotificationTypeOf()),
        QStringLiteral("Shift: ") + CDrag::ShiftWord(drag.ShiftOf()),
        QStringLiteral("Not-2: ") + NameOf(drag.LastNotifier()),
        Point(QStringLiteral("Curnt: ("), drag.CurrentX(), drag.CurrentY()),
        QStringLiteral("---- SOURCE ----"),
        ComponentLine(QStringLiteral("Src-2: "), drag.Source()),
        Point(QStringLiteral("Click: ("), drag.ClickX(), drag.ClickY()),
        QStringLiteral("Distn: ") + QString::number(drag.Distance()),
        QStringLiteral("Exced: ") + (drag.Exceeded() ? QStringLiteral("True") : QStringLiteral("False")),
        QStringLiteral("---- DESTIN ----"),
        ComponentLine(QStringLiteral("Dst-2: "), drag.Destination()),
    };
    return lines.join(QLatin1Char('\n'));
}
