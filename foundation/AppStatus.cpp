#include "foundation/AppStatus.h"

qint16 AppStatus()
{
    return 1;
}
