#pragma once
#include <QColor>
#include <QPixmap>
#include <QRectF>
#include <functional>

class QPainter;

// A round status lamp drawn in code: a dark rim round a glass in the lamp's colour, lit from
// the upper left, with a sign drawn on the glass in a dark ink. The sign is drawn by the
// caller into the glass's box with the ink as the brush and no pen.
namespace LampPicture {
using Sign = std::function<void(QPainter& painter, const QRectF& glass)>;

// An empty side gives a null picture.
QPixmap Draw(int side, const QColor& lamp, const Sign& sign);
}
