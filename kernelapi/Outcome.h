#pragma once
#include <QString>

// What the kernel answers for an operation that can be refused with a reason: whether it
// failed and, when it did, a readable message the client may show.
struct Outcome
{
    bool failed = false;
    QString message;
};
