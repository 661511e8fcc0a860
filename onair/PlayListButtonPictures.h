#pragma once
#include <QPixmap>
#include <QString>
#include <QStringList>

// The glyphs of the playlist controls' buttons, drawn in code at the button's size: "Insert"
// (a blank row coming in), "Delete", "Up", "Down", "Edit", "Refresh", "Reload", "Save" and
// "Play". Drawn light on the dark buttons; "_Disabled" after the name gives the grey one.
// Unknown keys and empty sizes give a null picture.
namespace PlayListButtonPictures {
QStringList Names();
QPixmap Picture(const QString& key, int side);
}
