#pragma once
#include <QCursor>

// The pointer shown while a cart or family is dragged: an arrow carrying a small cart.
QCursor DragPointer();
