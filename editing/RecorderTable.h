#pragma once
#include <QList>
#include <QRgb>
#include <QtGlobal>

// What the recorder panel shows and does for the states of its recorder: the picture of the
// load state, the look of each recording state (picture, Rec and Pause held down, the panel's
// colour), and what each button asks of the recorder. A fixed table, apart from the widgets.
class RecorderTable
{
public:
    struct Look
    {
        const char* picture;
        bool recDown;
        bool pauseDown;
        QRgb background;
    };

    enum class Button { Rec, Pause };
    enum class Command { Record, Stop, Pause, Resume };

    // The picture key of a load state, 0 "Free" to 2 "Loaded"; null for any other value.
    static const char* LoadPicture(qint32 loadState);
    // The look of a recording state, 0 stopped to 2 paused; null for any other value.
    static const Look* RecordingLook(qint32 recordingState);
    // What a press of Rec or Pause asks of the recorder in a recording state, in order; Pause
    // on a stopped recorder arms it (Record then Pause). Nothing for an unknown state.
    static QList<Command> Actions(Button button, qint32 recordingState);
};
