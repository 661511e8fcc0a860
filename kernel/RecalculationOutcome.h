#pragma once
#include <QString>

// What became of one cart of a family's recalculation: its rows written, left alone (not a
// sound or a macro, or changed meanwhile), or failed for a reason to be logged.
struct RecalculationOutcome
{
    enum Kind { Written, Skipped, Failed } kind;
    QString cartID;
    QString reason;
};
