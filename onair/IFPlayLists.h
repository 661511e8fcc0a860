#pragma once
#include <QList>
#include <QMetaObject>
#include <QTimer>
#include <QWidget>
#include <memory>

class QLabel;
class QLineEdit;
class QTableWidget;
class QToolButton;
class iPlayList;

// The playlist manager: every kernel playlist in a grid (playing, loaded and modified lamps,
// ID without its "PL", name, description) with Add, Remove and rename in the grid. A quick
// walk through the rows raises SelectionChanged once, 500 ms after the last step.
class IFPlayLists : public QWidget
{
    Q_OBJECT
public:
    static inline const QString Object = QStringLiteral("IFPlayLists");
    static constexpr int InitMs = 1000;
    static constexpr int SelectionChangedMs = 500;
    enum Column : int { StatusPlaying, StatusLoaded, StatusModified, ColumnID, ColumnName, ColumnDescription, ColumnCount };

    explicit IFPlayLists(QWidget* parent = nullptr);
    ~IFPlayLists() override;

    // Starts TmrInit; runs by itself at the first show.
    void Init();
    QString SelectedPlayListID() const;
    // Makes a list of a macro; other carts are ignored.
    void Load(const QString& macroID);
    void Add();
    void Remove();
    void Refresh();
    void RefreshPlayList(const QString& id);
    QString GetIDByRow(int row) const;
    void SelectRow(int row);
    // The name editor over the selected row's name: Enter writes the name, Escape leaves it.
    void EditName();
    void SetEditMode(bool edit);

    void iPlayLists_ChangedCount();
    void iPlayLists_ChangedPlayList(const QString& id);
    void TmrInit_Timer();
    void TmrSelectionChanged_Timer();
    const QTimer& TmrInit() const { return m_tmrInit; }
    const QTimer& TmrSelectionChanged() const { return m_tmrSelectionChanged; }

    QTableWidget* Grid() const { return GrdPlayLists; }
    QLineEdit* NameEditor() const { return TxtNewName; }
    QString Counter() const;
    // The picture key of an icon cell.
    QString IconKey(int row, int column) const;

Q_SIGNALS:
    void SelectionChanged(const QString& id);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void CreateControls();
    void DelayedInit();
    void RefreshRow(const std::shared_ptr<iPlayList>& list, int row);
    void SetIcon(int row, int column, const QString& key);
    void UpdateCounter();
    void Grid_SelectionChanged();
    void Grid_ColumnClick(int column);
    void TxtNewName_Enter();
    void EndNameEdit();
    bool OnGridKey(int key);

    QTableWidget* GrdPlayLists;
    QLineEdit* TxtNewName;
    QToolButton* CmdAdd;
    QToolButton* CmdRemove;
    QToolButton* CmdEdit;
    QLabel* LblCounter;
    QTimer m_tmrInit;
    QTimer m_tmrSelectionChanged;
    QList<QMetaObject::Connection> m_listsConnections;
    bool m_initStarted = false;
    bool m_editMode = false;
};
