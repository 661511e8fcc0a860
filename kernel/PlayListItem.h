#pragma once
#include "kernelapi/iPlayListItem.h"

class PropertyBag;

// One row of a playlist: a cart, or null for a blank row, with its flags and properties.
// Any change of the cart, a flag or a property is announced by Changed, for the list to
// store it.
class PlayListItem : public iPlayListItem
{
    Q_OBJECT
public:
    PlayListItem(std::shared_ptr<iCart> cart, std::shared_ptr<PropertyBag> properties, QObject* parent = nullptr);

    std::shared_ptr<iCart> Cart() const override { return m_cart; }
    bool Playing() const override { return m_playing; }
    bool Ignored() const override { return m_ignored; }
    void SetIgnored(bool ignored) override;
    bool Modified() const override { return m_modified; }
    void SetModified(bool modified) override;
    bool Looped() const override { return m_looped; }
    void SetLooped(bool looped) override;
    std::shared_ptr<iObjectWithProperties> Properties() const override;

    // Sets the row's cart; modifies tells whether that is an unsaved change.
    void SetCart(std::shared_ptr<iCart> cart, bool modifies);
    // Playing is the list's own state: no Changed.
    void SetPlaying(bool playing) { m_playing = playing; }
    const PropertyBag& Bag() const { return *m_properties; }

Q_SIGNALS:
    void Changed();

private:
    // Sets a flag; a change of Ignored or Looped also marks the row modified.
    void Change(bool& flag, bool value, bool modifies);

    std::shared_ptr<iCart> m_cart;
    std::shared_ptr<PropertyBag> m_properties;
    bool m_playing = false;
    bool m_ignored = false;
    bool m_modified = false;
    bool m_looped = false;
};
