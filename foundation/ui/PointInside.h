#pragma once

class QWidget;

// Whether a point in the container's own pixels lies on it: false when x or y is below 0 or
// beyond its width or height.
bool PointInside(const QWidget* container, int x, int y);
