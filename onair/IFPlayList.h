#pragma once
#include <QMetaObject>
#include <QList>
#include <QTimer>
#include <QWidget>
#include <memory>

class QComboBox;
class UCPlayListContents;
class UCPlayListStatus;
class iPlayList;

// One kernel playlist on screen: chosen from a drop-down of every list (first line "[None]"),
// with its status strip above and its grid below. A macro dropped while no list is shown
// becomes a new list; any other cart then is ignored. A list removed meanwhile (here or by
// another screen) leaves the panel with none.
class IFPlayList : public QWidget
{
    Q_OBJECT
public:
    static inline const QString Object = QStringLiteral("IFPlayList");
    static constexpr int InitMs = 100;
    static constexpr int FillComboMs = 100;

    explicit IFPlayList(QWidget* parent = nullptr);
    ~IFPlayList() override;

    // Starts TmrInit; runs by itself at the first show.
    void Init();
    std::shared_ptr<iPlayList> PlayList() const { return m_list; }
    void SetPlayList(const std::shared_ptr<iPlayList>& list);

    // The old protocol, in this panel's coordinates.
    void Over(int x, int y);
    void Drop(const QString& cartID, int x, int y);

    // The kernel's collection of lists.
    void iPlayLists_ChangedCount();
    void iPlayLists_ChangedPlayList(const QString& id);

    void TmrInit_Timer();
    void TmrFillCombo_Timer();
    const QTimer& TmrInit() const { return m_tmrInit; }
    const QTimer& TmrFillCombo() const { return m_tmrFillCombo; }
    void CboPlayListNames_Click(int line);

    QComboBox* Combo() const { return CboPlayListNames; }
    UCPlayListStatus* Status() const { return UCPlayListStatus1; }
    UCPlayListContents* Contents() const { return UCPlayListContents1; }

    QSize sizeHint() const override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void DelayedInit();
    void StartFillCombo();
    void FillCombo();
    void ListFromMacro(const QString& cartID);
    bool InsideGrid(int x, int y) const;

    QComboBox* CboPlayListNames;
    UCPlayListStatus* UCPlayListStatus1;
    UCPlayListContents* UCPlayListContents1;
    QTimer m_tmrInit;
    QTimer m_tmrFillCombo;
    std::shared_ptr<iPlayList> m_list;
    QList<QMetaObject::Connection> m_listsConnections;
    QString m_noneText;
    bool m_initStarted = false;
};
