#include "browse/CartHeaderEditor.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/Log.h"
#include "foundation/Tr.h"
#include "foundation/ui/Dialogs.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCarts.h"
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <QToolButton>

namespace {
QLabel* Caption(const QString& text, QWidget* parent)
{
    auto* label = new QLabel(Tr(text), parent);
    label->setProperty("role", QStringLiteral("caption"));
    return label;
}

QToolButton* Button(const QString& name, const QString& text, QWidget* parent)
{
    auto* button = new QToolButton(parent);
    button->setObjectName(name);
    button->setText(Tr(text));
    button->setFocusPolicy(Qt::NoFocus);
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    return button;
}

QLineEdit* TextBox(const QString& name, QWidget* parent)
{
    auto* box = new QLineEdit(parent);
    box->setObjectName(name);
    return box;
}
}

CartHeaderEditor::CartHeaderEditor(QWidget* parent) : QFrame(parent), m_content(new QWidget(this))
{
    setObjectName(QStringLiteral("Editor"));
    setStyleSheet(QStringLiteral("QFrame#Editor { background: rgb(36, 43, 56); border: 1px solid rgb(255, 170, 40); border-radius: 4px; }"
                                 "QLabel#LblSelectedID { font-weight: bold; color: rgb(255, 190, 80); }"));
    BuildControls();
    hide();
    if (parent)
        parent->installEventFilter(this);
}

void CartHeaderEditor::BuildControls()
{
    // The controls lie on a sheet of the full height: growing the panel uncovers them from
    // the top, as a blind drawn down, instead of squeezing them.
    m_content->setFixedHeight(FullHeight);
    auto* grid = new QGridLayout(m_content);
    grid->setContentsMargins(6, 4, 6, 4);
    grid->setHorizontalSpacing(6);
    grid->setVerticalSpacing(3);
    LblSelectedID = new QLabel(m_content);
    LblSelectedID->setObjectName(QStringLiteral("LblSelectedID"));
    TxtDescription = TextBox(QStringLiteral("TxtDescription"), m_content);
    TxtComment = TextBox(QStringLiteral("TxtComment"), m_content);
    CmdAccept = Button(QStringLiteral("CmdAccept"), QStringLiteral("Accept"), m_content);
    CmdCancel = Button(QStringLiteral("CmdCancel"), QStringLiteral("Cancel"), m_content);
    grid->addWidget(LblSelectedID, 0, 0, 1, 3);
    grid->addWidget(Caption(QStringLiteral("Description"), m_content), 1, 0);
    grid->addWidget(TxtDescription, 1, 1);
    grid->addWidget(CmdAccept, 1, 2);
    grid->addWidget(Caption(QStringLiteral("Comment"), m_content), 2, 0);
    grid->addWidget(TxtComment, 2, 1);
    grid->addWidget(CmdCancel, 2, 2);
    grid->setColumnStretch(1, 1);

    TmrOpen = new QTimer(this);
    TmrOpen->setObjectName(QStringLiteral("TmrOpen"));
    TmrOpen->setInterval(TickMs);
    TmrClose = new QTimer(this);
    TmrClose->setObjectName(QStringLiteral("TmrClose"));
    TmrClose->setInterval(TickMs);

    TxtDescription->installEventFilter(this);
    TxtComment->installEventFilter(this);
    connect(TxtDescription, &QLineEdit::returnPressed, TxtComment, [this] { TxtComment->setFocus(); });
    connect(TxtComment, &QLineEdit::returnPressed, this, &CartHeaderEditor::EditAccept);
    connect(CmdAccept, &QToolButton::clicked, this, &CartHeaderEditor::EditAccept);
    connect(CmdCancel, &QToolButton::clicked, this, &CartHeaderEditor::EditCancel);
    connect(TmrOpen, &QTimer::timeout, this, &CartHeaderEditor::TmrOpen_Timer);
    connect(TmrClose, &QTimer::timeout, this, &CartHeaderEditor::TmrClose_Timer);
}

void CartHeaderEditor::Edit(const std::shared_ptr<iCart>& cart, int top, int left, int width)
{
    if (!cart)
        return;
    Guarded(Object, QStringLiteral("Edit"), [&] {
        m_cart = cart;
        m_description = cart->Description();
        m_comment = cart->Comment();
        LblSelectedID->setText(cart->ID());
        TxtDescription->setText(m_description);
        TxtComment->setText(m_comment);
        TmrClose->stop();
        m_top = top;
        m_rightMargin = parentWidget() ? parentWidget()->width() - left - width : 0;
        move(left, top);
        SetHeight(0);
        show();
        raise();
        // The focus moves first: a search box losing it gives the keys back.
        TxtDescription->setFocus();
        TxtDescription->selectAll();
        Q_EMIT IWantTheKeys(true);
        TmrOpen->start();
    });
}

void CartHeaderEditor::TmrOpen_Timer()
{
    const int grown = height() + StepHeight;
    if (grown < OpenedAt) {
        SetHeight(grown);
        return;
    }
    SetHeight(FullHeight);
    TmrOpen->stop();
}

void CartHeaderEditor::TmrClose_Timer()
{
    const int shrunk = height() - StepHeight;
    if (shrunk > StepHeight) {
        SetHeight(shrunk);
        return;
    }
    TmrClose->stop();
    SetHeight(0);
    hide();
    Q_EMIT Closed();
}

void CartHeaderEditor::SetHeight(int height)
{
    const QWidget* parent = parentWidget();
    const int bottom = parent ? parent->height() : m_top + height;
    const int width = parent ? parent->width() - x() - m_rightMargin : this->width();
    setGeometry(x(), std::max(0, std::min(m_top, bottom - height)), width, height);
    m_content->setGeometry(0, 0, width, FullHeight);
}

void CartHeaderEditor::EditAccept()
{
    if (!m_cart)
        return;
    if (Write())
        Q_EMIT Saved(m_cart->ID());
    Close();
}

void CartHeaderEditor::EditCancel()
{
    if (m_cart)
        Close();
}

// Writes the texts when either changed; true when the cart was saved. A cart that another
// workstation deleted (or moved) meanwhile is told and left alone: saving would bring it back.
bool CartHeaderEditor::Write()
{
    const QString description = TxtDescription->text().trimmed();
    const QString comment = TxtComment->text().trimmed();
    if (description == m_description.trimmed() && comment == m_comment.trimmed())
        return false;
    bool saved = false;
    Guarded(Object, QStringLiteral("EditAccept"), [&] {
        const QString id = m_cart->ID();
        if (!Globals::Kernel()->Carts()->Exists(id)) {
            LogWarn(Object, QStringLiteral("EditAccept"), QStringLiteral("Cart %1 was deleted while its header was edited; nothing was written").arg(id));
            Dialogs::MessageBox(Tr(QStringLiteral("The cart %1 no longer exists: another workstation deleted it. Nothing was written.")).arg(id),
                                Dialogs::Buttons::Ok, {}, Dialogs::Icon::Warning);
            return;
        }
        m_cart->SetDescription(description);
        m_cart->SetComment(comment);
        m_cart->Save();
        saved = true;
    });
    return saved;
}

void CartHeaderEditor::Close()
{
    m_cart.reset();
    TmrOpen->stop();
    Q_EMIT IWantTheKeys(false);
    TmrClose->start();
}

bool CartHeaderEditor::eventFilter(QObject* watched, QEvent* event)
{
    // The panel follows its parent's size: its width, and staying inside.
    if (event->type() == QEvent::Resize && watched == parentWidget() && isVisible())
        SetHeight(height());
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape
        && (watched == TxtDescription || watched == TxtComment)) {
        EditCancel();
        return true;
    }
    return QFrame::eventFilter(watched, event);
}
