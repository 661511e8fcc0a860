// The drag protocol on real mouse events: two reporting widgets in one window, the press on
// one and the release on the other.
#include "browse/drag/CDrag.h"
#include "browse/drag/CMouseController.h"
#include "shell/components/CComponent.h"
#include <QApplication>
#include <QMouseEvent>
#include <QTest>
#include <QWidget>
#include <gtest/gtest.h>

namespace {
// A control that reports every mouse event of its own to the drag, as the workstation's do.
class Reporter : public QWidget
{
public:
    Reporter(CDrag& drag, const QString& name, QWidget* parent)
        : QWidget(parent), drag(drag), component(std::make_shared<CComponent>())
    {
        component->SetName(name);
        component->SetControl(this);
        component->SetShareType(CComponent::ShareCart);
        QObject::connect(component.get(), &CComponent::DragDrop, [this](std::shared_ptr<CComponent> source) {
            droppedFrom = source ? source->Name() : QStringLiteral("<none>");
        });
    }
    CDrag& drag;
    std::shared_ptr<CComponent> component;
    QString droppedFrom;

protected:
    void mousePressEvent(QMouseEvent* e) override { drag.NotifyMouse(component, CDrag::MouseDown, e); }
    void mouseMoveEvent(QMouseEvent* e) override { drag.NotifyMouse(component, CDrag::MouseMove, e); }
    void mouseReleaseEvent(QMouseEvent* e) override { drag.NotifyMouse(component, CDrag::MouseUp, e); }
};

struct DragBench : ::testing::Test
{
    CMouseController mouse;
    CDrag drag;
    QWidget window;
    Reporter* source = new Reporter(drag, QStringLiteral("CartBrowser"), &window);
    Reporter* target = new Reporter(drag, QStringLiteral("CartPlayer"), &window);
    QWidget* silent = new QWidget(&window);
    int starts = 0, ends = 0;

    void SetUp() override
    {
        window.resize(400, 100);
        source->setGeometry(0, 0, 100, 100);
        target->setGeometry(150, 0, 100, 100);
        silent->setGeometry(300, 0, 100, 100);
        window.show();
        // Above any other window of the process, where the pointer finds it.
        QApplication::setActiveWindow(&window);
        QObject::connect(&drag, &CDrag::StartDrag, [this] { ++starts; });
        QObject::connect(&drag, &CDrag::EndDrag, [this] { ++ends; });
    }
    // Press on the source at (10,10), move to a point of the window and release there. The
    // press grabs the mouse, so the moves and the release reach the source, as they would
    // from the window system.
    void DragTo(QPoint inWindow)
    {
        const QPoint there = source->mapFrom(&window, inWindow);
        QTest::mousePress(source, Qt::LeftButton, {}, QPoint(10, 10));
        QTest::mouseMove(source, there);
        QTest::mouseMove(source, there);
        QTest::mouseRelease(source, Qt::LeftButton, {}, there);
    }
};
}

TEST_F(DragBench, PressMovedPastTheThresholdDropsTheSourceOnTheControlUnderThePointer)
{
    DragTo(QPoint(200, 50));
    EXPECT_EQ(starts, 1);
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(target->droppedFrom, QStringLiteral("CartBrowser"));
    EXPECT_TRUE(source->droppedFrom.isEmpty());
    EXPECT_EQ(drag.Status(), CDrag::Waiting);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(DragBench, AMoveBelowSixtyFiveTwipsIsAClick)
{
    // 4 pixels are 60 twips: still a click; 5 pixels (75 twips) make it a drag.
    QTest::mousePress(source, Qt::LeftButton, {}, QPoint(10, 10));
    QTest::mouseMove(source, QPoint(14, 13));
    EXPECT_EQ(drag.Status(), CDrag::Escaping);
    EXPECT_FLOAT_EQ(drag.Distance(), 60);
    QTest::mouseMove(source, QPoint(10, 15));
    EXPECT_EQ(drag.Status(), CDrag::Dragging);
    EXPECT_EQ(drag.Destination(), nullptr) << "the move that starts a drag names no destination yet";
    QTest::mouseMove(source, QPoint(10, 16));
    QTest::mouseRelease(source, Qt::LeftButton, {}, QPoint(10, 16));
    EXPECT_EQ(source->droppedFrom, QStringLiteral("CartBrowser")) << "dropping on oneself is the handler's business";
}

TEST_F(DragBench, ReleaseWithNoDestinationEndsTheDragWithNoDrop)
{
    DragTo(QPoint(350, 50));
    EXPECT_EQ(ends, 1);
    EXPECT_TRUE(target->droppedFrom.isEmpty());
    EXPECT_TRUE(source->droppedFrom.isEmpty());
    EXPECT_EQ(drag.Status(), CDrag::Waiting);
}

TEST_F(DragBench, ReleaseOverAGapOrOutsideTheWindowDropsOnTheLastControlMovedOver)
{
    // The gap between the two controls, a widget that reports nothing, and a point beyond
    // the window: each time the drop goes to the target, which reported the last move.
    for (const QPoint releasedAt : {QPoint(125, 50), QPoint(350, 50), QPoint(900, 50)}) {
        target->droppedFrom.clear();
        const QPoint overTarget = source->mapFrom(&window, QPoint(200, 50));
        const QPoint there = source->mapFrom(&window, releasedAt);
        QTest::mousePress(source, Qt::LeftButton, {}, QPoint(10, 10));
        QTest::mouseMove(source, overTarget);
        QTest::mouseMove(source, overTarget);
        QTest::mouseMove(source, there);
        QTest::mouseRelease(source, Qt::LeftButton, {}, there);
        EXPECT_EQ(target->droppedFrom, QStringLiteral("CartBrowser")) << releasedAt.x();
        EXPECT_EQ(drag.Status(), CDrag::Waiting);
    }
    EXPECT_EQ(ends, 3);
    EXPECT_TRUE(source->droppedFrom.isEmpty());
}

TEST_F(DragBench, AMoveWithNoButtonEndsARunningDragLikeARelease)
{
    drag.Notify(source->component, CDrag::MouseDown, CDrag::LeftButton, 0, 0, 0);
    drag.Notify(source->component, CDrag::MouseMove, CDrag::LeftButton, 0, 100, 0);
    drag.Notify(target->component, CDrag::MouseMove, CDrag::LeftButton, 0, 200, 0);
    EXPECT_EQ(drag.Destination(), target->component);
    drag.Notify(target->component, CDrag::MouseMove, 0, 0, 200, 0);
    EXPECT_EQ(drag.Status(), CDrag::Waiting);
    EXPECT_EQ(target->droppedFrom, QStringLiteral("CartBrowser"));
}

TEST_F(DragBench, ANewPressForgetsTheLastDestination)
{
    DragTo(QPoint(200, 50));
    target->droppedFrom.clear();
    drag.Notify(source->component, CDrag::MouseDown, CDrag::LeftButton, 0, 0, 0);
    drag.Notify(source->component, CDrag::MouseMove, CDrag::LeftButton, 0, 0, 65);
    drag.Notify(source->component, CDrag::MouseUp, CDrag::LeftButton, 0, 0, 65);
    EXPECT_EQ(ends, 2);
    EXPECT_TRUE(target->droppedFrom.isEmpty());
}

TEST(DragWords, NameStatesButtonsAndKeys)
{
    EXPECT_EQ(CDrag::StatusWord(2), QStringLiteral("Dragging"));
    EXPECT_EQ(CDrag::NotificationWord(0), QStringLiteral("Mou Down"));
    EXPECT_EQ(CDrag::ButtonWord(5), QStringLiteral("L + S"));
    EXPECT_EQ(CDrag::ShiftWord(7), QStringLiteral("S+C+A"));
}
