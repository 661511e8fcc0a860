#include "shell/components/CComponent.h"

template <class T> void CComponent::Change(T& field, const T& value)
{
    if (field == value)
        return;
    field = value;
    Q_EMIT ChangedProperty();
}

void CComponent::SetName(const QString& name) { Change(m_name, name); }
void CComponent::SetShareType(qint32 shareType) { Change(m_shareType, shareType); }
void CComponent::SetSharedObject(std::shared_ptr<QObject> object) { Change(m_sharedObject, object); }

void CComponent::SetControl(QWidget* control)
{
    if (m_control == control)
        return;
    m_control = control;
    Q_EMIT ChangedProperty();
}

void CComponent::RaiseEventDragDrop(const std::shared_ptr<CComponent>& source)
{
    Q_EMIT DragDrop(source);
}
