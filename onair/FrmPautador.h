#pragma once
#include "shell/Form.h"
#include <QTimer>
#include <array>

class IFBrowserCart;
class IFBrowserFamily;
class IFCartPlayer;
class IFDataViewer;
class QToolButton;
class UCChannelStreamSelector;

// The preparation screen for running orders: four cart browsers to pick from, the macro under
// construction (NewMacro) that a double click in a browser appends to, the family browser that
// fills the first browser, the data viewer that describes what is pointed at, and one deck on
// the stream the selector names, to listen before choosing.
class FrmPautador : public Form
{
    Q_OBJECT
public:
    static constexpr int BrowserCount = 4;

    FrmPautador();

    std::array<::IFBrowserCart*, BrowserCount> IFBrowserCart;
    ::IFBrowserCart* NewMacro;
    IFBrowserFamily* IFBrowserFamily1;
    IFDataViewer* IFDataViewer1;
    IFCartPlayer* IFCartPlayer1;
    UCChannelStreamSelector* UCChannelStreamSelector1;
    QToolButton* CmdEnd;
    QTimer TimerTranslator;

    // Binds the deck to the player of the stream the selector names.
    void ArrangePlayer();
    void IFBrowserFamily1_Changed(const QString& familyID);
    void AppendToMacro(const QString& cartID);

protected:
    void Form_Load() override;
    void Form_Unload() override;

private:
    QWidget* BuildBrowsers();
    QWidget* BuildSide();
    void WireControls();
    void WireBrowser(::IFBrowserCart* browser);
};
