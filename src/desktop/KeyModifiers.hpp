#pragma once
#include <Qt>

namespace pendulon {

// The product's shift argument of mouse and key events: 1 Shift, 2 Ctrl, 4 Alt.
inline int ShiftOf(Qt::KeyboardModifiers modifiers) {
    int shift = 0;
    if (modifiers & Qt::ShiftModifier)
        shift |= 1;
    if (modifiers & Qt::ControlModifier)
        shift |= 2;
    if (modifiers & Qt::AltModifier)
        shift |= 4;
    return shift;
}

}  // namespace pendulon
