#include "browse/IFDataViewer.h"
#include "browse/DataPicture.h"
#include "browse/DataViewerSheet.h"
#include "browse/drag/CDrag.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/controls/VolmarPannel.h"
#include "foundation/ui/SilenceDescendants.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCarts.h"
#include "shell/components/CComponent.h"
#include "shell/modInterface.h"
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QTimer>

namespace {
const QString Object = QStringLiteral("IFDataViewer");
}

IFDataViewer::IFDataViewer(QWidget* parent)
    : QWidget(parent), m_component(std::make_shared<CComponent>())
{
    setObjectName(QStringLiteral("IFDataViewer"));
    BuildControls();
    modInterface::AddComponent(QStringLiteral("DataViewer"), m_component);
    m_component->SetControl(this);
    connect(m_component.get(), &CComponent::DragDrop, this, &IFDataViewer::Component_DragDrop);
    connect(m_component.get(), &CComponent::ChangedProperty, this, &IFDataViewer::Component_ChangedProperty);
    Load();
}

IFDataViewer::~IFDataViewer()
{
    SilenceDescendants(*this);
    modInterface::RemoveComponent(m_component);
}

void IFDataViewer::BuildControls()
{
    VolmarPannel1 = new VolmarPannel(this);
    VolmarPannel1->SetPresetColor(1);
    VolmarPannel1->SetCaption({});
    VolmarPannel1->SetBorder(3);
    VolmarPannel1->SetBorderCaption(3);
    VolmarPannel1->SetVisibleGuide(false);
    PicData = new DataPicture(VolmarPannel1);
    PicData->setObjectName(QStringLiteral("PicData"));
    PicData->setMouseTracking(true);
    PicData->installEventFilter(this);

    TmrDelayedLoad = new QTimer(this);
    TmrDelayedLoad->setObjectName(QStringLiteral("TmrDelayedLoad"));
    TmrDelayedLoad->setSingleShot(true);
    TmrDelayedLoad->setInterval(DelayedLoadMs);
    connect(TmrDelayedLoad, &QTimer::timeout, this, [this] {
        TmrDelayedLoad->stop();
        Load();
    });
}

void IFDataViewer::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    VolmarPannel1->setGeometry(rect());
}

void IFDataViewer::DelayedLoad(const std::shared_ptr<CComponent>& source)
{
    m_source = source;
    TmrDelayedLoad->start();
}

void IFDataViewer::Drop(const QString& cartID)
{
    Guarded(Object, QStringLiteral("Drop"), [&] {
        std::shared_ptr<CKernel> kernel = Globals::Kernel();
        if (!kernel)
            return;
        m_cartID = cartID;
        std::shared_ptr<iCart> cart = kernel->Carts()->NewCart();
        cart->SetID(cartID);
        {
            // One load for the whole change, not one per property.
            const QSignalBlocker quiet(m_component.get());
            m_component->SetShareType(CComponent::ShareCart);
            m_component->SetSharedObject(cart);
        }
        m_source = m_component;
        Load();
    });
}

void IFDataViewer::Component_DragDrop(const std::shared_ptr<CComponent>& source)
{
    m_source = source;
    Load();
}

void IFDataViewer::Component_ChangedProperty()
{
    Load();
}

void IFDataViewer::Load()
{
    TmrDelayedLoad->stop();
    PicData->Cls();
    Guarded(Object, QStringLiteral("Load"), [this] {
        std::shared_ptr<CKernel> kernel = Globals::Kernel();
        if (!kernel)
            return;
        PicData->Show(DataViewerSheet::Of(m_source.get(), m_component->Name(), *kernel->Carts()));
    });
}

QStringList IFDataViewer::Text() const
{
    return PicData->Sheet().Text();
}

bool IFDataViewer::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == PicData) {
        if (event->type() == QEvent::MouseButtonPress)
            OnMouse(static_cast<const QMouseEvent*>(event), CDrag::MouseDown);
        else if (event->type() == QEvent::MouseMove)
            OnMouse(static_cast<const QMouseEvent*>(event), CDrag::MouseMove);
        else if (event->type() == QEvent::MouseButtonRelease)
            OnMouse(static_cast<const QMouseEvent*>(event), CDrag::MouseUp);
    }
    return QWidget::eventFilter(watched, event);
}

void IFDataViewer::OnMouse(const QMouseEvent* event, int notification)
{
    if (notification == CDrag::MouseDown)
        m_component->SetControl(this);
    modInterface::NotifyDrag(m_component, notification, event);
}
