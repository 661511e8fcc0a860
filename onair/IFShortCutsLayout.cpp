// The controls of the shortcut container, their places and its popup menu.
#include "foundation/ErrorGuard.h"
#include "foundation/Tr.h"
#include "foundation/controls/VolmarPannel.h"
#include "foundation/ui/Dialogs.h"
#include "foundation/ui/Twips.h"
#include "onair/IFFastCart.h"
#include "onair/IFShortCuts.h"
#include "onair/PlayListButtonPictures.h"
#include <QCursor>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QToolButton>
#include <QVBoxLayout>

namespace {
const QString MenuOwner = QStringLiteral("IFShortCuts.");
constexpr int ButtonSide = 20;

Dialogs::PopupLine Line(const QString& text, const QString& action = {})
{
    return Dialogs::PopupLine::Item(text, action.isEmpty() ? QString() : MenuOwner + action);
}
}

void IFShortCuts::CreateControls()
{
    VolmarPannel1 = new VolmarPannel(this);
    VolmarPannel1->SetPresetColor(1);
    VolmarPannel1->SetVisibleGuide(false);
    // The caption is the macro's description, none until a macro is shown.
    VolmarPannel1->SetCaption(QString());
    auto* body = new QWidget(VolmarPannel1);
    body->setObjectName(QStringLiteral("Body"));
    auto* column = new QVBoxLayout(body);
    column->setContentsMargins(2, 2, 2, 2);
    column->setSpacing(2);
    auto* header = new QHBoxLayout;
    header->setSpacing(2);
    LblName = new QLabel(body);
    LblName->setObjectName(QStringLiteral("LblName"));
    LblQty = new QLabel(body);
    LblQty->setObjectName(QStringLiteral("LblQty"));
    LblQty->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    SpinUpButton = new QToolButton(body);
    SpinUpButton->setObjectName(QStringLiteral("SpinButton1Up"));
    SpinUpButton->setArrowType(Qt::UpArrow);
    SpinDownButton = new QToolButton(body);
    SpinDownButton->setObjectName(QStringLiteral("SpinButton1Down"));
    SpinDownButton->setArrowType(Qt::DownArrow);
    CmdRestoreContents = MakeButton(QStringLiteral("CmdRestoreContents"), QStringLiteral("Reload"), QStringLiteral("Recarregar els accessos directes"));
    CmdSaveContents = MakeButton(QStringLiteral("CmdSaveContents"), QStringLiteral("Save"), QStringLiteral("Salvar els accessos directes"));
    header->addWidget(LblName, 1);
    header->addWidget(LblQty);
    for (QToolButton* button : {SpinUpButton, SpinDownButton, CmdRestoreContents, CmdSaveContents}) {
        button->setFixedSize(ButtonSide, ButtonSide);
        button->setFocusPolicy(Qt::NoFocus);
        header->addWidget(button);
    }
    column->addLayout(header);
    ElaMain = new QWidget(body);
    ElaMain->setObjectName(QStringLiteral("ElaMain"));
    column->addWidget(ElaMain, 1);
    connect(SpinUpButton, &QToolButton::clicked, this, &IFShortCuts::SpinUp);
    connect(SpinDownButton, &QToolButton::clicked, this, &IFShortCuts::SpinDown);
    connect(CmdSaveContents, &QToolButton::clicked, this, &IFShortCuts::CmdSaveContents_Click);
    connect(CmdRestoreContents, &QToolButton::clicked, this, &IFShortCuts::CmdRestoreContents_Click);
    connect(VolmarPannel1, &VolmarPannel::MouseUp, this, [this](int button, int, float, float) {
        if (button & Qt::RightButton)
            PopupMenu(QCursor::pos());
    });
    for (QWidget* watched : {static_cast<QWidget*>(LblName), static_cast<QWidget*>(LblQty), ElaMain})
        watched->installEventFilter(this);
}

QToolButton* IFShortCuts::MakeButton(const QString& name, const QString& glyph, const QString& tip)
{
    auto* button = new QToolButton(this);
    button->setObjectName(name);
    button->setToolTip(Tr(tip));
    const int side = ButtonSide - 4;
    QIcon icon(PlayListButtonPictures::Picture(glyph, side));
    button->setIcon(icon);
    button->setIconSize(QSize(side, side));
    return button;
}

void IFShortCuts::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    VolmarPannel1->setGeometry(rect());
}

bool IFShortCuts::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == ElaMain && event->type() == QEvent::Resize)
        PlacePads();
    if (event->type() == QEvent::MouseButtonRelease) {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->button() == Qt::RightButton) {
            PopupMenu(mouse->globalPosition().toPoint());
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

// One pad under another, the width of the main area, a row of RowTwips each.
void IFShortCuts::PlacePads()
{
    const int row = Twips::ToPixels(RowTwips);
    for (IFFastCart* pad : m_pads)
        pad->setGeometry(0, pad->Index() * row, ElaMain->width(), row);
}

void IFShortCuts::PopupMenu(const QPoint& globalPos)
{
    Guarded(Object, QStringLiteral("PopupMenu"), [&] {
        const QVector<Dialogs::PopupLine> lines{
            Line(QStringLiteral("-") + Tr(QStringLiteral("Shortcut Container"))),
            Line(Tr(QStringLiteral("Change description")), QStringLiteral("ChangeDescription")),
            Line(Tr(QStringLiteral("Add Slot")), QStringLiteral("SpinUp")),
            Line(Tr(QStringLiteral("Remove Slot")), QStringLiteral("SpinDown")),
            Line(QStringLiteral("-") + Tr(QStringLiteral("Cancel"))),
            Line(Tr(QStringLiteral("Cancel"))),
        };
        const QString chosen = Dialogs::PopupMenu(lines, globalPos);
        if (chosen == MenuOwner + QLatin1String("ChangeDescription"))
            ChangeDescription();
        else if (chosen == MenuOwner + QLatin1String("SpinUp"))
            SpinUp();
        else if (chosen == MenuOwner + QLatin1String("SpinDown"))
            SpinDown();
    });
}
