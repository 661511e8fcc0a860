#pragma once
#include <QString>

class DisplayLabel;
class QWidget;

// The text windows of the recorder and the eraser, like the lit display of a tape machine:
// centred bold type sized to the window's height, in the title's colours until told otherwise.
namespace TapeWindow {
DisplayLabel* Make(QWidget* parent, const QString& objectName);
}
