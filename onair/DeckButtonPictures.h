#pragma once
#include <QPixmap>
#include <QSize>
#include <QString>
#include <QStringList>

// The pictures of the deck's buttons, drawn in code: each name has a released picture (key
// name + "_U"), a dark key with a coloured symbol, and a pressed one (name + "_D"), the key
// lit from behind in the symbol's colour. Unknown keys and empty sizes give a null picture.
namespace DeckButtonPictures {
// "Rew", "FF", "Cue", "Play", "Skip", "Pause", "Eject", "Recue", "PlayStart", "PlayMid",
// "PlayStop", and "FadeOut" for the fade button.
QStringList Names();
QPixmap Picture(const QString& key, const QSize& size);
}
