#pragma once
#include "kernelapi/iCartList.h"
#include <vector>

// An ordered list of carts, collected by the client to fill a macro.
class CartList : public iCartList
{
    Q_OBJECT
public:
    using iCartList::iCartList;

    void Add(const std::shared_ptr<iCart>& cart) override { m_carts.push_back(cart); }
    int Count() const override { return int(m_carts.size()); }
    std::shared_ptr<iCart> Item(int index) const override;

private:
    std::vector<std::shared_ptr<iCart>> m_carts;
};
