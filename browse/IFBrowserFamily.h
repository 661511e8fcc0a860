#pragma once
#include <QPoint>
#include <QWidget>
#include <memory>
#include <optional>

class BrowserRowModel;
class BrowserView;
class CComponent;
class DragOutOfProgram;
class QCheckBox;
class QLineEdit;
class QMimeData;
class QMouseEvent;
class QTimer;
class QToolButton;
class QTreeView;
class iFamilies;
class iFamily;

// The families the current user may see, each with the picture of its rights, and the one
// chosen for the cart browser: Changed at each selection, Click once 200 ms after a run of
// selections, so that a quick walk with the arrow keys loads the cart list once. A family is
// dragged inside the program as a component of share type family, and out of it as text.
class IFBrowserFamily : public QWidget
{
    Q_OBJECT
public:
    static constexpr int ClickDelayMs = 200;

    explicit IFBrowserFamily(QWidget* parent = nullptr);
    ~IFBrowserFamily() override;

    // Takes the kernel's families and lists them; the constructor calls it when a kernel runs.
    void Init();
    std::shared_ptr<iFamilies> Families() const { return m_families; }
    bool ShowAll() const { return m_showAll; }
    void SetShowAll(bool showAll);
    int FilterLevel() const { return m_filterLevel; }
    void SetFilterLevel(int level);
    QString SelectedFamilyID() const;
    void SetSelectedFamilyID(const QString& id);
    bool CompatibleWithOldDragDropBehaviour() const { return m_oldDragDrop; }
    void SetCompatibleWithOldDragDropBehaviour(bool old) { m_oldDragDrop = old; }
    std::shared_ptr<CComponent> Component() const { return m_component; }
    BrowserRowModel& Rows() const { return *m_rows; }

    void Fill();
    void Search(const QString& text);
    void iFamilies_Changed();
    void Component_DragDrop(const std::shared_ptr<CComponent>& source);
    // The tick of Timer1: raises Click for the selected family.
    void RaiseClick();
    // Opens the popup menu of the list and does what was chosen.
    void ShowMenu(const QPoint& globalPos);
    // The desktop's drag of the selected family, which carries its ID as text.
    void ListView1_OLEStartDrag();
    void ListView1_OLESetData(QMimeData& data) const;

    BrowserView* ListView1;
    QLineEdit* Text1;
    QToolButton* Command1;
    QCheckBox* ChkAll;
    QTimer* Timer1;

Q_SIGNALS:
    void Click(const QString& familyID);
    void Changed(const QString& familyID);
    void Empty();
    void IWantTheKeys(bool wanted);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildControls();
    void PerformSelection();
    int SelectedRow() const;
    void OnSearch();
    void OnMouse(QMouseEvent* event, int notification);
    bool OldStyleDragMove(const QMouseEvent& event) const;
    void Dispatch(const QString& key);
    void NewFamily();
    static bool FreeFamilyName(const QString& name);
    std::shared_ptr<iFamily> SelectedFamily() const;

    BrowserRowModel* m_rows;
    std::shared_ptr<iFamilies> m_families;
    std::shared_ptr<CComponent> m_component;
    bool m_showAll = false;
    int m_filterLevel = 0;
    bool m_oldDragDrop = false;
    DragOutOfProgram* m_dragOut;
    std::optional<QPoint> m_pressAt; // until a press becomes the old behaviour's drag
};
