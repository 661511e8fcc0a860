#pragma once
#include <QString>
#include <memory>
#include <vector>

class CComponent;

// The registry of components, in the order they were added. Components stay until the
// program ends: Remove is empty on purpose, so a name once taken stays taken.
class CComponents
{
public:
    // How Add treats a name that is taken.
    enum AddTypes : qint32 { OneOnly = 0, MakeUnique = 1 };

    // MakeUnique: the first free of name, name2, name3... is given to the component, which is
    // added. OneOnly: a taken name changes nothing and gives false, else the component is
    // named and added. Other types do nothing. On success the caller's reference is the
    // object held by the registry.
    bool Add(const QString& name, std::shared_ptr<CComponent>& component, qint32 shareType);
    void Remove(const QString& name);
    // Exact comparison with each component's name.
    bool NameExists(const QString& name) const;

    int Count() const { return static_cast<int>(m_items.size()); }
    std::shared_ptr<CComponent> Item(int index) const { return m_items.at(static_cast<size_t>(index)); }
    void Clear() { m_items.clear(); }

private:
    void Append(const QString& name, std::shared_ptr<CComponent>& component);

    std::vector<std::shared_ptr<CComponent>> m_items;
};
