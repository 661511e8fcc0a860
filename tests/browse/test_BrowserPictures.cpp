// Pictures of the family and cart browsers on the demo station, written to build/screenshots
// for a person to look at: the families beside a family's carts, a macro under edit, the
// inline editor open below a row, and a large family while it loads.
#include "BrowseTest.h"
#include "browse/BrowserRowModel.h"
#include "browse/CartHeaderEditor.h"
#include "browse/IFBrowserCart.h"
#include "browse/IFBrowserFamily.h"
#include "foundation/controls/UCProgressBar.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCarts.h"
#include "shell/Theme.h"
#include "support/Photograph.h"
#include <QApplication>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QTimer>

namespace {
class BrowserPictures : public BrowseTest
{
protected:
    BrowserPictures() : BrowseTest(1000, SoundLength::Full) {}
    void SetUp() override
    {
        BrowseTest::SetUp();
        Theme::Apply(*qApp);
        LoginAs(QStringLiteral("PRESENTER"), QStringLiteral("onair"));
        auto spacer = kernel->Carts()->NewCart();
        spacer->SetID(QStringLiteral("MUS0003"));
        spacer->SetType(CartType::Separator);
        spacer->SetDescription(QStringLiteral("--- Late night ---"));
        spacer->Save();
        window.resize(820, 480);
        window.setObjectName(QStringLiteral("sheet"));
        window.setStyleSheet(QStringLiteral("QWidget#sheet { background: rgb(24, 28, 35); }"));
        auto* layout = new QHBoxLayout(&window);
        families = new IFBrowserFamily(&window);
        carts = new IFBrowserCart(&window);
        layout->addWidget(families, 2);
        layout->addWidget(carts, 5);
        QObject::connect(families, &IFBrowserFamily::Changed, carts, &IFBrowserCart::LoadFamilyByName);
        window.show();
    }
    void TearDown() override
    {
        qApp->setStyleSheet(QString());
        BrowseTest::TearDown();
    }

    QWidget window;
    IFBrowserFamily* families = nullptr;
    IFBrowserCart* carts = nullptr;
};
}

TEST_F(BrowserPictures, FamiliesAndCarts)
{
    families->SetShowAll(true);
    families->SetSelectedFamilyID(QStringLiteral("MUS"));
    carts->SetSelectedCartID(QStringLiteral("MUS0002"));
    carts->ArrowPush(3);
    carts->SetSignalArrowsEnabled(true);
    carts->AddSignalArrow(QStringLiteral("MUS0005"), CSignalArrow::Red);
    carts->TmrSignalArrows_Timer();
    carts->TmrSignalArrows_Timer();
    QApplication::processEvents();
    EXPECT_EQ(carts->Rows().Count(), 7);
    EXPECT_TRUE(Photograph(&window, QStringLiteral("browser-families-and-carts")));
}

TEST_F(BrowserPictures, MacroUnderEdit)
{
    carts->SetAcceptMacros(true);
    carts->LoadMacroByName(QStringLiteral("MES0000"));
    QApplication::processEvents();
    EXPECT_TRUE(Photograph(&window, QStringLiteral("browser-macro")));
}

TEST_F(BrowserPictures, TheHeaderEditorOpenBelowARow)
{
    families->SetSelectedFamilyID(QStringLiteral("MUS"));
    carts->SetSelectedCartID(QStringLiteral("MUS0002"));
    carts->Edit();
    while (carts->Editor->TmrOpen->isActive())
        carts->Editor->TmrOpen_Timer();
    carts->Editor->TxtComment->setText(QStringLiteral("Fade out at the end"));
    QApplication::processEvents();
    EXPECT_EQ(carts->Editor->height(), CartHeaderEditor::FullHeight);
    EXPECT_TRUE(Photograph(&window, QStringLiteral("browser-header-editor")));
}

TEST_F(BrowserPictures, ALargeFamilyWhileItLoads)
{
    int yields = 0;
    QTimer probe;
    QObject::connect(&probe, &QTimer::timeout, [&] {
        if (++yields == 4) {
            EXPECT_TRUE(Photograph(&window, QStringLiteral("browser-loading")));
            carts->Stop();
        }
    });
    probe.start(0);
    families->SetSelectedFamilyID(QStringLiteral("BAA"));
    EXPECT_LT(carts->Rows().Count(), 1000) << "stopped while it loaded";
}
