// The eraser's controls and their places, in twips of a panel of the design size; the pictures
// are drawn at their controls' size.
#include "editing/IFCartEraser.h"
#include "editing/PanelPlaces.h"
#include "editing/TapeButtonPictures.h"
#include "editing/TapeStatePictures.h"
#include "editing/TapeWindow.h"
#include "foundation/controls/DisplayLabel.h"
#include "foundation/controls/UCButton.h"
#include "foundation/controls/UCProgressBar.h"
#include <QLabel>

namespace {
constexpr double PanelWidth = 2835;
constexpr double PanelHeight = 1620;
constexpr double Margin = 75;
constexpr double Lamp = 390;
}

void IFCartEraser::CreateControls()
{
    m_places = std::make_unique<PanelPlaces>(QSizeF(PanelWidth, PanelHeight));
    // The keys draw their whole face; the tool buttons inside them only hold the pictures.
    setStyleSheet(QStringLiteral("QToolButton { background: transparent; border: none; padding: 0px; margin: 0px; }"));
    ImgStatus = new QLabel(this);
    ImgStatus->setObjectName(QStringLiteral("ImgStatus"));
    LblTitle = TapeWindow::Make(this, QStringLiteral("LblTitle"));
    LblStatus = TapeWindow::Make(this, QStringLiteral("LblStatus"));
    Progress = new UCProgressBar(this);
    Progress->setObjectName(QStringLiteral("Progress"));
    CmdErase = new UCButton(this);
    CmdErase->setObjectName(QStringLiteral("CmdErase"));
    CmdErase->setToolTip(QStringLiteral("Hold to erase"));
    CmdEject = new UCButton(this);
    CmdEject->setObjectName(QStringLiteral("CmdEject"));
    CmdEject->setToolTip(QStringLiteral("Eject"));

    const double lineLeft = Margin + Lamp + Margin;
    const double fullWidth = PanelWidth - 2 * Margin;
    m_places->Place(ImgStatus, Margin, 75, Lamp, Lamp);
    m_places->Place(LblTitle, lineLeft, 75, PanelWidth - lineLeft - Margin, Lamp);
    m_places->Place(LblStatus, Margin, 540, fullWidth, Lamp);
    m_places->Place(Progress, Margin, 1005, fullWidth, 90);
    const double ejectWidth = 630;
    m_places->Place(CmdErase, Margin, 1170, fullWidth - ejectWidth - Margin, 390);
    m_places->Place(CmdEject, PanelWidth - Margin - ejectWidth, 1170, ejectWidth, 390);
}

void IFCartEraser::resizeEvent(QResizeEvent*)
{
    m_places->Apply(size());
    RenderPictures();
}

void IFCartEraser::RenderPictures()
{
    const auto render = [](UCButton* button, const QString& word) {
        const QSize size = button->size() - QSize(6, 6);
        button->SetPicture(TapeButtonPictures::Picture(QStringLiteral("_U") + word, size));
        button->SetPictureDown(TapeButtonPictures::Picture(QStringLiteral("_D") + word, size));
    };
    render(CmdErase, QStringLiteral("Erase"));
    render(CmdEject, QStringLiteral("Eject"));
    ShowStatusPicture(m_statusPicture);
}

// The picture of a waiting cart is keyed by the translation of "Ready" and drawn as "Ready".
void IFCartEraser::ShowStatusPicture(const QString& key)
{
    m_statusPicture = key;
    const QString drawn = key == m_readyKey ? QStringLiteral("Ready") : key;
    ImgStatus->setPixmap(TapeStatePictures::Picture(drawn, std::min(ImgStatus->width(), ImgStatus->height())));
}

QSize IFCartEraser::sizeHint() const
{
    return QSize(qRound(PanelWidth / 15 * 2), qRound(PanelHeight / 15 * 2));
}

QSize IFCartEraser::minimumSizeHint() const
{
    return QSize(qRound(PanelWidth / 15), qRound(PanelHeight / 15));
}
