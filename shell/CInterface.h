#pragma once
#include <QObject>
#include <QPointer>
#include <memory>

class CComponents;
class CDrag;
class CMouseController;
class FrmMessage;
class NoticeWindow;
class iUser;

// The root of the user interface: the drag, the component registry and the pointer facts that
// every control shares, the message window, the menu watchdog, the version text and the road
// back to the menu. Created once by StartInterface; creating it shows the menu.
class CInterface : public QObject
{
    Q_OBJECT
public:
    CInterface();
    ~CInterface() override;

    // Clears the interface's objects in their fixed order.
    void CleanUp();
    // "v" major "." minor "." revision ".Compiled"
    static QString Version();

    void MessagePush(const QString& text);
    void MessageUpdate(const QString& text);
    void MessagePop();
    // The text of the message window on show, or empty when there is none.
    QString MessageText() const;
    // Shows a notice shouted by a workstation; the kernel's Shouted comes here.
    void ShowNotice(const QString& from, const QString& text);
    // The notices on show, or empty when there are none.
    QString NoticeText() const;
    void DumpForms();

    // Creates the menu form if needed and shows it.
    void ShowMenu();
    // The watchdog tick: every eleventh call, shows the menu when no form is visible.
    void PushMenu();

    std::shared_ptr<iUser> CurrentUser() const;

    CDrag& Drag() const { return *m_drag; }
    CComponents& Components() const { return *m_components; }
    CMouseController& MouseController() const { return *m_mouseController; }

private:
    std::unique_ptr<CMouseController> m_mouseController;
    std::unique_ptr<CDrag> m_drag;
    std::unique_ptr<CComponents> m_components;
    QPointer<FrmMessage> m_message;
    std::unique_ptr<NoticeWindow> m_notice;
    int m_menuCounter = 0;
};
