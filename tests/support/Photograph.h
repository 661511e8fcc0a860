#pragma once
#include <QString>

class QWidget;

// Writes a picture of a widget to build/screenshots/NAME.png of the source tree, whatever the
// build folder, so that a person finds every picture of the program in one place.
// Returns false when the picture could not be written.
bool Photograph(QWidget* widget, const QString& name);
