#pragma once
#include "browse/DataSheet.h"
#include <memory>

class CComponent;
class iCarts;
class iCart;
class iFamily;

// What the data viewer prints for the thing pointed at: a cart, a family, or nothing. All
// texts are translated. A cart is read again from the catalogue by its ID, so that a cart
// made only to carry an ID shows the stored data.
namespace DataViewerSheet {
// viewerName: the name of the viewer's own component; a cart offered by any other component
// is headed "Cart". carts: the kernel's carts, for reading the cart again.
DataSheet Of(const CComponent* source, const QString& viewerName, iCarts& carts);
DataSheet OfCart(const iCart* cart, bool heading, iCarts& carts);
DataSheet OfFamily(const iFamily* family);
}
