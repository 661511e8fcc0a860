#include "editing/CartDropTarget.h"
#include "browse/drag/CDrag.h"
#include "foundation/ErrorGuard.h"
#include "kernelapi/iCart.h"
#include "shell/components/CComponent.h"
#include "shell/modInterface.h"
#include <QMouseEvent>
#include <QWidget>

CartDropTarget::CartDropTarget(QWidget& panel, const QString& componentName, DropCartID drop)
    : QObject(&panel), m_panel(panel), m_component(std::make_shared<CComponent>()), m_drop(std::move(drop))
{
    m_component->SetControl(&panel);
    modInterface::AddComponent(componentName, m_component);
    connect(m_component.get(), &CComponent::DragDrop, this, &CartDropTarget::Component_DragDrop);
}

CartDropTarget::~CartDropTarget()
{
    modInterface::RemoveComponent(m_component);
}

void CartDropTarget::WatchPanel()
{
    m_panel.installEventFilter(this);
    for (QWidget* child : m_panel.findChildren<QWidget*>())
        child->installEventFilter(this);
}

bool CartDropTarget::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::MouseMove)
        modInterface::NotifyDrag(m_component, CDrag::MouseMove, static_cast<QMouseEvent*>(event));
    else if (event->type() == QEvent::MouseButtonRelease)
        modInterface::NotifyDrag(m_component, CDrag::MouseUp, static_cast<QMouseEvent*>(event));
    return false;
}

void CartDropTarget::Component_DragDrop(const std::shared_ptr<CComponent>& source)
{
    Guarded(m_component->Name(), QStringLiteral("Component_DragDrop"), [&] {
        if (!source || source->ShareType() != CComponent::ShareCart)
            return;
        if (const auto cart = source->Shared<iCart>())
            m_drop(cart->ID());
    });
}
