#pragma once

class CInterface;

// The interface root: created once by StartInterface, cleared by StopInterface.
namespace modInterface {
bool StartInterface();
void StopInterface();
// The interface root, or null before StartInterface finished and after StopInterface.
CInterface* Interface();
// 1 from the end of StartInterface, 0 from the first statement of StopInterface.
int InterfaceStarted();
}
