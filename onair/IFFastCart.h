#pragma once
#include "onair/PadFace.h"
#include <QColor>
#include <QMetaObject>
#include <QTimer>
#include <QWidget>
#include <memory>

class CComponent;
class CFastCartColors;
class PadLabel;
class QLabel;
class QMouseEvent;
class iCart;

// One pad: a cart (or none, a free pad) with its five colours and its key. In Mode 1 (pad) it
// shows the key, the icon, the title, the comment and the length; in Mode 0 (single line) the
// icon and one line of ID and title. What shows in each mode is PadFace's table.
//
// Mouse: every part of the pad leads to DoMouseDown, DoMouseMove and DoMouseUp, once TmrInit
// has run. With MousePerformsPlay a press asks to play (RequestPlay) and nothing else happens;
// without it the left button drags the pad's cart (by the drag protocol, or raising
// OldStyleTryToDrag in the old behaviour), a left release is a click on the part under it, and
// a right release opens the popup menu.
class IFFastCart : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(int Mode READ Mode WRITE SetMode)
    Q_PROPERTY(bool MousePerformsPlay READ MousePerformsPlay WRITE SetMousePerformsPlay)
    Q_PROPERTY(bool CompatibleWithOldDragDropBehaviour READ CompatibleWithOldDragDropBehaviour WRITE
                   SetCompatibleWithOldDragDropBehaviour)
public:
    static inline const QString Object = QStringLiteral("IFFastCart");
    static inline const QString ComponentName = QStringLiteral("FastCart");
    static inline const QString ColorsProperty = QStringLiteral("SerializedPadColors");

    explicit IFFastCart(QWidget* parent = nullptr, int index = 0);
    ~IFFastCart() override;

    int Index() const { return m_index; }
    std::shared_ptr<iCart> Cart() const { return m_cart; }
    void SetCart(std::shared_ptr<iCart> cart);
    CFastCartColors& Colors() const { return *m_colors; }
    // Another colour set for the pad; null keeps the present one.
    void SetColors(std::shared_ptr<CFastCartColors> colors);
    QString Shortcut() const { return m_shortcut; }
    void SetShortcut(const QString& shortcut);
    int Mode() const { return m_mode; }
    void SetMode(int mode);
    bool MousePerformsPlay() const { return m_mousePerformsPlay; }
    void SetMousePerformsPlay(bool on) { m_mousePerformsPlay = on; }
    bool CompatibleWithOldDragDropBehaviour() const { return m_oldDragDrop; }
    void SetCompatibleWithOldDragDropBehaviour(bool on) { m_oldDragDrop = on; }
    QColor BackColor() const;
    // A line over the pad, as the colour editor's samples wear ("Track: 1"); empty hides it.
    void SetCaption(const QString& caption);
    std::shared_ptr<CComponent> Component() const { return m_component; }
    // What the pad shows now.
    const PadFace::Face& Face() const { return m_face; }

    void iCart_ChangedProperties();
    void iColors_Changed();
    // A cart of the drag protocol dropped on the pad: it becomes the pad's cart.
    void Component_DragDrop(std::shared_ptr<CComponent> source);

    // 100 ms after creation: the pad joins the drag and raises AfterInit.
    void TmrInit_Timer();
    const QTimer& TmrInit() const { return m_tmrInit; }

    // The popup menu's actions.
    void EditFastCartColors();
    void CopyColors();
    void PasteColors();
    void RestoreDefaultColors();
    void Free();

Q_SIGNALS:
    void OldStyleTryToDrag(int index, const QString& cartID);
    void ClickDescription();
    void ClickComment();
    void ClickIcon();
    void ClickBackground();
    void ClickShortcut();
    void ClickTime();
    void AfterInit();
    void RequestPlay(int index, Qt::MouseButton button, Qt::KeyboardModifiers shift);
    void ClearedByMenu(int index);
    // A cart came by the drag protocol; the owner stores it.
    void CartDropped(int index, std::shared_ptr<iCart> cart);
    // The user gave the pad colours (edit, paste, restore); the owner stores them.
    void ColorsChosen(int index);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void CreateControls();
    void RefreshFromICart();
    void RefreshColors();
    void ApplyFace();
    void Reposition();
    void RepositionPad();
    void RepositionSingleLine();
    void ConnectCart();
    void ConnectColors();

    void DoMouseDown(QObject* watched, QMouseEvent* event);
    void DoMouseMove(QMouseEvent* event);
    void DoMouseUp(QObject* watched, QMouseEvent* event);
    void RaiseClick(QObject* watched);
    void PopupMenu(const QPoint& globalPos);

    QWidget* PicContainer;
    QLabel* Icon;
    QLabel* LblCaption;
    PadLabel* LblShortCut;
    PadLabel* LblDescription1;
    PadLabel* LblDescription2;
    PadLabel* LblComment;
    PadLabel* LblTime;
    QTimer m_tmrInit;

    int m_index;
    std::shared_ptr<iCart> m_cart;
    QMetaObject::Connection m_cartConnection;
    std::shared_ptr<CFastCartColors> m_colors;
    QMetaObject::Connection m_colorsConnection;
    std::shared_ptr<CComponent> m_component;
    PadFace::Face m_face{};
    QString m_shortcut;
    QString m_caption;
    int m_mode = PadFace::SingleLine;
    bool m_mousePerformsPlay = false;
    bool m_oldDragDrop = false;
    bool m_initDone = false;
};
