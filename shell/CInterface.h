#pragma once
#include <QObject>
#include <QPointer>
#include <memory>

class FrmMessage;
class iUser;

// The root of the user interface: the message window, the menu watchdog, the version text
// and the road back to the menu. Created once by StartInterface; creating it shows the menu.
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
    void DumpForms();

    // Creates the menu form if needed and shows it.
    void ShowMenu();
    // The watchdog tick: every eleventh call, shows the menu when no form is visible.
    void PushMenu();

    std::shared_ptr<iUser> CurrentUser() const;

private:
    QPointer<FrmMessage> m_message;
    int m_menuCounter = 0;
};
