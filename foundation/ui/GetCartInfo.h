#pragma once
#include "foundation/CartInfo.h"

// Reads one cart (ReadCartInfo). A sound cart whose Sound row is missing shows one box that
// asks the user to call the administrator, and gives the empty record.
CartInfo GetCartInfo(const QString& cartID);
