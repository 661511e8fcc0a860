#pragma once
#include <QString>

// What to play of a sound file: the stretch between two marks, in ms from the start of the
// file. A stop mark of 0, or one beyond the file, means the end of the file.
struct PlaySource
{
    QString fileName;
    int startMs = 0;
    int stopMs = 0;
};
