#pragma once
#include <QString>
#include <QtGlobal>

// What the eraser shows in each status: 0 no cart, 1 a cart waiting ("Erase?"), 2 the button
// held ("Erasing"), 3 released, the cart about to be ejected ("Expiring"). A fixed table,
// apart from the widgets, so that it reads as one and can be checked on its own. Texts and
// picture keys are the English ones; the panel translates the texts before showing them.
class EraserStatusTable
{
public:
    enum Status : qint32 { NoCart = 0, Ready = 1, Erasing = 2, Expiring = 3 };
    // What the title line shows: nothing, the cart's ID, or what it showed before.
    enum class Title { Empty, CartID, Unchanged };
    // Whether a timer runs, stops, or is left as it is.
    enum class Switch { Off, On, Unchanged };

    struct Row
    {
        Title title;
        bool statusChanges; // the status line takes statusText (else it keeps its text)
        const char* statusText;
        bool red;           // the status line in red, else in green
        bool flash;
        bool pictureChanges;
        const char* picture; // the key of the status picture; "Ready" is translated as a text
        Switch eraseTimer;
        bool progressToZero;
    };

    // The row of a status; any value outside 0 to 3 gives the row that says "Unknown".
    static const Row& Find(qint32 status);
};
