#pragma once
#include <QList>
#include <QMetaObject>
#include <QWidget>
#include <memory>

class CComponent;
class IFFastCart;
class KorvaneCommonDialog;
class QLabel;
class QToolButton;
class VolmarPannel;
class iMacro;

// A short list of single-line pads holding the carts an operator uses every day. A macro is the
// store and the pads are its view: entry i of the macro is pad i-1. Carts dropped on the pads
// stay on screen until CmdSaveContents writes every pad, in order, into the macro (a free pad
// as a blank entry); CmdRestoreContents shows the stored macro again. A pad is dragged from
// like any pad: by the program's drag, or in the old behaviour by OldStyleTryToDrag.
//
// The number of pads (Slots, at least one) persists in the station's settings under the
// control's name. A macro without an ID asks for one with the cart dialog (macros only) when it
// is first saved.
class IFShortCuts : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(int Slots READ Slots WRITE SetSlots)
    Q_PROPERTY(bool CompatibleWithOldDragDropBehaviour READ CompatibleWithOldDragDropBehaviour WRITE
                   SetCompatibleWithOldDragDropBehaviour)
public:
    static inline const QString Object = QStringLiteral("IFShortCuts");
    static inline const QString ComponentName = QStringLiteral("ShortCuts");
    static inline const QString SlotsProperty = QStringLiteral("Slots");
    // The height of one pad's row, in twips.
    static constexpr int RowTwips = 330;

    explicit IFShortCuts(QWidget* parent = nullptr);
    ~IFShortCuts() override;

    int Slots() const { return m_pads.size(); }
    void SetSlots(int slots);
    bool CompatibleWithOldDragDropBehaviour() const { return m_oldDragDrop; }
    void SetCompatibleWithOldDragDropBehaviour(bool on);
    std::shared_ptr<iMacro> Macro() const { return m_macro; }
    void SetMacro(std::shared_ptr<iMacro> macro);
    QString MacroName() const;
    // Loads the stored macro of that ID and shows it; an ID that is no macro keeps what is
    // shown, with an ERROR line.
    void SetMacroName(const QString& cartID);
    std::shared_ptr<CComponent> Component() const { return m_component; }
    IFFastCart* Pad(int index) const { return m_pads.value(index); }

    // An old-style drop: the cart goes to the pad under the pointer; nothing is saved yet.
    void Drop(const QString& cartID);
    // The host's old-style drag starts from this control.
    void StartDrag();
    // The registry changed: the pads take names of their own, "Name.FC(i)".
    void Component_ChangedProperty();

    void SpinUp();
    void SpinDown();
    void ChangeDescription();
    void CmdSaveContents_Click();
    void CmdRestoreContents_Click();
    void RefreshHeader();
    void RefreshContents();
    bool IsDragSource() const { return m_dragSource; }
    KorvaneCommonDialog& Dialog() const { return *m_dialog; }

Q_SIGNALS:
    void OldStyleTryToDrag(const QString& cartID);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void CreateControls();
    QToolButton* MakeButton(const QString& name, const QString& glyph, const QString& tip);
    IFFastCart* MakePad(int index);
    void ReadSlots();
    void PlacePads();
    void PopupMenu(const QPoint& globalPos);
    void ConnectMacro();
    void iMacro_RequestNameToSave(QString* name);
    void iMacro_RequestDescriptionToSave(QString* description);
    void ReportMissingCarts() const;
    QString PersistenceName() const;
    static bool PointerOver(const QWidget* widget);

    VolmarPannel* VolmarPannel1;
    QWidget* ElaMain;
    QLabel* LblName;
    QLabel* LblQty;
    QToolButton* SpinUpButton;
    QToolButton* SpinDownButton;
    QToolButton* CmdSaveContents;
    QToolButton* CmdRestoreContents;
    KorvaneCommonDialog* m_dialog;
    QList<IFFastCart*> m_pads;
    std::shared_ptr<iMacro> m_macro;
    QList<QMetaObject::Connection> m_macroConnections;
    std::shared_ptr<CComponent> m_component;
    // The description typed in the save dialog, for the question that follows it.
    QString m_dialogDescription;
    bool m_oldDragDrop = false;
    bool m_dragSource = false;
};
