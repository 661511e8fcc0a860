#pragma once
#include <QColor>
#include <QRectF>

class QPainter;

// The symbols of the deck's buttons and status lamps, drawn into a box of any size with the
// current brush, so that the pictures stay crisp at every panel size.
namespace DeckGlyphs {
// A triangle pointing right (or left) that fills the box's height.
void Triangle(QPainter& painter, const QRectF& box, bool right = true);
// A solid upright bar.
void Bar(QPainter& painter, const QRectF& box);
// Two bars, the pause sign.
void PauseBars(QPainter& painter, const QRectF& box);
// Two triangles in a row, the winding sign.
void DoubleTriangle(QPainter& painter, const QRectF& box, bool right);
// A triangle pointing up over a flat bar, the eject sign.
void EjectSign(QPainter& painter, const QRectF& box);
// Three thirds of a time line with one of them lit (0 the head, 1 the middle, 2 the tail).
void Thirds(QPainter& painter, const QRectF& box, int lit, const QColor& on, const QColor& off);
// A ring arrow turning back, the recue sign.
void RingArrow(QPainter& painter, const QRectF& box, const QColor& colour);
// A wedge falling from full height to nothing, the fade sign.
void FadeWedge(QPainter& painter, const QRectF& box);
// The box's largest centred square, shrunk by a share of its side at each edge.
QRectF Square(const QRectF& box, double inset);
}
