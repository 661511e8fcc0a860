// The drag monitor: the panel's lines follow every report to the drag.
#include "browse/drag/CDrag.h"
#include "browse/drag/DragControls.h"
#include "browse/drag/IFDragMonitor.h"
#include "shell/components/CComponent.h"
#include <QStringList>
#include <gtest/gtest.h>
#include <memory>

namespace {
std::shared_ptr<CComponent> Named(const QString& name)
{
    auto component = std::make_shared<CComponent>();
    component->SetName(name);
    return component;
}

struct MonitorBench : ::testing::Test
{
    CDrag drag;
    IFDragMonitor monitor;
    std::shared_ptr<CComponent> browser = Named(QStringLiteral("CartBrowser"));
    std::shared_ptr<CComponent> player = Named(QStringLiteral("CartPlayer"));

    QStringList Lines() const { return monitor.Text().split(QLatin1Char('\n')); }
};
}

TEST_F(MonitorBench, ShowsEveryFieldOfTheDragUnderItsLabelOnePerLine)
{
    monitor.Attach(&drag);
    drag.Notify(browser, CDrag::MouseDown, CDrag::LeftButton, CDrag::ShiftMask | CDrag::CtrlMask, 30, 45);
    const QStringList expected = {
        QStringLiteral("Mouse: Escaping (Left)"),
        QStringLiteral("Ntype: Mou Down"),
        QStringLiteral("Shift: S + C"),
        QStringLiteral("Not-2: CartBrowser"),
        QStringLiteral("Curnt: (30, 45)"),
        QStringLiteral("---- SOURCE ----"),
        QStringLiteral("Src-2: CartBrowser"),
        QStringLiteral("Click: (30, 45)"),
        QStringLiteral("Distn: 0"),
        QStringLiteral("Exced: False"),
        QStringLiteral("---- DESTIN ----"),
        QStringLiteral("Dst-2: <not set>"),
    };
    EXPECT_EQ(Lines(), expected);
}

TEST_F(MonitorBench, FollowsADragFromPressToDropAndEndsWithNoSource)
{
    monitor.Attach(&drag);
    drag.Notify(browser, CDrag::MouseDown, CDrag::LeftButton, 0, 0, 0);
    drag.Notify(player, CDrag::MouseMove, CDrag::LeftButton, 0, 100, 20);
    EXPECT_TRUE(Lines().contains(QStringLiteral("Mouse: Dragging (Left)")));
    EXPECT_TRUE(Lines().contains(QStringLiteral("Distn: 100")));
    drag.Notify(player, CDrag::MouseMove, CDrag::LeftButton, 0, 120, 20);
    EXPECT_TRUE(Lines().contains(QStringLiteral("Dst-2: CartPlayer")));
    drag.Notify(player, CDrag::MouseUp, CDrag::LeftButton, 0, 120, 20);
    EXPECT_TRUE(Lines().contains(QStringLiteral("Mouse: Waiting (Left)")));
    EXPECT_TRUE(Lines().contains(QStringLiteral("Ntype: Mou Up")));
}

TEST_F(MonitorBench, AMonitorListensOnlyToTheDragItIsAttachedToAndOutlivesIt)
{
    CDrag other;
    monitor.Attach(&other);
    monitor.Attach(&drag);
    other.Notify(browser, CDrag::MouseDown, CDrag::LeftButton, 0, 7, 7);
    EXPECT_TRUE(Lines().contains(QStringLiteral("Src-2: <not set>")));

    auto shortLived = std::make_unique<CDrag>();
    monitor.Attach(shortLived.get());
    shortLived.reset();
    monitor.Refresh();
    EXPECT_TRUE(monitor.Text().isEmpty());
}

TEST(DragControls, TheMonitorIsMadeByClassNameAndAttachedToTheDragOfTheProgram)
{
    CDrag drag;
    CDrag* current = nullptr;
    QHash<QString, DragControls::ControlFactory> made;
    DragControls::RegisterControls([&](const QString& name, DragControls::ControlFactory factory) { made.insert(name, factory); },
                                   [&] { return current; });
    ASSERT_TRUE(made.contains(QStringLiteral("Korvane_Interface.IFDragMonitor")));

    // Before the interface exists there is no drag: the panel stays empty.
    std::unique_ptr<QWidget> early(made.value(QStringLiteral("Korvane_Interface.IFDragMonitor"))(nullptr));
    EXPECT_TRUE(static_cast<IFDragMonitor*>(early.get())->Text().isEmpty());

    current = &drag;
    std::unique_ptr<QWidget> widget(made.value(QStringLiteral("Korvane_Interface.IFDragMonitor"))(nullptr));
    auto* monitor = qobject_cast<IFDragMonitor*>(widget.get());
    ASSERT_NE(monitor, nullptr);
    EXPECT_EQ(monitor->Drag(), &drag);
    drag.Notify(Named(QStringLiteral("Pads")), CDrag::MouseDown, CDrag::RightButton, 0, 1, 2);
    EXPECT_TRUE(monitor->Text().contains(QStringLiteral("Src-2: Pads")));
}
