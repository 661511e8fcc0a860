#pragma once
#include "kernel/FamilyStore.h"
#include "kernelapi/iFamilies.h"
#include <optional>
#include <vector>

class CartWorld;
class Family;

// All families, by ID, read the first time they are needed. A family object stays the same
// while its row exists, across Refresh. A new family is given to the private group of the
// user who makes it (the group named after the user), with the write right, so that its
// maker can fill it.
class Families : public iFamilies
{
    Q_OBJECT
public:
    explicit Families(std::shared_ptr<CartWorld> world, QObject* parent = nullptr);
    ~Families() override;

    int Count() const override;
    std::shared_ptr<iFamily> Item(int index) const override;
    std::shared_ptr<iFamily> Item(const QString& familyID) const override;
    void Remove(const QString& familyID) override;
    void Add(const QString& name, const QString& description) override;
    void Refresh() override;
    // Takes up what another workstation changed: the family list (Changed when it differs
    // from the store) and the carts of every family already read, but those whose rechecks
    // are held (see CartWorld::HoldRechecks).
    void Recheck();
    bool Exists(const QString& familyID) const override;
    // Refresh, then every family reads its row again and raises ChangedContents.
    void RefreshAll();

    // The family of that ID; null when there is none. Never throws for a bad ID.
    std::shared_ptr<Family> Find(const QString& familyID) const;

private:
    // The family of that ID; throws KernelError for a bad ID or one with no family.
    std::shared_ptr<Family> Require(const QString& familyID) const;
    std::vector<std::shared_ptr<Family>>& List() const;
    std::shared_ptr<Family> Make(const FamilyStore::Row& row) const;
    void Insert(const std::shared_ptr<Family>& family) const;
    std::shared_ptr<Family> Loaded(const QString& familyID) const;
    void ContentsChanged(const QString& familyID);
    void CartChanged(const QString& cartID);

    std::shared_ptr<CartWorld> m_world;
    mutable std::optional<std::vector<std::shared_ptr<Family>>> m_families;
};
