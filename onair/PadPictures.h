#pragma once
#include <QPixmap>
#include <QString>

// The pictures of the pads, drawn at the size asked: the icon of a cart type ("SOUND",
// "MACRO", "ACTION", "UNKNOWN", "BLANK" for a free pad) and the two faces of the panel's
// two-state buttons ("CmdClicked": lit, "CmdNotClicked": dark) with the button's sign
// ("Keys" or "Mouse").
namespace PadPictures {
QPixmap Icon(const QString& key, int side);
QPixmap Switch(bool clicked, const QString& sign, const QSize& size);
}
