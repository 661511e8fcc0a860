#pragma once
#include "editing/RecorderTable.h"
#include <QColor>
#include <QHash>
#include <QList>
#include <QMetaObject>
#include <QTimer>
#include <QWidget>
#include <memory>

class CComponent;
class CartDropTarget;
class DisplayLabel;
class PanelPlaces;
class QLabel;
class UCButton;
class iCartRecorder;

// The front panel of one recorder, worked like a cassette machine: Blank asks the host for a
// tape (a cart, or a new cart in a family) and loads it, Rec records and stops, Pause pauses,
// resumes, or arms a stopped recorder, Eject lets the tape go. A cart dropped on the panel is
// loaded. The panel owns no audio: every button calls the recorder, and the panel redraws only
// from the recorder's events.
//
// While stopped the title line shows the tape's name (the text for a new cassette when the
// name is the blank tapes' family) and the time line shows its title; while recording or paused
// the title line alternates each second between the name and the title.
//
// A panel is given its recorder with SetCartRecorder, or by name: setting ChannelName and
// StreamIndex binds it to the recorder of that stream. A recorder bound by name starts the
// panel (Init); a host that sets the recorder itself calls Init.
class IFCartRecorder : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString ChannelName READ ChannelName WRITE SetChannelName)
    Q_PROPERTY(int StreamIndex READ StreamIndex WRITE SetStreamIndex)
public:
    static inline const QString Object = QStringLiteral("IFCartRecorder");
    static inline const QString ComponentName = QStringLiteral("CartRecorder");
    static constexpr int TitleIntervalMs = 1000;

    explicit IFCartRecorder(QWidget* parent = nullptr);
    ~IFCartRecorder() override;

    // Starts the title timer and shows the recorder's texts; an error without a recorder.
    void Init();

    std::shared_ptr<iCartRecorder> CartRecorder() const { return m_recorder; }
    void SetCartRecorder(std::shared_ptr<iCartRecorder> recorder);
    QString ChannelName() const { return m_channelName; }
    void SetChannelName(const QString& name);
    int StreamIndex() const { return m_streamIndex; }
    void SetStreamIndex(int index);

    QString CartRecorderName() const { return m_name; }
    void SetCartRecorderName(const QString& name);
    QString CartRecorderTitle() const { return m_title; }
    void SetCartRecorderTitle(const QString& title);
    QString CartRecorderTime() const { return m_time; }
    void SetCartRecorderTime(const QString& time);
    bool TitleIDMode() const { return m_titleIDMode; }
    void SetTitleIDMode(bool mode);

    // An old-style drop: the cart of that ID is loaded.
    void Drop(const QString& cartID, float x = 0, float y = 0);

    // The recorder's events.
    void iCartRecorder_DisplayNameChanged(const QString& name);
    void iCartRecorder_DisplayTimeChanged(const QString& time);
    void iCartRecorder_DisplayTitleChanged(const QString& title);
    void iCartRecorder_LoadStateChanged(qint32 state);
    void iCartRecorder_RecordingStateChanged(qint32 state);

    void TmrTitle_Timer();
    const QTimer& TmrTitle() const { return m_tmrTitle; }

    // What the panel shows, for its host and its tests.
    QString LoadStatePicture() const { return m_loadPicture; }
    QString RecordingStatePicture() const { return m_recordingPicture; }
    QColor BackColor() const { return m_backColor; }
    QString TemporaryFamilyID() const { return m_temporaryFamilyID; }
    QString NewCassetteText() const { return m_newCassette; }
    std::shared_ptr<CComponent> Component() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    DisplayLabel* LblTitle;
    DisplayLabel* LblTime;
    QLabel* ImgRecordingState;
    QLabel* ImgLoadState;
    UCButton* CmdBlank;
    UCButton* CmdRec;
    UCButton* CmdPause;
    UCButton* CmdEject;

Q_SIGNALS:
    // Blank asks the host for a tape: the host writes a cart ID, or a family ID for a new cart
    // in it, through a direct connection; both left empty eject.
    void RequestBlankTape(QString& familyID, QString& cartID);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void CreateControls();
    UCButton* MakeButton(const QString& name, const QString& word);
    void RenderPictures();
    void ShowPicture(QLabel* image, const QString& key);
    void ReadSettings();

    void BindByName();
    void ConnectRecorder();
    void GrabTexts();
    void GrabRecorderStatus();
    void GrabLabels();
    void GrabLoadState(qint32 state);
    void GrabRecordingState(qint32 state);

    void CmdRec_Clicked();
    void CmdPause_Clicked();
    void CmdEject_Clicked();
    void CmdBlank_Clicked();
    void PressKey(const QString& procedure, RecorderTable::Button button);
    void LoadBlankTape(const QString& familyID, const QString& cartID);

    std::unique_ptr<PanelPlaces> m_places;
    CartDropTarget* m_dropTarget;
    QHash<UCButton*, QString> m_buttonWords;
    QTimer m_tmrTitle;
    std::shared_ptr<iCartRecorder> m_recorder;
    QList<QMetaObject::Connection> m_recorderConnections;
    QString m_channelName;
    int m_streamIndex = 0;
    QString m_name;
    QString m_title;
    QString m_time;
    bool m_titleIDMode = false;
    QString m_temporaryFamilyID;
    QString m_newCassette;
    QString m_loadPicture;
    QString m_recordingPicture;
    QColor m_backColor{192, 192, 192};
};
