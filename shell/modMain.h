#pragma once
#include <functional>

// The road from process start to a visible menu, and back to the end of the process.
namespace modMain {
// Entry of the workstation: progress window, kernel, interface. Returns false when start-up
// ended the process (the caller then returns the exit code without running the event loop).
bool Main();
// Stops the interface and ends the process.
void EndApplication();
// FinishApp, then EndApplication.
void UnloadApplication();

// Stops the interface, deletes every open form, closes the shared recordsets and lets go of
// the kernel and the logger, so that nothing of the interface outlives the application object
// and Main may run again in the same process.
void TearDown();

// How the process ends: by default the process exits with the code; tests record it instead.
void SetProcessEnder(std::function<void(int code)> ender);
void EndProcess(int code);
// The exit code once the process has been asked to end, else -1.
int EndedWith();
}
