#pragma once
#include <QColor>
#include <QPixmap>
#include <QRectF>
#include <QSize>
#include <functional>

class QPainter;

// A key of a transport panel drawn in code: a rounded cap, dark and raised when released, lit
// from behind in its sign's colour when pressed. The sign is drawn by the caller into the
// key's box with no pen and the sign's colour (white on a pressed key) as the brush.
namespace KeyPicture {
using Sign = std::function<void(QPainter& painter, const QRectF& key)>;

// An empty size gives a null picture.
QPixmap Draw(const QSize& size, const QColor& signColour, bool down, const Sign& sign);
}
