#pragma once
#include "shell/Form.h"
#include "shell/IFMenu.h"
#include <QPointer>

class ElasticPanel;
class QFrame;
class QLabel;

// The menu host: the menu, the connected-user panel, the station panel and the version text.
// It lives for the whole run; closing its window only hides it.
class InitForm : public Form
{
    Q_OBJECT
public:
    // The one menu form, created at the first call.
    static InitForm* Instance();
    static bool Exists();

    void SyncState();
    void TryAutomaticLogin();
    void RefreshInitForm();
    void HideForm();
    // Writes the menu form's texts again in the language in use (after a change of language).
    void TranslateAgain();
    // Opens a screen by its name, or tells the user it cannot be viewed.
    void MenuSelector_OpenForm(const QString& name);
    void QueryUnloadApplication();

    IFMenu* MenuSelector() const { return m_menuSelector; }
    QString VersionText() const;

protected:
    void Form_Load() override;
    bool Form_QueryUnload() override;
    void paintEvent(QPaintEvent* event) override;

private:
    InitForm();
    void Form_Initialize();
    void TouchChannels(class Step& step);
    void PlaceMenu();
    void MenuFailed(const QString& reason);
    void PlaceControl(const QString& className, const QString& name, double left, double top, double width, double height);
    void ShowApplication();
    void ConnectMenu();

    QFrame* BackPannel = nullptr;
    QFrame* FraMenu = nullptr;
    ElasticPanel* ElaMenu = nullptr;
    QLabel* LblVersion = nullptr;
    QLabel* Image1 = nullptr;
    QPointer<IFMenu> m_menuSelector;
    QString m_finishText, m_menuNotLoaded, m_menuHasNoInterface, m_menuNotCreated;
};
