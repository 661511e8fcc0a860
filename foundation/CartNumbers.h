#pragma once
#include <QString>

// The next cart number of a family, as four digits, read from the Cart table of SoundDB.
// Without fillHoles: the number after the highest; with fillHoles: the first number of the
// run 0, 1, 2... that is missing, or the one after the last when there is no gap. A family
// without carts gives "0000"; a number above 9999 keeps its last four digits. The number of
// an ID is what the kernel's carts say it is. Throws KernelError without a database or kernel.
QString FreeCartNumber(const QString& prefix, bool fillHoles);
