#pragma once

// Lets the event loop run one pass, ignoring any error, so that a window repaints during long
// work. Timers and events may run inside it: callers that can be re-entered guard themselves.
void Yield();
