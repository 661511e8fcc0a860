#pragma once
#include "browse/drag/COldStyleDrag.h"
#include "shell/Form.h"
#include <array>

class IFBrowserCart;
class IFCartEraser;
class IFCartRecorder;
class IFBrowserFamily;
class IFCartPlayer;
class IFClock;
class IFDataViewer;
class IFFastCarts;
class IFShortCuts;
class IFPlayList;
class IFPlayLists;
class QTabWidget;
class IFVumeters;
class QLabel;
class QToolButton;

// The first on-air page: the family and cart browsers and the data viewer on the left; in the
// middle a waiting list, the playlist manager, the pad grid and the station's shortcut
// container, one page each; the clock, the two decks of channel "A", the recorder of channel
// "Rec" beside the eraser, and the meter row on the right. A cart pointed at in the browser
// or resting under the pointer on a deck is printed on the data viewer. A family
// chosen in the family browser fills the cart browser; a cart dragged from the list onto a
// deck plays there, onto the waiting list joins it, onto a pad takes it. The keys fire the
// pads unless a browser's text box wants them. The page stands until the full Live screen
// takes its place.
class FrmOnAir : public Form
{
    Q_OBJECT
public:
    static constexpr int DeckCount = 2;

    FrmOnAir();

    IFBrowserFamily* IFBrowserFamily1;
    IFBrowserCart* IFBrowserCart1;
    IFDataViewer* IFDataViewer1;
    std::array<IFCartPlayer*, DeckCount> IFCartPlayer1;
    QTabWidget* ListTabs;
    IFPlayList* IFPlayList1;
    IFPlayLists* IFPlayLists1;
    IFFastCarts* IFFastCarts1;
    IFShortCuts* IFShortCuts1;
    IFClock* IFClock1;
    IFCartRecorder* IFCartRecorder1;
    IFCartEraser* IFCartEraser1;
    IFVumeters* LevelPannel;
    QLabel* CartLabel;
    QToolButton* CmdExit;

    // Set while a browser's text box wants the keys that would otherwise play carts.
    bool PreventShortCuts() const { return m_preventShortCuts; }
    // The old-style drag of the controls that ask for it.
    COldStyleDrag& OldStyleDrag() { return m_oldStyleDrag; }

protected:
    void Form_Load() override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void Form_Unload() override;

private:
    QWidget* BuildBrowsers();
    QWidget* BuildLists();
    QWidget* BuildDecks();
    QWidget* BuildRecorderRow(QWidget* parent);
    void WireControls();
    void SetPreventShortCuts(bool prevent);
    // Gives the dragged ID to the control under the point; false when none takes drops there.
    bool DropAt(const QPoint& at, const QPointF& exact);

    IFCartPlayer* DeckAt(const QPoint& at) const;
    bool Contains(const QWidget* widget, const QPoint& at) const;

    bool m_preventShortCuts = false;
    COldStyleDrag m_oldStyleDrag;
};
