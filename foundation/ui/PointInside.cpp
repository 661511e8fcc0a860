#include "foundation/ui/PointInside.h"
#include <QWidget>

bool PointInside(const QWidget* container, int x, int y)
{
    return x >= 0 && y >= 0 && x <= container->width() && y <= container->height();
}
