#include "web/FrmBrowser.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/Tr.h"
#include "foundation/ui/SilenceDescendants.h"
#include "foundation/ui/TranslateWidgets.h"
#include "kernelapi/CKernel.h"
#include "shell/CInterface.h"
#include "shell/FormPlacement.h"
#include "web/LocalAddress.h"
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <QWebEngineLoadingInfo>
#include <QWebEnginePage>
#include <QWebEngineSettings>
#include <QWebEngineView>

namespace {
const QString Object = QStringLiteral("FrmBrowser");

QString UnreachablePage(const QUrl& url)
{
    return QStringLiteral("<html><body style=\"font-family: sans-serif; margin: 3em;\"><h2>%1</h2><p>%2 %3</p></body></html>")
        .arg(Tr(QStringLiteral("There is no network connection.")).toHtmlEscaped(),
             Tr(QStringLiteral("The page could not be reached:")).toHtmlEscaped(),
             url.toDisplayString().toHtmlEscaped());
}
}

FrmBrowser::FrmBrowser()
    : Form(QStringLiteral("FrmBrowser"))
{
    setWindowTitle(QStringLiteral("Browser"));
    auto* column = new QVBoxLayout(this);
    auto* buttons = new QHBoxLayout;
    column->addLayout(buttons);
    CmdBack = AddButton(QStringLiteral("CmdBack"), QStringLiteral("Back"), buttons);
    CmdHome = AddButton(QStringLiteral("CmdHome"), QStringLiteral("Home"), buttons);
    CmdCustomerNews = AddButton(QStringLiteral("CmdCustomerNews"), QStringLiteral("Customer news"), buttons);
    CmdManual = AddButton(QStringLiteral("CmdManual"), QStringLiteral("Manual"), buttons);
    CmdUpdate = AddButton(QStringLiteral("CmdUpdate"), QStringLiteral("Update"), buttons);
    CmdFeedback = AddButton(QStringLiteral("CmdFeedback"), QStringLiteral("Feedback"), buttons);
    CmdIdentification = AddButton(QStringLiteral("CmdIdentification"), QStringLiteral("Identification"), buttons);
    buttons->addStretch(1);
    CmdExit = AddButton(QStringLiteral("CmdExit"), QStringLiteral("Exit"), buttons);
    TxtURL = new QLineEdit(QStringLiteral("Welcome to VOLMAR KORVANE"), this);
    TxtURL->setObjectName(QStringLiteral("TxtURL"));
    column->addWidget(TxtURL);
    WebBrowser1 = new QWebEngineView(this);
    WebBrowser1->setObjectName(QStringLiteral("WebBrowser1"));
    // A page that cannot be reached gets the plain local page below, not the engine's own.
    WebBrowser1->settings()->setAttribute(QWebEngineSettings::ErrorPageEnabled, false);
    column->addWidget(WebBrowser1, 1);
    resize(1024, 700);
    ConnectButtons();
}

QPushButton* FrmBrowser::AddButton(const QString& name, const QString& caption, QBoxLayout* row)
{
    auto* button = new QPushButton(caption, this);
    button->setObjectName(name);
    row->addWidget(button);
    return button;
}

void FrmBrowser::ConnectButtons()
{
    const auto page = [this](const char* path) { return [this, path] { Navigate(QString::fromLatin1(path)); }; };
    connect(CmdHome, &QPushButton::clicked, this, page("/"));
    connect(CmdCustomerNews, &QPushButton::clicked, this, page("/customer/news.php"));
    connect(CmdManual, &QPushButton::clicked, this, page("/customer/manual.php"));
    connect(CmdFeedback, &QPushButton::clicked, this, page("/customer/feedback.php"));
    connect(CmdUpdate, &QPushButton::clicked, this, [this] { Navigate(PortalPages::UpdatePath(Identity())); });
    connect(CmdIdentification, &QPushButton::clicked, this, [this] { Navigate(PortalPages::IdentificationPath(Identity())); });
    connect(CmdBack, &QPushButton::clicked, WebBrowser1, &QWebEngineView::back);
    connect(CmdExit, &QPushButton::clicked, this, &FrmBrowser::Unload);
    connect(TxtURL, &QLineEdit::returnPressed, this, [this] { NavigateTo(TxtURL->text()); });
    connect(WebBrowser1, &QWebEngineView::urlChanged, this, [this](const QUrl& url) {
        // The local page of an unreachable address keeps that address in the field.
        if (url.scheme() != QLatin1String("data"))
            TxtURL->setText(url.toString());
    });
    connect(WebBrowser1->page(), &QWebEnginePage::loadingChanged, this, [this](const QWebEngineLoadingInfo& info) {
        if (info.status() == QWebEngineLoadingInfo::LoadFailedStatus && info.errorDomain() != QWebEngineLoadingInfo::HttpErrorDomain)
            ShowUnreachable(info.url());
    });
}

void FrmBrowser::Form_Load()
{
    Guarded(Object, QStringLiteral("Form_Load"), [this](Step& step) {
        step(QStringLiteral("Resolution"));
        if (Globals::TheStation().ResolutionX > 0)
            FormPlacement::SizeToResolution(*this);
        step(QStringLiteral("Translation"));
        TranslateWithKernel(this);
        step(QStringLiteral("Home"));
        Navigate(QStringLiteral("/"));
    });
}

void FrmBrowser::Navigate(const QString& pathAndQuery)
{
    Guarded(Object, QStringLiteral("Navigate"), [&] { WebBrowser1->setUrl(PortalPages::Page(PortalPages::Address(), pathAndQuery)); });
}

void FrmBrowser::NavigateTo(const QString& typed)
{
    Guarded(Object, QStringLiteral("NavigateTo"), [&] {
        const QUrl url = QUrl::fromUserInput(typed.trimmed());
        if (url.isValid())
            WebBrowser1->setUrl(url);
    });
}

PortalPages::Identity FrmBrowser::Identity() const
{
    const auto kernel = Globals::Kernel();
    return {kernel ? kernel->Version() : QString(), CInterface::Version(), kernel ? kernel->StationID() : QString(), LocalAddress()};
}

void FrmBrowser::ShowUnreachable(const QUrl& url)
{
    WebBrowser1->setHtml(UnreachablePage(url));
    TxtURL->setText(url.toString());
}

void FrmBrowser::Form_Unload()
{
    ReturnToMenu();
}
