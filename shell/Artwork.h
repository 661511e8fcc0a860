#pragma once
#include <QPixmap>
#include <QSize>

// The pictures of the shell, drawn in code: the station emblem and the backdrop of the menu.
namespace Artwork {
QPixmap Logo(const QSize& size);
QPixmap Backdrop(const QSize& size);
// The picture of a button of the configuration screen, by the button's index.
QPixmap ConfigIcon(int index, const QSize& size);
}
