#pragma once
#include "browse/BrowserView.h"
#include "browse/SignalArrows.h"
#include <QDateTime>
#include <QPointer>
#include <QStringList>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>

class BrowserRowModel;
class BrowserView;
class CartHeaderEditor;
class CComponent;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QMouseEvent;
class QPushButton;
class QTimer;
class QToolButton;
class UCProgressBar;
class iCart;
class iCartList;
class iCarts;
class iFamily;
class iMacro;
class iRecalculation;

// The list of carts of one family or of one macro under edit: the main place carts are
// picked from, searched and dragged. A family fills in batches of a hundred rows that yield
// to the event loop and show progress, so that ten thousand carts never freeze the screen,
// and Stop ends the fill at the next batch. A macro's list ends with a ghost row, the place
// where the next cart is dropped.
class IFBrowserCart : public QWidget
{
    Q_OBJECT
public:
    enum Modes { NothingLoaded = 0, FamilyMode = 1, MacroMode = 2 };
    static constexpr int RowsPerBatch = 100;
    static constexpr int ShowRowsEveryMs = 50;

    explicit IFBrowserCart(QWidget* parent = nullptr);
    ~IFBrowserCart() override;

    int Mode() const { return m_mode; }
    bool AllowSounds() const { return m_allowSounds; }
    void SetAllowSounds(bool allow) { m_allowSounds = allow; }
    bool AllowMacros() const { return m_allowMacros; }
    void SetAllowMacros(bool allow) { m_allowMacros = allow; }
    bool AllowControls() const { return m_allowControls; }
    void SetAllowControls(bool allow) { m_allowControls = allow; }
    bool AllowMultipleSelection() const { return m_allowMultipleSelection; }
    void SetAllowMultipleSelection(bool allow);
    bool Grayed() const { return m_grayed; }
    void SetGrayed(bool grayed);
    bool AcceptMacros() const { return m_acceptMacros; }
    void SetAcceptMacros(bool accept);
    bool AcceptFamilyDrops() const { return m_acceptFamilyDrops; }
    void SetAcceptFamilyDrops(bool accept) { m_acceptFamilyDrops = accept; }
    bool ShowDiscControls() const { return m_showDiscControls; }
    void SetShowDiscControls(bool show);
    bool CompatibleWithOldDragDropBehaviour() const { return m_oldDragDrop; }
    void SetCompatibleWithOldDragDropBehaviour(bool old) { m_oldDragDrop = old; }
    bool Selected() const { return m_selected; }
    void SetSelected(bool selected);
    bool SignalArrowsEnabled() const { return m_signalArrows.has_value(); }
    void SetSignalArrowsEnabled(bool enabled);

    // The key of the selected row, "" without one; set selects the row of that key.
    QString SelectedCartID() const;
    void SetSelectedCartID(const QString& cartID);
    // The browser of this form with the same name that is Selected; this one when none is.
    IFBrowserCart* SelectedBrother();
    bool IsEmpty() const;
    bool Available(const iCart& cart) const;
    bool Useful(int row) const;
    int UsefulCount() const;
    void Reselect(const QStringList& ids);

    void LoadFamily(const std::shared_ptr<iFamily>& family);
    void LoadFamilyByName(const QString& familyID);
    void LoadMacro(const std::shared_ptr<iMacro>& macro);
    void LoadMacroByName(const QString& cartID);
    void Eject();
    // A new empty macro under edit.
    void New();
    // The macro buttons (IFBrowserCartMacroSave.cpp): a stored macro chosen with the cart ID
    // dialog; the rows written to the macro under edit, under its own ID or under one chosen
    // with the dialog; the macro's own cart recalculated and the rows' times refreshed.
    void Load();
    void Save();
    void SaveAs();
    void RecalculateMacro();
    void SendCart(const QString& cartID, bool atArrow, bool atSelection);
    void AppendByName(const QString& cartID, bool atArrow, bool atSelection);
    // Asks a running family fill to end at its next batch (the Stop button).
    // Also ends a running recalculation at its next cart.
    void Stop();
    bool Filling() const { return m_filling; }

    void ArrowPush(int row);
    void ArrowRedPush(int row);
    void ArrowPop();
    int ArrowRow() const { return m_arrow ? m_arrow->row : -1; }
    void AddSignalArrow(const QString& cartID, qint32 color);
    void ClearSignalArrows();
    void Search(const QString& text, bool idOnly, bool prefixOnly);
    void ParseGhost(bool selectGhost, int rowToShow);
    void ParseUnGhost();
    void DeleteSelectedItem();
    void InsertDummyItem();
    // The popup menu of a right release on the list, and the work of its chosen key.
    void ShowMenu(const QPoint& globalPos);
    void Dispatch(const QString& key);
    // Recalculates the carts of the menu's family in the kernel's background, with the loading
    // panel showing its progress and Stop; the rows refresh at the end.
    void PerformRecalculationOnFamily(bool accurate);
    bool Recalculating() const { return m_recalculation != nullptr; }
    // Receives a component dropped on the browser: a family loads, a cart is added to a macro.
    void Component_DragDrop(const std::shared_ptr<CComponent>& source);

    // One tick of each timer, also callable directly.
    void TmrArrow_Timer();
    void TmrSignalArrows_Timer();

    // The inline editor of the selected cart's description and comment.
    void Edit();
    // Fast deletion, in family mode: for five minutes Delete removes the selected cart with no
    // question, and the list turns red meanwhile.
    using Clock = std::function<QDateTime()>;
    static constexpr int FastDeletionSeconds = 5 * 60;
    bool FastDeletion() const { return m_fastDeletion; }
    QDateTime FastDeletionDeadline() const { return m_fastDeletionDeadline; }
    // Starts it, or moves its deadline to five minutes from now when it runs.
    void StartFastDeletion();
    void StopFastDeletion();
    void TmrAllowFastDeletion_Timer();
    // The clock of the deadline, the machine's unless a test sets another.
    void SetClock(Clock clock) { m_clock = std::move(clock); }

    std::shared_ptr<iFamily> Family() const { return m_family; }
    std::shared_ptr<iMacro> Macro() const { return m_macro; }
    std::shared_ptr<CComponent> Component() const { return m_component; }
    std::shared_ptr<CComponent> HoverComponent() const { return m_hover; }
    BrowserRowModel& Rows() const { return *m_rows; }

    QLabel* LblTitle;
    QLabel* LblQty;
    QLabel* LblTotalTime;
    QLabel* LblCursorTime;
    QLineEdit* TxtSearch;
    QToolButton* CmdSearch;
    QToolButton* CmdSelected;
    QToolButton* CmdNew;
    QToolButton* CmdLoad;
    QToolButton* CmdSave;
    QToolButton* CmdRecalculate;
    QToolButton* CmdEject;
    BrowserView* ListView1;
    QWidget* PicLoading;
    UCProgressBar* ProgressBar1;
    QPushButton* CmdStop;
    QWidget* ElaDiscControls;
    QTimer* TmrArrow;
    QTimer* TmrSignalArrows;
    CartHeaderEditor* Editor;
    QTimer* TmrAllowFastDeletion;

Q_SIGNALS:
    void SelectedChanged(bool selected);
    void Selection();
    void ItemClicked(const QString& cartID);
    void ItemEntered(const QString& cartID);
    void Hover(std::shared_ptr<CComponent> component);
    void OldStyleTryToDrag(const QString& cartID);
    void OldStyleTryToDragMany(const QStringList& cartIDs, const QString& cartID);
    void BeforeNew(bool* cancel);
    void BeforeLoad(bool* cancel);
    void AfterSave();
    void BeforeShowMacro(bool* cancel, std::shared_ptr<iMacro> macro);
    void IWantTheKeys(bool wanted);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Arrow
    {
        int row;
        QString savedIcon;
    };
    struct ViewState
    {
        int topRow = -1;
        QStringList selected;
    };

    static inline const QString Object = QStringLiteral("IFBrowserCart");
    static std::shared_ptr<iCarts> KernelCarts();

    // IFBrowserCart.cpp: set-up, selection, labels and search.
    void SetupDragDrop();
    void ListClear();
    int SelectedRow() const;
    QStringList SelectedKeys() const;
    int TopRow() const;
    void PerformSelection();
    void SetListColor(const QColor& color);
    // Red while fast deletion is on, else white, or gray when Grayed.
    void RestoreListColor();
    void SetQty();
    void RefreshTimings();
    void OnSearch();
    // IFBrowserCartLayout.cpp
    void BuildControls();
    // IFBrowserCartFamily.cpp: the family fill.
    void HoldFamily(const std::shared_ptr<iFamily>& family);
    void ReleaseFamily();
    void FillFamily(const std::shared_ptr<iFamily>& family);
    void FillRows(iFamily& family);
    void BeginFilling();
    void EndFilling();
    void Family_ChangedContents();
    void Family_SlightlyChangedContents();
    ViewState RememberView() const;
    void RestoreView(const ViewState& view);
    // IFBrowserCartMacro.cpp: the macro under edit, over MacroRows.
    bool MayAddGhost() const { return m_mode != FamilyMode; }
    // IFBrowserCartMacroSave.cpp: the macro buttons and the save with its questions.
    void BuildMacroButtons(QHBoxLayout& buttons);
    std::shared_ptr<iCartList> CartsToSave() const;
    void SaveMacro(const QString& cartID);
    void ShowMacroTitle();
    void RefreshMacroRows();
    void Macro_RequestNameToSave(QString* name);
    void Macro_RequestDescriptionToSave(QString* description);
    // IFBrowserCartArrows.cpp: the hover arrow, and the signal arrows over SignalArrows.
    void PushArrow(int row, const QString& icon);
    // IFBrowserCartMenu.cpp: the popup menu's context and its actions.
    std::shared_ptr<iFamily> MenuFamily(const std::shared_ptr<iCart>& cart) const;
    void MoveOrCopy(const QString& familyID, int number, bool copy);
    // Where a move or duplicate goes: the family's slot, or for "Others" the ID the user gives
    // in the cart ID dialog (nothing when cancelled).
    std::optional<QString> MoveDestination(const QString& source, const QString& familyID, int number);
    void Export(int folder);
    void Recalculate(bool accurate);
    void DeleteCart(bool removeFile);
    void EmptyCart();
    void InsertSpacer(int number);
    void PrintCart();
    void PrintFamily(bool header, bool contents);
    // IFBrowserCartRecalculation.cpp: the family's recalculation on the loading panel.
    void Recalculation_Progress(const QString& cartID);
    void Recalculation_Finished(int failed);
    void ShowLoadingCaption(const QString& text);
    // Refreshes the family of that ID when it exists.
    static void RefreshFamily(const QString& familyID);
    // IFBrowserCartEditor.cpp: the inline editor's place and what it reports.
    void BuildEditor();
    void OnEditorKeys(bool wanted);
    // Rewrites the texts of the rows of that cart.
    void RefreshCartRows(const QString& cartID);
    // IFBrowserCartFastDeletion.cpp
    void BuildFastDeletion();
    QDateTime Now() const;
    // Deletes the selected cart, leaving its file, and selects the row now in its place.
    void FastDelete();
    // IFBrowserCartInput.cpp: mouse and keys.
    QList<QObject*> DragReporters() const;
    void OnMouse(QMouseEvent* event, int notification);
    void SimulateMouseMove(QMouseEvent* event);
    bool OnKey(int key);

    BrowserRowModel* m_rows;
    int m_mode = NothingLoaded;
    bool m_allowSounds = true;
    bool m_allowMacros = true;
    bool m_allowControls = true;
    bool m_allowMultipleSelection = false;
    bool m_grayed = false;
    bool m_acceptMacros = false;
    bool m_acceptFamilyDrops = true;
    bool m_showDiscControls = false;
    bool m_oldDragDrop = false;
    bool m_selected = false;
    bool m_signalArrowsVisible = true;
    bool m_stop = false;
    bool m_filling = false;
    std::optional<Arrow> m_arrow;
    std::optional<SignalArrows> m_signalArrows;
    std::shared_ptr<iFamily> m_family;
    std::shared_ptr<iFamily> m_pendingFamily; // asked for while a fill ran
    std::shared_ptr<iMacro> m_macro;
    bool m_saveCancelled = false; // a question of the running save was left empty
    std::shared_ptr<CComponent> m_component;
    std::shared_ptr<CComponent> m_hover;
    QList<QMetaObject::Connection> m_familyConnections;
    bool m_fastDeletion = false;
    QDateTime m_fastDeletionDeadline;
    Clock m_clock;
    std::shared_ptr<iRecalculation> m_recalculation;
};
