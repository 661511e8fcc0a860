#pragma once
#include <QRgb>
#include <QtGlobal>

// What a deck shows in each status of its player: the status line's text and colour, the
// flashing, the winding keys, Eject, the buttons on top of the three shared places, the meter
// and the panel's colour. A fixed table, apart from the widgets, so that it reads as one and
// can be checked on its own.
class DeckStatusTable
{
public:
    // What the status line says.
    enum class Text { Empty, Playing, PauseClock, CueClock, Unchanged, Sync };
    // Which buttons come to the top of the shared places in normal mode: Cue, Play and Skip;
    // Cue, Pause and Skip; or Play with Cue or Recue (Recue once the cue point is not the start).
    enum class Slots { CuePlaySkip, CuePauseSkip, Cued };

    struct Row
    {
        Text text;
        bool red;         // the status line in red, else in green
        bool flash;       // the title and status lines flash
        bool cuers;       // the winding keys show and the status line makes room for them
        bool ejectNormal; // Eject shows in normal mode (it always shows in triple play mode)
        Slots top;
        bool skipVisible;
        bool resetTriple; // the triple play keys are released
        bool clearMeter;
        QRgb background;
    };

    // The panel's colour when no status applies.
    static constexpr QRgb Dark = 0xff404040;

    // The row of a status, 0 Ready to 6 Sync; null for any other value.
    static const Row* Find(qint32 status);
};
