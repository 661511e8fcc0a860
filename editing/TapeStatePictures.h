#pragma once
#include <QPixmap>
#include <QString>
#include <QStringList>

// The state lamps of the recorder and the eraser, drawn in code: a round lamp in the colour of
// the state with its sign on it. Keys: the load states "Free", "Proposed", "Loaded"; the
// recording states "Stop", "Recording", "Paused"; the eraser's "NoBlankTape", "Ready",
// "Erasing", "Expiring". Unknown keys and empty sizes give a null picture.
namespace TapeStatePictures {
QStringList Names();
QPixmap Picture(const QString& key, int side);
}
