#include "shell/IFKernel.h"
#include "browse/drag/CMouseController.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/Tr.h"
#include "foundation/controls/UCButton.h"
#include "foundation/controls/VolmarPannel.h"
#include "foundation/ui/Dialogs.h"
#include "foundation/ui/SilenceDescendants.h"
#include "foundation/ui/WaitCursor.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/KernelError.h"
#include "shell/CInterface.h"
#include "shell/KernelButtonPictures.h"
#include "shell/modInterface.h"
#include <QCursor>
#include <QLabel>

namespace {
const QString Object = QStringLiteral("IFKernel");
const QString RefreshKey = QStringLiteral("IFKernel.Refresh");
constexpr int Gap = 3;          // between the two keys of a frame
constexpr int FrameBorder = 3;  // the frames' margins at the sides and the bottom
constexpr int CaptionRoom = 14; // the frames' margin at the top, for the caption

std::shared_ptr<CKernel> RequireKernel()
{
    std::shared_ptr<CKernel> kernel = Globals::Kernel();
    if (!kernel)
        throw KernelError(QStringLiteral("There is no kernel"));
    return kernel;
}

// Where the pointer is, as the interface last saw it (a virtual display cannot be asked).
QPoint PointerPosition()
{
    CInterface* ui = modInterface::Interface();
    return ui ? ui->MouseController().Pointer() : QCursor::pos();
}

VolmarPannel* MakeFrame(QWidget* parent, const QString& name, const QString& caption)
{
    auto* frame = new VolmarPannel(parent, name);
    frame->SetCaption(Tr(caption));
    frame->SetPresetColor(1);
    frame->SetVisibleGuide(false);
    frame->SetBorder(FrameBorder);
    frame->SetBorderCaption(CaptionRoom);
    return frame;
}
}

IFKernel::IFKernel(QWidget* parent) : QWidget(parent)
{
    setObjectName(Object);
    // The keys draw their whole face; the tool buttons inside them only hold the pictures.
    setStyleSheet(QStringLiteral("QToolButton { background: transparent; border: none; padding: 0px; margin: 0px; }"));
    PanKernel = MakeFrame(this, QStringLiteral("PanKernel"), QStringLiteral("Kernel"));
    PanStudios = MakeFrame(this, QStringLiteral("PanStudios"), QStringLiteral("Studios"));
    m_kernelKeys = new QWidget(PanKernel);
    m_studioKeys = new QWidget(PanStudios);
    CmdRefresh = MakeButton(m_kernelKeys, QStringLiteral("CmdRefresh"), QStringLiteral("Refresh"));
    CmdImport = MakeButton(m_kernelKeys, QStringLiteral("CmdImport"), QStringLiteral("Import"));
    CmdShout = MakeButton(m_studioKeys, QStringLiteral("CmdShout"), QStringLiteral("Shout"));
    connect(CmdRefresh, &UCButton::Clicked, this, &IFKernel::CmdRefresh_Click);
    connect(CmdImport, &UCButton::Clicked, this, &IFKernel::CmdImport_Click);
    connect(CmdShout, &UCButton::Clicked, this, &IFKernel::CmdShout_Click);
    resize(sizeHint());
}

IFKernel::~IFKernel()
{
    SilenceDescendants(*this);
}

UCButton* IFKernel::MakeButton(QWidget* parent, const QString& name, const QString& sign)
{
    auto* button = new UCButton(parent);
    button->setObjectName(name);
    button->setProperty("sign", sign);
    button->setToolTip(sign);
    return button;
}

QSize IFKernel::sizeHint() const
{
    return {115, 92};
}

void IFKernel::resizeEvent(QResizeEvent*)
{
    Arrange();
}

// Two frames one above the other, each half the height; Refresh and Import share the upper
// frame's row, Shout fills the lower one.
void IFKernel::Arrange()
{
    const int upper = height() / 2;
    PanKernel->setGeometry(0, 0, width(), upper);
    PanStudios->setGeometry(0, upper, width(), height() - upper);
    PanKernel->SetActiveOnce(true);
    PanStudios->SetActiveOnce(true);
    const QSize row = m_kernelKeys->size();
    const int half = std::max(0, (row.width() - Gap) / 2);
    CmdRefresh->setGeometry(0, 0, half, row.height());
    CmdImport->setGeometry(row.width() - half, 0, half, row.height());
    CmdShout->setGeometry(m_studioKeys->rect());
    RenderPictures();
}

// Drawn at the size of the keys, with the translated words, so they stay sharp at any size.
void IFKernel::RenderPictures()
{
    for (UCButton* button : {CmdRefresh, CmdImport, CmdShout}) {
        const QString sign = button->property("sign").toString();
        const QString word = Tr(sign);
        const QSize size = (button->size() - QSize(6, 6)).expandedTo(QSize(0, 0));
        button->SetPicture(KernelButtonPictures::Picture(sign, word, size, false));
        button->SetPictureDown(KernelButtonPictures::Picture(sign, word, size, true));
        button->setToolTip(word);
    }
}

void IFKernel::TranslateMe()
{
    PanKernel->SetCaption(Tr(QStringLiteral("Kernel")));
    PanStudios->SetCaption(Tr(QStringLiteral("Studios")));
    RenderPictures();
}

void IFKernel::CmdShout_Click()
{
    Guarded(Object, QStringLiteral("CmdShout_Click"), [] {
        const WaitCursor wait;
        RequireKernel()->Shout(QString());
    });
}

void IFKernel::CmdImport_Click()
{
    Guarded(Object, QStringLiteral("CmdImport_Click"), [] {
        const WaitCursor wait;
        RequireKernel()->Import();
    });
}

void IFKernel::CmdRefresh_Click()
{
    Guarded(Object, QStringLiteral("CmdRefresh_Click"), [this] {
        const QString forces = RequireKernel()->StationConfig(QStringLiteral("RefreshForcesMenu")).toString();
        if (forces != QLatin1String("yes")) {
            DoRefresh();
            return;
        }
        const QVector<Dialogs::PopupLine> lines{
            Dialogs::PopupLine::Item(QStringLiteral("-") + Tr(QStringLiteral("Kernel"))),
            Dialogs::PopupLine::Item(Tr(QStringLiteral("Refresh")), RefreshKey),
            Dialogs::PopupLine::Item(QStringLiteral("-") + Tr(QStringLiteral("Cancel"))),
            Dialogs::PopupLine::Item(Tr(QStringLiteral("Cancel")), QStringLiteral("Cancel")),
        };
        PopupMenu_Click(Dialogs::PopupMenu(lines, PointerPosition()));
    });
}

void IFKernel::PopupMenu_Click(const QString& key)
{
    if (key == RefreshKey)
        DoRefresh();
}

void IFKernel::DoRefresh()
{
    Guarded(Object, QStringLiteral("DoRefresh"), [] {
        const WaitCursor wait;
        RequireKernel()->Refresh();
    });
}
