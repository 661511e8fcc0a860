#pragma once
#include <QPixmap>
#include <QTimer>
#include <QWidget>
#include <memory>
#include <optional>

class QCheckBox;
class QComboBox;
class QToolButton;
class UCChannelStreamSelector;
class UCFastCartsContents;
class UCPlayListDiskOperation;
class iPlayList;
class iStream;

// The fast-cart panel: the grid of pads with the choice of the playlist they show, the
// playlist's disk buttons, the two switches (the pads answer the keyboard; a press on a pad
// plays it) and the output the pads play on.
//
// Keys reach the pads through SendShortcut, which acts only while CmdRespondToKeys is down and
// PreventShortCuts is off, so that one panel on a screen answers the keyboard and a text box
// that wants the keys silences it. With ChkMouseChannelAutoSelection the left button plays on
// channel "A" and the right one on "B", at the selector's stream index.
class IFFastCarts : public QWidget
{
    Q_OBJECT
public:
    static inline const QString Object = QStringLiteral("IFFastCarts");

    explicit IFFastCarts(QWidget* parent = nullptr);
    ~IFFastCarts() override;

    // The host calls it once; the panel fills itself 100 ms later (TmrInit).
    void Init();
    bool PreventShortCuts() const { return m_preventShortCuts; }
    void SetPreventShortCuts(bool prevent);
    std::shared_ptr<iPlayList> PlayList() const;
    void SetPlayList(std::shared_ptr<iPlayList> playList);
    // An old-style drop over the grid: onto a pad, or, without a list, a macro becomes one.
    void Drop(const QString& cartID);
    void SendShortcut(QChar key);
    // The stream a press of that button plays on; null when none can be found.
    std::shared_ptr<iStream> PreferredStream(Qt::MouseButton button) const;

    void iPlayLists_ChangedCount();
    void iPlayLists_ChangedPlayList(const QString& id);

    void TmrInit_Timer();
    void TmrFillCombo_Timer();
    const QTimer& TmrInit() const { return m_tmrInit; }
    const QTimer& TmrFillCombo() const { return m_tmrFillCombo; }

    UCFastCartsContents* UCFastCartsContents1;
    QComboBox* CboPlayListNames;
    UCPlayListDiskOperation* UCPlayListDiskOperation1;
    QToolButton* CmdRespondToKeys;
    QToolButton* CmdRespondToMouse;
    QCheckBox* ChkMouseChannelAutoSelection;
    UCChannelStreamSelector* UCChannelStreamSelector1;

Q_SIGNALS:
    void OldStyleTryToDrag(const QString& cartID);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void CreateControls();
    void ConnectControls();
    QToolButton* MakeSwitch(const QString& name, const QString& sign, const QString& tip);
    void Dress(QToolButton* button);
    void PlaceControls();
    void DelayedInit();
    void StartFillCombo();
    void FillCombo();
    void SelectComboLine();
    void CboPlayListNames_Click();
    void CmdRespondToMouse_Click();
    void AnswerPreferredStream(std::shared_ptr<iStream>& stream, Qt::MouseButton button);


    QTimer m_tmrInit;
    QTimer m_tmrFillCombo;
    QString m_noneLine;
    // The state CmdRespondToKeys had before PreventShortCuts forced it off.
    std::optional<bool> m_keysBeforePrevent;
    bool m_preventShortCuts = false;
    bool m_initDone = false;
};
