// The recorder panel's controls and their places, in twips of a panel of the design size; the
// pictures are drawn at their controls' size.
#include "editing/IFCartRecorder.h"
#include "editing/PanelPlaces.h"
#include "editing/TapeButtonPictures.h"
#include "editing/TapeStatePictures.h"
#include "editing/TapeWindow.h"
#include "foundation/controls/DisplayLabel.h"
#include "foundation/controls/UCButton.h"
#include <QLabel>

namespace {
constexpr double PanelWidth = 2835;
constexpr double PanelHeight = 1620;
constexpr double Margin = 75;
constexpr double Lamp = 390;
constexpr double LineTop[] = {75, 540};
constexpr double KeyTop = 1050;
constexpr double KeyHeight = 495;
}

void IFCartRecorder::CreateControls()
{
    m_places = std::make_unique<PanelPlaces>(QSizeF(PanelWidth, PanelHeight));
    // The keys draw their whole face; the tool buttons inside them only hold the pictures.
    setStyleSheet(QStringLiteral("QToolButton { background: transparent; border: none; padding: 0px; margin: 0px; }"));
    ImgLoadState = new QLabel(this);
    ImgLoadState->setObjectName(QStringLiteral("ImgLoadState"));
    ImgRecordingState = new QLabel(this);
    ImgRecordingState->setObjectName(QStringLiteral("ImgRecordingState"));
    LblTitle = TapeWindow::Make(this, QStringLiteral("LblTitle"));
    LblTime = TapeWindow::Make(this, QStringLiteral("LblTime"));
    LblTime->SetColors(QColor(0, 64, 0), QColor(192, 255, 192));
    const double lineLeft = Margin + Lamp + Margin;
    const double lineWidth = PanelWidth - lineLeft - Margin;
    m_places->Place(ImgLoadState, Margin, LineTop[0], Lamp, Lamp);
    m_places->Place(LblTitle, lineLeft, LineTop[0], lineWidth, Lamp);
    m_places->Place(ImgRecordingState, Margin, LineTop[1], Lamp, Lamp);
    m_places->Place(LblTime, lineLeft, LineTop[1], lineWidth, Lamp);

    CmdBlank = MakeButton(QStringLiteral("CmdBlank"), QStringLiteral("Blank"));
    CmdRec = MakeButton(QStringLiteral("CmdRec"), QStringLiteral("Rec"));
    CmdPause = MakeButton(QStringLiteral("CmdPause"), QStringLiteral("Pause"));
    CmdEject = MakeButton(QStringLiteral("CmdEject"), QStringLiteral("Eject"));
    const double keyWidth = (PanelWidth - 5 * Margin) / 4;
    double left = Margin;
    for (UCButton* button : {CmdBlank, CmdRec, CmdPause, CmdEject}) {
        m_places->Place(button, left, KeyTop, keyWidth, KeyHeight);
        left += keyWidth + Margin;
    }
    connect(CmdRec, &UCButton::Clicked, this, &IFCartRecorder::CmdRec_Clicked);
    connect(CmdPause, &UCButton::Clicked, this, &IFCartRecorder::CmdPause_Clicked);
    connect(CmdEject, &UCButton::Clicked, this, &IFCartRecorder::CmdEject_Clicked);
    connect(CmdBlank, &UCButton::Clicked, this, &IFCartRecorder::CmdBlank_Clicked);
}

UCButton* IFCartRecorder::MakeButton(const QString& name, const QString& word)
{
    auto* button = new UCButton(this);
    button->setObjectName(name);
    button->setToolTip(word);
    m_buttonWords.insert(button, word);
    return button;
}

void IFCartRecorder::resizeEvent(QResizeEvent*)
{
    m_places->Apply(size());
    RenderPictures();
}

// Drawn at the size of their controls, so they stay sharp at any panel size.
void IFCartRecorder::RenderPictures()
{
    for (auto it = m_buttonWords.cbegin(); it != m_buttonWords.cend(); ++it) {
        const QSize size = it.key()->size() - QSize(6, 6);
        it.key()->SetPicture(TapeButtonPictures::Picture(QStringLiteral("_U") + it.value(), size));
        it.key()->SetPictureDown(TapeButtonPictures::Picture(QStringLiteral("_D") + it.value(), size));
    }
    ShowPicture(ImgLoadState, m_loadPicture);
    ShowPicture(ImgRecordingState, m_recordingPicture);
}

void IFCartRecorder::ShowPicture(QLabel* image, const QString& key)
{
    image->setPixmap(TapeStatePictures::Picture(key, std::min(image->width(), image->height())));
}

QSize IFCartRecorder::sizeHint() const
{
    return QSize(qRound(PanelWidth / 15 * 2), qRound(PanelHeight / 15 * 2));
}

QSize IFCartRecorder::minimumSizeHint() const
{
    return QSize(qRound(PanelWidth / 15), qRound(PanelHeight / 15));
}
