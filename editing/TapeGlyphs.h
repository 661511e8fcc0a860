#pragma once
#include <QRectF>

class QPainter;

// The signs of the recorder's and the eraser's buttons and lamps, drawn into a box of any size
// with the current brush, so that the pictures stay crisp at every panel size.
namespace TapeGlyphs {
// The box's largest centred square, shrunk by a share of its side at each edge.
QRectF Square(const QRectF& box, double inset);
// A filled circle, the record sign.
void Dot(QPainter& painter, const QRectF& box);
// A filled square, the stop sign.
void Block(QPainter& painter, const QRectF& box);
// Two bars, the pause sign.
void PauseBars(QPainter& painter, const QRectF& box);
// A triangle pointing up over a flat bar, the eject sign.
void EjectSign(QPainter& painter, const QRectF& box);
// A cassette seen from the front: the shell with its window and two reels, in outline when
// empty, with tape wound on the reels when loaded.
void Cassette(QPainter& painter, const QRectF& box, bool loaded);
// A diagonal stroke across the box, the sign of something missing or refused.
void Stroke(QPainter& painter, const QRectF& box);
// An upright bar over a dot, the warning sign.
void Exclamation(QPainter& painter, const QRectF& box);
}
