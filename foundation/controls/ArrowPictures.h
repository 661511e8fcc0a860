#pragma once
#include <QPixmap>
#include <QString>

// The pictures of the arrow buttons of a number box, drawn in code: "Left_U", "Left_D",
// "Right_U", "Right_D" (released and pressed) and "Left_Disabled", "Right_Disabled".
// An unknown key gives an empty picture.
namespace ArrowPictures {
QPixmap Picture(const QString& key, int side);
}
