#include "kernel/PlayListItem.h"
#include "kernel/PropertyBag.h"

PlayListItem::PlayListItem(std::shared_ptr<iCart> cart, std::shared_ptr<PropertyBag> properties, QObject* parent)
    : iPlayListItem(parent), m_cart(std::move(cart)), m_properties(std::move(properties))
{
    for (auto signal : {&PropertyBag::AddedProperty, &PropertyBag::ChangedProperty, &PropertyBag::RemovedProperty})
        connect(m_properties.get(), signal, this, [this] {
            m_modified = true;
            Q_EMIT Changed();
        });
}

void PlayListItem::SetIgnored(bool ignored)
{
    Change(m_ignored, ignored, true);
}

void PlayListItem::SetModified(bool modified)
{
    Change(m_modified, modified, false);
}

void PlayListItem::SetLooped(bool looped)
{
    Change(m_looped, looped, true);
}

std::shared_ptr<iObjectWithProperties> PlayListItem::Properties() const
{
    return m_properties;
}

void PlayListItem::SetCart(std::shared_ptr<iCart> cart, bool modifies)
{
    m_cart = std::move(cart);
    m_modified = m_modified || modifies;
    Q_EMIT Changed();
}

void PlayListItem::Change(bool& flag, bool value, bool modifies)
{
    if (flag == value)
        return;
    flag = value;
    if (modifies)
        m_modified = true;
    Q_EMIT Changed();
}
