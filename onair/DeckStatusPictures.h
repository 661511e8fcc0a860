#pragma once
#include <QPixmap>
#include <QString>
#include <QStringList>

// The status lamps of the deck, drawn in code: a round lamp in the colour of the state with
// its sign on it. Keys are the status words "Ready", "Playing", "Paused", "Cueing", "Cued",
// "Expiring", "Sync"; unknown keys and empty sizes give a null picture.
namespace DeckStatusPictures {
QStringList Names();
QPixmap Picture(const QString& key, int side);
}
