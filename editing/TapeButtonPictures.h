#pragma once
#include <QPixmap>
#include <QSize>
#include <QString>
#include <QStringList>

// The pictures of the recorder's and the eraser's buttons, drawn in code. A button's pictures
// are keyed "_U" (released: a dark key with a coloured sign) and "_D" (pressed: the key lit
// in the sign's colour) in front of the button's word: "_URec", "_DRec". Unknown keys and
// empty sizes give a null picture.
namespace TapeButtonPictures {
// "Blank", "Rec", "Pause", "Eject", "Erase".
QStringList Words();
QPixmap Picture(const QString& key, const QSize& size);
}
