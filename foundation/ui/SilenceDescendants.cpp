#include "foundation/ui/SilenceDescendants.h"
#include <QObject>

void SilenceDescendants(QObject& owner)
{
    for (QObject* child : owner.findChildren<QObject*>())
        child->blockSignals(true);
}
