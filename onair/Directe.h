#pragma once
#include "shell/Form.h"
#include <QColor>
#include <QPointer>
#include <QStringList>
#include <QTimer>
#include <array>
#include <functional>
#include <memory>
#include <vector>

class CComponent;
class CartSearchDialog;
class IFBrowserCart;
class IFBrowserFamily;
class IFCartEraser;
class IFCartPlayer;
class IFCartRecorder;
class IFClock;
class IFDataViewer;
class IFFastCarts;
class IFPlayList;
class IFPlayLists;
class IFShortCuts;
class IFVumeters;
class QFrame;
class QLabel;
class QTabWidget;
class QToolButton;
class VolmarPannel;

// The Live screen: the one a presenter works in during a programme. It owns no audio; it
// places the on-air controls, wires them together and runs the information line at the top,
// which tells in turn what the thing under the pointer is, what a hovered cart is, or which
// alert is active. The heavy work runs one second after the screen shows, as a table of
// steps, so that the screen paints first and a broken control leaves the rest usable.
class Directe : public Form
{
    Q_OBJECT
public:
    static constexpr int DecksPerChannel = 3;
    static constexpr int HelpCount = 101;
    static constexpr int AlertCount = 33;
    static constexpr int LoaderIntervalMs = 1000;
    // The information line's colour sets.
    enum InfoColour { NormalColour = 0, RedColour = 1, AmberColour = 2 };

    Directe();

    // The controls, by their names on the form.
    IFBrowserFamily* IFBrowserFamily1;
    IFBrowserCart* IFBrowserCart1;
    IFDataViewer* IFDataViewer1;
    QTabWidget* ListTabs;
    QWidget* EsperaPannel;
    QWidget* List;
    std::array<::IFPlayList*, 2> IFPlayList;
    IFPlayLists* IFPlayLists1;
    IFFastCarts* IFFastCarts1;
    IFShortCuts* IFShortCuts1;
    std::array<QFrame*, 2> Cartutxeres;
    std::array<QLabel*, 2> CartLabel;
    std::array<IFCartPlayer*, DecksPerChannel> IFCartPlayer1;
    std::array<IFCartPlayer*, DecksPerChannel> IFCartPlayer2;
    VolmarPannel* CartRecorderPannel;
    IFCartRecorder* IFCartRecorder1;
    IFCartEraser* IFCartEraser1;
    QFrame* StatusPannel;
    QFrame* PannelEstat;
    QLabel* Estat;
    QToolButton* CmdContinuity;
    QToolButton* CmdTest;
    QToolButton* CmdSearch;
    QLabel* PicExit;
    QToolButton* CmdExit;
    QToolButton* asxToolButton1;
    QTimer TmrLoader;
    // Added by AddControls; null until then, or when their creation failed.
    QPointer<IFVumeters> LevelPannel;
    QPointer<IFClock> IFClock1;
    QPointer<QWidget> IFKernel1;

    // The information line.
    void SetInfo(int index);
    void SetInfoSay(const QString& title, const QString& text);
    void SetInfoAlert(qint32 mask, bool on);
    void SetInfoSound(const QString& cartID);
    int CurrentInfo() const { return m_currentInfo; }
    bool AlertShowing() const { return m_alertShowing; }
    qint32 AlertFlags() const { return m_alertFlags; }
    QColor InfoBack(int colour) const { return m_infoBack[static_cast<size_t>(colour)]; }
    QColor InfoFore(int colour) const { return m_infoFore[static_cast<size_t>(colour)]; }
    QString InfoText(int index) const { return m_infoTexts[static_cast<size_t>(index)]; }

    // What is being dragged by the old-style drag of this screen's controls.
    void StartDrag(const QString& cartID, const QStringList& carts = {});
    void StopDrag();
    bool Dragging() const { return m_dragging; }
    bool DraggingMany() const { return m_draggingMany; }
    QString DragCartID() const { return m_dragCartID; }
    QStringList DragCarts() const { return m_dragCarts; }
    // Gives the dragged cart to the control under the point (in the form's pixels); false when
    // nothing is dragged or no control there takes drops.
    bool DropAt(const QPoint& at);

    QString CurrentFamily() const { return m_currentFamily; }
    bool PreventShortCuts() const { return m_preventShortCuts; }

    // The loader: its one tick, and its steps.
    Q_INVOKABLE void TmrLoader_Timer();
    void AddControls();
    void InitAlerts();
    void InitHelp();
    void InitState();
    void InitAccessosDirectes();
    void InitCartPlayers();
    void InitCartRecorder();
    void ArrangeIFCartPlayers();

    // The buttons.
    void ExitDirecte();
    void CmdExit_RightClick(const QPoint& globalPos);
    void asxToolButton1_Click();
    void CmdContinuity_Click();
    void CmdSearch_Click();
    // The diagnostic walk; gives the number of carts met whose ID starts with "XAV".
    int CmdTest_Click();
    // The last search's result window, while it is open.
    CartSearchDialog* SearchResults() const;

Q_SIGNALS:
    // A deck's hook before it plays on a user's request; nothing answers it here.
    void UserRequestToPlay(IFCartPlayer* deck, QVariant& requested);

protected:
    void Form_Load() override;
    void Form_Unload() override;
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    using LoaderStep = std::function<void()>;

    // Layout (DirecteLayout.cpp).
    QWidget* BuildHeader();
    QWidget* BuildBrowsers();
    QWidget* BuildLists();
    QWidget* BuildDecks();
    QFrame* BuildChannel(int index, const QString& caption, std::array<IFCartPlayer*, DecksPerChannel>& decks);
    QWidget* BuildRecorderRow();
    QToolButton* MakeButton(const QString& name, const QString& caption);
    void PlaceAdded(QWidget* control, QWidget* column);

    // Loader (DirecteLoader.cpp).
    std::vector<LoaderStep> LoaderSteps();
    void RunLoaderStep(int number, const LoaderStep& step);
    void ConfigureBrowser();
    void ConfigureShortCuts();
    void InitLists();
    void ArrangeChannel(std::array<IFCartPlayer*, DecksPerChannel>& decks, const QString& channel);
    QWidget* AddControl(const QString& className, const QString& name, QWidget* parent);

    // Information line (DirecteInfo.cpp).
    void ShowInfo(const QString& text, int colour);

    // Wiring (DirecteWiring.cpp).
    void WireControls();
    void WireHover();
    void WireDrags();
    void WireDecks(const std::array<IFCartPlayer*, DecksPerChannel>& decks);
    void WatchPointer(QWidget* widget, int helpIndex);
    void OnBrowserHover(const std::shared_ptr<CComponent>& info);
    // Records the drag and runs the toolkit's drag of the ID from the control; the drop that
    // ends it reads the fields, which are cleared when the drag is over.
    void DragFrom(QWidget* control, const QString& cartID, const QStringList& carts = {});
    void SetPreventShortCuts(bool prevent);
    void DropOnList(::IFPlayList* list, const QPoint& inside);
    IFCartPlayer* DeckAt(const QPoint& at) const;
    bool Contains(const QWidget* widget, const QPoint& at) const;

    std::array<QString, HelpCount> m_infoTexts;
    int m_currentInfo = -1;
    std::array<qint32, AlertCount> m_alertMasks{};
    std::array<QString, AlertCount> m_alertTexts;
    qint32 m_alertFlags = 0;
    bool m_alertShowing = false;
    std::array<QColor, 3> m_infoBack;
    std::array<QColor, 3> m_infoFore;
    bool m_dragging = false;
    bool m_draggingMany = false;
    QString m_dragCartID;
    QStringList m_dragCarts;
    QString m_currentFamily;
    bool m_preventShortCuts = false;
    QHash<QObject*, int> m_helpOf;
    QPointer<CartSearchDialog> m_searchResults;
    // Where the controls added at run time go in the layout.
    QWidget* m_levelHolder = nullptr;
    QWidget* m_kernelHolder = nullptr;
};
