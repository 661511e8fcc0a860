#pragma once
#include <QColor>
#include <QRectF>

class QPainter;

// The symbols of the transport keys and state lamps of the players and the recorders, drawn
// into a box of any size with the current brush, so that the pictures stay crisp at every
// panel size.
namespace TransportGlyphs {
// The box's largest centred square, shrunk by a share of its side at each edge.
QRectF Square(const QRectF& box, double inset);
// A triangle pointing right (or left) that fills the box's height.
void Triangle(QPainter& painter, const QRectF& box, bool right = true);
// A solid upright bar; a square box gives the stop sign.
void Bar(QPainter& painter, const QRectF& box);
// A filled circle, the record sign.
void Dot(QPainter& painter, const QRectF& box);
// Two bars, the pause sign, each the given share of the box's width.
void PauseBars(QPainter& painter, const QRectF& box, double barShare);
// Two triangles in a row, the winding sign.
void DoubleTriangle(QPainter& painter, const QRectF& box, bool right);
// A triangle pointing up over a flat bar, the eject sign.
void EjectSign(QPainter& painter, const QRectF& box);
// An upright bar over a dot, the warning sign.
void Exclamation(QPainter& painter, const QRectF& box);
// Three thirds of a time line with one of them lit (0 the head, 1 the middle, 2 the tail).
void Thirds(QPainter& painter, const QRectF& box, int lit, const QColor& on, const QColor& off);
// A ring arrow turning back, the recue sign.
void RingArrow(QPainter& painter, const QRectF& box, const QColor& colour);
// A wedge falling from full height to nothing, the fade sign.
void FadeWedge(QPainter& painter, const QRectF& box);
// A cassette seen from the front: the shell with its window and two reels, in outline when
// empty, with tape wound on the reels when loaded.
void Cassette(QPainter& painter, const QRectF& box, bool loaded);
// A diagonal stroke across the box, the sign of something missing or refused.
void Stroke(QPainter& painter, const QRectF& box);
}
