#include "foundation/Yield.h"
#include <QCoreApplication>

void Yield()
{
    try {
        QCoreApplication::processEvents();
    } catch (...) {
    }
}
