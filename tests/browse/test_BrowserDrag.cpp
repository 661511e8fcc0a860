// A cart dragged out of the cart browser and a family out of the family browser, in the
// running workstation, onto a control that takes drops.
#include "browse/BrowserRowModel.h"
#include "browse/IFBrowserCart.h"
#include "browse/IFBrowserFamily.h"
#include "browse/IFDataViewer.h"
#include "browse/drag/CDrag.h"
#include "foundation/Globals.h"
#include "foundation/ui/ScriptedDialogs.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iFamilies.h"
#include "kernelapi/iFamily.h"
#include "shell/CInterface.h"
#include "shell/components/CComponent.h"
#include "shell/components/CComponents.h"
#include "shell/modInterface.h"
#include "shell/modMain.h"
#include "support/TempStation.h"
#include <QApplication>
#include <QDrag>
#include <QLabel>
#include <QMimeData>
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
    void TearDown() override
    {
        // The tests that follow in this process find no window of the workstation under the
        // pointer, and no interface or registry of this one.
        for (QWidget* top : QApplication::topLevelWidgets())
            top->hide();
        modInterface::StopInterface();
    }

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

    // Presses on a family and moves it over the cart browser's list, then to a point of the
    // window.
    void DragFamilyTo(const QString& id, const QPoint& inWindow)
    {
        const int row = families->Rows().Find(id);
        QWidget* viewport = families->ListView1->viewport();
        const QPoint start = families->ListView1->visualRect(families->Rows().index(row, 0)).center();
        const QPoint overList = viewport->mapFrom(&window, QPoint(400, 200));
        const QPoint there = viewport->mapFrom(&window, inWindow);
        QTest::mousePress(viewport, Qt::LeftButton, {}, start);
        QTest::mouseMove(viewport, overList);
        QTest::mouseMove(viewport, overList);
        QTest::mouseMove(viewport, there);
        QTest::mouseRelease(viewport, Qt::LeftButton, {}, there);
    }
    // The component the program's registry holds under a name, or null.
    static std::shared_ptr<CComponent> Registered(const QString& name)
    {
        const CComponents& registry = modInterface::Interface()->Components();
        for (int i = 0; i < registry.Count(); ++i)
            if (registry.Item(i)->Name() == name)
                return registry.Item(i);
        return nullptr;
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

TEST_F(BrowserDrag, AFamilyReleasedOverTheTitleDropsOnTheListItLastPassed)
{
    families->SetShowAll(true);
    DragFamilyTo(QStringLiteral("NEW"), carts->mapTo(&window, carts->LblTitle->geometry().center()));
    ASSERT_NE(carts->Family(), nullptr);
    EXPECT_EQ(carts->Family()->ID(), QStringLiteral("NEW"));
}

TEST_F(BrowserDrag, AFamilyDroppedOnTheDataViewerIsShownThere)
{
    auto* viewer = new IFDataViewer(&window);
    viewer->setGeometry(target->geometry());
    viewer->show();
    viewer->raise();
    DragFamilyTo(QStringLiteral("JIN"), QPoint(650, 200));
    EXPECT_EQ(viewer->Text(), QStringList({"Family", "JIN", "Desc: Jingles and station IDs", "EveryBody (R): True"}));
    EXPECT_EQ(target->source, nullptr) << "the viewer covers the target";
    EXPECT_EQ(Registered(QStringLiteral("DataViewer")), viewer->Component());
}

TEST_F(BrowserDrag, AFamilyDraggedOutOfTheProgramGoesOnAsTextAndDropsOnNoControl)
{
    families->SetShowAll(true);
    DragFamilyTo(QStringLiteral("NEW"), QPoint(5000, 5000));
    // The desktop's drag is done at once on the offscreen platform; Qt deletes it later.
    const QDrag* desktop = families->ListView1->findChild<QDrag*>();
    EXPECT_EQ(modInterface::Interface()->Drag().Status(), CDrag::Waiting);
    EXPECT_EQ(carts->Mode(), IFBrowserCart::NothingLoaded) << "the list passed over on the way out gets nothing";
    ASSERT_NE(desktop, nullptr) << "the desktop's drag started";
    ASSERT_NE(desktop->mimeData(), nullptr);
    EXPECT_EQ(desktop->mimeData()->text(), QStringLiteral("NEW"));
}

TEST_F(BrowserDrag, InTheOldBehaviourAFamilyRowIsTheDesktopsDragAtOnce)
{
    families->SetShowAll(true);
    families->SetCompatibleWithOldDragDropBehaviour(true);
    DragFamilyTo(QStringLiteral("JIN"), QPoint(400, 200));
    const QDrag* desktop = families->ListView1->findChild<QDrag*>();
    ASSERT_NE(desktop, nullptr);
    EXPECT_EQ(desktop->mimeData()->text(), QStringLiteral("JIN"));
    EXPECT_EQ(families->ListView1->findChildren<QDrag*>().size(), 1) << "one drag for one press";
    EXPECT_EQ(carts->Mode(), IFBrowserCart::NothingLoaded) << "no drag of the program ran";
}

TEST_F(BrowserDrag, TheBrowsersAreFoundByNameUntilTheyGoAway)
{
    EXPECT_EQ(Registered(QStringLiteral("CartBrowser")), carts->Component());
    EXPECT_EQ(Registered(QStringLiteral("FamilyBrowser")), families->Component());
    auto* second = new IFBrowserCart(&window);
    EXPECT_EQ(second->Component()->Name(), QStringLiteral("CartBrowser2"));
    EXPECT_EQ(Registered(QStringLiteral("CartBrowser2")), second->Component());

    second->LoadFamilyByName(QStringLiteral("JIN"));
    second->SetSelectedCartID(QStringLiteral("JIN0001"));
    const std::shared_ptr<CComponent> kept = second->Component();
    delete second;
    EXPECT_EQ(Registered(QStringLiteral("CartBrowser2")), kept) << "the registry keeps it until the program ends";
    EXPECT_EQ(kept->Control(), nullptr);
    EXPECT_EQ(kept->SharedObject(), nullptr);
    auto family = std::make_shared<CComponent>();
    family->SetShareType(CComponent::ShareFamily);
    family->SetSharedObject(Globals::Kernel()->Families()->Item(QStringLiteral("NEW")));
    kept->RaiseEventDragDrop(family); // reaches no dead browser
}
