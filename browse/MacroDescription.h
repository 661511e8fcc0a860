#pragma once
#include <QString>

// The description asked for when a macro (a playlist's too) is saved without one: an input box
// whose default is "New Macro" and a running number shared by the whole program, so that two
// macros saved one after the other are told apart even when the user only presses OK.
namespace MacroDescription {
// The number after previous: 1 to 1000000, back to 1 after that.
int NextNumber(int previous);
// Asks for the description; empty when the box is cancelled or left blank.
QString Ask();
}
