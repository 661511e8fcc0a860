#pragma once
#include "shell/Form.h"
#include "web/PortalPages.h"

class QLineEdit;
class QPushButton;
class QWebEngineView;

// "Browser": the maker's customer pages in a page view, with buttons for the portal's pages,
// an address field and Back. A page that cannot be reached is replaced by a plain local page
// that says so.
class FrmBrowser : public Form
{
    Q_OBJECT
public:
    FrmBrowser();

    QWebEngineView* WebBrowser1 = nullptr;
    QLineEdit* TxtURL = nullptr;
    QPushButton* CmdBack = nullptr;
    QPushButton* CmdHome = nullptr;
    QPushButton* CmdCustomerNews = nullptr;
    QPushButton* CmdManual = nullptr;
    QPushButton* CmdUpdate = nullptr;
    QPushButton* CmdFeedback = nullptr;
    QPushButton* CmdIdentification = nullptr;
    QPushButton* CmdExit = nullptr;

    // Opens a page of the portal: its path and query, as written (escapes kept).
    void Navigate(const QString& pathAndQuery);
    // Opens what the user typed, as an address.
    void NavigateTo(const QString& typed);
    // What the update and identification pages are told about this workstation.
    PortalPages::Identity Identity() const;

protected:
    void Form_Load() override;
    void Form_Unload() override;

private:
    QPushButton* AddButton(const QString& name, const QString& caption, class QBoxLayout* row);
    void ConnectButtons();
    void ShowUnreachable(const QUrl& url);
};
