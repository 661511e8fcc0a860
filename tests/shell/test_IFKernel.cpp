// The kernel panel on a running workstation: its keys call the embedded kernel, Refresh asks
// first through the popup when the station says so, and a shout comes back as a notice.
#include "ShellFixture.h"
#include "foundation/Globals.h"
#include "foundation/controls/UCButton.h"
#include "foundation/controls/VolmarPannel.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/iFamilies.h"
#include "shell/CInterface.h"
#include "shell/IFKernel.h"
#include "shell/NoticeWindow.h"
#include "shell/Registry.h"
#include "shell/modInterface.h"
#include "support/Photograph.h"
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

namespace {
class IFKernelTest : public ShellFixture
{
protected:
    void SetUp() override
    {
        ShellFixture::SetUp();
        ASSERT_TRUE(Start());
        kernel = Globals::Kernel();
        panel.reset(qobject_cast<IFKernel*>(Registry::Create(QStringLiteral("Korvane_Interface.IFKernel"), nullptr)));
        ASSERT_TRUE(panel);
        panel->resize(115, 92); // its place on the Live screen
        panel->show();
    }

    void TearDown() override
    {
        panel.reset();
        ShellFixture::TearDown();
    }

    static void Click(UCButton* button) { QTest::mouseClick(button, Qt::LeftButton, {}, button->rect().center()); }

    std::shared_ptr<CKernel> kernel;
    std::unique_ptr<IFKernel> panel;
};
}

TEST_F(IFKernelTest, TheKeysFitTheirFramesAtTheLiveScreensSize)
{
    for (UCButton* key : {panel->CmdRefresh, panel->CmdImport, panel->CmdShout}) {
        const QRect place(key->mapTo(panel.get(), QPoint(0, 0)), key->size());
        EXPECT_TRUE(panel->rect().contains(place)) << key->objectName().toStdString();
        EXPECT_GE(key->height(), 20) << key->objectName().toStdString();
        EXPECT_FALSE(key->Picture().isNull());
    }
    EXPECT_FALSE(QRect(panel->CmdRefresh->mapTo(panel.get(), QPoint(0, 0)), panel->CmdRefresh->size())
                     .intersects(QRect(panel->CmdImport->mapTo(panel.get(), QPoint(0, 0)), panel->CmdImport->size())));
    EXPECT_EQ(panel->PanKernel->Caption(), QStringLiteral("Kernel"));
    EXPECT_TRUE(Photograph(panel.get(), QStringLiteral("IFKernel")));
}

TEST_F(IFKernelTest, RefreshAtOnceOrThroughThePopupWhenTheStationAsks)
{
    QSignalSpy refreshed(kernel->Families().get(), &iFamilies::Changed);
    Click(panel->CmdRefresh);
    EXPECT_EQ(refreshed.count(), 1);
    EXPECT_TRUE(dialogs->menus.isEmpty());

    kernel->SetStationConfig(QStringLiteral("RefreshForcesMenu"), QStringLiteral("yes"));
    dialogs->popupChoices.push_back(QStringLiteral("Cancel"));
    Click(panel->CmdRefresh);
    EXPECT_EQ(refreshed.count(), 1) << "cancelled";
    ASSERT_EQ(dialogs->menus.size(), 1);
    QStringList lines;
    for (const Dialogs::PopupLine& line : dialogs->menus.first())
        lines << line.text + u'|' + line.key;
    EXPECT_EQ(lines, QStringList({"-Kernel|", "Refresh|IFKernel.Refresh", "-Cancel|", "Cancel|Cancel"}));

    dialogs->popupChoices.push_back(QStringLiteral("IFKernel.Refresh"));
    Click(panel->CmdRefresh);
    EXPECT_EQ(refreshed.count(), 2);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr) << "the hourglass is gone after the call";
}

TEST_F(IFKernelTest, ImportStartsTheKernelsImportAndShoutShowsTheNoticeHere)
{
    QSignalSpy imported(kernel.get(), &CKernel::ImportFinished);
    Click(panel->CmdImport);
    ASSERT_TRUE(imported.wait(30000));
    EXPECT_EQ(imported.first(), QList<QVariant>({0, 0})) << "an empty import folder";

    Click(panel->CmdShout);
    const QString notice = modInterface::Interface()->NoticeText();
    EXPECT_TRUE(notice.startsWith(QStringLiteral("Notice from ") + kernel->StationID())) << notice.toStdString();
    EXPECT_TRUE(notice.endsWith(QStringLiteral(" calls every workstation"))) << notice.toStdString();
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST(NoticeWindowTest, NoticesGatherAndGoAwayByThemselvesOrAtAClick)
{
    NoticeWindow window;
    window.Add(QStringLiteral("ONE (ADMIN)"), QStringLiteral("Mic check"));
    window.Add(QStringLiteral("TWO"), QStringLiteral("News in five"));
    EXPECT_EQ(window.Text(), QStringLiteral("Notice from ONE (ADMIN): Mic check\nNotice from TWO: News in five"));
    EXPECT_TRUE(window.TmrHide().isActive());
    EXPECT_FALSE(window.isActiveWindow()) << "a notice never takes the keys";
    window.TmrHide_Timer();
    EXPECT_EQ(window.Text(), QString());

    window.Add(QStringLiteral("TWO"), QStringLiteral("Back on air"));
    EXPECT_EQ(window.Text(), QStringLiteral("Notice from TWO: Back on air")) << "a new showing starts afresh";
    QTest::mouseClick(&window, Qt::LeftButton);
    EXPECT_FALSE(window.isVisible());
}
