#pragma once

class QObject;

// Blocks the signals of every descendant of owner. Called first in the destructor of a widget
// that connects its children's signals to itself: the toolkit deletes the children after the
// widget's own part is gone, and a child that emits while it goes (a focus change, an edit
// finished) would otherwise reach a slot or a lambda of a half-destroyed widget.
void SilenceDescendants(QObject& owner);
