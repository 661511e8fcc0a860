#include "editing/IFCartRecorder.h"
#include "editing/CartDropTarget.h"
#include "editing/PanelPlaces.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/Log.h"
#include "foundation/Tr.h"
#include "foundation/controls/DisplayLabel.h"
#include "foundation/controls/UCButton.h"
#include "foundation/ui/SilenceDescendants.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/iCartRecorder.h"
#include "kernelapi/iChannel.h"
#include "kernelapi/iChannels.h"
#include "kernelapi/iStream.h"
#include "kernelapi/iStreams.h"
#include <QPainter>

// The recorder panel's construction, its binding to a recorder and the display of what the
// recorder says; the controls and their places are in IFCartRecorderLayout, the buttons and
// the drops in IFCartRecorderTransport.

IFCartRecorder::IFCartRecorder(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(Object);
    CreateControls();
    m_dropTarget = new CartDropTarget(*this, ComponentName, [this](const QString& cartID) { Drop(cartID); });
    m_dropTarget->WatchPanel();
    m_tmrTitle.setInterval(TitleIntervalMs);
    connect(&m_tmrTitle, &QTimer::timeout, this, &IFCartRecorder::TmrTitle_Timer);
    ReadSettings();
    GrabLoadState(iCartRecorder::Free);
    GrabRecordingState(iCartRecorder::Stopped);
    GrabLabels();
}

IFCartRecorder::~IFCartRecorder()
{
    SilenceDescendants(*this);
    for (const auto& connection : std::as_const(m_recorderConnections))
        disconnect(connection);
}

std::shared_ptr<CComponent> IFCartRecorder::Component() const
{
    return m_dropTarget->Component();
}

// The blank tapes' family and the text that stands for a new cassette, read only inside the
// running program.
void IFCartRecorder::ReadSettings()
{
    Guarded(Object, QStringLiteral("UserControl_Initialize"), [this] {
        const auto kernel = Globals::Kernel();
        if (!kernel)
            return;
        m_temporaryFamilyID = kernel->Config(QStringLiteral("FamEspTmp")).toString();
        m_newCassette = Tr(QStringLiteral("New Cassette"));
    });
}

void IFCartRecorder::Init()
{
    Guarded(Object, QStringLiteral("Init"), [this] {
        m_tmrTitle.start();
        if (!m_recorder) {
            LogError(Object, QStringLiteral("Init"), QStringLiteral("I was called with no valid cartrecorder"));
            return;
        }
        GrabTexts();
    });
}

void IFCartRecorder::SetCartRecorder(std::shared_ptr<iCartRecorder> recorder)
{
    Guarded(Object, QStringLiteral("CartRecorder_Set"), [&] {
        m_recorder = std::move(recorder);
        ConnectRecorder();
        if (m_recorder)
            GrabRecorderStatus();
        else
            GrabLabels();
    });
}

void IFCartRecorder::ConnectRecorder()
{
    for (const auto& connection : std::as_const(m_recorderConnections))
        disconnect(connection);
    m_recorderConnections.clear();
    if (!m_recorder)
        return;
    iCartRecorder* recorder = m_recorder.get();
    m_recorderConnections
        << connect(recorder, &iCartRecorder::DisplayNameChanged, this, &IFCartRecorder::iCartRecorder_DisplayNameChanged)
        << connect(recorder, &iCartRecorder::DisplayTimeChanged, this, &IFCartRecorder::iCartRecorder_DisplayTimeChanged)
        << connect(recorder, &iCartRecorder::DisplayTitleChanged, this, &IFCartRecorder::iCartRecorder_DisplayTitleChanged)
        << connect(recorder, &iCartRecorder::LoadStateChanged, this, &IFCartRecorder::iCartRecorder_LoadStateChanged)
        << connect(recorder, &iCartRecorder::RecordingStateChanged, this, &IFCartRecorder::iCartRecorder_RecordingStateChanged);
}

void IFCartRecorder::SetChannelName(const QString& name)
{
    m_channelName = name;
    BindByName();
}

void IFCartRecorder::SetStreamIndex(int index)
{
    m_streamIndex = index;
    BindByName();
}

// A kernel that has no recorder to give yet says so with a warning: the panel stays empty and
// usable for drops, and nothing is wrong with the station.
void IFCartRecorder::BindByName()
{
    if (m_channelName.isEmpty() || m_streamIndex <= 0)
        return;
    Guarded(Object, QStringLiteral("BindByName"), [this] {
        const auto kernel = Globals::Kernel();
        if (!kernel)
            throw KernelError(QStringLiteral("No kernel to give the recorder of stream %1 of channel %2")
                                  .arg(m_streamIndex)
                                  .arg(m_channelName));
        const auto stream = kernel->Channels()->Item(m_channelName)->Streams()->Item(m_streamIndex);
        std::shared_ptr<iCartRecorder> recorder;
        try {
            recorder = stream->CartRecorder();
        } catch (const KernelError& error) {
            LogWarn(Object, QStringLiteral("BindByName"),
                    QStringLiteral("No recorder on stream %1 of channel %2: %3")
                        .arg(m_streamIndex)
                        .arg(m_channelName, error.Description()));
            return;
        }
        if (!recorder)
            throw KernelError(QStringLiteral("Stream %1 of channel %2 has no recorder").arg(m_streamIndex).arg(m_channelName));
        SetCartRecorder(recorder);
        Init();
    });
}

void IFCartRecorder::GrabTexts()
{
    m_name = m_recorder->DisplayName();
    m_time = m_recorder->DisplayTime();
    m_title = m_recorder->DisplayTitle();
    GrabLabels();
}

void IFCartRecorder::GrabRecorderStatus()
{
    GrabLoadState(m_recorder->LoadState());
    GrabRecordingState(m_recorder->RecordingState());
}

void IFCartRecorder::SetCartRecorderName(const QString& name)
{
    m_name = name;
    GrabLabels();
}

void IFCartRecorder::SetCartRecorderTitle(const QString& title)
{
    m_title = title;
    GrabLabels();
}

void IFCartRecorder::SetCartRecorderTime(const QString& time)
{
    m_time = time;
    GrabLabels();
}

void IFCartRecorder::SetTitleIDMode(bool mode)
{
    m_titleIDMode = mode;
    GrabLabels();
}

void IFCartRecorder::TmrTitle_Timer()
{
    SetTitleIDMode(!m_titleIDMode);
}

void IFCartRecorder::GrabLabels()
{
    Guarded(Object, QStringLiteral("GrabLabels"), [this] {
        if (!m_recorder) {
            LblTime->SetText(QString());
            LblTitle->SetText(QString());
            return;
        }
        const QString shownName =
            !m_temporaryFamilyID.isEmpty() && m_name == m_temporaryFamilyID ? m_newCassette : m_name;
        if (m_recorder->RecordingState() == iCartRecorder::Stopped) {
            LblTitle->SetText(shownName);
            LblTime->SetText(m_title);
        } else {
            LblTitle->SetText(m_titleIDMode ? shownName : m_title);
            LblTime->SetText(m_time);
        }
    });
}

void IFCartRecorder::iCartRecorder_DisplayNameChanged(const QString& name)
{
    SetCartRecorderName(name);
}

void IFCartRecorder::iCartRecorder_DisplayTitleChanged(const QString& title)
{
    SetCartRecorderTitle(title);
}

void IFCartRecorder::iCartRecorder_DisplayTimeChanged(const QString& time)
{
    m_time = time;
    LblTime->SetText(time);
}

void IFCartRecorder::iCartRecorder_LoadStateChanged(qint32 state)
{
    GrabLoadState(state);
}

void IFCartRecorder::iCartRecorder_RecordingStateChanged(qint32 state)
{
    GrabRecordingState(state);
    GrabLabels();
}

void IFCartRecorder::GrabLoadState(qint32 state)
{
    const char* picture = RecorderTable::LoadPicture(state);
    if (!picture) {
        LogWarn(Object, QStringLiteral("GrabLoadState"), QStringLiteral("Unknown load state %1").arg(state));
        return;
    }
    m_loadPicture = QString::fromLatin1(picture);
    ShowPicture(ImgLoadState, m_loadPicture);
}

void IFCartRecorder::GrabRecordingState(qint32 state)
{
    const RecorderTable::Look* look = RecorderTable::RecordingLook(state);
    if (!look) {
        LogWarn(Object, QStringLiteral("GrabRecordingState"), QStringLiteral("Unknown recording state %1").arg(state));
        return;
    }
    m_recordingPicture = QString::fromLatin1(look->picture);
    ShowPicture(ImgRecordingState, m_recordingPicture);
    CmdRec->SetPressed(look->recDown);
    CmdPause->SetPressed(look->pauseDown);
    m_backColor = QColor::fromRgb(look->background);
    update();
}

void IFCartRecorder::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), m_backColor);
    painter.setPen(m_backColor.darker(170));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}
