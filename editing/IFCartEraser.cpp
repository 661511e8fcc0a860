#include "editing/IFCartEraser.h"
#include "editing/CartDropTarget.h"
#include "editing/PanelPlaces.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/Log.h"
#include "foundation/System.h"
#include "foundation/Tr.h"
#include "foundation/controls/DisplayLabel.h"
#include "foundation/controls/UCButton.h"
#include "foundation/controls/UCProgressBar.h"
#include "foundation/ui/SilenceDescendants.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/Outcome.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCarts.h"
#include <QMouseEvent>
#include <QPainter>

// The eraser's construction, its status and its timers; the controls and their places are in
// IFCartEraserLayout.

namespace {
const QColor GreenBack(0, 64, 0), GreenFore(192, 255, 192);
const QColor RedBack(64, 0, 0), RedFore(255, 192, 192);

std::shared_ptr<iCarts> KernelCarts()
{
    const auto kernel = Globals::Kernel();
    if (!kernel)
        throw KernelError(QStringLiteral("No kernel"));
    return kernel->Carts();
}
}

IFCartEraser::IFCartEraser(QWidget* parent)
    : QWidget(parent), m_flashLight(FlashTickMs, [this](bool) { ShowHighLight(); }), m_clock(TickCount),
      m_readyKey(Tr(QStringLiteral("Ready")))
{
    setObjectName(Object);
    CreateControls();
    m_dropTarget = new CartDropTarget(*this, ComponentName, [this](const QString& cartID) { Drop(cartID); });
    m_dropTarget->WatchPanel();
    CmdErase->installEventFilter(this);
    connect(CmdEject, &UCButton::Clicked, this, &IFCartEraser::CmdEject_Click);
    m_tmrErase.setInterval(EraseTickMs);
    connect(&m_tmrErase, &QTimer::timeout, this, &IFCartEraser::TmrErase_Timer);
    connect(&m_flashLight.Timer(), &QTimer::timeout, this, &IFCartEraser::TmrFlash_Timer);
    SetStatus(EraserStatusTable::NoCart);
}

IFCartEraser::~IFCartEraser()
{
    SilenceDescendants(*this);
}

std::shared_ptr<CComponent> IFCartEraser::Component() const
{
    return m_dropTarget->Component();
}

void IFCartEraser::SetCart(std::shared_ptr<iCart> cart)
{
    m_cart = std::move(cart);
    SetStatus(m_cart ? EraserStatusTable::Ready : EraserStatusTable::NoCart);
}

void IFCartEraser::SetStatus(qint32 status)
{
    Guarded(Object, QStringLiteral("Status_Let"), [&] {
        m_status = status;
        if (status == EraserStatusTable::Erasing) {
            m_startTime = m_clock();
            m_erased = false;
        } else if (status == EraserStatusTable::Expiring) {
            m_expiryTime = m_clock();
        }
        ApplyRow(EraserStatusTable::Find(status));
    });
}

void IFCartEraser::ApplyRow(const EraserStatusTable::Row& row)
{
    using Title = EraserStatusTable::Title;
    using Switch = EraserStatusTable::Switch;
    if (row.title == Title::Empty)
        LblTitle->SetText(QString());
    else if (row.title == Title::CartID)
        LblTitle->SetText(m_cart ? m_cart->ID() : QString());
    if (row.statusChanges) {
        const QString text = QString::fromLatin1(row.statusText);
        LblStatus->SetText(text.isEmpty() ? text : Tr(text));
    }
    SetStatusColors(row.red);
    m_flashLight.SetFlashing(row.flash);
    if (row.pictureChanges) {
        const QString key = QString::fromLatin1(row.picture);
        ShowStatusPicture(key == QLatin1String("Ready") ? m_readyKey : key);
    }
    if (row.eraseTimer == Switch::On)
        m_tmrErase.start();
    else if (row.eraseTimer == Switch::Off)
        m_tmrErase.stop();
    if (row.progressToZero)
        Progress->SetPercent(0);
}

void IFCartEraser::SetStatusColors(bool red)
{
    m_statusBack = red ? RedBack : GreenBack;
    m_statusFore = red ? RedFore : GreenFore;
    ShowHighLight();
}

// Unlit, the status line turns its colours over, and the panel darkens.
void IFCartEraser::ShowHighLight()
{
    update();
    if (m_flashLight.Lit())
        LblStatus->SetColors(m_statusBack, m_statusFore);
    else
        LblStatus->SetColors(m_statusFore, m_statusBack);
}

void IFCartEraser::CmdErase_MouseDown()
{
    if (m_status == EraserStatusTable::Ready)
        SetStatus(EraserStatusTable::Erasing);
}

// A release after the cart went keeps "Erased" on show: the cart is gone, and saying
// otherwise would tell the presenter it is still there.
void IFCartEraser::CmdErase_MouseUp()
{
    if (m_status != EraserStatusTable::Erasing)
        return;
    if (!m_erased)
        LblStatus->SetText(Tr(QStringLiteral("Not Erased")));
    SetStatus(EraserStatusTable::Expiring);
}

void IFCartEraser::CmdEject_Click()
{
    SetCart(nullptr);
}

void IFCartEraser::Drop(const QString& cartID, float, float)
{
    Guarded(Object, QStringLiteral("Drop"), [&] { SetCart(KernelCarts()->Cart(cartID)); });
}

void IFCartEraser::TmrErase_Timer()
{
    Guarded(Object, QStringLiteral("TmrErase_Timer"), [this] {
        const qint64 percent = (m_clock() - m_startTime) * 100 / HoldMs;
        if (percent <= 100) {
            Progress->SetPercent(static_cast<float>(percent));
            return;
        }
        Progress->SetPercent(100);
        EraseCart();
    });
}

// Asked at each tick past the hold until the button is released, so a refusal that goes away
// (another workstation let go of the cart) still ends in the deletion.
void IFCartEraser::EraseCart()
{
    if (m_erased || !m_cart)
        return;
    const QString id = m_cart->ID();
    const std::shared_ptr<iCarts> carts = KernelCarts();
    if (carts->Exists(id)) {
        const Outcome outcome = carts->DeleteCart(id, true);
        if (outcome.failed)
            throw KernelError(QStringLiteral("Cart %1 was not erased: %2").arg(id, outcome.message));
    }
    m_erased = true;
    LblStatus->SetText(Tr(QStringLiteral("Erased")));
}

void IFCartEraser::TmrFlash_Timer()
{
    m_flashLight.Turn();
    if (m_clock() > m_expiryTime + ExpiryMs)
        SetCart(nullptr);
}

bool IFCartEraser::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == CmdErase && (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonRelease)
        && static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
        if (event->type() == QEvent::MouseButtonPress)
            CmdErase_MouseDown();
        else
            CmdErase_MouseUp();
    }
    return false;
}

void IFCartEraser::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QColor body = m_flashLight.Lit() ? QColor(58, 62, 70) : QColor(36, 38, 44);
    painter.fillRect(rect(), body);
    painter.setPen(body.darker(170));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}
