#include "kernel/CartList.h"
#include "kernelapi/KernelError.h"

std::shared_ptr<iCart> CartList::Item(int index) const
{
    if (index < 1 || index > Count())
        throw KernelError(QStringLiteral("Cart list item %1 is outside 1 to %2").arg(index).arg(Count()));
    return m_carts[size_t(index - 1)];
}
