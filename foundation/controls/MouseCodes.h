#pragma once
#include <Qt>

// The codes with which the controls report a mouse event to their hosts: button 1 left,
// 2 right, 4 middle; shift 1 Shift, 2 Ctrl, 4 Alt. Several held together add up.
namespace MouseCodes {
inline int Button(Qt::MouseButtons buttons)
{
    return (buttons & Qt::LeftButton ? 1 : 0) | (buttons & Qt::RightButton ? 2 : 0) | (buttons & Qt::MiddleButton ? 4 : 0);
}

inline int Shift(Qt::KeyboardModifiers modifiers)
{
    return (modifiers & Qt::ShiftModifier ? 1 : 0) | (modifiers & Qt::ControlModifier ? 2 : 0) | (modifiers & Qt::AltModifier ? 4 : 0);
}
}
