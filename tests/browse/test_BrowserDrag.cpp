// A cart dragged out of the cart browser and a family out of the family browser, in the
// running workstation, onto a control that takes drops.
#include "browse/BrowserRowModel.h"
#include "browse/IFBrowserCart.h"
#include "browse/IFBrowserFamily.h"
#include "browse/drag/CDrag.h"
#include "foundation/ui/ScriptedDialogs.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iFamily.h"
#include "shell/CInterface.h"
#include "shell/components/CComponent.h"
#include "shell/modInterface.h"
#include "shell/modMain.h"
#include "support/TempStation.h"
#include <QApplication>
#include <QMouseEvent>
#include <QTest>
#include <QTreeView>
#include <gtest/gtest.h>

namespace {
// A control that takes drops, reporting its mouse events as the workstation's controls do.
class DropTarget : public QWidget
{
public:
    explicit DropTarget(QWidget* parent) : QWidget(parent), component(std::make_shared<CComponent>())
    {
        component->SetName(QStringLiteral("CartPlayer"));
        component->SetControl(this);
        QObject::connect(component.get(), &CComponent::DragDrop, [this](std::shared_ptr<CComponent> s) { source = s; });
    }
    std::shared_ptr<CComponent> component;
    std::shared_ptr<CComponent> source;

protected:
    void mouseMoveEvent(QMouseEvent* e) override { Drag().NotifyMouse(component, CDrag::MouseMove, e); }
    void mouseReleaseEvent(QMouseEvent* e) override { Drag().NotifyMouse(component, CDrag::MouseUp, e); }
    static CDrag& Drag() { return modInterface::Interface()->Drag(); }
};

class BrowserDrag : public ::testing::Test
{
protected:
    void SetUp() override
    {
        Dialogs::SetHandler(std::make_unique<ScriptedDialogs>());
        modMain::SetProcessEnder([](int) {});
        ASSERT_TRUE(modMain::Main());
        // Made once the workstation runs, as the screens make them.
        families = new IFBrowserFamily(&window);
        carts = new IFBrowserCart(&window);
        target = new DropTarget(&window);
        window.resize(700, 400);
        families->setGeometry(0, 0, 200, 400);
        carts->setGeometry(200, 0, 400, 400);
        target->setGeometry(600, 0, 100, 400);
        window.show();
        // Above the workstation's own windows, where the pointer finds it.
        QApplication::setActiveWindow(&window);
    }
    void TearDown() override { window.hide(); }

    // Presses on a row of a list and drags it onto the target. The press grabs the mouse, so
    // the moves and the release reach the list, as they would from the window system.
    void DragRow(QTreeView* list, int row)
    {
        QWidget* viewport = list->viewport();
        const QPoint start = list->visualRect(list->model()->index(row, 0)).center();
        const QPoint there = viewport->mapFrom(&window, QPoint(650, 200));
        QTest::mousePress(viewport, Qt::LeftButton, {}, start);
        QTest::mouseMove(viewport, start + QPoint(0, 2));
        QTest::mouseMove(viewport, there);
        QTest::mouseMove(viewport, there);
        QTest::mouseRelease(viewport, Qt::LeftButton, {}, there);
    }

    TempStation station;
    QWidget window;
    IFBrowserFamily* families = nullptr;
    IFBrowserCart* carts = nullptr;
    DropTarget* target = nullptr;
};
}

TEST_F(BrowserDrag, ARowOfTheCartBrowserCarriesItsCart)
{
    carts->LoadFamilyByName(QStringLiteral("JIN"));
    DragRow(carts->ListView1, 2);
    ASSERT_NE(target->source, nullptr);
    EXPECT_EQ(target->source->Name(), QStringLiteral("CartBrowser"));
    EXPECT_EQ(target->source->ShareType(), CComponent::ShareCart);
    ASSERT_NE(target->source->Shared<iCart>(), nullptr);
    EXPECT_EQ(target->source->Shared<iCart>()->ID(), QStringLiteral("JIN0003"));
    EXPECT_EQ(carts->SelectedCartID(), QStringLiteral("JIN0003")) << "moving over other rows kept the pressed one";
    EXPECT_EQ(modInterface::Interface()->Drag().Status(), CDrag::Waiting);
}

TEST_F(BrowserDrag, AFamilyDroppedOnTheCartBrowserLoadsIt)
{
    families->SetShowAll(true);
    const int row = families->Rows().Find(QStringLiteral("NEW"));
    QWidget* viewport = families->ListView1->viewport();
    const QPoint start = families->ListView1->visualRect(families->Rows().index(row, 0)).center();
    const QPoint there = viewport->mapFrom(&window, QPoint(400, 200));
    QTest::mousePress(viewport, Qt::LeftButton, {}, start);
    QTest::mouseMove(viewport, there);
    QTest::mouseMove(viewport, there);
    QTest::mouseRelease(viewport, Qt::LeftButton, {}, there);
    EXPECT_EQ(carts->Mode(), IFBrowserCart::FamilyMode);
    ASSERT_NE(carts->Family(), nullptr);
    EXPECT_EQ(carts->Family()->ID(), QStringLiteral("NEW"));
}
