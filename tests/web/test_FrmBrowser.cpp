#include "PortalServer.h"
#include "foundation/Globals.h"
#include "kernel/EmbeddedKernel.h"
#include "kernelapi/CKernel.h"
#include "shell/CInterface.h"
#include "support/Photograph.h"
#include "support/TempStation.h"
#include "web/FrmBrowser.h"
#include "web/LocalAddress.h"
#include "web/PortalPages.h"
#include "web/WebForms.h"
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QUrlQuery>
#include <QWebEnginePage>
#include <QWebEngineView>
#include <gtest/gtest.h>

namespace {
// What the workstation's main does before its application object exists.
const bool Prepared = [] {
    Web::PrepareProcess();
    return true;
}();

constexpr int LoadTimeoutMs = 30000;

class BrowserScreen : public ::testing::Test
{
protected:
    void SetUp() override
    {
        kernel = EmbeddedKernel::Open(station.Folder(), nullptr);
        Globals::SetKernel(kernel);
        kernel->SetConfig(QLatin1String(PortalPages::AddressKey), portal.Address() + QStringLiteral("/"));
    }

    void TearDown() override
    {
        form.reset();
        Globals::SetKernel(nullptr);
        kernel.reset();
    }

    // Shows the screen (its load opens the home page) and waits for the home page.
    bool Open()
    {
        form = std::make_unique<FrmBrowser>();
        return Loaded([this] { form->show(); });
    }

    // Runs an action and waits for the page it opens; true when that page loaded.
    bool Loaded(const std::function<void()>& action)
    {
        QSignalSpy finished(form->WebBrowser1, &QWebEngineView::loadFinished);
        action();
        if (finished.isEmpty() && !finished.wait(LoadTimeoutMs))
            return false;
        return finished.last().at(0).toBool();
    }

    QString PlainText() const
    {
        QString text;
        bool done = false;
        form->WebBrowser1->page()->toPlainText([&](const QString& result) {
            text = result;
            done = true;
        });
        return QTest::qWaitFor([&] { return done; }, LoadTimeoutMs) ? text : QString();
    }

    static QUrlQuery Query(const QString& target) { return QUrlQuery(QUrl(target).query(QUrl::FullyDecoded)); }

    TempStation station;
    std::shared_ptr<EmbeddedKernel> kernel;
    PortalServer portal;
    std::unique_ptr<FrmBrowser> form;
};
}

TEST(PortalPages, PathsCarryEveryValueEncodedAndTheAddressJoinsWithoutDoubleSlashes)
{
    const PortalPages::Identity identity{QStringLiteral("1.0"), QStringLiteral("v1.0.0.Compiled"), QStringLiteral("ST 1"),
                                         QStringLiteral("10.0.0.7")};
    EXPECT_EQ(PortalPages::UpdatePath(identity),
              QStringLiteral("/customer/update.php?kernelversion=%31%2E%30&interfaceversion=%76%31%2E%30%2E%30%2E%43%6F%6D%70%69%6C%65%64"));
    EXPECT_EQ(PortalPages::IdentificationPath(identity),
              QStringLiteral("/customer/identification.php?clusterid=[unknown]&stationid=%53%54%20%31&stationip=%31%30%2E%30%2E%30%2E%37"));
    EXPECT_EQ(PortalPages::Page(QStringLiteral(" http://portal:8080// "), QStringLiteral("/customer/news.php")).toString(),
              QStringLiteral("http://portal:8080/customer/news.php"));
    const QUrl update = PortalPages::Page(QStringLiteral("http://portal"), PortalPages::UpdatePath(identity));
    EXPECT_EQ(QUrlQuery(update).queryItemValue(QStringLiteral("kernelversion"), QUrl::FullyDecoded), QStringLiteral("1.0"));
}

TEST(PortalPages, AnEmptySettingMeansTheDefaultPortal)
{
    TempStation station;
    auto kernel = EmbeddedKernel::Open(station.Folder(), nullptr);
    Globals::SetKernel(kernel);
    EXPECT_EQ(PortalPages::Address(), QString::fromLatin1(PortalPages::DefaultAddress));
    kernel->SetConfig(QLatin1String(PortalPages::AddressKey), QStringLiteral(" http://intranet/portal "));
    EXPECT_EQ(PortalPages::Address(), QStringLiteral("http://intranet/portal"));
    Globals::SetKernel(nullptr);
}

TEST_F(BrowserScreen, EachButtonAsksThePortalForItsPageAndBackReturns)
{
    ASSERT_TRUE(Open());
    EXPECT_EQ(form->windowTitle(), QStringLiteral("Browser"));
    ASSERT_EQ(portal.Targets(), QStringList{QStringLiteral("/")});
    EXPECT_EQ(form->TxtURL->text(), portal.Address() + QStringLiteral("/"));

    const std::pair<QPushButton*, const char*> pages[] = {
        {form->CmdCustomerNews, "/customer/news.php"}, {form->CmdManual, "/customer/manual.php"},
        {form->CmdFeedback, "/customer/feedback.php"}, {form->CmdHome, "/"}};
    for (const auto& [button, path] : pages) {
        ASSERT_TRUE(Loaded([button = button] { QTest::mouseClick(button, Qt::LeftButton); })) << path;
        EXPECT_EQ(portal.Targets().last(), QString::fromLatin1(path));
    }

    ASSERT_TRUE(Loaded([this] { QTest::mouseClick(form->CmdUpdate, Qt::LeftButton); }));
    const QString update = portal.Targets().last();
    EXPECT_TRUE(update.startsWith(QStringLiteral("/customer/update.php?kernelversion="))) << update.toStdString();
    EXPECT_EQ(Query(update).queryItemValue(QStringLiteral("kernelversion")), kernel->Version());
    EXPECT_EQ(Query(update).queryItemValue(QStringLiteral("interfaceversion")), CInterface::Version());

    ASSERT_TRUE(Loaded([this] { QTest::mouseClick(form->CmdIdentification, Qt::LeftButton); }));
    const QString identification = portal.Targets().last();
    EXPECT_TRUE(identification.startsWith(QStringLiteral("/customer/identification.php?clusterid="))) << identification.toStdString();
    EXPECT_EQ(Query(identification).queryItemValue(QStringLiteral("clusterid")), QStringLiteral("[unknown]"));
    EXPECT_EQ(Query(identification).queryItemValue(QStringLiteral("stationid")), kernel->StationID());
    EXPECT_EQ(Query(identification).queryItemValue(QStringLiteral("stationip")), LocalAddress());
    Photograph(form.get(), QStringLiteral("FrmBrowser"));

    ASSERT_TRUE(Loaded([this] { QTest::mouseClick(form->CmdBack, Qt::LeftButton); }));
    EXPECT_TRUE(form->WebBrowser1->url().path().endsWith(QStringLiteral("/update.php")));
    EXPECT_EQ(form->WebBrowser1->title(), update);
}

TEST_F(BrowserScreen, TheAddressFieldOpensWhatIsTypedOnEnter)
{
    ASSERT_TRUE(Open());
    form->TxtURL->setText(portal.Address() + QStringLiteral("/typed/page.html?x=1"));
    ASSERT_TRUE(Loaded([this] { QTest::keyClick(form->TxtURL, Qt::Key_Return); }));
    EXPECT_EQ(portal.Targets().last(), QStringLiteral("/typed/page.html?x=1"));
}

TEST_F(BrowserScreen, ARefusedConnectionShowsAPlainMessageWithTheAddress)
{
    const QString refusing = RefusingAddress();
    kernel->SetConfig(QLatin1String(PortalPages::AddressKey), refusing);
    form = std::make_unique<FrmBrowser>();
    QSignalSpy finished(form->WebBrowser1, &QWebEngineView::loadFinished);
    form->show();
    // The failed load, then the local page that replaces it.
    ASSERT_TRUE(QTest::qWaitFor([&] { return finished.size() >= 2; }, LoadTimeoutMs));
    EXPECT_FALSE(finished.first().at(0).toBool());
    const QString text = PlainText();
    EXPECT_TRUE(text.contains(QStringLiteral("There is no network connection."))) << text.toStdString();
    EXPECT_TRUE(text.contains(refusing)) << text.toStdString();
    EXPECT_EQ(form->TxtURL->text(), refusing + QStringLiteral("/"));
    EXPECT_TRUE(portal.Targets().isEmpty());
    Photograph(form.get(), QStringLiteral("FrmBrowserUnreachable"));
}

TEST(WebForms, TheDemoMenuOpensTheRegisteredBrowserScreen)
{
    QStringList names;
    Web::RegisterForms([&](const QString& name, const Web::Factory& factory) {
        names << name;
        std::unique_ptr<QWidget> form(factory(nullptr));
        EXPECT_NE(qobject_cast<FrmBrowser*>(form.get()), nullptr);
    });
    EXPECT_EQ(names, QStringList{QStringLiteral("FrmBrowser")});
    TempStation station;
    const QString ini = [&] {
        QFile file(station.IniFile());
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }();
    EXPECT_TRUE(ini.contains(QStringLiteral("Form=FrmBrowser\nCaption=Browser\n")));
}
