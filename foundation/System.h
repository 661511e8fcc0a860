#pragma once
#include <QtGlobal>

// Milliseconds since the machine started, from the monotonic clock: never goes back when
// the wall clock is set.
qint64 TickCount();
