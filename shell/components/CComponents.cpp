#include "shell/components/CComponents.h"
#include "shell/components/CComponent.h"

bool CComponents::Add(const QString& name, std::shared_ptr<CComponent>& component, qint32 shareType)
{
    if (!component)
        return false;
    switch (shareType) {
    case MakeUnique: {
        QString free = name;
        for (int n = 2; NameExists(free); ++n)
            free = name + QString::number(n);
        Append(free, component);
        return true;
    }
    case OneOnly:
        if (NameExists(name))
            return false;
        Append(name, component);
        return true;
    default:
        return false;
    }
}

void CComponents::Append(const QString& name, std::shared_ptr<CComponent>& component)
{
    component->SetName(name);
    m_items.push_back(component);
    component = m_items.back();
}

void CComponents::Remove(const QString&) {}

bool CComponents::NameExists(const QString& name) const
{
    for (const auto& item : m_items)
        if (item->Name() == name)
            return true;
    return false;
}
