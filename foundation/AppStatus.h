#pragma once
#include <QtGlobal>

// The playback line that the editing screens should use: the first of line 1 and line 2 that
// the audio board reports free, and 1 when neither is. The board access object does not
// exist in this workstation (the embedded kernel owns the audio lines), so every line counts
// as busy and the answer is always 1.
qint16 AppStatus();
