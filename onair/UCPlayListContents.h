#pragma once
#include <QList>
#include <QMetaObject>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>

class CComponent;
class PlayListItemModel;
class QLabel;
class QMouseEvent;
class QTableView;
class QToolButton;
class UCPlayListDiskOperation;
class iCart;
class iFamily;
class iPlayList;

// The grid of one kernel playlist: a row per item and, after the last, the ghost row where a
// cart is dropped to go to the end. The "next" column carries the arrow of the row that plays
// next. The grid shows the list only from its events: every button and double click calls the
// list and waits for its event.
//
// Carts and families come in by the drag protocol (the component "PlayList", which offers the
// selected row's cart) or by the old protocol (Over, Drop). A row dragged inside the grid
// moves there with its flags and properties. A family gives its playable carts in slot order,
// up to MaxFamilyDrop of them; a larger family is refused with a message.
class UCPlayListContents : public QWidget
{
    Q_OBJECT
public:
    static inline const QString Object = QStringLiteral("UCPlayListContents");
    static inline const QString ComponentName = QStringLiteral("PlayList");
    static constexpr int MaxFamilyDrop = 100;
    // The random delay of a reload: the base, and the spread added by contents events.
    static constexpr int GrabBaseMs = 20;
    static constexpr int GrabSpreadMs = 200;

    explicit UCPlayListContents(QWidget* parent = nullptr);
    ~UCPlayListContents() override;

    void Init();
    std::shared_ptr<iPlayList> PlayList() const { return m_list; }
    void SetPlayList(const std::shared_ptr<iPlayList>& list);
    bool CompatibleWithOldDragDropBehaviour() const { return m_oldDragDrop; }
    void SetCompatibleWithOldDragDropBehaviour(bool old) { m_oldDragDrop = old; }

    // The old protocol, in this control's coordinates: a cart dragged over the grid lights the
    // row it would go before; dropped, it goes there (at the ghost: to the end).
    void Over(int x, int y);
    void Drop(int x, int y, const QString& cartID);
    void HighLight(bool on, int row);
    // The row under a height in this control's coordinates: 0 above the rows, the ghost below
    // them (so a drop in the empty part of the grid appends).
    int DiscoverRow(int y) const;

    // The list's events.
    void iPlayList_ChangedPlayListItem(qint32 index);
    void iPlayList_ContentChanged();
    void iPlayList_ChangedNextIndex(qint32 oldIndex, qint32 newIndex);
    void Component_DragDrop(std::shared_ptr<CComponent> source);

    // The edits of the buttons and the keys, on the selected row.
    void DeleteSelectedItem();
    void InsertBlankBeforeSelectedItem();
    void LiftUpSelectedItem();
    void LiftDownSelectedItem();
    // A double click on a cell (row from 1, column as PlayListRows::Column).
    void CellDoubleClicked(int row, int column);
    bool EditMode() const { return m_editMode; }
    void SetEditMode(bool edit);

    // The timers and their ticks.
    void StartGrabContents(int spreadMs);
    void TmrGrabContents_Timer();
    void TmrDropHighlight_Timer();
    const QTimer& TmrGrabContents() const { return m_tmrGrabContents; }
    const QTimer& TmrDropHighlight() const { return m_tmrDropHighlight; }

    // What the grid shows, for the host and the tests.
    const PlayListItemModel& Rows() const { return *m_rows; }
    QTableView* Grid() const { return GrdPlayListItems; }
    // The selected row from 1, 0 for none.
    int SelectedRow() const;
    void SelectRow(int row);
    // The centre of a row in this control's coordinates.
    QPoint RowPoint(int row) const;
    std::shared_ptr<CComponent> Component() const { return m_component; }
    UCPlayListDiskOperation* DiskOperation() const { return UCPlayListDiskOperation1; }

Q_SIGNALS:
    void OldStyleTryToDrag(const QString& cartID);
    // A cart dropped while no list is shown; the host may make a list of it.
    void DroppedWithoutList(const QString& cartID);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void CreateControls();
    QToolButton* MakeButton(const QString& name, const QString& glyph, const QString& help);
    void ConnectControls();
    void WatchChildren();
    void RenderButtonPictures();

    void ConnectList();
    void GrabContents();
    void GrabRows();
    void GrabButtons();
    void SetNextIndexArrow(int row, bool show);
    bool RowsAreCurrent() const;
    bool RequireList() const;
    int ItemCount() const;
    void Edit(const QString& procedure, const std::function<void(iPlayList&, int row)>& edit);

    bool OnKey(int key);
    void OnMouse(QMouseEvent* event, int notification);
    void OnGridMove(QMouseEvent* event);
    void OfferSelectedCart();
    void InsertCart(int row, const std::shared_ptr<iCart>& cart);
    void InsertFamily(int row, iFamily& family);
    void MoveItem(int from, int to);

    QTableView* GrdPlayListItems;
    PlayListItemModel* m_rows;
    UCPlayListDiskOperation* UCPlayListDiskOperation1;
    QToolButton* CmdInsert;
    QToolButton* CmdDelete;
    QToolButton* CmdUp;
    QToolButton* CmdDown;
    QToolButton* CmdEdit;
    QLabel* LblHelp;
    QTimer m_tmrGrabContents;
    QTimer m_tmrDropHighlight;

    std::shared_ptr<iPlayList> m_list;
    QList<QMetaObject::Connection> m_listConnections;
    std::shared_ptr<CComponent> m_component;
    bool m_oldDragDrop = false;
    bool m_editMode = false;
    bool m_grabbing = false;
    bool m_grabAgain = false;
    bool m_dropping = false;
    bool m_initialised = false;
    // The row pressed in the grid (a drag inside the grid moves it) and the last height the
    // pointer had over the grid, where a drop of the drag protocol lands.
    int m_pressedRow = 0;
    int m_pointerY = -1;
};
